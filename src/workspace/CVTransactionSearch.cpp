#include "workspace/CVTransactionSearch.h"

#include "model/CVCategory.h"
#include "model/CVCategoryLookup.h"
#include "model/CVTransaction.h"
#include "shared/base/QBNumberText.h"
#include "shared/format/QBLocale.h"

#include <QCoreApplication>
#include <QStringMatcher>

#include <array>
#include <cmath>
#include <unordered_map>

namespace {

constexpr double kEqualWithin = 0.000001;

using Rows = std::vector<CVTransaction*>;
using Source = std::span<CVTransaction* const>;

struct SearchText {
    Q_DECLARE_TR_FUNCTIONS(CVTransactionSearch)
};

/// Whether texts contain what is searched for. Most transactions share their texts with others: the answers for those
/// met last are remembered by where the text lies in memory.
class TextMatcher {
public:
    explicit TextMatcher(const QString& pattern) : mMatcher(pattern, Qt::CaseInsensitive) {}

    [[nodiscard]] bool matches(const QString& text) {
        if (text.isNull())
            return true;
        const QChar* const place = text.constData();
        Answer& answer = mAnswers[(reinterpret_cast<quintptr>(place) / kAlignment) % mAnswers.size()];
        if (answer.place != place || answer.size != text.size())
            answer = {place, text.size(), mMatcher.indexIn(text) >= 0};
        return answer.matches;
    }

private:
    struct Answer {
        const QChar* place = nullptr;
        qsizetype size = 0;
        bool matches = false;
    };
    static constexpr std::size_t kAlignment = 16;

    QStringMatcher mMatcher;
    std::array<Answer, 4096> mAnswers;
};

template <typename Matches>
Rows filter(Source transactions, Matches matches) {
    Rows found;
    for (CVTransaction* const transaction : transactions) {
        if (matches(*transaction))
            found.push_back(transaction);
    }
    return found;
}

/// The category names of the transactions, looked up once for each category.
class CategoryNames {
public:
    [[nodiscard]] const QString& of(const CVTransaction& transaction) {
        const auto [entry, isNew] = mNames.try_emplace(transaction.categoryID());
        if (isNew)
            entry->second = transaction.categoryName();
        return entry->second;
    }

private:
    std::unordered_map<quint32, QString> mNames;
};

Rows searchAllTexts(Source transactions, const QString& text) {
    TextMatcher payTo(text);
    TextMatcher xfor(text);
    TextMatcher category(text);
    CategoryNames names;
    return filter(transactions, [&](const CVTransaction& transaction) {
        return payTo.matches(transaction.payTo()) || xfor.matches(transaction.xfor()) ||
               category.matches(names.of(transaction));
    });
}

Rows searchPayTo(Source transactions, const QString& text) {
    TextMatcher matcher(text);
    return filter(transactions, [&](const CVTransaction& transaction) { return matcher.matches(transaction.payTo()); });
}

Rows searchFor(Source transactions, const QString& text) {
    TextMatcher matcher(text);
    return filter(transactions, [&](const CVTransaction& transaction) { return matcher.matches(transaction.xfor()); });
}

Rows searchCategory(Source transactions, const QString& text) {
    TextMatcher matcher(text);
    CategoryNames names;
    return filter(transactions,
                  [&](const CVTransaction& transaction) { return matcher.matches(names.of(transaction)); });
}

template <typename Flag>
Rows searchFlag(Source transactions, const QString& text, Flag flag) {
    const auto mentions = [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive) ? 1 : 0; };
    const int timesWhenSet = mentions(SearchText::tr("Yes")) + mentions(SearchText::tr("On"));
    const int timesWhenClear = mentions(SearchText::tr("No")) + mentions(SearchText::tr("Off"));
    Rows found;
    for (CVTransaction* const transaction : transactions) {
        const int times = flag(*transaction) ? timesWhenSet : timesWhenClear;
        found.insert(found.end(), static_cast<std::size_t>(times), transaction);
    }
    return found;
}

Rows searchTax(Source transactions, const QString& text) {
    return searchFlag(transactions, text, [](const CVTransaction& transaction) { return transaction.taxFlag(); });
}

Rows searchUserFlag(Source transactions, const QString& text) {
    return searchFlag(transactions, text, [](const CVTransaction& transaction) { return transaction.userFlag(); });
}

/// The decimal mark may also be that of the user's locale.
double leadingNumber(const QString& text) {
    QString number = text;
    const QString mark = QBLocaleInForce().decimalPoint();
    if (const auto place = number.indexOf(mark); place >= 0)
        number.replace(place, mark.size(), '.');
    return QBNumberText::leadingDouble(number.toStdString());
}

Rows searchGreater(Source transactions, const QString& text) {
    return filter(transactions, [value = leadingNumber(text)](const CVTransaction& transaction) {
        return transaction.amount() > value;
    });
}

Rows searchEqual(Source transactions, const QString& text) {
    return filter(transactions, [value = leadingNumber(text)](const CVTransaction& transaction) {
        return std::abs(transaction.amount() - value) <= kEqualWithin;
    });
}

Rows searchLess(Source transactions, const QString& text) {
    return filter(transactions, [value = leadingNumber(text)](const CVTransaction& transaction) {
        return value > transaction.amount();
    });
}

struct SearchKind {
    const char* title;
    Rows (*search)(Source transactions, const QString& text);
};

/// By the number of the kind.
constexpr std::array<SearchKind, kCVSearchKinds> kSearchKinds{
    {{QT_TRANSLATE_NOOP("CVTransactionSearch", "All Text Fields"), searchAllTexts},
     {QT_TRANSLATE_NOOP("CVTransactionSearch", "Paid To"), searchPayTo},
     {QT_TRANSLATE_NOOP("CVTransactionSearch", "For"), searchFor},
     {QT_TRANSLATE_NOOP("CVTransactionSearch", "Category"), searchCategory},
     {QT_TRANSLATE_NOOP("CVTransactionSearch", "Tax"), searchTax},
     {QT_TRANSLATE_NOOP("CVTransactionSearch", "User Flag"), searchUserFlag},
     {QT_TRANSLATE_NOOP("CVTransactionSearch", "Amount Greater Than"), searchGreater},
     {QT_TRANSLATE_NOOP("CVTransactionSearch", "Amount Equal To"), searchEqual},
     {QT_TRANSLATE_NOOP("CVTransactionSearch", "Amount Less Than"), searchLess}}};

bool isKind(int kind) {
    return kind >= 0 && kind < kCVSearchKinds;
}

} // namespace

QString CVSearchKindTitle(int kind) {
    return isKind(kind) ? SearchText::tr(kSearchKinds[static_cast<std::size_t>(kind)].title) : QString();
}

std::vector<CVTransaction*> searchTransactionsWithString(std::span<CVTransaction* const> transactions, int kind,
                                                         const QString& text) {
    return isKind(kind) ? kSearchKinds[static_cast<std::size_t>(kind)].search(transactions, text) : Rows();
}
