#pragma once

#include "format/QBLocale.h"
#include "format/QBLocaleDigits.h"

#include <QString>

#include <optional>

/// Money as "$#,##0.00" says: minus sign, currency symbol, grouped digits, two decimals; -$1,234.50 in US English.
/// Sign, symbol, digits and marks are those of its locale; their places are always these.
class QBMoneyFormatter final {
public:
    explicit QBMoneyFormatter(const QLocale& locale = QBLocaleInForce());

    /// An amount that shows as zero has no sign.
    [[nodiscard]] QString string(double amount) const;
    /// Writes the same behind `text`, without allocating where there is room for it.
    void append(QString& text, double amount) const;

    /// The amount that `text` stands for, with or without symbol, group marks and decimals; not rounded. Absent for a
    /// text that is no amount: a mark in the wrong place is never guessed at, and neither is an empty text.
    [[nodiscard]] std::optional<double> parse(QStringView text) const;

private:
    [[nodiscard]] bool isGroupMark(char32_t character) const;

    QBLocaleDigits mDigits;
    QString mSymbol;
    QString mMinus;
    char32_t mGroupMark;
    char32_t mDecimalMark;
};
