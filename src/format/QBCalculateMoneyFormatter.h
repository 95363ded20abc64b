#pragma once

#include "format/QBMoneyFormatter.h"

/// Formats and reads money in fields where it is typed: as QBMoneyFormatter does, but it also reads arithmetic with + -
/// * / brackets and percent, whose amounts are written as in the locale.
class QBCalculateMoneyFormatter final {
public:
    explicit QBCalculateMoneyFormatter(const QLocale& locale = QBLocaleInForce());

    [[nodiscard]] QString string(double amount) const { return mMoney.string(amount); }

    /// The amount that `text` stands for: a plain one exactly as QBMoneyFormatter reads it, or the result of
    /// arithmetic. Not rounded. Absent for anything else, also for a division by zero and for a result that is not
    /// finite.
    [[nodiscard]] std::optional<double> parse(QStringView text) const;
    /// The result of arithmetic only: absent for a plain amount too.
    [[nodiscard]] std::optional<double> result(QStringView text) const;

private:
    [[nodiscard]] std::optional<double> calculated(QStringView text) const;

    QBMoneyFormatter mMoney;
    QString mSymbol;
};
