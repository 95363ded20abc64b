#pragma once

#include "reports/CVReport.h"

#include <vector>

/// A report whose lines are all there from the start: they are few, and what they say can change afterwards.
class CVComputedReport final : public CVReport {
public:
    /// The lines are the categories', in their order, and then those that stand at the end.
    CVComputedReport(CVReportType type, QString title, std::span<const CVPrintedColumn> columns, QStringList labels);

    /// Behind the lines before.
    void addCategory(const QString& name, const QStringList& figures);
    void addAtEnd(CVReportLine line);

    [[nodiscard]] std::size_t arrayCount() const override { return mArrayCount; }
    [[nodiscard]] std::size_t lineCount() const override { return mLines.size(); }
    [[nodiscard]] CVReportLine line(std::size_t index) const override { return mLines[index]; }

private:
    std::size_t mArrayCount = 0;
    std::vector<CVReportLine> mLines;
};
