#include "budget/PlainScan.h"

#include "base/QBMoney.h"
#include "model/CVCategory.h"
#include "model/CVCompareTransactions.h"
#include "model/CVTransaction.h"

#include <algorithm>
#include <cmath>

namespace PlainScan {

namespace {

double round2(double value) {
    return RoundDoubleToTwoPlaces(value);
}

bool isInRange(const CVTransaction& transaction, const CVDayRange& range) {
    const auto date = transaction.effectiveDate();
    return date && (date->comesAfter(range.start) || date->isSameDayAs(range.start)) &&
           (date->comesBefore(range.end) || date->isSameDayAs(range.end));
}

qint64 daysBetween(const QBDate& earlier, const QBDate& later) {
    qint64 days = 0;
    later.yearsMonthsDaysSinceDate(nullptr, nullptr, &days, earlier);
    return days;
}

qint64 daysOf(const CVDayRange& range) {
    return daysBetween(range.start, range.end.dateByAddingYears(0, 0, 1));
}

qint64 monthsOf(const CVDayRange& range) {
    qint64 months = 0;
    range.end.dateByAddingYears(0, 0, 1).yearsMonthsDaysSinceDate(nullptr, &months, nullptr, range.start);
    return months;
}

void setDefaultAmounts(Figures& figures, double amount) {
    figures.billFrequency = QStringLiteral("Monthly");
    figures.total = amount;
    figures.monthly = amount;
    figures.biWeekly = amount * 12 / 26;
    figures.weekly = amount * 12 / 52;
    figures.monthlyPeriods = 1;
    figures.biWeeklyPeriods = 1;
    figures.weeklyPeriods = 1;
}

/// The sum of the days between neighbouring transactions, from the newest to the oldest.
double spread(CVTransactions found) {
    const CVTransactionSortContext newestFirst{QStringLiteral("date"), true};
    std::stable_sort(found.begin(), found.end(), [&newestFirst](const auto& a, const auto& b) {
        return CVCompareTransactions(*a, *b, newestFirst) < 0;
    });
    double span = 0;
    for (std::size_t i = 1; i < found.size(); ++i)
        span += static_cast<double>(daysBetween(*found[i]->effectiveDate(), *found[i - 1]->effectiveDate()));
    return span;
}

void classifyByMonths(Figures& figures, qint64 months) {
    figures.monthly = months > 0 ? round2(figures.total / static_cast<double>(months)) : 0.0;
    figures.biWeekly = round2(figures.monthly * 12 / 26);
    figures.weekly = round2(figures.biWeekly * 0.5);
}

/// The number of whole periods of `length` days in `days` days.
double wholePeriods(qint64 days, qint64 length) {
    const qint64 periods = days / length;
    return static_cast<double>(periods);
}

void classify(Figures& figures, qint64 interval, const CVDayRange& range) {
    const qint64 days = daysOf(range);
    if (interval <= 11) {
        figures.billFrequency = QStringLiteral("Weekly");
        figures.budgetExpenseFrequency = 0;
        figures.weekly = days >= 7 ? round2(figures.total / wholePeriods(days, 7)) : 0.0;
        figures.biWeekly = round2(figures.weekly + figures.weekly);
        figures.monthly = round2(figures.weekly * 52 / 12);
        return;
    }
    if (interval <= 21) {
        figures.billFrequency = QStringLiteral("Bi-Weekly");
        figures.budgetExpenseFrequency = 1;
        figures.biWeekly = days >= 14 ? round2(figures.total / wholePeriods(days, 14)) : 0.0;
        figures.weekly = round2(figures.biWeekly * 0.5);
        figures.monthly = round2(figures.weekly * 52 / 12);
        return;
    }
    if (interval <= 44) {
        figures.billFrequency = QStringLiteral("Monthly");
        figures.budgetExpenseFrequency = 3;
    } else if (interval <= 75) {
        figures.billFrequency = QStringLiteral("2 Months");
        figures.budgetExpenseFrequency = 4;
    } else if (interval <= 125) {
        figures.billFrequency = QStringLiteral("Quarterly");
        figures.budgetExpenseFrequency = 5;
    } else if (interval <= 250) {
        figures.billFrequency = QStringLiteral("Semi-Annually");
        figures.budgetExpenseFrequency = 6;
    } else {
        figures.billFrequency = QStringLiteral("Yearly");
        figures.budgetExpenseFrequency = 7;
    }
    classifyByMonths(figures, monthsOf(range));
}

} // namespace

Figures Figures::of(const CVCategory& category) {
    return {category.billFrequency(),  category.budgetExpenseFrequency(),
            category.total(),          category.monthly(),
            category.biWeekly(),       category.weekly(),
            category.monthlyPeriods(), category.biWeeklyPeriods(),
            category.weeklyPeriods(),  category.numberOfTransactions()};
}

Figures averages(const CVCategory& category, const CVTransactions& transactions, const CVDayRange& range) {
    Figures figures;
    figures.budgetExpenseFrequency = 3;
    double sum = 0;
    CVTransactions found;
    for (const auto& transaction : transactions) {
        if (transaction->categoryID() != category.uniqueID())
            continue;
        if (isInRange(*transaction, range)) {
            sum += transaction->amount();
            found.push_back(transaction);
        }
        sum = round2(sum);
    }
    const auto count = static_cast<quint64>(found.size());
    figures.numberOfTransactions = count;
    if (count == 0) {
        setDefaultAmounts(figures, sum);
        return figures;
    }
    figures.total = sum;
    const double span =
        count == 1 ? std::min<double>(365, static_cast<double>(daysOf(range))) : spread(std::move(found));
    const auto interval = static_cast<qint64>(count == 1 ? span : span / static_cast<double>(count - 1));
    if (count > 1 && interval < 1) {
        setDefaultAmounts(figures, figures.total);
        return figures;
    }
    figures.weeklyPeriods = static_cast<quint32>(static_cast<qint64>(round2(span / 7)));
    figures.biWeeklyPeriods = static_cast<quint32>(static_cast<qint64>(round2(span / 14)));
    figures.monthlyPeriods = static_cast<quint32>(static_cast<qint64>(round2(span / 30)));
    classify(figures, interval, range);
    return figures;
}

double taxExpense(const CVCategory& category, const CVTransactions& transactions, const CVDayRange& range) {
    double sum = 0;
    for (const auto& transaction : transactions) {
        if (transaction->taxFlag() && transaction->categoryID() == category.uniqueID() &&
            isInRange(*transaction, range))
            sum = round2(transaction->amount() + sum);
    }
    return sum;
}

quint64 taxItems(const CVCategory& category, const CVTransactions& transactions, const CVDayRange& range) {
    return static_cast<quint64>(std::count_if(transactions.begin(), transactions.end(), [&](const auto& transaction) {
        return transaction->taxFlag() && transaction->categoryID() == category.uniqueID() &&
               isInRange(*transaction, range);
    }));
}

double averagePerFrequency(const CVCategory& category, const CVTransactions& transactions, const CVDayRange& range) {
    double sum = 0;
    for (const auto& transaction : transactions) {
        if (transaction->categoryID() == category.uniqueID() && isInRange(*transaction, range))
            sum = round2(transaction->amount() + sum);
    }
    const qint64 days = daysOf(range);
    const qint64 months = monthsOf(range);
    qint64 periods = 0;
    switch (category.expenseFrequency()) {
    case 0:
        periods = days / 7;
        break;
    case 1:
        periods = days / 14;
        break;
    case 2:
        periods = months * 2;
        break;
    case 3:
        periods = months;
        break;
    case 4:
        periods = months / 2;
        break;
    case 5:
        periods = months / 3;
        break;
    case 6:
        periods = months / 6;
        break;
    case 7:
        periods = months / 12;
        break;
    default:
        return 0;
    }
    return periods < 1 ? 0 : round2(sum / static_cast<double>(periods));
}

double percentDivisor(const CVTransactions& transactions, const CVDayRange& range) {
    double all = 0;
    for (const auto& transaction : transactions) {
        if (isInRange(*transaction, range))
            all += transaction->amount();
    }
    all = round2(all);
    return all < 0.01 ? 1.0 : all;
}

double comparisonValue(double monthly, qint64 frequency) {
    switch (frequency) {
    case 0:
        return round2(monthly * 12 / 52);
    case 1:
        return round2(monthly * 12 / 26);
    case 2:
        return round2(monthly * 0.5);
    case 3:
        return monthly;
    case 4:
        return monthly + monthly;
    case 5:
        return monthly * 3;
    case 6:
        return monthly * 6;
    case 7:
        return monthly * 12;
    default:
        return 0;
    }
}

CVTransactions transactionsForDateRange(const CVTransactions& transactions, const CVDayRange& range,
                                        const CVCategory* category) {
    CVTransactions found;
    for (const auto& transaction : transactions) {
        if (!isInRange(*transaction, range))
            continue;
        if (!category || category->uniqueID() == 0 || transaction->categoryID() == category->uniqueID())
            found.push_back(transaction);
    }
    return found;
}

std::optional<double> cell(const CVTransactions& transactions, const CVDayRange& range, const CVCategory* category) {
    double sum = 0;
    for (const auto& transaction : PlainScan::transactionsForDateRange(transactions, range, category))
        sum += transaction->amount();
    sum = round2(sum);
    return std::abs(sum) > 0.000001 ? std::optional(sum) : std::nullopt;
}

CVCategories rows(const CVDocument& document, int showUnusedCategories) {
    CVCategories rows;
    for (const auto& category : document.categories()) {
        if (document.categoryInUse(*category) || static_cast<quint8>(showUnusedCategories) == 1)
            rows.push_back(category);
    }
    return rows;
}

} // namespace PlainScan
