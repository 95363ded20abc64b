#pragma once

#include <QString>

#include <optional>

/// Recognises a file as the one seen before, by its place on the disk, its size and the time of its last write (in
/// nanoseconds since 1970). Renaming the file changes none of these.
struct CVFileSignature {
    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = 0;
    qint64 modified = 0;

    /// The signature of the file at `path`, links followed; absent when there is none or it cannot be examined.
    [[nodiscard]] static std::optional<CVFileSignature> of(const QString& path);
    /// The signature of a directory entry, a link's own and not that of what it leads to; absent when there is none or
    /// it cannot be examined.
    [[nodiscard]] static std::optional<CVFileSignature> ofEntry(const QString& path);
    /// The signature of an open file; absent when it cannot be examined.
    [[nodiscard]] static std::optional<CVFileSignature> ofOpenFile(int descriptor);

    friend bool operator==(const CVFileSignature&, const CVFileSignature&) = default;
};

/// Whether two paths name the same file, also through symbolic or hard links, or the same place for a file that does
/// not exist yet. False for what is no file, because a terminal may be input and output at once.
[[nodiscard]] bool CVIsSameFile(const QString& path, const QString& other);

/// What a path leads to, links followed.
struct CVPathStatus {
    /// Absent when nothing exists at the path.
    std::optional<CVFileSignature> signature;
    /// The permission bits, as chmod takes them.
    unsigned mode = 0;
    /// The time of the last change of the file or of what is known of it, such as its names, in nanoseconds since 1970.
    qint64 changed = 0;
    /// Why the path cannot be examined; empty when it can.
    QString error;

    [[nodiscard]] static CVPathStatus of(const QString& path);
};
