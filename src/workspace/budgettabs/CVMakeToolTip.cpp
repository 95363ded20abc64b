#include "workspace/budgettabs/CVMakeToolTip.h"

QString CVMakeToolTip(const QString& title, const QString& about, std::span<const CVToolTipLine> lines) {
    QString rows;
    for (const CVToolTipLine& line : lines)
        rows += QStringLiteral("<tr><td>%1&nbsp;&nbsp;</td><td align=\"right\">%2</td></tr>")
                    .arg(line.label.toHtmlEscaped(), line.value.toHtmlEscaped());
    return QStringLiteral("<b>%1</b><br>%2<table>%3</table>").arg(title.toHtmlEscaped(), about.toHtmlEscaped(), rows);
}
