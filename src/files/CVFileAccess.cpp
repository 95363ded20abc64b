#include "files/CVFileAccess.h"

#include <QCoreApplication>
#include <QFile>
#include <QtEndian>

#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

namespace {

struct FileAccessText {
    Q_DECLARE_TR_FUNCTIONS(CVFileAccess)
};

/// The library for lists would be one more dependency for what are eight bytes an entry, and it knows no attributes.
constexpr const char* kList = "system.posix_acl_access";
constexpr quint32 kListVersion = 2;
constexpr qsizetype kVersionBytes = 4;
constexpr qsizetype kEntryBytes = 8;
constexpr qsizetype kRightsAt = 2;
constexpr qsizetype kIDAt = 4;
/// What a mode stands for: entries for the owner, the group and others.
constexpr qsizetype kEntriesOfMode = 3;

/// In bytes; the kernel allows no longer value and no longer list of names.
constexpr qsizetype kLargestAttribute = 65536;

constexpr int kMostLooks = 10;
constexpr unsigned kOwnerAlone = 0600;
constexpr unsigned kOwnersBits = 0700;
constexpr unsigned kAllBits = 0777;
constexpr unsigned kOwnerShift = 6;
constexpr unsigned kGroupShift = 3;
constexpr unsigned kRights = 07;
constexpr unsigned kRead = 04;
constexpr unsigned kReadAndWrite = 06;
constexpr unsigned kEnter = 01;

bool isSameState(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_ctim.tv_sec == b.st_ctim.tv_sec &&
           a.st_ctim.tv_nsec == b.st_ctim.tv_nsec;
}

/// Whether the last call failed because there is no such attribute, or can be none.
bool isNothingThere() {
    return errno == ENODATA || errno == ENOTSUP || errno == ENOSYS;
}

/// Absent, with the reason in `errno`, when there is none or it cannot be read.
std::optional<QByteArray> valueOf(const QByteArray& path, const char* name) {
    QByteArray value(kLargestAttribute, Qt::Uninitialized);
    const ssize_t size = ::getxattr(path.constData(), name, value.data(), static_cast<std::size_t>(value.size()));
    if (size < 0)
        return std::nullopt;
    value.resize(size);
    return value;
}

} // namespace

CVFileAccess CVFileAccess::of(const QString& path) {
    const QByteArray file = QFile::encodeName(path);
    for (int look = 0; look < kMostLooks; ++look) {
        CVFileAccess access;
        struct stat before {};
        struct stat after {};
        if (::stat(file.constData(), &before) != 0) {
            access.mError = CVFileResult::ofLastCall().error;
            return access;
        }
        access.mOwner = before.st_uid;
        access.mGroup = before.st_gid;
        access.readRights(file, before.st_mode);
        access.readAttributes(file);
        // The mode of one file and the list of another would open the new one to more than either.
        if (::stat(file.constData(), &after) == 0 && isSameState(before, after))
            return access;
    }
    CVFileAccess unknown;
    unknown.mError = qt_error_string(EBUSY);
    return unknown;
}

void CVFileAccess::readRights(const QByteArray& path, unsigned mode) {
    mEntries = {{Owner, static_cast<quint16>(mode >> kOwnerShift & kRights)},
                {OwningGroup, static_cast<quint16>(mode >> kGroupShift & kRights)},
                {Others, static_cast<quint16>(mode & kRights)}};
    const auto list = valueOf(path, kList);
    if (!list) {
        if (!isNothingThere())
            mError = CVFileResult::ofLastCall().error;
        return;
    }
    const bool isKnown = list->size() >= kVersionBytes + kEntriesOfMode * kEntryBytes &&
                         (list->size() - kVersionBytes) % kEntryBytes == 0 &&
                         qFromLittleEndian<quint32>(list->constData()) == kListVersion;
    if (!isKnown) {
        mError = qt_error_string(EINVAL);
        return;
    }
    mEntries.clear();
    for (const char* at = list->constData() + kVersionBytes; at != list->constData() + list->size(); at += kEntryBytes)
        mEntries.append({qFromLittleEndian<quint16>(at), qFromLittleEndian<quint16>(at + kRightsAt),
                         qFromLittleEndian<quint32>(at + kIDAt)});
}

