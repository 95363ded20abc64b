#pragma once

#include <QChar>
#include <QString>

#include <cstddef>
#include <optional>

/// What amounts together say about the decimal mark.
struct CVDecimalMarks {
    /// How many are amounts with that mark alone.
    int point = 0;
    int comma = 0;
    /// The first one that each mark makes another amount of, and the row or the line in which it stands.
    std::optional<std::size_t> openAt = std::nullopt;
    QString openText = {};

    /// Counts a text; one that is no amount says nothing.
    void count(const QString& text, std::size_t at);
    [[nodiscard]] bool isSettled() const;
    [[nodiscard]] QChar likelier() const { return comma > point ? u',' : u'.'; }
    /// Whether no amount has one mark alone.
    [[nodiscard]] bool sayNothing() const { return point == 0 && comma == 0; }
};
