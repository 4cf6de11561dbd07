#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "outside/framework/CTime.h"
#include "outside/store/SYFileVerdict.h"

// One rule as the writers store it: identification or ignore, for a file name with an
// optional size and time (time 0 is none).
struct SYRuleRow {
    unsigned char invDataType = 0;
    unsigned char ruleType = RuleTypeId;
    std::string fileName;
    std::optional<std::uint64_t> size;
    CTime time;
    std::string appName;
    std::string appVersion;
    std::string appCompany;
    std::string comment;
};
