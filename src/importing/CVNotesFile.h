#pragma once

#include "files/CVFileResult.h"
#include "importing/CVImportNotes.h"

#include <QDateTime>

/// The small file beside a data file in which the notes of its imports stand, "NAME.import". It has the access of the
/// data file. Whatever happens to it, the budget is the same.
class CVNotesFile final {
public:
    /// The data file itself, links followed, need not exist.
    explicit CVNotesFile(const QString& dataFile);

    /// Empty when the links cannot be followed; then nothing is read and nothing written.
    [[nodiscard]] const QString& path() const { return mPath; }

    struct Reading {
        CVImportNotes notes = {};
        /// Why the notes that are there could not be read, as words that follow a colon; empty when they were, or
        /// when there are none.
        QString problem = {};
    };
    [[nodiscard]] Reading read() const;

    struct Writing : CVFileResult {
        /// Where the file is that stood there and could not be read; empty when there was none.
        QString kept = {};
    };
    /// Replaces the notes. A file that cannot be read is kept beside it first; where that fails, it stays and nothing
    /// is written.
    [[nodiscard]] Writing write(const CVImportNotes& notes, const QDateTime& now) const;

    /// Moves the notes to those of another data file, which has taken the place of this one. Notes that are there
    /// belong to what stood there before and are kept beside them. On failure the notes are where they were.
    [[nodiscard]] CVFileResult moveTo(const CVNotesFile& other, const QDateTime& now) const;

private:
    /// Absent when there is no file.
    [[nodiscard]] std::optional<QByteArray> bytes(QString& problem) const;
    [[nodiscard]] CVFileResult writeBytes(const QByteArray& bytes) const;

    QString mDataFile;
    QString mPath;
};
