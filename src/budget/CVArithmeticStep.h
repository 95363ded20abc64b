#pragma once

#include <QtGlobal>

/// One multiplication or division by a constant. Conversions are tables of such steps, whose order fixes every bit of a
/// result.
struct CVArithmeticStep {
    enum class Operation : quint8 { None, Times, DividedBy };

    Operation operation = Operation::None;
    double operand = 1;

    [[nodiscard]] constexpr double appliedTo(double amount) const {
        switch (operation) {
        case Operation::Times:
            return amount * operand;
        case Operation::DividedBy:
            return amount / operand;
        case Operation::None:
            break;
        }
        return amount;
    }
};

/// Two steps, one after the other; a missing one changes nothing.
struct CVArithmeticSteps {
    CVArithmeticStep first;
    CVArithmeticStep second;

    constexpr CVArithmeticSteps() = default;
    constexpr CVArithmeticSteps(CVArithmeticStep only) : first(only) {}
    constexpr CVArithmeticSteps(CVArithmeticStep one, CVArithmeticStep other) : first(one), second(other) {}

    [[nodiscard]] constexpr double appliedTo(double amount) const { return second.appliedTo(first.appliedTo(amount)); }
};

/// Short names for steps, so that tables of conversions read like formulas.
namespace CVArithmetic {

[[nodiscard]] constexpr CVArithmeticStep x(double factor) {
    return {CVArithmeticStep::Operation::Times, factor};
}

[[nodiscard]] constexpr CVArithmeticStep by(double divisor) {
    return {CVArithmeticStep::Operation::DividedBy, divisor};
}

} // namespace CVArithmetic
