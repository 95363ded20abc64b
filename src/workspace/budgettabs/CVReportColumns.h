#pragma once

#include <QLatin1StringView>
#include <QVariant>

#include <span>

class CVCategory;
class CVReportFigures;

/// The report tables, in the order of their tabs.
enum class CVReportTable { Averages, Totals, Percent, Tax };
inline constexpr int kReportTables = 4;

/// How a column shows its values. `Difference` is money, marked where the target is below the monthly average. The user
/// can edit `Frequency`, which is shown as a label, and `Target`, which is shown as money.
enum class CVReportColumnKind { Text, Money, Count, Percent, Difference, Frequency, Target };

struct CVReportColumn {
    QLatin1StringView identifier;
    /// The English title, to be translated.
    const char* title = nullptr;
    CVReportColumnKind kind = CVReportColumnKind::Text;
    /// The usual width, in widths of a zero.
    int usualWidth = 0;
    /// The value of a cell: a QString, a double or a whole number.
    QVariant (*value)(const CVReportFigures& figures, const CVCategory& category) = nullptr;
};

[[nodiscard]] std::span<const CVReportColumn> CVColumnsOfReport(CVReportTable table);
/// The title in the user's language.
[[nodiscard]] QString CVTitleOfReportColumn(const CVReportColumn& column);
