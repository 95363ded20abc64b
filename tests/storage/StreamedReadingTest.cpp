#include "kit/BudgetBuilder.h"
#include "kit/ScratchHome.h"
#include "storage/CVDocumentFile.h"
#include "storage/CVExaminedSource.h"
#include "storage/LogCapture.h"
#include "storage/ParsedBudget.h"
#include "storage/SampleFile.h"
#include "storage/TroubledDevice.h"

#include <QStringEncoder>

#include <gtest/gtest.h>

#include <array>
#include <new>
#include <random>

namespace {

using Outcome = CVLoadReport::Outcome;

/// A budget of more than three pieces.
QByteArray budgetOfManyPieces() {
    QByteArray transactions;
    for (int i = 0; i < 5000; ++i) {
        transactions += "<Transaction categoryID=\"1\" transaction_set_id=\"7\"><Data date=\"2014/03/07\" amount=\"" +
                        QByteArray::number(i) + ".50\" /><PayToFrom>Märkt " + QByteArray::number(i % 700) +
                        " 市場</PayToFrom><For>größere Brötchen " + QByteArray::number(i) + "</For></Transaction>\n";
    }
    return inRoot("<MiscInfo id=\"7\" /><TransactionSet id=\"7\">Checking</TransactionSet>" + transactions);
}

/// A reading of an open file into a document that is saved by a counter.
struct StreamedReading {
    explicit StreamedReading(TroubledDevice& device, std::function<bool(double part)> progress = {}) {
        file.setReadingProgress(std::move(progress));
        budget.document().setSaver(&saves);
        report = file.readFromOpenFile(budget.document(), device);
    }

    [[nodiscard]] QStringList records() { return ParsedBudget::describe(budget.document()); }

