#pragma once

#include <QString>

#include <optional>

/// By what a file is recognised as the one seen before: where it lies, its size and when it was last written. Renaming
/// it changes none of these.
struct CVFileSignature {
    quint64 device = 0;
    quint64 inode = 0;
    qint64 size = 0;
    qint64 modified = 0;

    /// Of what stands at `path`, links followed; absent when nothing does, or nothing that can be looked at.
    [[nodiscard]] static std::optional<CVFileSignature> of(const QString& path);
    /// Of an open file; absent when it cannot be had.
    [[nodiscard]] static std::optional<CVFileSignature> ofOpenFile(int descriptor);

    friend bool operator==(const CVFileSignature&, const CVFileSignature&) = default;
};

/// Whether two paths lead to one file, by links of either kind too, or to one place where there is none yet. Only files
/// are compared: a terminal, say, may be read and written.
[[nodiscard]] bool CVIsSameFile(const QString& path, const QString& other);

/// What stands at a path, links followed.
struct CVStanding {
    /// Absent when nothing stands there.
    std::optional<CVFileSignature> signature;
    /// The permission bits, as chmod takes them.
    unsigned mode = 0;
    /// Why it cannot be told whether something stands there; empty when it can.
    QString error;

    [[nodiscard]] static CVStanding at(const QString& path);
};
