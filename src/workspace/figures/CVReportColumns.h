#pragma once

#include <QLatin1StringView>
#include <QVariant>

#include <span>

class CVCategory;
class CVReportFigures;

/// The report tables, in the order of their tabs.
enum class CVReportTable { Averages, Totals, Percent, Tax };
inline constexpr int kReportTables = 4;

/// How a column's values read: as text, as money, as a number, as percent; as money with a warning; as the label of a
/// frequency or as money that the user may change.
enum class CVReportColumnKind { Text, Money, Count, Percent, Difference, Frequency, Target };

struct CVReportColumn {
    QLatin1StringView identifier;
    /// In English.
    const char* title = nullptr;
    CVReportColumnKind kind = CVReportColumnKind::Text;
    /// In widths of a zero.
    int usualWidth = 0;
    /// A QString, a double or a whole number.
    QVariant (*value)(const CVReportFigures& figures, const CVCategory& category) = nullptr;
};

[[nodiscard]] std::span<const CVReportColumn> CVReportColumns(CVReportTable table);
/// In the user's language.
[[nodiscard]] QString CVReportColumnTitle(const CVReportColumn& column);
