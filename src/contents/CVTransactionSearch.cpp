#include "contents/CVTransactionSearch.h"

#include "base/QBNumberText.h"
#include "format/QBLocale.h"
#include "model/CVTransaction.h"

#include <QCoreApplication>
#include <QStringMatcher>

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <unordered_map>

namespace {

constexpr double kEqualWithin = 0.000001;

using Rows = CVTransactions;

struct SearchText {
    Q_DECLARE_TR_FUNCTIONS(CVTransactionSearch)
};

/// Tells whether texts contain the pattern. Remembers the answers for recent texts by their place in memory, because
/// most transactions share their texts with others. Searching every text takes 13 ms at each letter with 100,000
/// transactions; this takes 1 ms.
class TextMatcher {
public:
    explicit TextMatcher(const QString& pattern) : mMatcher(pattern, Qt::CaseInsensitive) {}

    [[nodiscard]] bool matches(const QString& text) {
        if (text.isNull())
            return true;
        Answer& answer = answerFor(text.constData(), static_cast<quint32>(text.size()));
        if (!answer.place)
            answer = {text.constData(), static_cast<quint32>(text.size()), mMatcher.indexIn(text) >= 0};
        return answer.matches;
    }

private:
    struct Answer {
        const QChar* place = nullptr;
        quint32 size = 0;
        bool matches = false;
    };
    static constexpr int kPlaceBits = 13;
    static constexpr std::size_t kPlaces = std::size_t(1) << kPlaceBits;
    static constexpr std::size_t kMostSteps = 4;

    /// The answer for a text; an answer without a place when there is none yet.
    [[nodiscard]] Answer& answerFor(const QChar* place, quint32 size) {
        const std::size_t first = spread(place);
        for (std::size_t step = 0; step < kMostSteps; ++step) {
            Answer& answer = mAnswers[(first + step) % kPlaces];
            if (!answer.place || (answer.place == place && answer.size == size))
                return answer;
        }
        // Other texts have all the places, so the answer in the first place is forgotten.
        return mAnswers[first] = Answer();
    }

    /// Multiplies by the golden ratio, because texts are at regular distances in memory and a plain remainder would
    /// give many of them the same place.
    [[nodiscard]] static std::size_t spread(const QChar* place) {
        constexpr quint64 kGoldenRatio = 0x9E3779B97F4A7C15;
        return static_cast<std::size_t>((reinterpret_cast<quintptr>(place) * kGoldenRatio) >> (64 - kPlaceBits));
    }

    QStringMatcher mMatcher;
    std::array<Answer, kPlaces> mAnswers;
};

template <typename Matches>
Rows filter(const Rows& transactions, Matches matches) {
    Rows found;
    std::copy_if(transactions.begin(), transactions.end(), std::back_inserter(found),
                 [&matches](const auto& transaction) { return matches(*transaction); });
    return found;
}

/// Tells whether the names of the transactions' categories contain the pattern; computes the answer once for each
/// category.
class CategoryMatcher {
public:
    explicit CategoryMatcher(const QString& pattern) : mMatcher(pattern) {}

    [[nodiscard]] bool matches(const CVTransaction& transaction) {
        const auto [answer, isNew] = mAnswers.try_emplace(transaction.categoryID(), false);
        if (isNew)
            answer->second = mMatcher.matches(transaction.categoryName());
        return answer->second;
    }

private:
    TextMatcher mMatcher;
    std::unordered_map<quint32, bool> mAnswers;
};

Rows searchAllTexts(const Rows& transactions, const QString& text) {
    TextMatcher payTo(text);
    TextMatcher xfor(text);
    CategoryMatcher category(text);
    return filter(transactions, [&](const CVTransaction& transaction) {
        // All three are asked, because branching on each answer is slower.
        int places = payTo.matches(transaction.payTo()) ? 1 : 0;
        places += xfor.matches(transaction.xfor()) ? 1 : 0;
        places += category.matches(transaction) ? 1 : 0;
        return places > 0;
    });
}

Rows searchPayTo(const Rows& transactions, const QString& text) {
    TextMatcher matcher(text);
    return filter(transactions, [&](const CVTransaction& transaction) { return matcher.matches(transaction.payTo()); });
}

Rows searchFor(const Rows& transactions, const QString& text) {
    TextMatcher matcher(text);
    return filter(transactions, [&](const CVTransaction& transaction) { return matcher.matches(transaction.xfor()); });
}

Rows searchCategory(const Rows& transactions, const QString& text) {
    CategoryMatcher matcher(text);
    return filter(transactions, [&](const CVTransaction& transaction) { return matcher.matches(transaction); });
}

template <typename Flag>
Rows searchFlag(const Rows& transactions, const QString& text, Flag flag) {
    const auto mentions = [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive) ? 1 : 0; };
    const int timesWhenSet = mentions(SearchText::tr("Yes")) + mentions(SearchText::tr("On"));
    const int timesWhenClear = mentions(SearchText::tr("No")) + mentions(SearchText::tr("Off"));
    Rows found;
    for (const auto& transaction : transactions) {
        const int times = flag(*transaction) ? timesWhenSet : timesWhenClear;
        found.insert(found.end(), static_cast<std::size_t>(times), transaction);
    }
    return found;
}

Rows searchTax(const Rows& transactions, const QString& text) {
    return searchFlag(transactions, text, [](const CVTransaction& transaction) { return transaction.taxFlag(); });
}

Rows searchUserFlag(const Rows& transactions, const QString& text) {
    return searchFlag(transactions, text, [](const CVTransaction& transaction) { return transaction.userFlag(); });
}

/// The decimal mark may be a full stop or that of the user's locale.
double leadingNumber(const QString& text) {
    QString number = text;
    const QString mark = QBLocaleInForce().decimalPoint();
    if (const auto place = number.indexOf(mark); place >= 0)
        number.replace(place, mark.size(), '.');
    return QBNumberText::leadingDouble(number.toStdString());
}

Rows searchGreater(const Rows& transactions, const QString& text) {
    return filter(transactions, [value = leadingNumber(text)](const CVTransaction& transaction) {
        return transaction.amount() > value;
    });
}

Rows searchEqual(const Rows& transactions, const QString& text) {
    return filter(transactions, [value = leadingNumber(text)](const CVTransaction& transaction) {
        return std::abs(transaction.amount() - value) <= kEqualWithin;
    });
}

Rows searchLess(const Rows& transactions, const QString& text) {
    return filter(transactions, [value = leadingNumber(text)](const CVTransaction& transaction) {
        return value > transaction.amount();
    });
}

struct SearchKind {
    const char* title;
    Rows (*search)(const Rows& transactions, const QString& text);
};

/// Indexed by the number of the kind.
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

QString CVTitleOfSearchKind(int kind) {
    return isKind(kind) ? SearchText::tr(kSearchKinds[static_cast<std::size_t>(kind)].title) : QString();
}

CVTransactions searchTransactionsWithString(const CVTransactions& transactions, int kind, const QString& text) {
    return isKind(kind) ? kSearchKinds[static_cast<std::size_t>(kind)].search(transactions, text) : Rows();
}
