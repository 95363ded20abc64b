#include "app/CVAppDelegate.h"
#include "base/CVDefaultsKeys.h"
#include "kit/BudgetBuilder.h"
#include "kit/ScriptedAlerts.h"
#include "kit/ScriptedPanels.h"
#include "kit/StartedProgram.h"
#include "lock/CVBudgetLock.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "storage/CVDocumentXML.h"

#include <QApplication>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSettings>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <gtest/gtest.h>

#include <cstdio>

namespace {

/// Two programs that record into one file at the same time, and a script that replaces the file while one does. Every
/// entry of which a program has told that it is saved must be in the file, in a kept copy, or in an earlier version.
/// Each program is this test program again, with only the test `records`.
class TwoPrograms : public testing::Test {
protected:
    void SetUp() override {
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        // A lock cannot be made here, as in a folder of which another system holds the rights.
        ASSERT_TRUE(QDir().mkpath(CVBudgetLock(path()).path() + "/taken"));
        BudgetBuilder budget;
        file.write(CVDocumentXMLRepresentation(budget.lastID(1).document()).joined());
    }

    /// More rounds for whoever has the time.
    [[nodiscard]] static int rounds() {
        const int rounds = qEnvironmentVariableIntValue("CORVELLA_ROUNDS");
        return rounds > 0 ? rounds : 30;
    }

    [[nodiscard]] std::unique_ptr<StartedProgram> start(const QString& name, const QString& home) const {
        auto environment = QProcessEnvironment::systemEnvironment();
        environment.insert("CORVELLA_RECORDER", name);
        environment.insert("CORVELLA_RECORDER_HOME", mFolder.filePath(home));
        environment.insert("CORVELLA_RECORDER_FILE", path());
        environment.insert("CORVELLA_ROUNDS", QString::number(rounds()));
        return std::make_unique<StartedProgram>(
            QCoreApplication::applicationFilePath(),
            QStringList{"--gtest_filter=Recorder.DISABLED_records", "--gtest_also_run_disabled_tests"}, environment);
    }

    [[nodiscard]] QString path() const { return mFolder.filePath("Corvella Data.corvella"); }

    /// What the program has told as saved. Notes the kept copies that it has told.
    [[nodiscard]] QStringList told(StartedProgram& program) {
        const int status = program.wait();
        const QByteArray output = program.output();
        EXPECT_EQ(status, 0) << output.toStdString();
        QStringList names;
        for (const QByteArray& line : output.split('\n')) {
            if (line.startsWith("told "))
                names.append(QString::fromUtf8(line.mid(5)));
            else if (line.startsWith("kept "))
                mToldCopies.insert(QString::fromUtf8(line.mid(5)));
        }
        EXPECT_GT(names.size(), rounds() / 4) << "hardly anything was saved";
        return names;
    }

    /// Every entry in the file, in the kept copies that were told, and in the earlier versions, to which the remark on
    /// another program's change leads.
    [[nodiscard]] QSet<QString> kept() const {
        static const QRegularExpression payee(QStringLiteral("<PayToFrom>([^<]*)</PayToFrom>"));
        QSet<QString> names;
        QDirIterator files(mFolder.path(), {"*.corvella"}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            if (path.contains(" (changed outside ") && !mToldCopies.contains(path))
                continue;
            QFile file(path);
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            const QString text = QString::fromUtf8(file.readAll());
            EXPECT_TRUE(text.endsWith("</CorvellaDocument>\n") || text.endsWith("</CorvellaDocument>"))
                << file.fileName().toStdString() << " is cut";
            for (auto matches = payee.globalMatch(text); matches.hasNext();)
                names.insert(matches.next().captured(1));
        }
        return names;
    }

    void expectNoneLost(const QStringList& told) const {
        const QSet<QString> there = kept();
        QStringList lost;
        for (const QString& name : told) {
            if (!there.contains(name))
                lost.append(name);
        }
        EXPECT_TRUE(lost.isEmpty()) << lost.join(' ').toStdString();
        std::printf("%d rounds: %lld entries told as saved, %lld lost\n", rounds(), static_cast<long long>(told.size()),
                    static_cast<long long>(lost.size()));
    }

