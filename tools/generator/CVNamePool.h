#pragma once

#include <QString>

#include <vector>

/// Made-up texts in a fixed order. Some contain umlauts, accents, ampersands or quotation marks, so that the program
/// meets these characters everywhere.
namespace CVNamePool {

/// The 300 different names of shops and people.
[[nodiscard]] std::vector<QString> payees();
/// The 1,500 different remarks.
[[nodiscard]] std::vector<QString> remarks();

} // namespace CVNamePool
