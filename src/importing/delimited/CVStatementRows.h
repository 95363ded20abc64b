#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

/// A row of a statement: its cells without the quotes and without the blanks around them.
struct CVStatementRow {
    /// The line of the file in which it begins, from 1.
    int line = 0;
    QStringList cells = {};

    /// Whether all its cells are empty.
    [[nodiscard]] bool isBlank() const;
};

struct CVStatementRows {
    std::vector<CVStatementRow> rows = {};
    /// Why the rows cannot be told apart; empty when they can.
    QString problem = {};
};

/// Asked every now and then with the characters that are done; true: stop.
using CVStopReadingRows = std::function<bool(qsizetype done)>;

/// Takes the text apart at the separators and line ends that stand in no quotes. A quote that has no partner is a
/// character like others. `most`: no more rows than these are read.
[[nodiscard]] CVStatementRows CVReadStatementRows(const QString& text, char separator, qsizetype most,
                                                  const CVStopReadingRows& stop = {});

/// The separator with which the most rows have a day and an amount.
[[nodiscard]] char CVSeparatorOf(const QString& text);
