#pragma once

#include <QFont>

/// The fonts of a report, by their use.
enum class CVReportFont { Title, Header, Main };
inline constexpr int kReportFonts = 3;

/// The font, with its size in points. A named font, so that pages are the same on every machine.
[[nodiscard]] QFont CVFontOf(CVReportFont font);

/// The height of a line in points: the height of the letters and a little space, the same for every device.
[[nodiscard]] double CVLineHeightOf(CVReportFont font);
