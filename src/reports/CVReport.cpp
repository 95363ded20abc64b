#include "reports/CVReport.h"

#include <algorithm>
#include <utility>

namespace {

bool breaksLine(QChar character) {
    return character < u' ' || character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

} // namespace

CVReport::CVReport(CVReportType type, QString title, std::span<const CVPrintedColumn> columns, QStringList labels)
    : mReportType(type)
    , mTitle(std::move(title))
    , mColumns(columns)
    , mLabels(std::move(labels)) {}

QString CVReport::pageText(int page) {
    return tr("Page %1").arg(page);
}

QString CVReport::onOneLine(const QString& text) {
    QString line = text;
    if (std::any_of(text.cbegin(), text.cend(), breaksLine))
        std::replace_if(line.begin(), line.end(), breaksLine, u' ');
    return line;
}
