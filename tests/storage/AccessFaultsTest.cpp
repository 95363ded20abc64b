#include "files/CVMoveFile.h"
#include "files/CVReplaceFile.h"
#include "kit/ScratchHome.h"
#include "storage/FaultyCalls.h"
#include "storage/ScratchAccess.h"
#include "storage/ScratchFiles.h"

#include <QFile>
#include <QIODevice>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>
#include <ostream>
#include <thread>

namespace {

using FaultyCalls::Fault;
using FaultyCalls::Repeat;
using Entry = ListEntry;

constexpr quint32 kFormerOwner = 5001;
constexpr quint32 kNamedUser = 5002;
constexpr quint32 kStranger = 5003;
constexpr quint32 kFormerGroup = 6001;
constexpr quint32 kNamedGroup = 6002;
constexpr quint32 kOwn = 0xFFFFFFFF;

struct AccessRow {
    const char* name;
    unsigned mode;
    quint32 owner = kOwn;
    quint32 group = kOwn;
    AccessList list = {};
};

void PrintTo(const AccessRow& row, std::ostream* out) {
    *out << row.name;
}

/// A file of this access is replaced or copied while every call fails in every way; each file that is there afterwards
/// is looked at.
class AccessFaults : public testing::TestWithParam<AccessRow> {
protected:
    AccessFaults() { writeFile(mFolder + "/other", "other"); }
    ~AccessFaults() override { ::umask(mUmask); }

    void SetUp() override {
        const AccessRow& row = GetParam();
        if ((row.owner != kOwn || row.group != kOwn) && ::geteuid() != 0)
            GTEST_SKIP() << "only the superuser can give a file to somebody else";
        prepare();
        if (!row.list.empty() && listOf(mPath).empty())
            GTEST_SKIP() << "the file system keeps no access control lists";
        mBefore = AccessFacts::of(mPath);
        mModeBefore = static_cast<unsigned>(modeOf(mPath));
    }

    void prepare() const {
        const AccessRow& row = GetParam();
        for (const QString& name : namesIn(mFolder))
            QFile::remove(mFolder + u'/' + name);
        writeFile(mPath, "old");
        setMode(mPath, row.mode);
        if (!row.list.empty())
            (void)setList(mPath, row.list);
        (void)setAttribute(mPath, "user.note", "noted");
        ASSERT_EQ(::chown(QFile::encodeName(mPath).constData(), row.owner, row.group), 0);
    }

    /// The files that somebody but this user can use who cannot use the former one.
    [[nodiscard]] QStringList opened() const {
        QStringList opened;
        for (const QString& name : namesIn(mFolder)) {
            const AccessFacts after = AccessFacts::of(mFolder + u'/' + name);
            bool isOpened = false;
            for (const Person& person : everybody()) {
                // The owner of a file may give himself every right.
                const bool isOwner = person.user == mBefore.owner && person.user == after.owner;
                if (!isOwner && person.user != ::geteuid() && (after.rightsOf(person) & ~mBefore.rightsOf(person)) != 0)
                    isOpened = true;
            }
            if (isOpened)
                opened.append(name);
        }
        return opened;
    }

    /// Everybody who matters, with every set of the groups that matter.
    [[nodiscard]] static std::vector<Person> everybody() {
        const std::vector<quint32> groups{::getegid(), kFormerGroup, kNamedGroup};
        std::vector<Person> persons;
        for (const quint32 user : {kFormerOwner, kNamedUser, kStranger}) {
            for (unsigned set = 0; set < 1U << groups.size(); ++set) {
                Person person{user, {}};
                for (std::size_t i = 0; i < groups.size(); ++i) {
                    if ((set >> i & 1U) != 0)
                        person.groups.insert(groups[i]);
                }
                persons.push_back(person);
            }
        }
        return persons;
    }

    void tryEachFault(const std::function<void()>& work) {
        prepare();
        FaultyCalls::arm(mFolder, {});
        work();
        const auto calls = FaultyCalls::disarm().calls;
        ASSERT_GT(calls.size(), 10U);
        EXPECT_EQ(opened(), QStringList()) << "without any fault";
        for (std::size_t at = 0; at < calls.size(); ++at) {
            for (const FaultyCalls::Reasons& reasons : {FaultyCalls::whyWorkFails(), FaultyCalls::whyLooksFail()}) {
                const auto found = reasons.find(calls[at].name);
                for (const int error : found == reasons.end() ? std::vector<int>() : found->second) {
                    for (const Repeat repeat : {Repeat::Once, Repeat::SameForEver, Repeat::AllForEver})
                        tryFault(work, calls[at].name, {at, error, repeat});
                }
            }
        }
    }

    void tryFault(const std::function<void()>& work, const std::string& call, const Fault& fault) {
        prepare();
        FaultyCalls::arm(mFolder, {fault});
        work();
        const unsigned whileWriting = FaultyCalls::disarm().modesWhileWriting;
        EXPECT_EQ(opened(), QStringList()) << call << ' ' << fault.error;
        EXPECT_EQ(whileWriting & ~mModeBefore & 0077, 0U) << call << ' ' << fault.error;
    }

