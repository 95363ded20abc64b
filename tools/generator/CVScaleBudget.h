#pragma once

#include "base/QBDate.h"

class CVDocument;

/// What a budget of any size is made of. The same values make the same budget, on every machine.
struct CVScaleBudget {
    std::size_t transactions = 1000;
    /// At least 1 when there are transactions.
    std::size_t categories = 40;
    /// Without any, the transactions belong to set 0.
    std::size_t sets = 2;
    /// At least 1.
    int years = 10;
    quint64 seed = 1;
    QBDate lastDay = QBDate::date();
};

/// Fills a new document: transactions spread evenly over the years, payees and remarks that recur, everything in order
/// and with its bounds, as after loading.
void CVFillScaleBudget(CVDocument& document, const CVScaleBudget& budget);
