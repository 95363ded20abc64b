#pragma once

#include "base/QBDate.h"

class CVDocument;

/// The size of a generated budget. The same values give the same budget on every machine.
struct CVScaleBudget {
    std::size_t transactions = 1000;
    /// The number of categories, at least 1 when there are transactions.
    std::size_t categories = 40;
    /// The number of transaction sets; with 0, the transactions belong to set 0.
    std::size_t sets = 2;
    /// The number of years, at least 1.
    int years = 10;
    quint64 seed = 1;
    QBDate lastDay = QBDate::date();
};

/// Fills a new document with transactions spread evenly over the years and with payees and remarks that recur. The
/// transactions are sorted and the document's bounds are set, as after loading.
void CVFillScaleBudget(CVDocument& document, const CVScaleBudget& budget);
