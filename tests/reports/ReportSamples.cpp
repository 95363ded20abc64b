#include "ReportSamples.h"

#include "reports/CVGridSummary.h"

namespace {

struct Category {
    const char* name;
    qint64 frequency;
    double target;
};

constexpr std::array<Category, 10> kCategories{{{"Food", 0, 120.5},
                                                {"Café & thé", 1, 30},
                                                {"Ελληνικά", 2, 45.125},
                                                {"Книги", 3, 25},
                                                {"Żółć i łódź", 4, 0},
                                                {"מזון ויין", 5, 90},
                                                {"A category with a name that is far too long", 6, 1'234'567.89},
                                                {"Refunds", 7, 12},
                                                {"No known frequency", 9, 12},
                                                {"", 3, 0}}};

constexpr std::array<const char*, 6> kPayees{"Market",
                                             "Bäckerei Grünwald",
                                             "Dr. Levi (לוי)",
                                             "חנות הספרים",
                                             "The Society for the Preservation of Long Names",
                                             "Two\nlines\tand a tabulator"};

constexpr std::array<const char*, 4> kReasons{"bread", "", "a reason that needs more room than it has",
                                              "10 € – «prix»"};
constexpr std::array<double, 5> kAmounts{12.34, 0.5, -7.25, 1234.5, 98765.43};
constexpr int kTransactions = 52;

template <typename Array>
const auto& turn(const Array& array, int i) {
    return array[static_cast<std::size_t>(i) % array.size()];
}

} // namespace

ReportSamples::ReportSamples() {
    quint32 id = 0;
    for (const Category& category : kCategories)
        mBudget.category(category.name, ++id, category.frequency, category.target);
    for (int i = 0; i < kTransactions; ++i) {
        mBudget.transaction({.date = day(2014, 3, 12).dateByAddingYears(0, 0, -i),
                             .amount = turn(kAmounts, i),
                             .payTo = turn(kPayees, i),
                             .xfor = turn(kReasons, i),
                             .categoryID = static_cast<quint32>(i * i + 10) % (id + 1) + 1,
                             .taxFlag = i % 3 == 0});
    }
    mGrid.reload(mDocument.transactions(), mDocument.categories());
    mReports.setRange({day(2014, 1, 20), day(2014, 3, 12)});
    mReports.reload(mDocument.transactions(), mDocument.categories());
}

std::unique_ptr<const CVReport> ReportSamples::report(CVReportType type) const {
    const CVCategories& categories = mReports.rows();
    const CVTransactions& transactions = mDocument.transactions();
    const auto& [start, end] = mReports.range();
    switch (type) {
    case CVReportType::Transactions:
        return CVReport::initWithTransactions(transactions);
    case CVReportType::CategoryAverages:
        return CVReport::initWithCatgoryAverages(categories, start, end);
    case CVReportType::CategoryTotals:
        return CVReport::initWithCatgoryTotals(categories, transactions, start, end);
    case CVReportType::CategoryPercents:
        return CVReport::initWithCatgoryPercents(categories, transactions, start, end);
    case CVReportType::CategoryTax:
        return CVReport::initWithCatgoryTax(categories, transactions, start, end);
    case CVReportType::Summary:
        break;
    }
    return CVReport::initWithSummaryTable(CVGridSummary(mGrid), mGrid.rows(), static_cast<int>(mGrid.columns().size()));
}
