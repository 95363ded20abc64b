#include "generator/CVScaleBudget.h"

#include "generator/CVNamePool.h"
#include "generator/CVRandom.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

#include <array>

namespace {

constexpr std::array<const char*, 2> kSetNames{"Checking", "Savings"};

constexpr std::size_t kPercentWithoutRemark = 30;
constexpr std::size_t kPercentTax = 8;
constexpr std::size_t kPercentOfScaleFlagged = 3;
constexpr std::size_t kLeastCents = 100;
constexpr std::size_t kMostCents = 50'000;

void addCategories(CVDocument& document, std::size_t count, CVRandom& random) {
    const QStringList standard = CVCategory::standardCategoryNames().value_or(QStringList());
    for (std::size_t i = 0; i < count; ++i) {
        const auto number = static_cast<qsizetype>(i);
        const QString name =
            number < standard.size() ? standard.at(number) : QStringLiteral("Project %1").arg(number + 1);
        const auto category = document.insertCategoryName(name);
        category->setExpenseFrequency(static_cast<qint64>(random.below(CVExpenseFrequency::kAnnually + 1)));
        category->setExpenseTarget(random.money(0, kMostCents));
    }
}

void addSets(CVDocument& document, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const auto set = std::make_shared<CVTransactionSet>();
        set->setTransactionSetName(i < kSetNames.size() ? QLatin1String(kSetNames[i])
                                                        : QStringLiteral("Account %1").arg(i + 1));
        set->setUniqueID(document.getUniqueTransactionSetID());
        set->setDocument(&document);
        document.transactionSets().push_back(set);
    }
    if (count > 0)
        document.setCurrentTransactionSet(document.transactionSets().front()->uniqueID());
}

void addTransactions(CVDocument& document, const CVScaleBudget& budget, CVRandom& random) {
    const std::vector<QString> payees = CVNamePool::payees();
    const std::vector<QString> remarks = CVNamePool::remarks();
    qint64 days = 0;
    budget.lastDay.yearsMonthsDaysSinceDate(nullptr, nullptr, &days,
                                            budget.lastDay.dateByAddingYears(-budget.years, 0, 0));
    for (std::size_t i = 0; i < budget.transactions; ++i) {
        const auto transaction = std::make_shared<CVTransaction>();
        const auto daysBack = static_cast<qint64>(i * static_cast<std::size_t>(days) / budget.transactions);
        transaction->setEffectiveDate(budget.lastDay.dateByAddingYears(0, 0, -daysBack));
        transaction->setAmount(static_cast<double>(kLeastCents + random.skewed(kMostCents)) / 100.0);
        transaction->setPayTo(payees[random.skewed(payees.size())]);
        if (!random.chance(kPercentWithoutRemark))
            transaction->setFor(remarks[random.skewed(remarks.size())]);
        transaction->setCategoryID(document.categories()[random.skewed(document.countOfCategories())]->uniqueID());
        if (budget.sets > 0)
            transaction->setTransactionSetID(document.transactionSets()[random.skewed(budget.sets)]->uniqueID());
        transaction->setTaxFlag(random.chance(kPercentTax));
        transaction->setUserFlag(random.chance(kPercentOfScaleFlagged));
        transaction->setDocument(&document);
        document.addTransaction(transaction);
    }
}

} // namespace

void CVFillScaleBudget(CVDocument& document, const CVScaleBudget& budget) {
    CVRandom random(budget.seed);
    addCategories(document, budget.categories, random);
    addSets(document, budget.sets);
    addTransactions(document, budget, random);
    document.sortTransactionsByDate();
    document.updateDates();
}
