#include "files/CVRuntimeFolder.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

constexpr const char* kVariable = "XDG_RUNTIME_DIR";

class CVRuntimeFolderTest : public testing::Test {
protected:
    ~CVRuntimeFolderTest() override {
        if (mBefore.isNull())
            qunsetenv(kVariable);
        else
            qputenv(kVariable, mBefore);
    }

    static QString inForce() { return QFile::decodeName(qgetenv(kVariable)); }

    /// Expects a folder that only this user can open while the object lives, and `before` again afterwards.
    static void expectAnOwnFolderInPlaceOf(const QString& before) {
        QString own;
        {
            const CVRuntimeFolder folder;
            own = inForce();
            EXPECT_NE(own, before);
            EXPECT_TRUE(QFileInfo(own).isDir());
            EXPECT_EQ(QFileInfo(own).permissions() & (QFile::ExeGroup | QFile::ExeOther), QFile::Permissions());
        }
        EXPECT_EQ(inForce(), before);
        EXPECT_FALSE(QFileInfo::exists(own));
    }

    const QByteArray mBefore = qgetenv(kVariable);
    const QTemporaryDir mFolder;
};

TEST_F(CVRuntimeFolderTest, IsThatOfTheSession) {
    qputenv(kVariable, QFile::encodeName(mFolder.path()));
    {
        const CVRuntimeFolder folder;
        EXPECT_EQ(inForce(), mFolder.path());
    }
    EXPECT_EQ(inForce(), mFolder.path());
    EXPECT_TRUE(QFileInfo(mFolder.path()).isDir());
}

TEST_F(CVRuntimeFolderTest, IsAnotherWhereTheSessionHasNone) {
    qunsetenv(kVariable);
    expectAnOwnFolderInPlaceOf(QString());
    EXPECT_FALSE(qEnvironmentVariableIsSet(kVariable));
}

TEST_F(CVRuntimeFolderTest, IsAnotherWhereThatOfTheSessionIsNotThere) {
    qputenv(kVariable, QFile::encodeName(mFolder.filePath("nothing")));
    expectAnOwnFolderInPlaceOf(mFolder.filePath("nothing"));
}

TEST_F(CVRuntimeFolderTest, IsThatOfTheSessionAlsoWhereOthersMayEnterIt) {
    QFile::setPermissions(mFolder.path(), QFile::Permissions(0x7755));
    qputenv(kVariable, QFile::encodeName(mFolder.path()));
    const CVRuntimeFolder folder;
    EXPECT_EQ(inForce(), mFolder.path()) << "the display may lie in it";
}

} // namespace
