#pragma once

#include "budget/CVDayRange.h"

#include <QString>
#include <QStringList>

#include <optional>

class QTextStream;

/// What `corvella export` was asked for.
struct CVExportRequest {
    /// The item of the range pop-up, 0 to 7, where no range is given.
    int preset = 0;
    std::optional<CVDayRange> range = std::nullopt;
    /// The name of a set; absent: the file's current one.
    std::optional<QString> set = std::nullopt;
    int searchKind = 0;
    /// Empty: everything.
    QString searchText = {};
    QString sortColumn = QStringLiteral("date");
    bool descending = true;
    /// Absent: the user's own.
    std::optional<QString> dataFile = std::nullopt;
    /// Absent: the clock's.
    std::optional<QBDate> today = std::nullopt;
    /// Absent: standard output.
    std::optional<QString> output = std::nullopt;

    /// Reads the arguments behind the command's name (the first is skipped). Absent when they cannot be understood:
    /// `problem` then says why.
    [[nodiscard]] static std::optional<CVExportRequest> parse(const QStringList& arguments, QString& problem);
};

/// `corvella export`: writes the list as the window would show and export it, with nothing else written anywhere.
/// Returns the exit status: 0, or 1 after one line on `errors` that says what failed.
[[nodiscard]] int CVRunExport(const CVExportRequest& request, QTextStream& errors);
