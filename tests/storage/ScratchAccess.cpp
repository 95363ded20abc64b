#include "storage/ScratchAccess.h"

#include <QFile>
#include <QtEndian>

#include <sys/stat.h>
#include <sys/xattr.h>

#include <algorithm>
#include <array>

namespace {

constexpr const char* kList = "system.posix_acl_access";
constexpr const char* kListForNewFiles = "system.posix_acl_default";
constexpr quint32 kVersion = 2;

template <typename Number>
void append(QByteArray& bytes, Number number) {
    std::array<char, sizeof(Number)> written{};
    qToLittleEndian(number, written.data());
    bytes.append(written.data(), written.size());
}

bool set(const QString& path, const char* name, const QByteArray& value) {
    return ::setxattr(QFile::encodeName(path).constData(), name, value.constData(),
                      static_cast<std::size_t>(value.size()), 0) == 0;
}

QByteArray bytesOf(const AccessList& list) {
    QByteArray bytes;
    append(bytes, kVersion);
    for (const ListEntry& entry : list) {
        append(bytes, entry.tag);
        append(bytes, entry.rights);
        append(bytes, entry.id);
    }
    return bytes;
}

} // namespace

bool setList(const QString& path, const AccessList& list) {
    return set(path, kList, bytesOf(list));
}

bool setListForNewFiles(const QString& folder, const AccessList& list) {
    return set(folder, kListForNewFiles, bytesOf(list));
}

AccessList listOf(const QString& path) {
    AccessList list;
    const QByteArray bytes = attributeOf(path, kList).value_or(QByteArray());
    constexpr qsizetype kEntry = 8;
    for (qsizetype at = sizeof(quint32); at + kEntry <= bytes.size(); at += kEntry) {
        const char* const entry = bytes.constData() + at;
        list.push_back({qFromLittleEndian<quint16>(entry), qFromLittleEndian<quint16>(entry + 2),
                        qFromLittleEndian<quint32>(entry + 4)});
    }
    return list;
}

bool setAttribute(const QString& path, const char* name, const QByteArray& value) {
    return set(path, name, value);
}

std::optional<QByteArray> attributeOf(const QString& path, const char* name) {
    QByteArray value(65536, Qt::Uninitialized);
    const ssize_t size =
        ::getxattr(QFile::encodeName(path).constData(), name, value.data(), static_cast<std::size_t>(value.size()));
    return size < 0 ? std::nullopt : std::optional(value.left(size));
}

AccessFacts AccessFacts::of(const QString& path) {
    struct stat facts {};
    if (::stat(QFile::encodeName(path).constData(), &facts) != 0)
        qFatal("cannot look at %s", qPrintable(path));
    AccessList list = listOf(path);
    if (list.empty())
        list = {{ListEntry::kOwner, static_cast<quint16>(facts.st_mode >> 6 & 7)},
                {ListEntry::kOwningGroup, static_cast<quint16>(facts.st_mode >> 3 & 7)},
                {ListEntry::kOthers, static_cast<quint16>(facts.st_mode & 7)}};
    return {facts.st_uid, facts.st_gid, list};
}

quint16 AccessFacts::rightsOf(const Person& person) const {
    const auto find = [this](quint16 tag) {
        return std::find_if(list.begin(), list.end(), [tag](const ListEntry& entry) { return entry.tag == tag; });
    };
    if (person.user == owner)
        return find(ListEntry::kOwner)->rights;
    const auto mask = find(ListEntry::kMask);
    const auto most = mask == list.end() ? quint16(7) : mask->rights;
    quint16 rights = 0;
    bool isMember = false;
    for (const ListEntry& entry : list) {
        if (entry.tag == ListEntry::kUser && entry.id == person.user)
            return entry.rights & most;
        const bool isOfGroup = (entry.tag == ListEntry::kOwningGroup && person.groups.contains(group)) ||
                               (entry.tag == ListEntry::kGroup && person.groups.contains(entry.id));
        isMember = isMember || isOfGroup;
        if (isOfGroup)
            rights |= entry.rights & most;
    }
    return isMember ? rights : find(ListEntry::kOthers)->rights;
}
