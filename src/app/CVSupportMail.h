#pragma once

#include <QString>
#include <QUrl>

#include <optional>

/// The identity of a system. A classic Macintosh system gives numbers, all others give words.
struct CVSystemIdentity {
    /// In binary-coded decimal: 0x1049 is 10.4.9.
    std::optional<quint32> versionWord = std::nullopt;
    /// 10 is Intel, 2 is PowerPC.
    std::optional<quint32> architecture = std::nullopt;
    /// Such as "Linux 6.1 (x86_64)", where there is no version word.
    QString words = {};

    [[nodiscard]] static CVSystemIdentity ofThisMachine();
};

/// The system's version and processor in readable form; unknown parts are left out.
[[nodiscard]] QString CVTextOfSystem(const CVSystemIdentity& system);

/// The address of a new mail to the maker's support, whose text holds the facts about program and system that the
/// support needs.
[[nodiscard]] QUrl CVMakeSupportMailAddress(const CVSystemIdentity& system);
