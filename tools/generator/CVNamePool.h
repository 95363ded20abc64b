#pragma once

#include <QString>

#include <vector>

/// Made-up texts in a fixed order. Some hold umlauts, accents, ampersands or quotes, so that no path of the program
/// goes without them.
namespace CVNamePool {

/// 300 different names of shops and people.
[[nodiscard]] std::vector<QString> payees();
/// 1,500 different remarks.
[[nodiscard]] std::vector<QString> remarks();

} // namespace CVNamePool
