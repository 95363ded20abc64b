#pragma once

#include "reports/CVReport.h"

#include <vector>

/// A report that holds all its lines, because they are few and the figures behind them can change afterwards.
class CVComputedReport final : public CVReport {
public:
    /// Add first the lines of the categories, in their order, then those at the end.
    CVComputedReport(CVReportType type, QString title, std::span<const CVPrintedColumn> columns, QStringList labels);

    /// Appends the line of a category.
    void addCategory(const QString& name, const std::vector<CVReportCell>& figures);
    /// Appends another line; a blank one has no cells.
    void addAtEnd(CVReportLine::Kind kind, const std::vector<CVReportCell>& cells = {});

    [[nodiscard]] std::size_t arrayCount() const override { return mArrayCount; }
    [[nodiscard]] std::size_t lineCount() const override { return mLines.size(); }
    [[nodiscard]] CVReportLine line(std::size_t index) const override { return mLines[index]; }
    [[nodiscard]] CVReportValues values(std::size_t index) const override { return mValues[index]; }

private:
    std::size_t mArrayCount = 0;
    std::vector<CVReportLine> mLines;
    /// Of each line.
    std::vector<CVReportValues> mValues;
};
