#pragma once

#include "files/CVReplaceFile.h"
#include "versions/CVVersion.h"

#include <QList>

#include <functional>

/// The folder "Earlier Versions" beside a data file. Holds plain data files; what has another kind of name is not
/// touched. Every operation leaves each version either whole where it was or whole where it goes.
class CVVersionFolder final {
public:
    /// The data file itself, links followed, need not exist.
    explicit CVVersionFolder(const QString& dataFile);

    /// Empty when the links cannot be followed; then every operation fails.
    [[nodiscard]] const QString& path() const { return mPath; }
    /// Newest first; empty when the folder cannot be read.
    [[nodiscard]] QList<CVVersion> versions() const;
    /// The bytes of all versions.
    [[nodiscard]] qint64 size() const;

    /// What became of a file that was to be kept, and the version's path.
    struct Keeping : CVFileResult {
        QString path;
    };
    /// Makes a version of `file`, which lies beside the data file and goes. A file with further names is copied,
    /// because whoever knows another name could change the version. On failure the bytes are where they were, or in the
    /// version.
    [[nodiscard]] Keeping keep(const QString& file, CVVersionReason reason, const QDateTime& now) const;
    /// Makes a version of `file` and leaves it.
    [[nodiscard]] Keeping keepCopy(const QString& file, CVVersionReason reason, const QDateTime& now) const;
    /// Makes a version of what `content` writes, which may be in no file by now.
    [[nodiscard]] Keeping keepContent(const CVFileContent& content, CVVersionReason reason, const QDateTime& now) const;
    /// Removes what `CVSuperfluousVersions` names.
    [[nodiscard]] CVFileResult thin(const QDateTime& now, qint64 limit) const;
    [[nodiscard]] CVFileResult removeAll() const;
    /// Copies all versions to the other folder, syncs them and then removes them here. Versions that are there already
    /// stay; one of the same second there gets company with the next number. When copying fails, all versions stay
    /// here; when removing fails, those that could not be removed are at both places.
    [[nodiscard]] CVFileResult moveTo(const CVVersionFolder& other) const;
    /// What an interrupted save has left beside the data file.
    enum class Leftover { Whole, Cut, Unknown };
    /// Makes a version of each whole leftover and removes each that was cut. Only for the one program that holds the
    /// data file.
    [[nodiscard]] CVFileResult recover(const std::function<Leftover(const QString& file)>& judge,
                                       const QDateTime& now) const;

private:
    /// Makes the folder with the access of the data file.
    [[nodiscard]] CVFileResult make() const;
    [[nodiscard]] CVFileResult giveAccess(bool isNew) const;
    [[nodiscard]] bool isSecondName(const QString& path) const;
    [[nodiscard]] CVFileResult removeEach(const QList<CVVersion>& versions) const;
    /// Gives a file a version's name, the first that is free, by `placing`.
    using Placing = CVFileResult (*)(const QString& from, const QString& to);
    [[nodiscard]] Keeping place(const QString& file, CVVersionName name, Placing placing) const;

    QString mDataFile;
    QString mPath;
};
