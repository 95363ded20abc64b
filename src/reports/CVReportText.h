#pragma once

#include <QByteArray>

class CVReport;

/// A report as UTF-8 text: its title, its headings and its lines, a tabulator between columns and a line feed behind
/// each line. Texts are whole, whatever room their columns have on paper.
[[nodiscard]] QByteArray CVReportText(const CVReport& report);
