#include "generator/CVHouseholdBudget.h"
#include "importing/CVPrepareImport.h"
#include "kit/Day.h"
#include "model/CVDetachedDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <gtest/gtest.h>

#include <iostream>

namespace {

const QBDate kLastDay = day(2026, 11, 22);

quint32 setNamedIn(CVDetachedDocument& budget, const QString& name) {
    for (const auto& set : budget->transactionSets()) {
        if (set->transactionSetName() == name)
            return set->uniqueID();
    }
    return 0;
}

/// The payee in one of the ways in which banks write it.
QString asABankWrites(const QString& payee, std::size_t number) {
    constexpr int kShort = 22;
    switch (number % 5) {
    case 0:
        return payee.toUpper() + " 0815 SPRINGFIELD US";
    case 1:
        return "CARD PURCHASE " + payee.toUpper();
    case 2:
        return payee.toUpper() + "//SPRINGFIELD/US";
    case 3:
        return payee.toUpper().left(kShort);
    default:
        return payee + " SPRINGFIELD";
    }
}

/// The last year of the sample budget as a statement of two of its accounts.
class SampleStatement : public testing::Test {
protected:
    enum class Payees { AsRecorded, AsBanksWrite };

    SampleStatement() {
        CVFillHouseholdBudget(*mBudget, kLastDay);
        mTargets = {.set = setNamedIn(mBudget, "Checking"),
                    .income = CVImportTargets::Income::OwnSet,
                    .incomeSet = setNamedIn(mBudget, "Income")};
        const QBDate first = kLastDay.dateByAddingYears(-1, 0, 1);
        for (const auto& transaction : mBudget->transactions()) {
            const bool isOfAccount = transaction->transactionSetID() == mTargets.set ||
                                     transaction->transactionSetID() == mTargets.incomeSet;
            if (isOfAccount && !transaction->effectiveDate()->comesBefore(first))
                mRecorded.push_back(transaction);
        }
    }

    [[nodiscard]] std::vector<CVStatementLine> statement(Payees payees, int mostDaysLater) const {
        std::vector<CVStatementLine> lines;
        for (const auto& transaction : mRecorded) {
            const std::size_t number = lines.size();
            CVStatementLine line;
            line.number = static_cast<int>(number) + 2;
            line.day = daysLater(*transaction->effectiveDate(), static_cast<int>(number * 7) % (mostDaysLater + 1));
            const qint64 hundredths = qRound64(transaction->amount() * 100);
            line.hundredths = transaction->transactionSetID() == mTargets.incomeSet ? hundredths : -hundredths;
            line.payee =
                payees == Payees::AsRecorded ? transaction->payTo() : asABankWrites(transaction->payTo(), number);
            lines.push_back(line);
        }
        return lines;
    }

    [[nodiscard]] QString categoryNameOf(const CVTransaction& transaction) {
        return mBudget->getCategoryByUniqueID(transaction.categoryID())->categoryName();
    }

    struct Proposals {
        int right = 0;
        int wrongButUnsure = 0;
        int wrongAndSure = 0;
        int none = 0;
    };
    [[nodiscard]] Proposals propose(Payees payees) {
        const auto lines = statement(payees, 0);
        mBudget->dropTransactions(mRecorded);
        const auto prepared = CVPrepareImport(*mBudget, {}).lines(lines, mTargets);
        Proposals count;
        for (std::size_t at = 0; at < prepared.size(); ++at) {
            if (prepared[at].sure == CVSureness::None)
                ++count.none;
            else if (prepared[at].category == categoryNameOf(*mRecorded[at]))
                ++count.right;
            else
                ++(prepared[at].sure == CVSureness::Sure ? count.wrongAndSure : count.wrongButUnsure);
        }
        std::cout << "of " << prepared.size() << " lines: " << count.right << " right, " << count.wrongButUnsure
                  << " wrong but unsure, " << count.wrongAndSure << " wrong and sure, " << count.none << " without\n";
        return count;
    }

    struct Duplicates {
        int found = 0;
        int missed = 0;
        int falselyFound = 0;
        int perhaps = 0;
    };
    /// With every second transaction recorded already.
    [[nodiscard]] Duplicates findDuplicates(Payees payees) {
        const auto lines = statement(payees, 3);
        CVTransactions missing;
        for (std::size_t at = 0; at < mRecorded.size(); at += 2)
            missing.push_back(mRecorded[at]);
        mBudget->dropTransactions(missing);
        const auto prepared = CVPrepareImport(*mBudget, {}).lines(lines, mTargets);
        Duplicates count;
        for (std::size_t at = 0; at < prepared.size(); ++at) {
            const bool isThere = at % 2 == 1;
            const bool isFound = prepared[at].note == CVImportLine::Note::RecordedAlready;
            count.found += isThere && isFound ? 1 : 0;
            count.missed += isThere && !isFound ? 1 : 0;
            count.falselyFound += !isThere && isFound ? 1 : 0;
            count.perhaps += prepared[at].note == CVImportLine::Note::PerhapsRecorded ? 1 : 0;
        }
        std::cout << "of " << prepared.size() << " lines: " << count.found << " found, " << count.missed << " missed, "
                  << count.falselyFound << " found falsely, " << count.perhaps << " perhaps\n";
        return count;
    }

    CVDetachedDocument mBudget;
    CVImportTargets mTargets;
    CVTransactions mRecorded;
};

TEST_F(SampleStatement, GetsTheCategoriesOfPayeesAsTheyWereRecorded) {
    const auto count = propose(Payees::AsRecorded);
    EXPECT_GE(count.right * 100, static_cast<int>(mRecorded.size()) * 85);
    EXPECT_LE(count.wrongAndSure * 100, static_cast<int>(mRecorded.size()));
}

TEST_F(SampleStatement, GetsTheCategoriesOfPayeesAsBanksWriteThem) {
    const auto count = propose(Payees::AsBanksWrite);
    EXPECT_GE(count.right * 100, static_cast<int>(mRecorded.size()) * 80);
    EXPECT_LE(count.wrongAndSure * 100, static_cast<int>(mRecorded.size()));
}

TEST_F(SampleStatement, KnowsWhatIsRecordedAlready) {
    const auto count = findDuplicates(Payees::AsRecorded);
    EXPECT_EQ(count.missed, 0);
    EXPECT_EQ(count.falselyFound, 0);
}

TEST_F(SampleStatement, KnowsWhatIsRecordedAlreadyWhenBanksWriteThePayee) {
    const auto count = findDuplicates(Payees::AsBanksWrite);
    EXPECT_LE(count.missed * 100, static_cast<int>(mRecorded.size()) * 2);
    EXPECT_EQ(count.falselyFound, 0);
}

} // namespace
