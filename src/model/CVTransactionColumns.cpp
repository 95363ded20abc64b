#include "model/CVTransactionColumns.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<QLatin1StringView, CVTransactionColumns::ColumnCount> kIdentifiers{
    QLatin1StringView("date"),     QLatin1StringView("amount"), QLatin1StringView("tofrom"),  QLatin1StringView("for"),
    QLatin1StringView("category"), QLatin1StringView("tax"),    QLatin1StringView("userflag")};

} // namespace

QLatin1StringView CVTransactionColumns::identifier(int column) {
    return kIdentifiers[static_cast<std::size_t>(column)];
}

int CVTransactionColumns::columnOfIdentifier(const QString& identifier) {
    const auto* const found = std::find(kIdentifiers.begin(), kIdentifiers.end(), identifier);
    return found == kIdentifiers.end() ? -1 : static_cast<int>(found - kIdentifiers.begin());
}