    mode_t mUmask = ::umask(0);
    ScratchHome mHome;
    QString mFolder = mHome.path(QStringLiteral("A Folder"));
    QString mPath = mFolder + QStringLiteral("/Data.corvella");
    AccessFacts mBefore;
    unsigned mModeBefore = 0;
};

TEST_P(AccessFaults, openTheNewFileToNobody) {
    tryEachFault([this] {
        (void)CVReplaceExpectedFile(
            mPath, [](QIODevice& output) { return output.write("new") == 3; }, CVFileSignature::of(mPath),
            CVFormerFile::Dropped);
    });
}

TEST_P(AccessFaults, openACopyToNobody) {
    tryEachFault([this] { (void)CVCopyFile(mPath, mFolder + "/copy"); });
}

TEST_P(AccessFaults, openNothingWhereAFolderHandsDownAList) {
    if (!setListForNewFiles(mFolder, {{Entry::kOwner, 7},
                                      {Entry::kUser, 7, kStranger},
                                      {Entry::kOwningGroup, 7},
                                      {Entry::kMask, 7},
                                      {Entry::kOthers, 7}}))
        GTEST_SKIP() << "the file system keeps no access control lists";
    FaultyCalls::arm(mFolder, {});
    (void)CVReplaceFile(mPath, [](QIODevice& output) { return output.write("new") == 3; });
    const std::size_t calls = FaultyCalls::disarm().calls.size();
    EXPECT_EQ(readFile(mPath), "new");
    EXPECT_EQ(opened(), QStringList());
    EXPECT_EQ(listOf(mPath), GetParam().list);
    for (std::size_t at = 0; at < calls; ++at) {
        FaultyCalls::arm(mFolder, {{at, EIO, Repeat::AllForEver}});
        (void)CVReplaceFile(mPath, [](QIODevice& output) { return output.write("newer") == 5; });
        (void)FaultyCalls::disarm();
        EXPECT_EQ(opened(), QStringList()) << at;
    }
}

const AccessList kTeam{{Entry::kOwner, 6},
                       {Entry::kUser, 6, kNamedUser},
                       {Entry::kOwningGroup, 0},
                       {Entry::kMask, 6},
                       {Entry::kOthers, 0}};
/// The mode of a file with a list shows what the list gives, which a file without a list would give to its group.
TEST(AccessOfTwoFiles, isNotMixedWhenOneTakesThePlaceOfTheOther) {
    const ScratchHome home;
    const QString path = home.path(QStringLiteral("A Folder/Data.corvella"));
    const QString other = home.path(QStringLiteral("A Folder/other"));
    writeFile(path, "old");
    writeFile(other, "other");
    setMode(other, 0600);
    if (!setList(path, kTeam))
        GTEST_SKIP() << "the file system keeps no access control lists";
    FaultyCalls::arm(home.path(), {});
    std::thread saving;
    {
        const FaultyCalls::Gate gate("getxattr");
        saving = std::thread(
            [&path] { (void)CVReplaceFile(path, [](QIODevice& output) { return output.write("new") == 3; }); });
        FaultyCalls::Gate::waitForArrival();
        EXPECT_EQ(::rename(QFile::encodeName(other).constData(), QFile::encodeName(path).constData()), 0);
    }
    saving.join();
    (void)FaultyCalls::disarm();
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(listOf(path), AccessList());
    EXPECT_EQ(modeOf(path), 0600);
}

const AccessList kReaders{{Entry::kOwner, 6},       {Entry::kUser, 0, kNamedUser},
                          {Entry::kOwningGroup, 4}, {Entry::kGroup, 6, kNamedGroup},
                          {Entry::kMask, 4},        {Entry::kOthers, 4}};
const AccessList kOwnerLeast{{Entry::kOwner, 4},
                             {Entry::kUser, 6, kNamedUser},
                             {Entry::kOwningGroup, 6},
                             {Entry::kMask, 6},
                             {Entry::kOthers, 6}};

const AccessRow kAccesses[]{
    {"private0600", 0600},
    {"group0660", 0660},
    {"everybody0644", 0644},
    {"others0604", 0604},
    {"list", 0600, kOwn, kOwn, kTeam},
    {"listForOthersToo", 0600, kOwn, kOwn, kReaders},
    {"anotherGroup0660", 0660, kOwn, kFormerGroup},
    {"anotherGroup0604", 0604, kOwn, kFormerGroup},
    {"anotherGroup0664", 0664, kOwn, kFormerGroup},
    {"anotherGroupAndList", 0600, kOwn, kFormerGroup, kReaders},
    {"another0600", 0600, kFormerOwner, kFormerGroup},
    {"another0660", 0660, kFormerOwner, kFormerGroup},
    {"another0466", 0466, kFormerOwner, kFormerGroup},
    {"anotherAndList", 0600, kFormerOwner, kFormerGroup, kTeam},
    {"anotherAndListThatGivesTheOwnerLeast", 0600, kFormerOwner, kFormerGroup, kOwnerLeast},
};

INSTANTIATE_TEST_SUITE_P(all, AccessFaults, testing::ValuesIn(kAccesses),
                         [](const testing::TestParamInfo<AccessRow>& row) { return std::string(row.param.name); });

} // namespace
