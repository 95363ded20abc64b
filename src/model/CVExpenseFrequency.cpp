#include "model/CVExpenseFrequency.h"

#include <array>

namespace CVExpenseFrequency {

namespace {

constexpr std::array<std::string_view, 8> kNames{"Weekly",     "Bi-Weekly", "Semi-Monthly",  "Monthly",
                                                 "Bi-Monthly", "Quarterly", "Semi-Annually", "Annually"};

} // namespace

std::string_view nameOfCode(qint64 code) {
    return code >= 0 && code < static_cast<qint64>(kNames.size()) ? kNames[static_cast<std::size_t>(code)]
                                                                  : std::string_view();
}

qint64 codeOfName(std::string_view name) {
    for (std::size_t code = 0; code < kNames.size(); ++code) {
        if (kNames[code] == name)
            return static_cast<qint64>(code);
    }
    return kUnknown;
}

} // namespace CVExpenseFrequency
