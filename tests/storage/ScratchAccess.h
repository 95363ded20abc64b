#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <set>
#include <vector>

/// Who may use a file, as the tests set it and look at it: by the bytes that the kernel keeps, without the program's
/// own code.

/// An entry of an access control list, with the kernel's numbers.
struct ListEntry {
    static constexpr quint16 kOwner = 0x01;
    static constexpr quint16 kUser = 0x02;
    static constexpr quint16 kOwningGroup = 0x04;
    static constexpr quint16 kGroup = 0x08;
    static constexpr quint16 kMask = 0x10;
    static constexpr quint16 kOthers = 0x20;

    quint16 tag = 0;
    quint16 rights = 0;
    quint32 id = 0xFFFFFFFF;

    friend bool operator==(const ListEntry&, const ListEntry&) = default;
};
using AccessList = std::vector<ListEntry>;

/// False where the file system keeps no lists.
[[nodiscard]] bool setList(const QString& path, const AccessList& list);
/// The list that a folder hands down to its new files; false where the file system keeps no lists.
[[nodiscard]] bool setListForNewFiles(const QString& folder, const AccessList& list);
/// Empty when the file has none.
[[nodiscard]] AccessList listOf(const QString& path);

/// False where the file system keeps no such attributes.
[[nodiscard]] bool setAttribute(const QString& path, const char* name, const QByteArray& value);
/// Absent when the file has none of that name.
[[nodiscard]] std::optional<QByteArray> attributeOf(const QString& path, const char* name);

struct Person {
    quint32 user = 0;
    std::set<quint32> groups;
};

/// The owner, the group and the rights of a file at one moment.
struct AccessFacts {
    quint32 owner = 0;
    quint32 group = 0;
    AccessList list;

    /// What a path that exists leads to.
    [[nodiscard]] static AccessFacts of(const QString& path);
    /// What POSIX 1003.1e allows a person who is not the superuser, of read (4), write (2) and execute (1).
    [[nodiscard]] quint16 rightsOf(const Person& person) const;
};
