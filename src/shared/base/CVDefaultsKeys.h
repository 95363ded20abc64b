#pragma once

/// Names of the values kept in the user defaults. None is registered with a default: an absent one reads as 0, false or
/// nothing.
namespace CVDefaultsKeys {

inline constexpr const char* kDataFileLocation = "Data File Location";
inline constexpr const char* kNumberOfItems = "CVNumberOfItems";
inline constexpr const char* kClearFields = "CVClearFields";
/// The one letter of "Of" that is missing is missing in the name.
inline constexpr const char* kStartDayOfWeek = "CVSetStartDayfWeek";
inline constexpr const char* kTodayColumn = "CVSetTodayColumn";
inline constexpr const char* kShowUnusedCategories = "ShowUnusedCategories";
inline constexpr const char* kTransactionSortColumn = "kCVTransactionSortColumn";
inline constexpr const char* kTransactionSortOrder = "kCVTransactionSortOrder";

inline constexpr const char* kPeriodType = "kCVPeriodType";
inline constexpr const char* kDisplayTab = "kCVDisplayTab";
/// The one letter of "CV" that is missing is missing in the name.
inline constexpr const char* kReportTab = "kCReportTab";
inline constexpr const char* kTransactionPeriod = "kCVTransactionPeriod";
inline constexpr const char* kReportPeriod = "kCVReportPeriod";

} // namespace CVDefaultsKeys
