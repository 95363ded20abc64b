#pragma once

#include <QString>

class CVCategory;
class CVReportContents;

/// The rich text of the tooltip that explains the sums of a category in the reports: the range of days, the number
/// of transactions, the amount spent, and the target where there is one.
[[nodiscard]] QString CVToolTipOfReportRow(const CVReportContents& contents, const CVCategory& category);
