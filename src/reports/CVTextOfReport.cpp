#include "reports/CVTextOfReport.h"

#include "reports/CVReport.h"

namespace {

constexpr qsizetype kUsualLine = 60;

void append(QByteArray& text, const QStringList& columns) {
    qsizetype left = columns.size();
    for (const QString& column : columns) {
        text += column.toUtf8();
        if (--left > 0)
            text += '\t';
    }
    text += '\n';
}

} // namespace

QByteArray CVTextOfReport(const CVReport& report) {
    QByteArray text;
    text.reserve(kUsualLine * static_cast<qsizetype>(report.lineCount() + 2));
    append(text, {report.title()});
    append(text, report.labels());
    for (std::size_t i = 0; i < report.lineCount(); ++i)
        append(text, report.line(i).texts);
    return text;
}
