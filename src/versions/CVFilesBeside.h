#pragma once

#include <QList>
#include <QStringList>

/// What lay beside a data file when its folder was looked through. Looking it through blocks while the disk does not
/// answer.
struct CVFilesBeside {
    struct ConflictCopy {
        QString path;
        /// Another size or time is another state.
        QString state;

        friend bool operator==(const ConflictCopy&, const ConflictCopy&) = default;
    };

    QString dataFile = {};
    /// What synchronizers have left, as `CVConflictCopies` lists it.
    QList<ConflictCopy> conflictCopies = {};
    /// What other programs had written and this one has kept.
    QStringList changedOutside = {};
    /// Whether there are earlier versions or kept copies.
    bool hasEarlier = false;

    friend bool operator==(const CVFilesBeside&, const CVFilesBeside&) = default;

    [[nodiscard]] static CVFilesBeside of(const QString& dataFile);
};