void CVFileAccess::readAttributes(const QByteArray& path) {
    QByteArray names(kLargestAttribute, Qt::Uninitialized);
    const ssize_t size = ::listxattr(path.constData(), names.data(), static_cast<std::size_t>(names.size()));
    if (size < 0) {
        if (!isNothingThere())
            mAttributeError = CVFileResult::ofLastCall().error;
        return;
    }
    names.resize(size);
    for (const QByteArray& name : names.split('\0')) {
        if (!name.startsWith("user."))
            continue;
        if (const auto value = valueOf(path, name.constData()))
            mAttributes.append({name, *value});
        else if (!isNothingThere())
            mAttributeError = CVFileResult::ofLastCall().error;
    }
}

CVFileAccess CVFileAccess::ofFolder() const {
    CVFileAccess folder = *this;
    folder.mAttributes.clear();
    folder.mAttributeError.clear();
    for (Entry& entry : folder.mEntries) {
        const auto rights = entry.rights & kReadAndWrite;
        entry.rights = static_cast<quint16>(entry.tag == Owner ? kRights : rights & kRead ? rights | kEnter : rights);
    }
    return folder;
}

unsigned CVFileAccess::mode() const {
    return static_cast<unsigned>(rightsOf(Owner) << kOwnerShift) |
           static_cast<unsigned>(rightsOf(hasList() ? Mask : OwningGroup) << kGroupShift) | rightsOf(Others);
}

unsigned CVFileAccess::modeWithoutList() const {
    unsigned group = rightsOfGroup();
    unsigned others = rightsOf(Others);
    for (const Entry& entry : mEntries) {
        if (entry.tag == User || entry.tag == Group) {
            group &= entry.rights;
            others &= entry.rights;
        }
    }
    return static_cast<unsigned>(rightsOf(Owner) << kOwnerShift) | group << kGroupShift | others;
}

bool CVFileAccess::hasList() const {
    return mEntries.size() > kEntriesOfMode;
}

CVAccessResult CVFileAccess::giveTo(int descriptor) const {
    struct stat fresh {};
    if (::fstat(descriptor, &fresh) != 0)
        return {CVFileResult::ofLastCall()};
    CVAccessResult result;
    // Attributes can only be set while the owner may write the file.
    giveAttributes(descriptor, result);
    CVFileAccess kept = *this;
    if (mOwner && *mOwner != fresh.st_uid && ::fchown(descriptor, *mOwner, static_cast<gid_t>(-1)) != 0) {
        kept.forgetOwner();
        // Whoever shares a file shares it by its group as a rule.
        if ((rightsOf(Owner) & ~rightsOfGroup() & kReadAndWrite) != 0)
            result.lost.append(FileAccessText::tr("it belongs to you now and no longer to its former owner"));
    }
    if (mGroup && *mGroup != fresh.st_gid && ::fchown(descriptor, static_cast<uid_t>(-1), *mGroup) != 0) {
        const QString reason = CVFileResult::ofLastCall().error;
        const unsigned before = kept.rightsOfGroup();
        kept.forgetGroup();
        if (kept.rightsOfGroup() != before)
            result.lost.append(FileAccessText::tr("its group has no access any more (%1)").arg(reason));
    }
    kept.giveRights(descriptor, result);
    return result;
}

void CVFileAccess::giveAttributes(int descriptor, CVAccessResult& result) const {
    QString reason = mAttributeError;
    for (const auto& [name, value] : mAttributes) {
        if (::fsetxattr(descriptor, name.constData(), value.constData(), static_cast<std::size_t>(value.size()), 0) !=
            0)
            reason = CVFileResult::ofLastCall().error;
    }
    if (!reason.isEmpty())
        result.lost.append(FileAccessText::tr("what other programs had noted at it is gone (%1)").arg(reason));
}

