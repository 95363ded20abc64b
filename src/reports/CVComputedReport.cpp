#include "reports/CVComputedReport.h"

#include <utility>

CVComputedReport::CVComputedReport(CVReportType type, QString title, std::span<const CVPrintedColumn> columns,
                                   QStringList labels)
    : CVReport(type, std::move(title), columns, std::move(labels)) {}

void CVComputedReport::addCategory(const QString& name, const QStringList& figures) {
    mLines.push_back({QStringList(onOneLine(name)) + figures});
    ++mArrayCount;
}

void CVComputedReport::addAtEnd(CVReportLine line) {
    mLines.push_back(std::move(line));
}
