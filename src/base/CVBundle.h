#pragma once

#include <QString>

#include <string_view>

/// Facts about the application bundle: its names, identifier and version.
namespace CVBundle {

inline constexpr const char* kName = "Corvella";
inline constexpr const char* kOrganization = "Quenby Labs";
/// The name of the data file; the user may choose its folder.
inline constexpr const char* kDataFileName = "Corvella Data.corvella";
inline constexpr const char* kIdentifier = "com.quenbylabs.corvella";

/// The bundle version, "" when the build was given none. UTF-8.
[[nodiscard]] std::string_view version();
[[nodiscard]] QString versionText();

} // namespace CVBundle
