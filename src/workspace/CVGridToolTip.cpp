#include "workspace/CVGridToolTip.h"

#include "budget/CVGridContents.h"
#include "budget/CVPlanPerPeriod.h"
#include "model/CVCategory.h"
#include "shared/format/QBDateFormatter.h"
#include "shared/format/QBMoneyFormatter.h"

#include <QCoreApplication>

namespace {

struct Text {
    Q_DECLARE_TR_FUNCTIONS(CVGridToolTip)
};

QString line(const QString& label, const QString& value) {
    return QStringLiteral("<tr><td>%1&nbsp;&nbsp;</td><td align=\"right\">%2</td></tr>")
        .arg(label.toHtmlEscaped(), value.toHtmlEscaped());
}

QString periodText(const CVGridContents& contents, int column) {
    const CVDisplayPeriods& periods = contents.periods();
    QString header = periods.header(contents.columns().at(static_cast<std::size_t>(column))).text;
    const CVDayRange range = contents.rangeOfColumn(column);
    const QBDateFormatter formatter;
    switch (periods.periodType()) {
    case CVDisplayPeriods::Day:
        return Text::tr("%1, %2").arg(header, formatter.string(range.start));
    case CVDisplayPeriods::Month:
        return header;
    default:
        return Text::tr("%1 - %2").arg(formatter.string(range.start), formatter.string(range.end));
    }
}

QString planLines(const CVGridContents& contents, const CVCategory& category, double spent) {
    const auto plan = planPerPeriod(category, contents.periods().periodType());
    if (!plan)
        return {};
    const QBMoneyFormatter formatter;
    return line(Text::tr("Planned:"), formatter.string(*plan)) +
           line(Text::tr("Difference:"), formatter.string(*plan - spent));
}

} // namespace

QString CVGridToolTip(const CVGridContents& contents, const CVCategory* category, std::optional<int> column,
                      double spent) {
    const CVDisplayPeriods& periods = contents.periods();
    const CVDayRange range = column ? contents.rangeOfColumn(*column) : periods.displayRange();
    const QString name = category ? category->categoryName() : Text::tr("All Categories");
    const QString period = column ? periodText(contents, *column) : periods.displayRangeText();
    const std::size_t count = contents.numberOfTransactions(category, range);
    QString lines = line(Text::tr("Transactions:"), QBLocaleInForce().toString(static_cast<qulonglong>(count))) +
                    line(Text::tr("Spent:"), QBMoneyFormatter().string(spent));
    if (category && column)
        lines += planLines(contents, *category, spent);
    return QStringLiteral("<b>%1</b><br>%2<table>%3</table>").arg(name.toHtmlEscaped(), period.toHtmlEscaped(), lines);
}
