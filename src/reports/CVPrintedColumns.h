#pragma once

#include "reports/CVReportType.h"

#include <QStringList>

#include <span>

enum class CVPrintAlignment : unsigned char { Left, Right };

/// What becomes of a text that its column has no room for. A name is cut, with an ellipsis at the end. A figure or a
/// date, which nobody can read once it is cut, is set narrower first, and cut where that does not suffice.
enum class CVPrintFit : unsigned char { Cut, Narrow };

/// A column of a printed report. Offsets are from the left end of the line; all in points.
struct CVPrintedColumn {
    /// A width that reaches to the end of the line.
    static constexpr double kWholeLine = -1;

    struct Part {
        double width = 0;
        CVPrintAlignment alignment = CVPrintAlignment::Left;
    };

    double offset = 0;
    /// The key of the heading; empty where the report has a heading of its own.
    const char* label = "";
    Part header = {};
    Part line = {};
    CVPrintFit fit = CVPrintFit::Narrow;
};

/// The most columns with a period each that a summary can have.
inline constexpr std::size_t kMostSummaryColumns = 7;

/// The columns of a report from left to right; those of the summary are the category, `kMostSummaryColumns` periods and
/// a place for the total behind the last of them.
[[nodiscard]] std::span<const CVPrintedColumn> CVPrintedColumns(CVReportType type);

/// The headings of columns in the user's language.
[[nodiscard]] QStringList CVPrintedLabels(std::span<const CVPrintedColumn> columns);
/// The heading of that key, in the user's language.
[[nodiscard]] QString CVPrintedLabel(const char* label);
