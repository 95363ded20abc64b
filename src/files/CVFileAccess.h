#pragma once

#include "files/CVFileResult.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <optional>
#include <utility>

/// What became of the access that a new file was to have. The error says that the file would be open to somebody who
/// may not use it.
struct CVAccessResult : CVFileResult {
    /// What could not be kept, each in words that follow "the file was saved, but"; empty when everything was.
    QStringList lost = {};
};

/// Who may use a file, and what other programs noted at it: its owner, group, mode, access control list and `user.*`
/// attributes. Where something cannot be kept, the new file is stricter: except for whoever makes it, nobody can use
/// it who could not use the former one. The setuid, setgid and sticky bits are never kept.
class CVFileAccess final {
public:
    /// The access of the file at `path`, links followed, as it was at one moment. Where it cannot be told, only the
    /// owner of the new file has access.
    [[nodiscard]] static CVFileAccess of(const QString& path);
    /// The access of a file that replaces none and that only its owner may use.
    [[nodiscard]] static CVFileAccess ofNewFile() { return {}; }

    /// The access of a folder for such files: who may read them may enter it, and who may write them may make files
    /// there.
    [[nodiscard]] CVFileAccess ofFolder() const;
    /// The permission bits. With a list, those of the group are the most that the list gives to anybody but the owner
    /// and others.
    [[nodiscard]] unsigned mode() const;
    /// Permission bits that give nobody more than this access does, without the help of a list.
    [[nodiscard]] unsigned modeWithoutList() const;
    [[nodiscard]] bool hasList() const;

    /// Gives this access to an open file or folder that this program has just made for its owner alone. At no moment
    /// it is open to anybody to whom it is not open in the end.
    [[nodiscard]] CVAccessResult giveTo(int descriptor) const;

private:
    /// To whom the rights of an entry belong, as the kernel numbers them.
    enum Tag : quint16 { Owner = 0x01, User = 0x02, OwningGroup = 0x04, Group = 0x08, Mask = 0x10, Others = 0x20 };
    struct Entry {
        quint16 tag = 0;
        quint16 rights = 0;
        /// Of a user or group; otherwise without meaning.
        quint32 id = 0xFFFFFFFF;
    };

    void readRights(const QByteArray& path, unsigned mode);
    void readAttributes(const QByteArray& path);
    void giveAttributes(int descriptor, CVAccessResult& result) const;
    void giveRights(int descriptor, CVAccessResult& result) const;
    [[nodiscard]] bool giveList(int descriptor) const;
    void giveMode(int descriptor, unsigned mode, CVAccessResult& result) const;
    void forgetOwner();
    void forgetGroup();
    /// What the group has in the end.
    [[nodiscard]] unsigned rightsOfGroup() const;
    [[nodiscard]] quint16 rightsOf(Tag tag) const;
    void setRights(Tag tag, quint16 rights);

    /// Why the access is not known; empty when it is.
    QString mError;
    /// Absent for a file that replaces none.
    std::optional<quint32> mOwner;
    std::optional<quint32> mGroup;
    /// The entries of the list, in its order; without a list those that a mode stands for.
    QList<Entry> mEntries{{Owner, 06}, {OwningGroup, 0}, {Others, 0}};
    QList<std::pair<QByteArray, QByteArray>> mAttributes;
    /// Why not all attributes are known; empty when they are.
    QString mAttributeError;
};
