#include "reports/CVPrintedColumn.h"

#include <QCoreApplication>

namespace {

struct PrintedColumnText {
    Q_DECLARE_TR_FUNCTIONS(CVPrintedColumn)
};

using Column = CVPrintedColumn;
using Part = CVPrintedColumn::Part;

constexpr Part left(double width) {
    return {width, CVPrintAlignment::Left};
}

constexpr Part right(double width) {
    return {width, CVPrintAlignment::Right};
}

constexpr Part kWhole = left(Column::kWholeLine);
constexpr auto kCut = CVPrintFit::Cut;

constexpr Column kCategory{0, QT_TRANSLATE_NOOP("CVPrintedColumn", "Category"), left(120), left(120), kCut};

/// Headings and lines differ in width on purpose.
constexpr std::array<Column, 6> kTransactions{
    {{0, QT_TRANSLATE_NOOP("CVPrintedColumn", "#"), kWhole, kWhole},
     {32, QT_TRANSLATE_NOOP("CVPrintedColumn", "Date"), left(68), left(42)},
     {88, QT_TRANSLATE_NOOP("CVPrintedColumn", "Amount"), right(60), right(60)},
     {160, QT_TRANSLATE_NOOP("CVPrintedColumn", "Paid To"), left(80), left(106), kCut},
     {270, QT_TRANSLATE_NOOP("CVPrintedColumn", "For"), left(80), left(106), kCut},
     {380, QT_TRANSLATE_NOOP("CVPrintedColumn", "Category"), left(80), left(106), kCut}}};

constexpr std::array<Column, 7> kAverages{
    {kCategory,
     {127, QT_TRANSLATE_NOOP("CVPrintedColumn", "Spending Pattern"), left(100), left(100), kCut},
     {234, QT_TRANSLATE_NOOP("CVPrintedColumn", "# of Trans"), left(54), right(54)},
     {295, QT_TRANSLATE_NOOP("CVPrintedColumn", "Total"), right(72), right(72)},
     {374, QT_TRANSLATE_NOOP("CVPrintedColumn", "Monthly"), right(72), right(72)},
     {453, QT_TRANSLATE_NOOP("CVPrintedColumn", "Bi-Weekly"), right(72), right(72)},
     {532, QT_TRANSLATE_NOOP("CVPrintedColumn", "Weekly"), right(72), right(72)}}};

constexpr std::array<Column, 5> kTotals{
    {kCategory,
     {127, QT_TRANSLATE_NOOP("CVPrintedColumn", "Expense Frequency"), left(120), left(120), kCut},
     {254, QT_TRANSLATE_NOOP("CVPrintedColumn", "Target Per Frequency"), right(140), right(140)},
     {401, QT_TRANSLATE_NOOP("CVPrintedColumn", "Average Per Frequency"), right(140), right(140)},
     {548, QT_TRANSLATE_NOOP("CVPrintedColumn", "Difference"), right(80), right(80)}}};

constexpr std::array<Column, 3> kPercents{
    {kCategory,
     {127, QT_TRANSLATE_NOOP("CVPrintedColumn", "Total Spent"), right(120), right(120)},
     {254, QT_TRANSLATE_NOOP("CVPrintedColumn", "Percent of total spent"), right(190), right(190)}}};

constexpr std::array<Column, 3> kTax{
    {kCategory,
     {127, QT_TRANSLATE_NOOP("CVPrintedColumn", "Number of Transactions"), right(200), right(200)},
     {334, QT_TRANSLATE_NOOP("CVPrintedColumn", "Amount of Tax"), right(140), right(140)}}};

constexpr auto summaryColumns() {
    std::array<Column, 1 + kMostSummaryColumns + 1> columns{kCategory};
    for (std::size_t i = 1; i < columns.size(); ++i)
        columns[i] = {127 + 65 * static_cast<double>(i - 1), "", right(58), right(58)};
    return columns;
}

constexpr auto kSummary = summaryColumns();

constexpr std::array<std::span<const Column>, kReportTypes> kColumns{kTransactions, kAverages, kTotals,
                                                                     kPercents,     kTax,      kSummary};

} // namespace

std::span<const CVPrintedColumn> CVColumnsOfReport(CVReportType type) {
    return kColumns[static_cast<std::size_t>(type)];
}

QStringList CVHeadingsOfColumns(std::span<const CVPrintedColumn> columns) {
    QStringList labels;
    for (const CVPrintedColumn& column : columns)
        labels.append(CVTranslatedHeading(column.label));
    return labels;
}

QString CVTranslatedHeading(const char* label) {
    return PrintedColumnText::tr(label);
}