    LogCapture log;
    ScratchHome home;
    CVDocumentFile file{home.folders(), home.userDefaults()};
    BudgetBuilder budget;
    SaveCounter saves;
    CVLoadReport report;
};

TEST(StreamedReading, GivesTheRecordsThatTheBytesInMemoryGive) {
    ParsedBudget expected(budgetOfManyPieces());
    ASSERT_EQ(expected.document().transactions().size(), 5000U);
    for (const bool isPipe : {false, true}) {
        TroubledDevice device(budgetOfManyPieces(), {.most = 4093, .isPipe = isPipe});
        StreamedReading reading(device);
        EXPECT_EQ(reading.report.outcome, Outcome::Loaded) << reading.report.reason.toStdString();
        EXPECT_EQ(reading.records(), expected.records());
    }
}

QByteArray sampleInUtf16() {
    QStringEncoder encoder(QStringConverter::Utf16LE, QStringConverter::Flag::WriteBom);
    return encoder.encode(QString::fromUtf8(sampleFile()).replace("UTF-8", "UTF-16"));
}

/// A few random changes, most of which make a good file unreadable in some way.
QByteArray randomlyChanged(QByteArray bytes, std::mt19937& random) {
    for (auto changes = random() % 4; changes > 0; --changes) {
        const auto at = static_cast<qsizetype>(random() % static_cast<std::size_t>(bytes.size()));
        switch (random() % 4) {
        case 0:
            bytes[at] = static_cast<char>(random());
            break;
        case 1:
            bytes.remove(at, random() % 30);
            break;
        case 2:
            bytes.insert(at, QByteArray(" a=\"1\"").repeated(static_cast<qsizetype>(random() % 150)));
            break;
        default:
            bytes.insert(at, bytes.first(random() % 100));
        }
    }
    return bytes;
}

TEST(StreamedReading, EndsAsThatOfTheBytesInMemoryWhateverThePieces) {
    std::mt19937 random(2014);
    const std::array good = {sampleFile(), sampleInUtf16()};
    for (std::size_t round = 0; round < 600; ++round) {
        const QByteArray bytes = randomlyChanged(good[round % 2], random);
        ParsedBudget expected(bytes);
        TroubledDevice pipe(bytes, {.most = static_cast<qint64>(1 + random() % 500), .isPipe = true});
        StreamedReading reading(pipe);
        const bool isRead = reading.report.outcome == Outcome::Loaded || reading.report.outcome == Outcome::NoBudget;
        EXPECT_EQ(isRead, expected.read()) << round;
        EXPECT_EQ(reading.records(), expected.records()) << round;
        EXPECT_EQ(reading.saves.count(), expected.saves().count()) << round;
        EXPECT_EQ(reading.report.reason.startsWith("the file is XML but") ? "" : reading.report.reason,
                  expected.message())
            << round;
    }
}

TEST(StreamedReading, ThatFailsIsNoDamageAndSavesNothing) {
    for (const qint64 failsAt : {qint64(0), qint64(10), qint64(5000), qint64(CVExaminedSource::kPieceSize),
                                 qint64(3 * CVExaminedSource::kPieceSize)}) {
        TroubledDevice device(budgetOfManyPieces(), {.failsAt = failsAt});
        StreamedReading reading(device);
        EXPECT_EQ(reading.report.outcome, Outcome::NotRead) << failsAt;
        EXPECT_EQ(reading.report.reason, "Input/output error") << failsAt;
        EXPECT_EQ(reading.records(), QStringList()) << failsAt;
        EXPECT_EQ(reading.saves.count(), 0) << failsAt;
        EXPECT_EQ(LogCapture::messages(), QStringList()) << failsAt;
    }
}

TEST(StreamedReading, ThatFailsWithinAnEncryptedFileIsNoRefusal) {
    TroubledDevice device("<EncryptedData>" + QByteArray(CVExaminedSource::kPieceSize, 'x'), {.failsAt = 1000});
    const StreamedReading reading(device);
    EXPECT_EQ(reading.report.outcome, Outcome::NotRead);
    EXPECT_EQ(reading.report.reason, "Input/output error");
}

TEST(StreamedReading, OfAFileThatIsCutShortMeanwhileFindsItDamagedAtItsEnd) {
    TroubledDevice device(budgetOfManyPieces(), {.most = 10'000, .cutTo = 2 * CVExaminedSource::kPieceSize});
    StreamedReading reading(device);
    EXPECT_EQ(reading.report.outcome, Outcome::Unreadable);
    EXPECT_TRUE(reading.report.reason.startsWith("the file is damaged at line "))
        << reading.report.reason.toStdString();
    EXPECT_TRUE(reading.budget.document().transactions().empty());
    EXPECT_EQ(reading.saves.count(), 1) << "the defaults, as for every damaged file";
}

TEST(StreamedReading, ThatRunsOutOfMemoryIsNoDamageAndSavesNothing) {
    TroubledDevice device(budgetOfManyPieces());
    StreamedReading reading(device, [](double part) -> bool { return part < 0.2 ? true : throw std::bad_alloc(); });
    EXPECT_EQ(reading.report.outcome, Outcome::NotRead);
    EXPECT_EQ(reading.report.reason, "there was not enough memory to read the file");
    EXPECT_EQ(reading.records(), QStringList());
    EXPECT_EQ(reading.saves.count(), 0);
}

TEST(StreamedReading, ThatIsCancelledLeavesNothingAndSavesNothing) {
    for (const double enough : {0.0, 0.2, 0.9}) {
        TroubledDevice device(budgetOfManyPieces());
        StreamedReading reading(device, [enough](double part) { return part < enough; });
        EXPECT_EQ(reading.report.outcome, Outcome::Cancelled) << enough;
        EXPECT_EQ(reading.report.reason, enough == 0 ? "" : "the reading was cancelled");
        EXPECT_EQ(reading.records(), QStringList()) << enough;
        EXPECT_EQ(reading.saves.count(), 0) << enough;
        EXPECT_EQ(LogCapture::messages(), QStringList()) << enough;
    }
}

} // namespace
