#pragma once

#include <QString>

class CVCategory;
class CVReportContents;

/// What the figures of a category in the reports come from: the days they are about, the transactions in them and what
/// was spent; the target where there is one. Rich text.
[[nodiscard]] QString CVReportToolTip(const CVReportContents& contents, const CVCategory& category);
