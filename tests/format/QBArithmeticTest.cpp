#include "format/QBCalculateMoneyFormatter.h"

#include <QLocale>
#include <QString>

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <optional>

namespace {

/// The text of an expression and its value, computed while the text was made; absent once a step has no value.
struct Expression {
    QString text;
    std::optional<double> value;
    /// 0 for a sum or difference, 1 for a product or quotient, 2 for an operand that never needs brackets.
    int strength = 2;
};

void showValue(const Expression& expression, std::ostream& out) {
    out << expression.text.toStdString();
}

QString bracketed(const Expression& part, bool needed) {
    return needed ? '(' + part.text + ')' : part.text;
}

std::optional<double> applied(QChar sign, double a, double b) {
    const double value = sign == '+' ? a + b : sign == '-' ? a - b : sign == '*' ? a * b : a / b;
    return std::isfinite(value) ? std::optional(value) : std::nullopt;
}

Expression combined(const Expression& a, QChar sign, const Expression& b) {
    const int strength = sign == '*' || sign == '/' ? 1 : 0;
    // Operators associate to the left: a right operand of the same strength needs brackets.
    const QString text = bracketed(a, a.strength < strength) + sign + bracketed(b, b.strength <= strength);
    return {text, a.value && b.value ? applied(sign, *a.value, *b.value) : std::nullopt, strength};
}

rc::Gen<Expression> amounts() {
    // Many zeros are drawn, so that divisions by zero occur.
    const auto numbers = rc::gen::weightedOneOf<int>({{1, rc::gen::just(0)}, {4, rc::gen::inRange(0, 1'000'000)}});
    return rc::gen::map(numbers, [](int cents) {
        const double amount = cents / 100.0;
        return Expression{QLocale(QLocale::German).toString(amount, 'f', 2), amount};
    });
}

rc::Gen<Expression> expressions(int depth) {
    if (depth == 0)
        return amounts();
    const auto operation = rc::gen::map(
        rc::gen::tuple(expressions(depth - 1), rc::gen::element('+', '-', '*', '/'), expressions(depth - 1)),
        [](const auto& parts) {
            return combined(std::get<0>(parts), QLatin1Char(std::get<1>(parts)), std::get<2>(parts));
        });
    return rc::gen::weightedOneOf<Expression>({{1, amounts()}, {3, operation}});
}

RC_GTEST_PROP(QBArithmetic, CalculatesEveryExpressionAsAPlainEvaluatorDoes, ()) {
    const Expression expression =
        *rc::gen::suchThat(expressions(4), [](const Expression& candidate) { return candidate.text.size() <= 256; });
    const QBCalculateMoneyFormatter formatter(QLocale(QLocale::German, QLocale::Germany));
    const auto read = formatter.parse(expression.text);
    RC_TAG(expression.value ? "has a value" : "has none");
    RC_ASSERT(read.has_value() == expression.value.has_value());
    if (read)
        RC_ASSERT(*read == *expression.value);
}

RC_GTEST_PROP(QBArithmetic, AnsweredWithAFiniteNumberOrNotAtAllWhateverIsTyped, ()) {
    const auto character = rc::gen::elementOf(QStringLiteral("0123456789.,+-*/%()$ eEx^=<").toStdU16String());
    const auto text = *rc::gen::container<std::u16string>(character);
    const QBCalculateMoneyFormatter formatter(QLocale(QLocale::English, QLocale::UnitedStates));
    const auto read = formatter.parse(text);
    RC_ASSERT(std::isfinite(read.value_or(0)));
}

} // namespace
