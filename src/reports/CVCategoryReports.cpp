#include "base/QBMoney.h"
#include "budget/CVCategoryAverages.h"
#include "budget/CVCategorySlots.h"
#include "budget/CVSpending.h"
#include "format/QBDateFormatter.h"
#include "format/QBMoneyFormatter.h"
#include "model/CVCategory.h"
#include "model/CVTransaction.h"
#include "reports/CVComputedReport.h"

namespace {

constexpr double kSmallestDivisor = 0.01;
constexpr int kDecimals = 2;

/// The names of the frequencies in this report, some of which differ from those elsewhere.
constexpr std::array<const char*, 8> kFrequencies{
    QT_TRANSLATE_NOOP("CVReport", "Weekly"),        QT_TRANSLATE_NOOP("CVReport", "Weekly"),
    QT_TRANSLATE_NOOP("CVReport", "Semi-Monthly"),  QT_TRANSLATE_NOOP("CVReport", "Monthly"),
    QT_TRANSLATE_NOOP("CVReport", "2 Months"),      QT_TRANSLATE_NOOP("CVReport", "Quarterly"),
    QT_TRANSLATE_NOOP("CVReport", "Semi-Annually"), QT_TRANSLATE_NOOP("CVReport", "Annually")};

QString frequencyText(qint64 code) {
    return code >= 0 && code < static_cast<qint64>(kFrequencies.size())
               ? CVReport::tr(kFrequencies[static_cast<std::size_t>(code)])
               : QString();
}

/// Writes the cells of a report in the locale in force.
class FigureCells final {
public:
    [[nodiscard]] CVReportCell money(double amount) const {
        return {mMoney.string(amount), RoundDoubleToTwoPlaces(amount)};
    }
    [[nodiscard]] static CVReportCell number(qint64 number) {
        return {QString::number(number), static_cast<double>(number)};
    }
    [[nodiscard]] static CVReportCell words(const QString& words) { return {words, words}; }
    [[nodiscard]] static CVReportCell percent(double percent) {
        return {QString::number(percent, 'f', kDecimals) + u'%', percent};
    }

private:
    QBMoneyFormatter mMoney;
};

/// `title` has the placeholders %1 and %2 for the two days.
std::unique_ptr<CVComputedReport> makeReport(CVReportType type, const QString& title, const CVDayRange& range) {
    const QBDateFormatter dates;
    const auto columns = CVColumnsOfReport(type);
    return std::make_unique<CVComputedReport>(type, title.arg(dates.string(range.start), dates.string(range.end)),
                                              columns, CVHeadingsOfColumns(columns));
}

/// The sum of the amounts in the range, added in the transactions' order without rounding.
double spentInRange(const CVTransactions& transactions, const CVDayRange& range) {
    double sum = 0;
    for (const auto& transaction : transactions) {
        if (range.contains(transaction->effectiveDate()))
            sum += transaction->amount();
    }
    return sum;
}

} // namespace

std::unique_ptr<CVReport> CVReport::initWithCatgoryAverages(const CVCategories& categories, const QBDate& startDate,
                                                            const QBDate& endDate) {
    const FigureCells cells;
    auto report =
        makeReport(CVReportType::CategoryAverages, tr("Category Averages Report for: %1 to %2"), {startDate, endDate});
    for (const auto& category : categories) {
        report->addCategory(category->categoryName(),
                            {FigureCells::words(category->billFrequency()),
                             FigureCells::number(category->numberOfTransactions()), cells.money(category->total()),
                             cells.money(category->monthly()), cells.money(category->biWeekly()),
                             cells.money(category->weekly())});
    }
    return report;
}

std::unique_ptr<CVReport> CVReport::initWithCatgoryTotals(const CVCategories& categories,
                                                          const CVTransactions& transactions, const QBDate& startDate,
                                                          const QBDate& endDate) {
    const FigureCells cells;
    const CVSpendingOfRange spending(transactions, CVIDsOfCategories(categories), {startDate, endDate});
    auto report =
        makeReport(CVReportType::CategoryTotals, tr("Plan vs Actual Report for: %1 to %2"), {startDate, endDate});
    for (const auto& category : categories) {
        const double target = category->expenseTarget();
        const double average = RoundDoubleToTwoPlaces(averagePerFrequency(*category, spending));
        report->addCategory(category->categoryName(), {FigureCells::words(frequencyText(category->expenseFrequency())),
                                                       cells.money(RoundDoubleToTwoPlaces(target)),
                                                       cells.money(average), cells.money(target - average)});
    }
    return report;
}

std::unique_ptr<CVReport> CVReport::initWithCatgoryPercents(const CVCategories& categories,
                                                            const CVTransactions& transactions, const QBDate& startDate,
                                                            const QBDate& endDate) {
    const FigureCells cells;
    const double spent = spentInRange(transactions, {startDate, endDate});
    const double divisor = spent < kSmallestDivisor ? 1.0 : spent;
    auto report = makeReport(CVReportType::CategoryPercents, tr("Percent Report for: %1 to %2"), {startDate, endDate});
    for (const auto& category : categories) {
        const double percent = RoundDoubleToTwoPlaces(category->total() / divisor * 100);
        report->addCategory(category->categoryName(), {cells.money(category->total()), FigureCells::percent(percent)});
    }
    return report;
}

std::unique_ptr<CVReport> CVReport::initWithCatgoryTax(const CVCategories& categories,
                                                       const CVTransactions& transactions, const QBDate& startDate,
                                                       const QBDate& endDate) {
    const FigureCells cells;
    const CVSpendingOfRange spending(transactions, CVIDsOfCategories(categories), {startDate, endDate});
    auto report = makeReport(CVReportType::CategoryTax, tr("Tax Report for: %1 to %2"), {startDate, endDate});
    for (const auto& category : categories) {
        const CVSpending& taxed = spending.of(category->uniqueID());
        report->addCategory(category->categoryName(),
                            {FigureCells::number(taxed.taxCount), cells.money(taxed.taxTotal)});
    }
    return report;
}
