#include "storage/CVCommonState.h"

#include "kit/ScratchHome.h"
#include "storage/ScratchFiles.h"

#include <gtest/gtest.h>

namespace {

/// More than one piece, none of them like the other.
QByteArray manyBytes() {
    QByteArray bytes;
    for (int number = 0; bytes.size() < 2'500'000; ++number)
        bytes += QByteArray::number(number) + ' ';
    return bytes;
}

class CVCommonStateTest : public testing::TestWithParam<QByteArray> {
protected:
    ScratchHome mHome;
    QString mPath = mHome.path(QStringLiteral("Data.corvella"));
};

TEST_P(CVCommonStateTest, givesTheBytesOfAFileBack) {
    writeFile(mPath, GetParam());
    const auto state = CVCommonState::ofFile(mPath, *CVFileSignature::of(mPath));
    ASSERT_TRUE(state);
    EXPECT_EQ(state->text().joined(), GetParam());
    EXPECT_TRUE(state->isIn(mPath));
}

TEST_P(CVCommonStateTest, isInNoFileWithOtherBytes) {
    writeFile(mPath, GetParam());
    const auto read = CVCommonState::ofFile(mPath, *CVFileSignature::of(mPath));
    ASSERT_TRUE(read);
    for (const CVCommonState& state : {*read, CVCommonState(textOf(GetParam()))}) {
        writeFile(mPath, GetParam());
        EXPECT_TRUE(state.isIn(mPath));
        writeFile(mPath, GetParam() + 'x');
        EXPECT_FALSE(state.isIn(mPath));
        QByteArray other = GetParam();
        if (!other.isEmpty()) {
            other.back() = static_cast<char>(other.back() + 1);
            writeFile(mPath, other);
            EXPECT_FALSE(state.isIn(mPath));
        }
        EXPECT_FALSE(state.isIn(mPath + ".none"));
    }
}

INSTANTIATE_TEST_SUITE_P(Bytes, CVCommonStateTest, testing::Values(QByteArray(), QByteArray("text"), manyBytes()));

TEST(CVCommonState, isAbsentForAFileThatHasChangedSince) {
    const ScratchHome home;
    const QString path = home.path(QStringLiteral("Data.corvella"));
    writeFile(path, "read");
    const CVFileSignature signature = *CVFileSignature::of(path);
    writeFile(path, "changed");
    EXPECT_FALSE(CVCommonState::ofFile(path, signature));
    EXPECT_FALSE(CVCommonState::ofFile(path + ".none", signature));
}

} // namespace
