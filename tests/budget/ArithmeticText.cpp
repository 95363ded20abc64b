#include "budget/ArithmeticText.h"

#include <QtGlobal>

#include <charconv>

double carriedOut(std::string_view steps, double amount) {
    if (steps == "-")
        return amount;
    const char* at = steps.data();
    const char* const end = at + steps.size();
    while (at != end) {
        const char sign = *at++;
        double operand = 0;
        const auto read = std::from_chars(at, end, operand);
        if (read.ec != std::errc() || (sign != 'x' && sign != '/'))
            qFatal("no arithmetic: %.*s", static_cast<int>(steps.size()), steps.data());
        amount = sign == 'x' ? amount * operand : amount / operand;
        at = read.ptr;
        while (at != end && *at == ' ')
            ++at;
    }
    return amount;
}
