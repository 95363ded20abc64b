#include "history/CVVersionReader.h"

#include "differences/CVBudgetDifferences.h"
#include "history/HistoryFixture.h"
#include "model/CVTransaction.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

class CVVersionReaderTest : public HistoryFixture {
protected:
    CVVersionReaderTest() {
        QObject::connect(&*mReader, &CVVersionReader::found, &*mReader,
                         [this](const CVVersionFindings& findings) { mFound.append(findings); });
    }

    void read(const QStringList& paths) { mReader->read(CVDocumentXMLRepresentation(mBudget.document()), paths); }

    /// Waits until that many findings were told, or for a long time.
    void wait(qsizetype findings) {
        const QDeadlineTimer deadline(std::chrono::seconds(30));
        while (mFound.size() < findings && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 50);
        ASSERT_EQ(mFound.size(), findings);
    }

    [[nodiscard]] QStringList paths() const {
        QStringList paths;
        for (const CVVersionFindings& findings : mFound)
            paths.append(findings.path);
        return paths;
    }

    std::unique_ptr<CVVersionReader> mReader = std::make_unique<CVVersionReader>();
    QList<CVVersionFindings> mFound;
};

TEST_F(CVVersionReaderTest, TellsOfEachVersionInTurnWhatDiffersFromTheBudget) {
    const QString larger = keepWith(2, CVVersionReason::Removal, at(6, 10));
    BudgetBuilder smallBudget;
    smallBudget.category("Food", kFood).category("Old", 2).lastID(2);
    purchase(smallBudget, 1, 10, "Market");
    purchase(smallBudget, 2, 25, "Baker");
    const QString smaller = keep(bytesOf(smallBudget), CVVersionReason::FirstOfDay, at(5, 10));
    const QString same = keepWith(0, CVVersionReason::Hourly, at(4, 10));
    read({larger, smaller, same});
    wait(3);
    EXPECT_EQ(paths(), (QStringList{larger, smaller, same}));
    using Counts = std::array<std::size_t, kCVVersionSigns>;
    EXPECT_EQ(mFound[0].transactions, 5U);
    EXPECT_EQ(mFound[0].counts, (Counts{2, 0, 0}));
    EXPECT_EQ(mFound[1].transactions, 2U);
    EXPECT_EQ(mFound[1].counts, (Counts{1, 1, 1})) << "the category, the butcher and the baker's amount";
    EXPECT_EQ(mFound[2].counts, (Counts{0, 0, 0}));
    for (const CVVersionFindings& findings : mFound) {
        EXPECT_EQ(findings.problem, "");
        EXPECT_EQ(findings.differences, nullptr);
    }
}

TEST_F(CVVersionReaderTest, ReadsTheChosenVersionFirstAndHandsOverItsDifferences) {
    const QString first = keepWith(1, CVVersionReason::Removal, at(6, 10));
    const QString chosen = keepWith(2, CVVersionReason::Removal, at(5, 10));
    mReader->choose(chosen);
    read({first, chosen});
    wait(2);
    EXPECT_EQ(paths(), (QStringList{chosen, first}));
    const CVVersionFindings findings = mFound[0];
    mFound.clear();
    mReader.reset();
    ASSERT_NE(findings.differences, nullptr);
    EXPECT_EQ(findings.differences->transactions.size(), 2U);
    EXPECT_EQ(findings.differences->transactions[0].before->categoryName(), "Food") << "its budget is still there";
    EXPECT_EQ(findings.version->transactions().size(), 5U);
}

TEST_F(CVVersionReaderTest, AVersionThatIsChosenLaterIsReadAgain) {
    const QString path = keepWith(1, CVVersionReason::Removal, at(6, 10));
    read({path});
    wait(1);
    mReader->choose(path);
    wait(2);
    ASSERT_NE(mFound[1].differences, nullptr);
    EXPECT_EQ(mFound[1].differences->transactions.size(), 1U);
}

TEST_F(CVVersionReaderTest, SaysWhyAVersionCannotBeRead) {
    const QByteArray whole = bytesOf(mBudget);
    struct Row {
        const char* name;
        QByteArray bytes;
        const char* problem;
    };
    QStringList files;
    const std::array rows{Row{"cut", whole.chopped(60), "line"}, Row{"empty", "", ""}, Row{"text", "hello", ""},
                          Row{"other", "<?xml version=\"1.0\"?><html><body>" + QByteArray(100, 'x') + "</body></html>",
                              "no Corvella budget"}};
    for (const Row& row : rows) {
        files.append(mHome.path(row.name));
        write(files.constLast(), row.bytes);
    }
    files.append(mHome.path("missing"));
    files.append(keepWith(0, CVVersionReason::Hourly, at(4, 10)));
    read(files);
    wait(files.size());
    for (qsizetype i = 0; i + 1 < files.size(); ++i) {
        EXPECT_NE(mFound[i].problem, "") << files[i].toStdString();
        EXPECT_EQ(mFound[i].transactions, 0U);
    }
    for (std::size_t i = 0; i < rows.size(); ++i)
        EXPECT_TRUE(mFound[static_cast<qsizetype>(i)].problem.contains(rows[i].problem))
            << rows[i].name << ": " << mFound[static_cast<qsizetype>(i)].problem.toStdString();
    EXPECT_EQ(mFound.constLast().problem, "") << "one that cannot be read spoils no other";
}

TEST_F(CVVersionReaderTest, AReadingBegunAnewForgetsTheFormerOne) {
    const QString path = keepWith(2, CVVersionReason::Removal, at(5, 10));
    const QByteArray pipe = mHome.path("pipe").toLocal8Bit();
    ASSERT_EQ(mkfifo(pipe.constData(), S_IRUSR | S_IWUSR), 0);
    read({mHome.path("pipe")});
    // Opens only once the thread opens the other end.
    const int writer = open(pipe.constData(), O_WRONLY);
    ASSERT_GE(writer, 0);
    mBudget.document().removeTransaction(mBudget.transactionAt(0));
    read({path});
    close(writer);
    wait(1);
    EXPECT_EQ(mFound[0].path, path);
    EXPECT_EQ(mFound[0].counts[static_cast<std::size_t>(CVVersionSign::Removed)], 3U);
    QCoreApplication::processEvents();
    EXPECT_EQ(mFound.size(), 1);
}

TEST_F(CVVersionReaderTest, EndsInTheMiddleOfReadingALargeVersion) {
    BudgetBuilder large;
    large.category("Food", kFood).lastID(kFood);
    for (int i = 0; i < 50'000; ++i)
        purchase(large, 1 + i % 28, i, "Market");
    const QString path = keep(bytesOf(large), CVVersionReason::Removal, at(6, 10));
    read(QStringList(200, path));
    mReader.reset();
    QCoreApplication::processEvents();
    EXPECT_TRUE(mFound.isEmpty()) << "nothing is told once the reader is gone";
}

} // namespace
