#include "format/QBCalculateMoneyFormatter.h"

#include "format/QBArithmetic.h"

#include <algorithm>
#include <iterator>

namespace {

using Kind = QBArithmeticToken::Kind;

/// In characters; more than anybody types by hand.
constexpr qsizetype kLongestText = 256;

constexpr struct {
    char16_t character;
    Kind kind;
} kSigns[] = {
    {u'+', Kind::Plus},
    {u'-', Kind::Minus},
    // The minus sign of some locales.
    {u'\u2212', Kind::Minus},
    {u'*', Kind::Times},
    {u'/', Kind::DividedBy},
    {u'%', Kind::Percent},
    // The percent sign of Arabic script.
    {u'\u066a', Kind::Percent},
    {u'(', Kind::Open},
    {u')', Kind::Close},
};

std::optional<Kind> signOf(QChar character) {
    const auto* const found = std::find_if(std::begin(kSigns), std::end(kSigns),
                                           [character](const auto& sign) { return sign.character == character; });
    return found == std::end(kSigns) ? std::nullopt : std::optional(found->kind);
}

} // namespace

QBCalculateMoneyFormatter::QBCalculateMoneyFormatter(const QLocale& locale)
    : mMoney(locale)
    , mSymbol(locale.currencySymbol()) {}

std::optional<double> QBCalculateMoneyFormatter::parse(QStringView text) const {
    const auto plain = mMoney.parse(text);
    return plain ? plain : calculated(text);
}

std::optional<double> QBCalculateMoneyFormatter::result(QStringView text) const {
    return mMoney.parse(text) ? std::nullopt : calculated(text);
}

/// Every text between the signs must be an amount.
std::optional<double> QBCalculateMoneyFormatter::calculated(QStringView text) const {
    if (text.size() > kLongestText)
        return std::nullopt;
    QList<QBArithmeticToken> tokens;
    QString pending;
    const auto takeAmount = [&] {
        if (pending.trimmed().isEmpty())
            return true;
        const auto amount = mMoney.parse(pending);
        pending.clear();
        tokens.append({Kind::Amount, amount.value_or(0)});
        return amount.has_value();
    };
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!mSymbol.isEmpty() && text.sliced(i).startsWith(mSymbol, Qt::CaseInsensitive)) {
            // Some symbols contain a sign: "S/".
            pending += mSymbol;
            i += mSymbol.size() - 1;
        } else if (const auto sign = signOf(text[i])) {
            if (!takeAmount())
                return std::nullopt;
            tokens.append({*sign});
        } else if (text[i].category() != QChar::Other_Format) {
            pending += text[i];
        }
    }
    return takeAmount() ? QBResultOfArithmetic(tokens) : std::nullopt;
}
