#pragma once

#include <QString>

/// Addresses of the maker, as the build was given them.
namespace CVSite {

/// Where a newer version is asked for.
[[nodiscard]] QString updateCheck();
[[nodiscard]] QString webSite();
[[nodiscard]] QString supportForums();
/// A mail address, not a link.
[[nodiscard]] QString supportMail();

} // namespace CVSite
