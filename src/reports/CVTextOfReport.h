#pragma once

#include <QByteArray>

class CVReport;

/// A report as UTF-8 text: its title, its headings and its lines, a tabulator between columns and a line feed after
/// each line. Texts are never cut, whatever the width of their columns on paper.
[[nodiscard]] QByteArray CVTextOfReport(const CVReport& report);
