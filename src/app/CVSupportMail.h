#pragma once

#include <QString>
#include <QUrl>

#include <optional>

/// What a system says of itself. A classic Macintosh system gives numbers, all others give words.
struct CVSystemIdentity {
    /// In binary-coded decimal: 0x1049 is 10.4.9.
    std::optional<quint32> versionWord = std::nullopt;
    /// 10 is Intel, 2 is PowerPC.
    std::optional<quint32> architecture = std::nullopt;
    /// Such as "Linux 6.1 (x86_64)", where there is no version word.
    QString words = {};

    [[nodiscard]] static CVSystemIdentity ofThisMachine();
};

/// The system's version and processor for a person; what is not known is left out.
[[nodiscard]] QString CVSystemText(const CVSystemIdentity& system);

/// A new mail to the maker's support, with what they need to know of program and system in it.
[[nodiscard]] QUrl CVSupportMailAddress(const CVSystemIdentity& system);
