#include "differences/CVTransactionContent.h"
#include "kit/Printers.h"
#include "kit/RandomBudget.h"
#include "transfer/CVReadTransfer.h"
#include "transfer/CVTransferCSV.h"
#include "transfer/CVTransferJSON.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

/// 300 take half a second; CORVELLA_ROUNDS sets another number.
int roundsOfTransfer() {
    constexpr int kUsual = 300;
    const int rounds = qEnvironmentVariableIntValue("CORVELLA_ROUNDS");
    return rounds > 0 ? rounds : kUsual;
}

/// A text of characters that mean something in one of the two forms, or that a budget does not keep as they are.
QString oddText(RandomBudget& random) {
    constexpr std::array<char16_t, 22> kOdd{u'"',  u',',   u'\n',  u'\r',  u'\0',  u'\\', u'\t', u'{',
                                            u'}',  u'[',   u']',   u':',   u';',   u'=',  u' ',  u'\'',
                                            u'\a', 0xFEFF, 0x2028, 0xD83D, 0xDF55, u'é'};
    QString text(QLatin1String(""));
    for (quint32 left = random.below(12); left > 0; --left)
        text += random.oneIn(3) ? QChar(u'a' + static_cast<char16_t>(random.below(26))) : QChar(kOdd[random.below(22)]);
    return text;
}

double oddAmount(RandomBudget& random) {
    const std::array<double, 12> amounts{std::nan(""),
                                         std::numeric_limits<double>::infinity(),
                                         -std::numeric_limits<double>::infinity(),
                                         std::numeric_limits<double>::max(),
                                         -std::numeric_limits<double>::max(),
                                         0.000002,
                                         -0.0,
                                         -0.004,
                                         0.005,
                                         0.1 + 0.2,
                                         9007199254740993.0,
                                         1e22};
    return amounts[random.below(12)];
}

void makeOdd(RandomBudget& random) {
    for (const auto& category : random.document().categories()) {
        if (random.oneIn(3))
            category->setCategoryName(oddText(random));
    }
    for (const auto& set : random.document().transactionSets()) {
        if (random.oneIn(3))
            set->setTransactionSetName(oddText(random));
    }
    for (const auto& transaction : random.document().transactions()) {
        if (random.oneIn(2))
            transaction->setPayTo(oddText(random));
        if (random.oneIn(2))
            transaction->setFor(oddText(random));
        if (random.oneIn(5))
            transaction->setAmount(oddAmount(random));
    }
}

/// What the transactions of budgets say, with one number for all sets of a name, and for all categories of one. None of
/// a name and a nameless one are the same here, and so are no text and an empty one.
class Sayings {
public:
    [[nodiscard]] QHash<CVTransactionContent, int> of(const CVDocument& document) {
        QHash<CVTransactionContent, int> counts;
        for (const auto& transaction : document.transactions()) {
            CVTransactionContent content(*transaction, numberOf(setName(document, *transaction)),
                                         numberOf(transaction->categoryName()));
            for (QString* const text : {&content.payTo, &content.xfor})
                *text = text->isNull() ? QString(QLatin1String("")) : *text;
            ++counts[content];
        }
        return counts;
    }

private:
    [[nodiscard]] static QString setName(const CVDocument& document, const CVTransaction& transaction) {
        for (const auto& set : document.transactionSets()) {
            if (set->uniqueID() == transaction.transactionSetID())
                return set->transactionSetName();
        }
        return {};
    }

    [[nodiscard]] quint32 numberOf(const QString& name) {
        if (!mNumbers.contains(name))
            mNumbers.insert(name, static_cast<quint32>(mNumbers.size()));
        return mNumbers.value(name);
    }

    QHash<QString, quint32> mNumbers;
};

/// The objects of all transactions, in the order of their texts: transactions of one day whose categories have no name
/// are in no order of their own.
QByteArrayList objectsOf(const CVDocument& document) {
    QByteArrayList lines = CVTransferJSON(document, document.transactions())->split('\n');
    for (QByteArray& line : lines)
        line = line.endsWith(',') ? line.chopped(1) : line;
    std::sort(lines.begin(), lines.end());
    return lines;
}

TEST(TransferProperty, WhatIsWrittenIsReadBackAsEqualTransactions) {
    std::size_t transactions = 0;
    const int rounds = roundsOfTransfer();
    for (int round = 0; round < rounds; ++round) {
        RandomBudget random(static_cast<quint32>(round));
        makeOdd(random);
        const CVDocument& document = random.document();
        transactions += document.transactions().size();
        for (const auto& bytes :
             {CVTransferCSV(document, document.transactions()), CVTransferJSON(document, document.transactions())}) {
            ASSERT_TRUE(CVIsTransfer(*bytes)) << "round " << round;
            const auto read = CVReadTransfer(*bytes);
            ASSERT_TRUE(read.budget) << "round " << round << ": " << read.problem.toStdString();
            Sayings sayings;
            ASSERT_TRUE(sayings.of(**read.budget) == sayings.of(document)) << "round " << round << "\n"
                                                                           << bytes->constData();
            ASSERT_EQ(objectsOf(**read.budget), objectsOf(document)) << "round " << round;
        }
    }
    EXPECT_GT(transactions, 10U * static_cast<std::size_t>(rounds));
}

/// Takes some bytes away, or puts some in their place that mean something.
QByteArray damaged(RandomBudget& random, QByteArray bytes) {
    const QByteArray meaningful("\",\r\n{}[]:\\\0\xFF\xEF"
                                "0-e",
                                16);
    for (quint32 left = 1 + random.below(3); left > 0 && !bytes.isEmpty(); --left) {
        const auto at = static_cast<qsizetype>(random.below(static_cast<quint32>(bytes.size())));
        const QByteArray put = random.oneIn(3) ? QByteArray() : QByteArray(1, meaningful[random.below(16)]);
        bytes.replace(at, random.oneIn(4) ? bytes.size() : random.below(3), put);
    }
    return bytes;
}

TEST(TransferProperty, DamagedBytesAreAProblemOrABudgetThatCanBeWritten) {
    int problems = 0;
    int budgets = 0;
    for (int round = 0; round < 5 * roundsOfTransfer(); ++round) {
        RandomBudget random(static_cast<quint32>(round), 5);
        makeOdd(random);
        const CVDocument& document = random.document();
        for (const auto& bytes :
             {CVTransferCSV(document, document.transactions()), CVTransferJSON(document, document.transactions())}) {
            const auto read = CVReadTransfer(damaged(random, *bytes));
            ASSERT_NE(read.problem.isEmpty(), read.budget == nullptr) << "round " << round;
            ++(read.budget ? budgets : problems);
            if (!read.budget)
                continue;
            const auto again = CVReadTransfer(*CVTransferJSON(**read.budget, (*read.budget)->transactions()));
            ASSERT_TRUE(again.budget) << "round " << round << ": " << again.problem.toStdString();
            ASSERT_EQ(objectsOf(**again.budget), objectsOf(**read.budget)) << "round " << round;
        }
    }
    EXPECT_GT(problems, 2 * roundsOfTransfer());
    EXPECT_GT(budgets, roundsOfTransfer() / 2);
}

} // namespace
