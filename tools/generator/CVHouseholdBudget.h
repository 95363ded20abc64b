#pragma once

class CVDocument;
class QBDate;

/// Fills a new document with two years of a made-up family's transactions, up to and including `today`: regular bills,
/// daily shopping, holidays, income and savings, each account in a set of its own, and an estimate for most categories.
/// The same day gives the same budget.
void CVFillHouseholdBudget(CVDocument& document, const QBDate& today);
