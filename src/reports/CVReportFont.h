#pragma once

#include <QFont>

/// The letters of a report.
enum class CVReportFont { Title, Header, Main };
inline constexpr int kReportFonts = 3;

/// The font, in points. It is named, not chosen by the system, so that pages are the same on every machine.
[[nodiscard]] QFont CVFontOf(CVReportFont font);

/// How high a line of it is: that of the letters and a little space, in points. The same for every device.
[[nodiscard]] double CVLineHeightOf(CVReportFont font);
