#include "kit/RandomBudget.h"

#include <array>
#include <cmath>

namespace {

/// Names that differ only in case, need escaping, contain characters beyond the Basic Multilingual Plane, or are empty.
constexpr std::array<const char16_t*, 12> kWords{
    u"food",       u"Food",  u"FOOD", u"Auto", u"Ärger", u"ärger", u"Lee & Sons", u"<b>\"x\"</b>", u"\U0001F355 pizza",
    u"two\nlines", u"Zoë's", u""};

} // namespace

RandomBudget::RandomBudget(quint32 seed, quint32 mostTransactions) : mEngine(seed) {
    for (quint32 left = below(4); left > 0; --left)
        addSet();
    mBuilder.currentSet(recordID()).lastID(below(100));
    for (quint32 left = below(kIDs + 1); left > 0; --left)
        addCategory();
    for (quint32 left = below(mostTransactions + 1); left > 0; --left) {
        const auto added = transaction();
        added->setDocument(&document());
        document().addTransaction(added);
    }
}

std::optional<QBDate> RandomBudget::date() {
    if (oneIn(20))
        return std::nullopt;
    // Few different days, so that many transactions share one; sometimes a day far away.
    const QBDate near = day(2014, 2, 25);
    return oneIn(20) ? near.dateByAddingYears(static_cast<qint64>(below(12000)) - 3000, 0, 0)
                     : near.dateByAddingYears(0, 0, below(8));
}

double RandomBudget::amount() {
    const double cents = (static_cast<double>(below(2'000'001)) - 1'000'000) / 100;
    if (oneIn(10))
        return cents * std::pow(10.0, below(15));
    return oneIn(10) ? cents / 1000 : cents;
}

QString RandomBudget::text() {
    if (oneIn(12))
        return {};
    QString text = QString::fromUtf16(kWords[below(kWords.size())]);
    if (oneIn(30))
        text = text.repeated(static_cast<int>(below(200)));
    // fromUtf16 gives a null text for an empty one.
    return text.isNull() ? QString(QLatin1String("")) : text;
}

std::shared_ptr<CVTransaction> RandomBudget::transaction() {
    BudgetBuilder::Entry entry;
    entry.date = date();
    entry.amount = amount();
    entry.payTo = text();
    entry.xfor = text();
    entry.categoryID = recordID();
    entry.setID = recordID();
    entry.taxFlag = oneIn(2);
    entry.userFlag = oneIn(2);
    return makeTransaction(entry);
}

// Each statement draws once, because the order in which arguments are evaluated differs between compilers.

void RandomBudget::addSet() {
    const QString name = text();
    mBuilder.set(name, recordID());
}

void RandomBudget::addCategory() {
    const QString name = text();
    const quint32 id = recordID();
    const double target = amount();
    mBuilder.category(name, id, frequency(), target);
}

qint64 RandomBudget::frequency() {
    return static_cast<qint64>(below(10)) - 1;
}

void RandomBudget::change() {
    const auto& transactions = document().transactions();
    const auto index = transactions.empty() ? 0 : below(static_cast<quint32>(transactions.size()));
    switch (below(6)) {
    case 0:
        document().insertTransaction(transaction());
        break;
    case 1:
        if (!transactions.empty())
            document().removeTransaction(std::shared_ptr(transactions[index]));
        break;
    case 2:
        document().sortTransactionsByDate();
        break;
    case 3:
        changeCategories();
        break;
    case 4:
        changeSets();
        break;
    default:
        if (!transactions.empty())
            changeTransaction(*transactions[index]);
    }
}

void RandomBudget::changeTransaction(CVTransaction& transaction) {
    switch (below(8)) {
    case 0:
        return transaction.setEffectiveDate(date());
    case 1:
        return transaction.setPayTo(text());
    case 2:
        return transaction.setFor(text());
    case 3:
        return transaction.setAmount(amount());
    case 4:
        return transaction.setCategoryID(recordID());
    case 5:
        return transaction.setTransactionSetID(recordID());
    case 6:
        return transaction.setTaxFlag(oneIn(2));
    default:
        return transaction.setUserFlag(oneIn(2));
    }
}

void RandomBudget::changeCategories() {
    const auto& categories = document().categories();
    if (categories.empty() || oneIn(3)) {
        (void)document().insertCategoryName(text());
        return;
    }
    const auto category = categories[below(static_cast<quint32>(categories.size()))];
    if (oneIn(3)) {
        document().removeCategory(category);
    } else if (oneIn(2)) {
        category->setCategoryName(text());
        document().sortCategories();
    } else {
        category->setExpenseFrequency(frequency());
        category->setExpenseTarget(amount());
    }
}

void RandomBudget::changeSets() {
    auto& sets = document().transactionSets();
    if (sets.empty() || oneIn(3))
        addSet();
    else if (oneIn(3))
        document().removeTransactionsForSet(recordID());
    else
        sets[below(static_cast<quint32>(sets.size()))]->setTransactionSetName(text());
    document().setCurrentTransactionSet(recordID());
}
