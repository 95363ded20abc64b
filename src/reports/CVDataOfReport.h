#pragma once

#include <QByteArray>

class CVReport;

/// A report for other programs, in UTF-8: its headings and the values of its lines, without blank ones. Numbers are
/// plain, with a point, and days are as "2026-11-22" in every locale; headings are those that are printed.

/// As comma-separated text (RFC 4180), with a header.
[[nodiscard]] QByteArray CVCSVOfReport(const CVReport& report);
/// As JSON: an array with one object a line, each on a line of its own, its keys the headings. A missing day is null.
[[nodiscard]] QByteArray CVJSONOfReport(const CVReport& report);
