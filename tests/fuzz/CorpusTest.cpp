#include "AmountProperty.h"
#include "DateProperty.h"
#include "ListProperty.h"
#include "NumberProperty.h"
#include "ParserProperty.h"
#include "StatementProperty.h"
#include "storage/LogCapture.h"
#include "storage/ScratchFiles.h"

#include <QFileInfo>

#include <gtest/gtest.h>

#include <ostream>
#include <vector>

namespace {

/// A fuzz target: the folder of its inputs and the check for each input.
struct Target {
    const char* folder;
    QString (*broken)(const QByteArray&);
    std::size_t seeds;
};

constexpr Target kTargets[]{{"parser", brokenParserProperty, 16},  {"lists", brokenListProperty, 11},
                            {"amounts", brokenAmountProperty, 17}, {"dates", brokenDateProperty, 12},
                            {"numbers", brokenNumberProperty, 18}, {"statements", brokenStatementProperty, 12},
                            {"qif", brokenStatementProperty, 8},   {"ofx", brokenStatementProperty, 12},
                            {"camt", brokenStatementProperty, 10}};

/// Runs an input or a find of the fuzzer as an ordinary test.
struct Input {
    QString path;
    Target target;
};

void PrintTo(const Input& input, std::ostream* out) {
    *out << QFileInfo(input.path).fileName().toStdString();
}

std::vector<Input> inputsIn(const char* kind, const Target& target) {
    const QString folder = QStringLiteral(CORVELLA_SOURCE_DIR "/fuzz/%1/%2").arg(QLatin1String(kind), target.folder);
    std::vector<Input> inputs;
    for (const QString& name : namesIn(folder))
        inputs.push_back({folder + u'/' + name, target});
    return inputs;
}

std::vector<Input> inputs() {
    std::vector<Input> all;
    for (const Target& target : kTargets) {
        for (const char* const kind : {"corpus", "finds"}) {
            const std::vector<Input> some = inputsIn(kind, target);
            all.insert(all.end(), some.begin(), some.end());
        }
    }
    return all;
}

class Corpus : public testing::TestWithParam<Input> {};

TEST_P(Corpus, keepsThePropertyOfItsTarget) {
    const LogCapture capture;
    const QByteArray bytes = readFile(GetParam().path);
    ASSERT_FALSE(bytes.isNull());
    EXPECT_EQ(GetParam().target.broken(bytes), QString());
}

INSTANTIATE_TEST_SUITE_P(files, Corpus, testing::ValuesIn(inputs()));

TEST(CorpusFolders, holdTheSeeds) {
    for (const Target& target : kTargets)
        EXPECT_GE(inputsIn("corpus", target).size(), target.seeds) << target.folder;
}

} // namespace