    QTemporaryDir mFolder;
    QSet<QString> mToldCopies;
};

TEST_F(TwoPrograms, OfOneHomeLoseNoEntryThatTheyHaveToldAsSaved) {
    const auto first = start("a", "home");
    const auto second = start("b", "home");
    expectNoneLost(told(*first) + told(*second));
}

TEST_F(TwoPrograms, OfTwoHomesLoseNoEntryThatTheyHaveToldAsSaved) {
    const auto first = start("a", "home");
    const auto second = start("b", "other home");
    expectNoneLost(told(*first) + told(*second));
}

/// The script adds an entry to what it has read, as a synchronizing program does that knows nothing of the other one.
TEST_F(TwoPrograms, OneOfWhichReplacesTheFileAtRandomMomentsLoseNoEntry) {
    const auto program = start("a", "home");
    QStringList written;
    for (int number = 0; program->isRunning(); ++number) {
        QThread::msleep(QRandomGenerator::global()->bounded(1U, 120U));
        QFile file(path());
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const QString name = QStringLiteral("script-%1").arg(number);
        QByteArray text = file.readAll();
        const auto end = text.lastIndexOf("</CorvellaDocument>");
        if (end < 0)
            continue;
        text.insert(end, R"(<Transaction categoryID="0" flag="0" tax_flag="0" transaction_set_id="0"><Data )"
                         R"(date="2020/01/02" amount="1.00" /><PayToFrom>)" +
                             name.toUtf8() + "</PayToFrom><For></For></Transaction>\n");
        QFile fresh(path() + ".script");
        ASSERT_TRUE(fresh.open(QIODevice::WriteOnly) && fresh.write(text) == text.size());
        fresh.close();
        ASSERT_EQ(std::rename(QFile::encodeName(fresh.fileName()).constData(), QFile::encodeName(path()).constData()),
                  0);
        written.append(name);
    }
    expectNoneLost(told(*program) + written);
}

/// The program that the tests above start.
TEST(Recorder, DISABLED_records) {
    const QString name = qEnvironmentVariable("CORVELLA_RECORDER");
    const QString home = qEnvironmentVariable("CORVELLA_RECORDER_HOME");
    ASSERT_FALSE(name.isEmpty()) << "only the other tests start this one";
    QDir().mkpath(home);
    auto settings = std::make_unique<QSettings>(home + "/settings.ini", QSettings::IniFormat);
    settings->setValue(CVDefaultsKeys::kDataFileLocation, qEnvironmentVariable("CORVELLA_RECORDER_FILE"));
    ScriptedAlerts alerts;
    // Whoever cannot judge the lock opens the budget all the same.
    alerts.answer({CVAlert::kFurther, CVAlert::kDefault});
    ScriptedPanels panels;
    CVAppDelegate delegate(std::move(settings), {home + "/data", home + "/documents"}, alerts, panels);
    ASSERT_TRUE(delegate.applicationDidFinishLaunching());
    QSet<QString> notTold;
    QObject::connect(&delegate.saves(), &CVSaveQueue::saveFinished, &delegate, [&](const CVSaveOutcome& outcome) {
        if (!outcome.keptCopy.isEmpty())
            std::printf("kept %s\n", qPrintable(outcome.keptCopy));
        // While another save waits, it is not known which entries this one has written.
        if (!outcome.saved || delegate.saves().isSaving())
            return;
        for (const auto& transaction : delegate.document().transactions()) {
            if (notTold.remove(transaction->payTo()))
                std::printf("told %s\n", qPrintable(transaction->payTo()));
        }
        std::fflush(stdout);
    });
    const int rounds = qEnvironmentVariableIntValue("CORVELLA_ROUNDS");
    for (int round = 0; round < rounds; ++round) {
        const auto entry = std::make_shared<CVTransaction>();
        entry->setPayTo(name + '-' + QString::number(round));
        entry->setFor("");
        delegate.document().insertTransaction(entry);
        notTold.insert(entry->payTo());
        delegate.document().workbookSave();
        QTest::qWait(QRandomGenerator::global()->bounded(1, 60));
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return !delegate.saves().isSaving(); }, 20'000));
    QTest::qWait(1500);
}

} // namespace
