#include "generator/CVHouseholdBudget.h"

#include "generator/CVHouseholdTables.h"
#include "generator/CVRandom.h"
#include "model/CVCategory.h"
#include "model/CVDocument.h"
#include "model/CVTransaction.h"
#include "model/CVTransactionSet.h"

namespace {

using namespace CVHouseholdTables;

constexpr int kYears = 2;
constexpr int kMonthsPerYear = 12;
constexpr std::size_t kPercentOfHouseholdFlagged = 2;

/// Carries out the tables in the way of a user: chooses a set, names a category, inserts a transaction.
class Family final {
public:
    Family(CVDocument& document, const QBDate& today);

    void pay(const Bill& bill);
    void follow(const Habit& habit, int firstDaysBack);
    void celebrate(const Event& event);
    void plan(const Estimate& estimate);
    void show(Account account) { mDocument.setCurrentTransactionSet(setOf(account)); }

private:
    [[nodiscard]] quint32 addSet(const char* name);
    [[nodiscard]] quint32 setOf(Account account) const;
    void record(const QBDate& date, const char* category, const Purchase& purchase, Tax tax,
                Account account = Account::Checking);

    CVDocument& mDocument;
    CVRandom mRandom{1};
    QBDate mToday;
    QBDate mFirstDay;
    quint32 mChecking;
    quint32 mIncome;
    quint32 mSavings;
};

Family::Family(CVDocument& document, const QBDate& today)
    : mDocument(document)
    , mToday(today)
    , mFirstDay(today.dateByAddingYears(-kYears, 0, 1))
    , mChecking(addSet("Checking"))
    , mIncome(addSet("Income"))
    , mSavings(addSet("Savings")) {}

quint32 Family::addSet(const char* name) {
    const auto set = std::make_shared<CVTransactionSet>();
    set->setTransactionSetName(QLatin1String(name));
    set->setUniqueID(mDocument.getUniqueTransactionSetID());
    set->setDocument(&mDocument);
    mDocument.transactionSets().push_back(set);
    return set->uniqueID();
}

quint32 Family::setOf(Account account) const {
    switch (account) {
    case Account::Checking:
        return mChecking;
    case Account::Income:
        return mIncome;
    case Account::Savings:
        return mSavings;
    }
    Q_UNREACHABLE();
}

void Family::record(const QBDate& date, const char* category, const Purchase& purchase, Tax tax, Account account) {
    if (date.comesBefore(mFirstDay) || date.comesAfter(mToday))
        return;
    const auto transaction = std::make_shared<CVTransaction>();
    transaction->setEffectiveDate(date);
    transaction->setAmount(mRandom.money(purchase.amount.fromCents, purchase.amount.toCents));
    transaction->setPayTo(QString::fromUtf8(purchase.payee));
    transaction->setFor(QString::fromUtf8(purchase.remark));
    transaction->setCategoryID(mDocument.insertCategoryName(QString::fromUtf8(category))->uniqueID());
    transaction->setTaxFlag(tax == Tax::Yes);
    transaction->setUserFlag(mRandom.chance(kPercentOfHouseholdFlagged));
    mDocument.setCurrentTransactionSet(setOf(account));
    mDocument.insertTransaction(transaction);
}

void Family::pay(const Bill& bill) {
    const qint64 firstYear = mFirstDay.yearOfCommonEra();
    const int lastMonth = (kYears + 1) * kMonthsPerYear;
    for (int month = bill.firstMonth; month <= lastMonth; month += bill.everyMonths) {
        const QBDate date = QBDate::dateWithYear(firstYear, month, bill.dayOfMonth);
        record(date, bill.category, bill.purchase, bill.tax, bill.account);
    }
}

void Family::follow(const Habit& habit, int firstDaysBack) {
    const std::size_t longestPause = 2 * static_cast<std::size_t>(habit.everyDays) - 1;
    QBDate date = mToday.dateByAddingYears(0, 0, -firstDaysBack);
    while (!date.comesBefore(mFirstDay)) {
        record(date, habit.category, habit.purchases[mRandom.below(habit.purchases.size())], habit.tax);
        date = date.dateByAddingYears(0, 0, -1 - static_cast<qint64>(mRandom.below(longestPause)));
    }
}

void Family::celebrate(const Event& event) {
    for (int year = 0; year <= kYears; ++year) {
        const QBDate date = QBDate::dateWithYear(mFirstDay.yearOfCommonEra() + year, event.month, event.day);
        record(date, event.category, event.purchase, event.tax, event.account);
    }
}

void Family::plan(const Estimate& estimate) {
    const auto category = mDocument.insertCategoryName(QString::fromUtf8(estimate.category));
    category->setExpenseFrequency(estimate.frequency);
    category->setExpenseTarget(estimate.cents / 100.0);
}

} // namespace

void CVFillHouseholdBudget(CVDocument& document, const QBDate& today) {
    document.addDefaults();
    Family family(document, today);
    for (const Bill& bill : bills())
        family.pay(bill);
    int daysBack = 0;
    for (const Habit& habit : habits())
        family.follow(habit, daysBack++);
    for (const Event& event : events())
        family.celebrate(event);
    for (const Estimate& estimate : estimates())
        family.plan(estimate);
    family.show(Account::Checking);
    document.sortTransactionsByDate();
    document.updateDates();
}
