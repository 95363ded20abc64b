#pragma once

class BudgetBuilder;
class CVDocument;

/// Reads into an empty budget what the data file of the document would hold.
void readInto(BudgetBuilder& read, const CVDocument& document);
