#pragma once

class CVDocument;
class QBDate;

/// Fills a new document with the two years of a made-up family up to and including `today`: regular bills, daily
/// shopping, holidays, income and savings each in a set of its own, and an estimate for most categories. The same day
/// makes the same budget.
void CVFillHouseholdBudget(CVDocument& document, const QBDate& today);
