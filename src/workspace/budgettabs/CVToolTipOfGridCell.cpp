#include "workspace/budgettabs/CVToolTipOfGridCell.h"

#include "budget/CVPlanPerPeriod.h"
#include "contents/CVGridContents.h"
#include "format/QBDateFormatter.h"
#include "format/QBMoneyFormatter.h"
#include "model/CVCategory.h"
#include "workspace/budgettabs/CVMakeToolTip.h"

#include <QCoreApplication>

#include <array>
#include <vector>

namespace {

struct GridText {
    Q_DECLARE_TR_FUNCTIONS(CVToolTipOfGridCell)
};

QString periodText(const CVGridContents& contents, int column) {
    const CVDisplayPeriods& periods = contents.periods();
    QString header = periods.header(contents.columns().at(static_cast<std::size_t>(column))).text;
    const CVDayRange range = contents.rangeOfColumn(column);
    const QBDateFormatter formatter;
    switch (periods.periodType()) {
    case CVDisplayPeriods::Day:
        return GridText::tr("%1, %2").arg(header, formatter.string(range.start));
    case CVDisplayPeriods::Month:
        return header;
    default:
        return GridText::tr("%1 - %2").arg(formatter.string(range.start), formatter.string(range.end));
    }
}

/// These labels name the period, because the plan is converted to the column's period; other windows show the plan as
/// it was entered.
constexpr std::array<const char*, CVDisplayPeriods::kTypes> kPlannedLabels{
    QT_TRANSLATE_NOOP("CVToolTipOfGridCell", "Planned for the day:"),
    QT_TRANSLATE_NOOP("CVToolTipOfGridCell", "Planned for the week:"),
    QT_TRANSLATE_NOOP("CVToolTipOfGridCell", "Planned for the two weeks:"),
    QT_TRANSLATE_NOOP("CVToolTipOfGridCell", "Planned for the month:")};

void addPlan(std::vector<CVToolTipLine>& lines, int periodType, double plan, double spent) {
    const QBMoneyFormatter formatter;
    lines.push_back({GridText::tr(kPlannedLabels[static_cast<std::size_t>(periodType)]), formatter.string(plan)});
    lines.push_back({GridText::tr("Difference:"), formatter.string(plan - spent)});
}

} // namespace

QString CVToolTipOfGridCell(const CVGridContents& contents, const CVCategory* category, std::optional<int> column,
                            double spent) {
    const CVDisplayPeriods& periods = contents.periods();
    const CVDayRange range = column ? contents.rangeOfColumn(*column) : periods.displayRange();
    const QString name = category ? category->categoryName() : GridText::tr("All Categories");
    const QString period = column ? periodText(contents, *column) : periods.displayRangeText();
    const std::size_t count = contents.numberOfTransactions(category, range);
    std::vector<CVToolTipLine> lines{
        {GridText::tr("Transactions:"), QBLocaleInForce().toString(static_cast<qulonglong>(count))},
        {GridText::tr("Spent:"), QBMoneyFormatter().string(spent)}};
    const auto plan = category && column ? planPerPeriod(*category, periods.periodType()) : std::nullopt;
    if (plan)
        addPlan(lines, periods.periodType(), *plan, spent);
    return CVMakeToolTip(name, period, lines);
}
