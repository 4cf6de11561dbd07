#pragma once

#include <cstdint>
#include <string>

#include "outside/store/SYRuleRow.h"

// What the generator's profiles share to make rows: the fixed dates its scans and builds
// fall around, and rule rows of either type.
namespace generated {

constexpr std::int32_t kScanBase = 1767225600;  // 2026-01-01
constexpr std::int32_t kBuildBase = 1104537600; // 2005-01-01

// format with one %d (or %0Nd) filled in.
std::string numbered(const char* format, int number);
// Builds fall within twenty years after kBuildBase, however many applications there are.
std::int32_t buildTime(std::size_t app, std::size_t version);
// The size of installer number `number`, the same wherever it lies.
std::uint64_t setupSize(int number);

SYRuleRow identify(unsigned char invDataType, const std::string& name, const char* app,
                   const char* version, const char* company);
SYRuleRow ignore(unsigned char invDataType, const std::string& name, const char* comment);

} // namespace generated
