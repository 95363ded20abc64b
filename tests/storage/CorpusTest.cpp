#include "ParserProperty.h"
#include "storage/LogCapture.h"
#include "storage/ScratchFiles.h"

#include <QDir>

#include <gtest/gtest.h>

#include <ostream>

namespace {

/// The inputs of the fuzzer, and what it ever found, in the ordinary test run.
struct Input {
    QString path;
};

void PrintTo(const Input& input, std::ostream* out) {
    *out << QFileInfo(input.path).fileName().toStdString();
}

std::vector<Input> inputsIn(const char* folder) {
    const QString path = QStringLiteral(CORVELLA_SOURCE_DIR "/fuzz/") + QLatin1String(folder);
    std::vector<Input> inputs;
    for (const QString& name : namesIn(path))
        inputs.push_back({path + u'/' + name});
    return inputs;
}

class Corpus : public testing::TestWithParam<Input> {};

TEST_P(Corpus, keepsThePropertyOfTheParser) {
    const LogCapture capture;
    const QByteArray bytes = readFile(GetParam().path);
    ASSERT_FALSE(bytes.isNull());
    EXPECT_EQ(brokenParserProperty(bytes), QString());
}

INSTANTIATE_TEST_SUITE_P(seeds, Corpus, testing::ValuesIn(inputsIn("corpus")));
INSTANTIATE_TEST_SUITE_P(finds, Corpus, testing::ValuesIn(inputsIn("finds")));
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(Corpus);

TEST(CorpusFolder, holdsTheSeeds) {
    EXPECT_GE(inputsIn("corpus").size(), 12U);
}

} // namespace
