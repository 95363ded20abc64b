#pragma once

#include <QList>

#include <optional>

/// One piece of an arithmetic expression. Plus and minus may also be signs; percent follows its operand.
struct QBArithmeticToken {
    enum class Kind { Amount, Plus, Minus, Times, DividedBy, Percent, Open, Close };

    Kind kind = Kind::Amount;
    /// The value of an amount, which is not negative.
    double amount = 0;
};

/// The value of the expression as a pocket calculator computes it, with the usual precedence: 200 + 10 % is 220, 200 *
/// 10 % is 20, and 50 % alone is 0.5. Absent for tokens that form no expression or nest too deeply, and when a step has
/// no finite result.
[[nodiscard]] std::optional<double> QBResultOfArithmetic(const QList<QBArithmeticToken>& tokens);
