#include "ParserProperty.h"
#include "storage/LogCapture.h"
#include "storage/ParsedBudget.h"
#include "storage/SampleFile.h"

#include <gtest/gtest.h>

#include <random>

namespace {

TEST(TruncatedFile, isReadOnlyWhenNothingButItsLastLineFeedIsMissing) {
    const LogCapture capture;
    const QByteArray whole = sampleFile();
    for (qsizetype size = 0; size <= whole.size(); ++size) {
        const QByteArray bytes = whole.first(size);
        EXPECT_EQ(brokenParserProperty(bytes), QString()) << size;
        EXPECT_EQ(ParsedBudget(bytes).read(), size >= whole.size() - 1) << size;
    }
}

/// Flips `bits` in one byte of a good file, for every byte in turn; returns how many of these files can still be read.
int readAfterFlipping(int bits) {
    const LogCapture capture;
    const QByteArray whole = sampleFile();
    int read = 0;
    for (qsizetype at = 0; at < whole.size(); ++at) {
        QByteArray bytes = whole;
        bytes[at] = static_cast<char>(bytes[at] ^ bits);
        EXPECT_EQ(brokenParserProperty(bytes), QString()) << at;
        read += ParsedBudget(bytes).read();
    }
    return read;
}

TEST(FlippedBit, inATextChangesThatTextAndElsewhereGivesTheDefaults) {
    for (const int bit : {0x01, 0x20}) {
        const int read = readAfterFlipping(bit);
        EXPECT_GT(read, 0) << bit;
        EXPECT_LT(read, sampleFile().size()) << bit;
    }
}

TEST(FlippedBit, thatBreaksUtf8GivesTheDefaults) {
    EXPECT_EQ(readAfterFlipping(0x80), 0);
}

TEST(Garbage, isNeverRead) {
    const LogCapture capture;
    std::mt19937 random(2014);
    std::uniform_int_distribution<int> byte(0, 255);
    for (int round = 0; round < 300; ++round) {
        QByteArray bytes(64 + round * 7, '\0');
        for (char& c : bytes)
            c = static_cast<char>(byte(random));
        EXPECT_FALSE(ParsedBudget(bytes).read()) << round;
        EXPECT_EQ(brokenParserProperty(bytes), QString()) << round;
        EXPECT_EQ(brokenParserProperty(sampleFile().first(300) + bytes), QString()) << round;
        EXPECT_EQ(brokenParserProperty(inRoot(bytes)), QString()) << round;
    }
}

} // namespace
