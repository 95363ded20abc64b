#include "reports/CVComputedReport.h"

#include <utility>

CVComputedReport::CVComputedReport(CVReportType type, QString title, std::span<const CVPrintedColumn> columns,
                                   QStringList labels)
    : CVReport(type, std::move(title), columns, std::move(labels)) {}

void CVComputedReport::addCategory(const QString& name, const std::vector<CVReportCell>& figures) {
    std::vector<CVReportCell> cells{{onOneLine(name), name}};
    cells.insert(cells.end(), figures.begin(), figures.end());
    addAtEnd(CVReportLine::Kind::Main, cells);
    ++mArrayCount;
}

void CVComputedReport::addAtEnd(CVReportLine::Kind kind, const std::vector<CVReportCell>& cells) {
    CVReportLine line{{}, kind};
    CVReportValues values;
    for (const CVReportCell& cell : cells) {
        line.texts.append(cell.text);
        values.push_back(cell.value);
    }
    mLines.push_back(std::move(line));
    mValues.push_back(std::move(values));
}
