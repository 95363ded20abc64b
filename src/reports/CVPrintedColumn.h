#pragma once

#include "reports/CVReportType.h"

#include <QStringList>

#include <span>

enum class CVPrintAlignment : unsigned char { Left, Right };

/// How a text is made to fit into its column. A name is cut, with an ellipsis at the end. A figure or a date is
/// narrowed first and cut only when that does not suffice, because nobody can read it once it is cut.
enum class CVPrintFit : unsigned char { Cut, Narrow };

/// A column of a printed report. Offsets count from the left end of the line; all lengths are in points.
struct CVPrintedColumn {
    /// A width that reaches to the end of the line.
    static constexpr double kWholeLine = -1;

    struct Part {
        double width = 0;
        CVPrintAlignment alignment = CVPrintAlignment::Left;
    };

    double offset = 0;
    /// The key of the heading; empty when the report makes the heading itself.
    const char* label = "";
    Part header = {};
    Part line = {};
    CVPrintFit fit = CVPrintFit::Narrow;
};

/// The most columns with a period each that a summary can have.
inline constexpr std::size_t kMostSummaryColumns = 7;

/// The columns of a report from left to right; those of the summary are the category, `kMostSummaryColumns` periods
/// and, after them, the total.
[[nodiscard]] std::span<const CVPrintedColumn> CVColumnsOfReport(CVReportType type);

/// The headings of columns in the user's language.
[[nodiscard]] QStringList CVHeadingsOfColumns(std::span<const CVPrintedColumn> columns);
/// The heading of that key, in the user's language.
[[nodiscard]] QString CVTranslatedHeading(const char* label);
