#include "storage/CVExaminedSource.h"

#include "storage/SampleFile.h"
#include "storage/TroubledDevice.h"

#include <QBuffer>

#include <gtest/gtest.h>

#include <vector>

namespace {

using Stop = CVExaminedSource::Stop;

/// All bytes that the source hands out when it is asked for so many at a time.
QByteArray takenFrom(CVExaminedSource& source, qsizetype atOnce) {
    QByteArray taken;
    QByteArray buffer(atOnce, '?');
    while (const qsizetype count = source.read(buffer.data(), buffer.size()))
        taken += buffer.first(count);
    return taken;
}

QByteArray longText() {
    return sampleFile().repeated(CVExaminedSource::kPieceSize * 3 / sampleFile().size());
}

TEST(CVExaminedSource, HandsOutEveryByteInOrder) {
    const QByteArray bytes = longText();
    for (const qsizetype atOnce : {qsizetype(1), qsizetype(7), qsizetype(4000), CVExaminedSource::kPieceSize,
                                   CVExaminedSource::kPieceSize + 1, 5 * CVExaminedSource::kPieceSize}) {
        TroubledDevice device(bytes);
        CVExaminedSource source(device);
        source.examineStart();
        EXPECT_TRUE(takenFrom(source, atOnce) == bytes) << atOnce;
        EXPECT_EQ(source.stop(), Stop::None);
    }
}

TEST(CVExaminedSource, FillsWhatIsAskedForFromAPipeThatGivesLittle) {
    const QByteArray bytes = longText();
    TroubledDevice pipe(bytes, {.most = 13, .isPipe = true});
    CVExaminedSource source(pipe);
    QByteArray buffer(4000, '?');
    for (qsizetype at = 0; at < bytes.size(); at += buffer.size()) {
        const qsizetype expected = std::min(buffer.size(), bytes.size() - at);
        ASSERT_EQ(source.read(buffer.data(), buffer.size()), expected) << at;
        ASSERT_TRUE(buffer.first(expected) == bytes.sliced(at, expected)) << at;
    }
    EXPECT_EQ(source.read(buffer.data(), buffer.size()), 0);
    EXPECT_EQ(source.size(), std::nullopt);
}

TEST(CVExaminedSource, BeginsAtThePositionOfTheDevice) {
    TroubledDevice device("skipped" + sampleFile());
    ASSERT_TRUE(device.seek(7));
    CVExaminedSource source(device);
    EXPECT_EQ(source.size(), sampleFile().size());
    EXPECT_EQ(source.readAll(), sampleFile());
}

TEST(CVExaminedSource, TellsExactlyHowMuchHasBeenTaken) {
    const QByteArray bytes(CVExaminedSource::kPieceSize * 4, 'x');
    TroubledDevice device(bytes);
    std::vector<double> parts;
    CVExaminedSource source(device, [&parts](double part) {
        parts.push_back(part);
        return true;
    });
    QByteArray buffer(CVExaminedSource::kPieceSize, '?');
    ASSERT_EQ(source.read(buffer.data(), buffer.size()), CVExaminedSource::kPieceSize);
    EXPECT_EQ(parts.size(), 0U) << "nothing is reported before anything was taken";
    for (int piece = 1; piece < 4; ++piece)
        ASSERT_EQ(source.read(buffer.data(), buffer.size()), CVExaminedSource::kPieceSize);
    EXPECT_EQ(source.read(buffer.data(), buffer.size()), 0);
    EXPECT_EQ(parts, (std::vector<double>{0.25, 0.5, 0.75, 1}));
}

TEST(CVExaminedSource, ReadsNothingMoreOnceItIsCancelled) {
    TroubledDevice device(QByteArray(CVExaminedSource::kPieceSize * 4, 'x'));
    int asked = 0;
    CVExaminedSource source(device, [&asked](double /*part*/) { return ++asked < 2; });
    EXPECT_EQ(takenFrom(source, 4000).size(),
              CVExaminedSource::kPieceSize * 2 - CVExaminedSource::kPieceSize * 2 % 4000)
        << "the last bytes are held back";
    EXPECT_EQ(source.stop(), Stop::Cancelled);
    source.examineRest();
    EXPECT_EQ(source.readAll(), QByteArray());
    EXPECT_EQ(device.pos(), CVExaminedSource::kPieceSize * 2);
    EXPECT_EQ(asked, 2);
}

TEST(CVExaminedSource, TellsNoPartOfAPipeWhoseSizeNobodyKnows) {
    TroubledDevice pipe(longText(), {.isPipe = true});
    int asked = 0;
    CVExaminedSource source(pipe, [&asked](double /*part*/) { return ++asked == 0; });
    EXPECT_TRUE(source.readAll() == longText());
    EXPECT_EQ(source.stop(), Stop::None);
    EXPECT_EQ(asked, 0);
}

TEST(CVExaminedSource, SaysWhyTheDeviceFailed) {
    TroubledDevice device(QByteArray(CVExaminedSource::kPieceSize * 4, 'x'),
                          {.failsAt = CVExaminedSource::kPieceSize + 5});
    CVExaminedSource source(device);
    EXPECT_LE(takenFrom(source, 4000).size(), CVExaminedSource::kPieceSize + 5);
    EXPECT_EQ(source.stop(), Stop::ReadError);
    EXPECT_EQ(source.readError(), "Input/output error");
}

TEST(CVExaminedSource, RefusesAnEndlessPipe) {
    TroubledDevice pipe(QByteArray(CVExaminedSource::kPieceSize, 'x'), {.isPipe = true, .isEndless = true});
    CVExaminedSource source(pipe);
    source.examineRest();
    EXPECT_EQ(source.stop(), Stop::ReadError);
    EXPECT_EQ(source.readError(), "the file is larger than 2 GiB");
}

TEST(CVExaminedSource, HoldsAnAbsurdElementBack) {
    const QByteArray before = "<CorvellaDocument>" + QByteArray(CVExaminedSource::kPieceSize, ' ');
    TroubledDevice device(before + "<Odd" + QByteArray(" a=\"1\"").repeated(101) + "/>");
    CVExaminedSource source(device);
    EXPECT_TRUE(before.startsWith(takenFrom(source, 100)));
    EXPECT_EQ(source.stop(), Stop::AbsurdElement);
}

TEST(CVExaminedSource, ExaminesWhatTheParserDoesNotWant) {
    QByteArray bytes = longText();
    bytes[bytes.size() - 2] = '\0';
    QBuffer device(&bytes);
    ASSERT_TRUE(device.open(QIODevice::ReadOnly));
    CVExaminedSource source(device);
    source.examineStart();
    EXPECT_FALSE(source.examination().holdsNul());
    source.examineRest();
    EXPECT_TRUE(source.examination().holdsNul());
}

} // namespace