void CVFileAccess::giveRights(int descriptor, CVAccessResult& result) const {
    QString reason = mError;
    if (reason.isEmpty() && hasList()) {
        if (giveList(descriptor))
            return;
        reason = CVFileResult::ofLastCall().error;
    } else if (reason.isEmpty() && ::fremovexattr(descriptor, kList) != 0 && !isNothingThere()) {
        // The folder may hand a list down to its new files.
        reason = CVFileResult::ofLastCall().error;
    }
    if (reason.isEmpty())
        return giveMode(descriptor, mode(), result);
    if (mode() & ~kOwnersBits || !mError.isEmpty())
        result.lost.append(FileAccessText::tr("only you have access to it now (%1)").arg(reason));
    giveMode(descriptor, mode() & kOwnersBits, result);
}

/// Sets the mode too.
bool CVFileAccess::giveList(int descriptor) const {
    QByteArray list(kVersionBytes + mEntries.size() * kEntryBytes, Qt::Uninitialized);
    char* at = list.data();
    qToLittleEndian(kListVersion, at);
    at += kVersionBytes;
    for (const Entry& entry : mEntries) {
        qToLittleEndian(entry.tag, at);
        qToLittleEndian(entry.rights, at + kRightsAt);
        qToLittleEndian(entry.id, at + kIDAt);
        at += kEntryBytes;
    }
    return ::fsetxattr(descriptor, kList, list.constData(), static_cast<std::size_t>(list.size()), 0) == 0;
}

/// A file system without modes may refuse fchmod even to the owner. There the new file has as a rule the mode that the
/// former one had, and a file that replaces none cannot be private.
void CVFileAccess::giveMode(int descriptor, unsigned mode, CVAccessResult& result) const {
    if (::fchmod(descriptor, mode) == 0)
        return;
    const bool hasNoModes = CVFileResult::isUnknownCall(errno);
    const CVFileResult failure = CVFileResult::ofLastCall();
    struct stat fresh {};
    if (::fstat(descriptor, &fresh) != 0) {
        result.error = failure.error;
        return;
    }
    const unsigned actual = fresh.st_mode & kAllBits;
    if ((actual & ~mode & ~kOwnersBits) == 0) {
        if (actual != mode)
            result.lost.append(FileAccessText::tr("only you have access to it now (%1)").arg(failure.error));
    } else if (mOwner || !mError.isEmpty() || !hasNoModes) {
        result.error = failure.error;
    }
}

/// The former owner may count as anybody from now on.
void CVFileAccess::forgetOwner() {
    const quint16 most = rightsOf(Owner);
    for (Entry& entry : mEntries) {
        if (entry.tag != Owner)
            entry.rights &= most;
    }
}

/// The members of the former group are others from now on, and others may be members of the new group. Of both, members
/// of a group in the list have its rights besides.
void CVFileAccess::forgetGroup() {
    const auto most = static_cast<quint16>(rightsOfGroup() & rightsOf(Others));
    setRights(Others, most);
    setRights(OwningGroup, hasList() ? quint16(0) : most);
}

unsigned CVFileAccess::rightsOfGroup() const {
    return hasList() ? rightsOf(OwningGroup) & rightsOf(Mask) : rightsOf(OwningGroup);
}

quint16 CVFileAccess::rightsOf(Tag tag) const {
    const auto found =
        std::find_if(mEntries.begin(), mEntries.end(), [tag](const Entry& entry) { return entry.tag == tag; });
    return found == mEntries.end() ? quint16(0) : found->rights;
}

void CVFileAccess::setRights(Tag tag, quint16 rights) {
    for (Entry& entry : mEntries) {
        if (entry.tag == tag)
            entry.rights = rights;
    }
}
