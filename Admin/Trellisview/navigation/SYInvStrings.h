#pragma once

// String-table numbers the inventory tree and list read.
namespace SYInvStrings {
inline constexpr int AppNameVersion = 13503; // "%s  [ %s ]"
inline constexpr int AppListHeader = 13504;
inline constexpr int CompanyListHeader = 13505;
inline constexpr int ExcludedFilesHeader = 13506;
inline constexpr int UnidFilesHeader = 13507;
inline constexpr int PalmIconAndName = 13560; // "%s  (%s)"
} // namespace SYInvStrings
namespace SYInvStrings {
inline constexpr int NoCompany = 13570;        // "(No Company)"
inline constexpr int AppsRoot = 13571;         // "Windows Applications  (%s)"
inline constexpr int PalmAppsRoot = 13572;     // "Palm Applications  (%s)"
inline constexpr int PPCAppsRoot = 13573;      // "Windows CE Applications  (%s)"
inline constexpr int RIMAppsRoot = 13574;      // "BlackBerry Applications (%s)"
inline constexpr int PPCUnidFilesRoot = 13575; // "Unidentified Windows CE Files"
inline constexpr int PPCExcludesRoot = 13576;  // "Ignored Windows CE Files"
} // namespace SYInvStrings
