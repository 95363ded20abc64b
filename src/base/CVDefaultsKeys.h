#pragma once

/// Names of the values kept in the user defaults. None is registered with a default: an absent one reads as 0, false or
/// nothing.
namespace CVDefaultsKeys {

inline constexpr const char* kDataFileLocation = "Data File Location";
inline constexpr const char* kNumberOfItems = "CVNumberOfItems";
inline constexpr const char* kClearFields = "CVClearFields";
/// The key lacks the "O" of "Of", because existing settings hold it so.
inline constexpr const char* kStartDayOfWeek = "CVSetStartDayfWeek";
inline constexpr const char* kTodayColumn = "CVSetTodayColumn";
inline constexpr const char* kShowUnusedCategories = "ShowUnusedCategories";
inline constexpr const char* kTransactionSortColumn = "kCVTransactionSortColumn";
inline constexpr const char* kTransactionSortOrder = "kCVTransactionSortOrder";

inline constexpr const char* kPeriodType = "kCVPeriodType";
inline constexpr const char* kDisplayTab = "kCVDisplayTab";
/// The key lacks the "V" of "CV", because existing settings hold it so.
inline constexpr const char* kReportTab = "kCReportTab";
inline constexpr const char* kTransactionPeriod = "kCVTransactionPeriod";
inline constexpr const char* kReportPeriod = "kCVReportPeriod";

/// The page set-up: the paper's name ("A4") or its width and height ("420x595"), whether it is in landscape, and the
/// margins at the left, the top, the right and the bottom ("72 72 72 72"), in points.
inline constexpr const char* kPaper = "CVPaper";
inline constexpr const char* kPaperLandscape = "CVPaperLandscape";
inline constexpr const char* kPaperMargins = "CVPaperMargins";

/// The megabytes that earlier versions may take: 1024 when absent or 0, none are kept when negative.
inline constexpr const char* kVersionLimit = "CVEarlierVersionsLimit";
/// The looks of the window with the earlier versions: its frame, its two tables, and the place of the bar between them.
inline constexpr const char* kVersionWindow = "CVHistoryWindow";
inline constexpr const char* kVersionColumns = "CVHistoryWindow Versions";
inline constexpr const char* kVersionLineColumns = "CVHistoryWindow Lines";
inline constexpr const char* kVersionSplitter = "CVHistoryWindow Splitter";

/// The looks of the window with the changes of other files: its frame and its table.
inline constexpr const char* kMergeWindow = "CVMergeWindow";
inline constexpr const char* kMergeLineColumns = "CVMergeWindow Lines";
/// The copies of synchronizers that the user has been told about, each path with the size and the time of the file.
inline constexpr const char* kToldConflictCopies = "CVToldConflictCopies";

/// The looks of the window with a statement: its frame and its table.
inline constexpr const char* kImportWindow = "CVImportWindow";
inline constexpr const char* kImportColumns = "CVImportWindow Lines";

/// The identifier of the preferences' tab that was shown last.
inline constexpr const char* kPreferencesTab = "Prefs: Selected Tab";
/// 0 never, 1 daily, 2 weekly, 3 monthly.
inline constexpr const char* kCheckUpdatesAutomatically = "QBCheckUpdatesAutomatically";
inline constexpr const char* kIncludeSysInfo = "QBIncludeSysInfoWithCheckForUpdate";
/// Written with the fixed format "%m/%d/%y %H:%M %z".
inline constexpr const char* kLastCheckForUpdatesTime = "QBLastCheckForUpdatesTime";
/// The maker's reply about a newer version; its value "AppCheckedVersion" is the version of the program that asked.
inline constexpr const char* kUpdatedAppInfo = "QBUpdatedAppInfo";
/// Present when the last check got no usable reply.
inline constexpr const char* kUpdatedAppError = "QBUpdatedAppError";

} // namespace CVDefaultsKeys
