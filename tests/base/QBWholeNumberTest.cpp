#include "base/QBWholeNumber.h"

#include "base/QBNumberText.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <random>
#include <string>

namespace {

struct WholeMoneyRow {
    const char* text;
    bool isWhole;
};

TEST(QBWholeNumberTest, tellsWhetherAnAmountIsWrittenWithTheSameValue) {
    for (const auto& [text, isWhole] : {WholeMoneyRow{"0.00", true},
                                        {"-0.00", true},
                                        {"12.50", true},
                                        {"-12.50", true},
                                        {"12.5", true},
                                        {"12", true},
                                        {"12.", true},
                                        {".5", true},
                                        {"+.5", true},
                                        {" 12.50\n", true},
                                        {"012.500000", true},
                                        {"1.25e1", true},
                                        {"125E-1", true},
                                        {"1e22", true},
                                        {"", true},
                                        {" ", true},
                                        {"12.345", false},
                                        {"0.001", false},
                                        {"1e-3", false},
                                        {"12,50", false},
                                        {"1,234.50", false},
                                        {"12.50 EUR", false},
                                        {"12.50-", false},
                                        {"--12.50", false},
                                        {"- 12.50", false},
                                        {"1e", false},
                                        {"1e+", false},
                                        {"0x10", false},
                                        {"nan", false},
                                        {"inf", false},
                                        {"-", false},
                                        {".", false},
                                        {"9999999999999.99", true},
                                        {"99999999999999.99", false},
                                        {"99999999999999999.99", false},
                                        {"123456789012345678901234567890.00", false},
                                        {"1e400", false},
                                        {"1e99999999999999999999", false},
                                        {"1e-99999999999999999999", false}}) {
        const auto [number, whole] = QBWholeNumber::readMoney(text);
        EXPECT_EQ(whole, isWhole) << text;
        EXPECT_EQ(number, QBNumberText::leadingDouble(text)) << text;
    }
}

TEST(QBWholeNumberTest, readsEachAmountBitForBitAsTheSlowerReader) {
    std::mt19937_64 engine(16);
    std::array<char, QBNumberText::kMoneyBound + 1> text{};
    for (int i = 0; i < 200'000; ++i) {
        const auto cents = static_cast<qint64>(engine()) >> (engine() % 64);
        *QBNumberText::writeMoney(text.data(), static_cast<double>(cents) / 100) = '\0';
        const auto [number, isWhole] = QBWholeNumber::readMoney(text.data());
        const double expected = QBNumberText::leadingDouble(text.data());
        ASSERT_EQ(std::memcmp(&number, &expected, sizeof number), 0) << text.data();
        ASSERT_TRUE(isWhole) << text.data();
    }
}

struct WholeUnsignedRow {
    const char* text;
    bool isWhole;
};

TEST(QBWholeNumberTest, tellsWhetherAnIDIsWhole) {
    for (const auto& [text, isWhole] : {WholeUnsignedRow{"0", true},
                                        {"12", true},
                                        {"0012", true},
                                        {"123456789", true},
                                        {"4294967295", true},
                                        {"0000004294967295", true},
                                        {"+7", true},
                                        {"-0", true},
                                        {" 7 ", true},
                                        {"7.0", true},
                                        {"", true},
                                        {"4294967296", false},
                                        {"99999999999", false},
                                        {"-1", false},
                                        {"12x", false},
                                        {"7.5", false},
                                        {"x", false},
                                        {"0x10", false}}) {
        const auto [number, whole] = QBWholeNumber::readUnsigned(text);
        EXPECT_EQ(whole, isWhole) << text;
        EXPECT_EQ(number, QBNumberText::leadingUnsigned(text)) << text;
    }
}

} // namespace
