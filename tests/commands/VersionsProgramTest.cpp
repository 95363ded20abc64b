#include "ProgramFixture.h"

namespace {

class VersionsProgram : public ProgramFixture {
protected:
    const QString mFolder = "data/Quenby Labs/Corvella/";
    const QString mVersions = mFolder + "Earlier Versions/Corvella Data ";

    void makeVersions() const {
        static_cast<void>(write(mFolder + "Corvella Data.corvella", "present"));
        static_cast<void>(write(mVersions + "2026-11-22 140207 (before removing).corvella", "12345"));
        static_cast<void>(write(mVersions + "2026-11-22 140207 2 (before removing).corvella", "1234"));
        static_cast<void>(write(mVersions + "2026-11-23 091500 (first change of the day).corvella", "123"));
        static_cast<void>(write(mFolder + "Corvella Data (unreadable 2026-11-22 235959).corvella", "12"));
        static_cast<void>(write(mFolder + "Corvella Data (replaced when moved 2026-11-21 120000).corvella", "1"));
        static_cast<void>(write(mVersions + "of mine.corvella", "nothing that is listed"));
    }
};

TEST_F(VersionsProgram, ListsVersionsAndKeptCopiesTheNewestFirst) {
    makeVersions();
    const auto before = everything();
    const Result result = run({"versions"});
    EXPECT_EQ(result.status, 0) << result.errors.toStdString();
    const QString folder = mHome.filePath(mFolder);
    const QString versions = mHome.filePath(mVersions);
    EXPECT_EQ(result.output, "2026-11-23 09:15:00\tfirst change of the day\t3\t" + versions +
                                 "2026-11-23 091500 (first change of the day).corvella\n"
                                 "2026-11-22 23:59:59\tunreadable\t2\t" +
                                 folder +
                                 "Corvella Data (unreadable 2026-11-22 235959).corvella\n"
                                 "2026-11-22 14:02:07\tbefore removing\t4\t" +
                                 versions +
                                 "2026-11-22 140207 2 (before removing).corvella\n"
                                 "2026-11-22 14:02:07\tbefore removing\t5\t" +
                                 versions +
                                 "2026-11-22 140207 (before removing).corvella\n"
                                 "2026-11-21 12:00:00\treplaced when moved\t1\t" +
                                 folder + "Corvella Data (replaced when moved 2026-11-21 120000).corvella\n");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(everything(), before) << "nothing is written";
}

TEST_F(VersionsProgram, ListsThoseOfAnotherFileEvenWhenThatIsLost) {
    makeVersions();
    const QString file = mHome.filePath(mFolder + "Corvella Data.corvella");
    const Result named = run({"versions", "--data", file});
    EXPECT_EQ(named.output.count('\n'), 5);
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_EQ(run({"versions", "--data", file}).output, named.output);
    EXPECT_EQ(run({"versions"}).output, named.output);
}

TEST_F(VersionsProgram, AFileWithoutVersionsListsNothing) {
    const Result result = run({"versions", "--data", write("file", "x")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.errors, "");
}

TEST_F(VersionsProgram, SaysWhyNothingCanBeListed) {
    struct Row {
        QStringList arguments;
        int status;
        QString error;
    };
    const Row rows[] = {{{}, 1, "there is no data file yet"},
                        {{"--data", "nowhere"}, 1, "\"nowhere\" does not exist"},
                        {{"--data", "-"}, 2, "standard input has no earlier versions"},
                        {{"x"}, 2, "versions takes no argument \"x\""}};
    for (const Row& row : rows) {
        const Result result = run(QStringList{"versions"} + row.arguments);
        EXPECT_EQ(result.status, row.status) << row.error.toStdString();
        EXPECT_EQ(result.output, "");
        EXPECT_TRUE(result.errors.contains(row.error)) << result.errors.toStdString();
    }
}

} // namespace
