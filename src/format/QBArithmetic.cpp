#include "format/QBArithmetic.h"

#include <muParserBase.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using Kind = QBArithmeticToken::Kind;

constexpr int kDeepest = 32;
constexpr double kPercent = 100;
/// The shortest exact decimal forms of doubles take at most 24 characters.
constexpr std::size_t kAmountBound = 32;

/// Turns an infinity into "not a number", which every further step keeps; an infinity could vanish again, as in
/// 1/(1/0).
double finite(double value) {
    return std::isfinite(value) ? value : std::numeric_limits<double>::quiet_NaN();
}

/// A name with "%" is the operator whose right side is a percentage.
constexpr struct {
    const char* name;
    double (*result)(double, double);
    unsigned precedence;
} kOperators[] = {
    {"+", [](double a, double b) { return finite(a + b); }, mu::prADD_SUB},
    {"-", [](double a, double b) { return finite(a - b); }, mu::prADD_SUB},
    {"*", [](double a, double b) { return finite(a * b); }, mu::prMUL_DIV},
    {"/", [](double a, double b) { return finite(a / b); }, mu::prMUL_DIV},
    {"+%", [](double a, double b) { return finite(a + a * b / kPercent); }, mu::prADD_SUB},
    {"-%", [](double a, double b) { return finite(a - a * b / kPercent); }, mu::prADD_SUB},
    {"*%", [](double a, double b) { return finite(a * b / kPercent); }, mu::prMUL_DIV},
    {"/%", [](double a, double b) { return finite(a / b * kPercent); }, mu::prMUL_DIV},
};

/// A parser for numbers, brackets and the operators above, without the other features of the library.
class Arithmetic final : public mu::ParserBase {
public:
    explicit Arithmetic(const std::string& expression) {
        EnableBuiltInOprt(false);
        AddValIdent(readAmount);
        Init();
        SetExpr(expression);
    }

    void InitCharSets() override {
        DefineNameChars("_");
        DefineOprtChars("+-*/%");
        DefineInfixOprtChars("+-");
    }
    void InitFun() override {}
    void InitConst() override {}
    void InitOprt() override {
        DefineInfixOprt("+", [](double a) { return a; });
        DefineInfixOprt("-", [](double a) { return -a; });
        DefinePostfixOprt("%", [](double a) { return a / kPercent; });
        for (const auto& one : kOperators)
            DefineOprt(one.name, one.result, one.precedence);
    }

private:
    /// A callback of the library: answers 1 and moves the position past the number when the text begins with one, else
    /// 0.
    static int readAmount(const char* text, int* position, double* amount) {
        const std::string_view rest(text);
        if (rest.empty() || rest.front() < '0' || rest.front() > '9')
            return 0;
        const auto read = std::from_chars(rest.data(), rest.data() + rest.size(), *amount);
        *position += static_cast<int>(read.ptr - rest.data());
        return 1;
    }
};

bool isAdditive(Kind kind) {
    return kind == Kind::Plus || kind == Kind::Minus;
}

bool isMultiplicative(Kind kind) {
    return kind == Kind::Times || kind == Kind::DividedBy;
}

bool isOperator(Kind kind) {
    return isAdditive(kind) || isMultiplicative(kind);
}

bool endsOperand(Kind kind) {
    return kind == Kind::Amount || kind == Kind::Close;
}

bool nestsTooDeep(const QList<QBArithmeticToken>& tokens) {
    int depth = 0;
    for (const auto& token : tokens) {
        depth += token.kind == Kind::Open ? 1 : token.kind == Kind::Close ? -1 : 0;
        if (depth > kDeepest)
            return true;
    }
    return false;
}

/// The index of the first token of the operand that ends at `end`, without its sign; -1 when brackets do not match.
qsizetype startOfOperand(const QList<QBArithmeticToken>& tokens, qsizetype end) {
    int depth = 0;
    for (qsizetype i = end; i >= 0; --i) {
        depth += tokens[i].kind == Kind::Close ? 1 : tokens[i].kind == Kind::Open ? -1 : 0;
        if (depth == 0)
            return i;
    }
    return -1;
}

/// The index of the operator whose right side is the percentage that ends at `percent`, as "+" in 200 + 10 %. -1 when
/// the percentage is part of a larger operand, as in 200 + 10 % * 3, or stands alone.
qsizetype operatorOfPercent(const QList<QBArithmeticToken>& tokens, qsizetype percent) {
    qsizetype before = startOfOperand(tokens, percent - 1) - 1;
    const bool hasSign = before > 0 && isAdditive(tokens[before].kind) && isOperator(tokens[before - 1].kind);
    before -= hasSign ? 1 : 0;
    if (before < 1 || !isOperator(tokens[before].kind) || tokens[before - 1].kind == Kind::Open)
        return -1;
    const bool goesOn = percent + 1 < tokens.size() && isMultiplicative(tokens[percent + 1].kind);
    return isAdditive(tokens[before].kind) && goesOn ? -1 : before;
}

std::string textOf(const QBArithmeticToken& token) {
    switch (token.kind) {
    case Kind::Amount: {
        char digits[kAmountBound];
        return {digits, std::to_chars(digits, digits + kAmountBound, token.amount).ptr};
    }
    case Kind::Plus:
        return "+";
    case Kind::Minus:
        return "-";
    case Kind::Times:
        return "*";
    case Kind::DividedBy:
        return "/";
    case Kind::Percent:
        return "%";
    case Kind::Open:
        return "(";
    case Kind::Close:
        break;
    }
    return ")";
}

/// The expression for the parser, in which operators with percentages have names of their own; empty when a percent
/// sign is in a wrong place.
std::string expressionOf(const QList<QBArithmeticToken>& tokens) {
    std::vector<std::string> texts;
    for (qsizetype i = 0; i < tokens.size(); ++i) {
        texts.push_back(textOf(tokens[i]));
        if (tokens[i].kind != Kind::Percent)
            continue;
        if (i == 0 || !endsOperand(tokens[i - 1].kind))
            return {};
        const qsizetype itsOperator = operatorOfPercent(tokens, i);
        if (itsOperator >= 0)
            texts[static_cast<std::size_t>(itsOperator)] += std::exchange(texts.back(), {});
    }
    std::string expression;
    for (const std::string& text : texts)
        expression += text + ' ';
    return expression;
}

} // namespace

std::optional<double> QBResultOfArithmetic(const QList<QBArithmeticToken>& tokens) {
    const std::string expression = nestsTooDeep(tokens) ? std::string() : expressionOf(tokens);
    if (expression.empty())
        return std::nullopt;
    try {
        const double result = Arithmetic(expression).Eval();
        return std::isfinite(result) ? std::optional(result) : std::nullopt;
    } catch (const mu::ParserError&) {
        return std::nullopt;
    }
}
