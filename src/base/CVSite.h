#pragma once

#include <QString>

/// Addresses of the maker, which are set when the program is built.
namespace CVSite {

/// The address that answers whether there is a newer version.
[[nodiscard]] QString updateCheck();
[[nodiscard]] QString webSite();
[[nodiscard]] QString supportForums();
/// A mail address, not a link.
[[nodiscard]] QString supportMail();

} // namespace CVSite
