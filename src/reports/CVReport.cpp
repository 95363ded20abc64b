#include "reports/CVReport.h"

#include <algorithm>
#include <utility>

namespace {

constexpr std::array<const char*, kReportTypes> kNames{QT_TRANSLATE_NOOP("CVReport", "Transaction Report %1"),
                                                       QT_TRANSLATE_NOOP("CVReport", "Category Averages Report %1"),
                                                       QT_TRANSLATE_NOOP("CVReport", "Plan vs Actual Report %1"),
                                                       QT_TRANSLATE_NOOP("CVReport", "Percent Report %1"),
                                                       QT_TRANSLATE_NOOP("CVReport", "Tax Report %1"),
                                                       QT_TRANSLATE_NOOP("CVReport", "Summary Report %1")};

/// Today in the form of ISO 8601, which sorts by date and has no slashes.
QString today() {
    return QString::fromLatin1(QBDate::date().corvellaXMLRepresentation().replace('/', '-'));
}

bool breaksLine(QChar character) {
    return character < u' ' || character == QChar::LineSeparator || character == QChar::ParagraphSeparator;
}

} // namespace

CVReport::CVReport(CVReportType type, QString title, std::span<const CVPrintedColumn> columns, QStringList labels)
    : mReportType(type)
    , mTitle(std::move(title))
    , mName(tr(kNames[static_cast<std::size_t>(type)]).arg(today()))
    , mColumns(columns)
    , mLabels(std::move(labels)) {}

void CVReport::sayAllSets() {
    mTitle = tr("%1 (All Sets)", "the title of a report").arg(mTitle);
}

QString CVReport::pageText(int page) {
    return tr("Page %1").arg(page);
}

QString CVReport::onOneLine(const QString& text) {
    QString line = text;
    if (std::any_of(text.cbegin(), text.cend(), breaksLine))
        std::replace_if(line.begin(), line.end(), breaksLine, u' ');
    return line;
}
