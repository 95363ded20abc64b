#pragma once

#include <QList>

#include <optional>

/// One piece of an arithmetic expression. Plus and minus are also signs; percent stands behind its operand.
struct QBArithmeticToken {
    enum class Kind { Amount, Plus, Minus, Times, DividedBy, Percent, Open, Close };

    Kind kind = Kind::Amount;
    /// Of an amount; not negative.
    double amount = 0;
};

/// What a pocket calculator makes of the expression, with the usual precedence: 200 + 10 % is 220, 200 * 10 % is 20,
/// and 50 % alone is 0.5. Absent for what is no expression or nests too deep, and when a step has no finite result.
[[nodiscard]] std::optional<double> QBArithmeticResult(const QList<QBArithmeticToken>& tokens);
