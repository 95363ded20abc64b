#pragma once

#include "format/QBLocale.h"
#include "format/QBLocaleDigits.h"

#include <QString>

#include <optional>

/// Writes and reads money in the form "$#,##0.00": minus sign, currency symbol, grouped digits, two decimals;
/// -$1,234.50 in US English. Sign, symbol, digits and marks are those of the locale; their places are the same in every
/// locale.
class QBMoneyFormatter final {
public:
    explicit QBMoneyFormatter(const QLocale& locale = QBLocaleInForce());

    /// Writes no sign before an amount that shows as zero.
    [[nodiscard]] QString string(double amount) const;

    /// The amount that `text` stands for, with or without symbol, group marks and decimals; not rounded. Absent for an
    /// empty text, for a mark in the wrong place and for any other text that is no amount.
    [[nodiscard]] std::optional<double> parse(QStringView text) const;

private:
    [[nodiscard]] bool isGroupMark(char32_t character) const;

    QBLocaleDigits mDigits;
    QString mSymbol;
    QString mMinus;
    char32_t mGroupMark;
    char32_t mDecimalMark;
};
