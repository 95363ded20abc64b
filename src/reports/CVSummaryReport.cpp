#include "base/QBMoney.h"
#include "format/QBDateFormatter.h"
#include "format/QBMoneyFormatter.h"
#include "model/CVCategory.h"
#include "reports/CVComputedReport.h"
#include "reports/CVSummaryTable.h"

namespace {

constexpr const char* kCategoryLabel = QT_TRANSLATE_NOOP("CVPrintedColumn", "Category");
constexpr const char* kTotalLabel = QT_TRANSLATE_NOOP("CVPrintedColumn", "Total");

/// The sums of the columns and of the rows, added up in the order in which the lines are printed. They are computed
/// before anything is painted, so that a page that is painted twice, on the screen and on paper, counts once.
class Totals final {
public:
    Totals(const CVSummaryTable& table, int columns) : mTable(table), mNumberOfColumns(columns) {}

    /// The figures of a row and its total.
    [[nodiscard]] std::vector<CVReportCell> addRow(int row) {
        std::vector<CVReportCell> figures;
        double rowTotal = 0;
        for (int column = 0; column < mNumberOfColumns; ++column) {
            const auto value = mTable.objectValue(column, row);
            figures.push_back(cellOf(value.value_or(0)));
            if (!value)
                continue;
            rowTotal = RoundDoubleToTwoPlaces(rowTotal + *value);
            double& columnTotal = mSummaryColumnTotals[static_cast<std::size_t>(column)];
            columnTotal = RoundDoubleToTwoPlaces(columnTotal + *value);
        }
        figures.push_back(cellOf(rowTotal));
        return figures;
    }

    /// The line of the sums, which begins with its heading.
    [[nodiscard]] std::vector<CVReportCell> columnTotals() const {
        const QString heading = CVTranslatedHeading(kTotalLabel);
        std::vector<CVReportCell> cells{{heading, heading}};
        for (int column = 0; column < mNumberOfColumns; ++column)
            cells.push_back(cellOf(mSummaryColumnTotals[static_cast<std::size_t>(column)]));
        return cells;
    }

private:
    [[nodiscard]] CVReportCell cellOf(double amount) const {
        return {mMoney.string(amount), RoundDoubleToTwoPlaces(amount)};
    }

    const CVSummaryTable& mTable;
    int mNumberOfColumns;
    QBMoneyFormatter mMoney;
    std::array<double, kMostSummaryColumns> mSummaryColumnTotals{};
};

QStringList labelsOf(const CVSummaryTable& table, int columns) {
    QStringList labels{CVTranslatedHeading(kCategoryLabel)};
    for (int column = 0; column < columns; ++column)
        labels.append(table.columnTitle(column));
    labels.append(CVTranslatedHeading(kTotalLabel));
    return labels;
}

} // namespace

std::unique_ptr<CVReport> CVReport::initWithSummaryTable(const CVSummaryTable& table, const CVCategories& categories,
                                                         int columns) {
    Q_ASSERT(columns >= 0 && columns <= static_cast<int>(kMostSummaryColumns));
    auto report = std::make_unique<CVComputedReport>(
        CVReportType::Summary, tr("Summary Report for: %1").arg(QBDateFormatter().string(QBDate::date())),
        CVColumnsOfReport(CVReportType::Summary).first(static_cast<std::size_t>(columns) + 2),
        labelsOf(table, columns));
    Totals totals(table, columns);
    for (std::size_t row = 0; row < categories.size(); ++row)
        report->addCategory(categories[row]->categoryName(), totals.addRow(static_cast<int>(row)));
    report->addAtEnd(CVReportLine::Kind::Blank);
    report->addAtEnd(CVReportLine::Kind::Total, totals.columnTotals());
    return report;
}
