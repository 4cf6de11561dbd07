#include "outside/store/SYGeneratedRows.h"

#include <cstdio>

#include "outside/store/SYFileVerdict.h"

namespace generated {

namespace {

SYRuleRow rule(unsigned char invDataType, SYRuleType type, const std::string& name) {
    SYRuleRow row;
    row.invDataType = invDataType;
    row.ruleType = type;
    row.fileName = name;
    return row;
}

} // namespace

std::string numbered(const char* format, int number) {
    char text[64];
    std::snprintf(text, sizeof text, format, number);
    return text;
}

std::int32_t buildTime(std::size_t app, std::size_t version) {
    const std::size_t days = (app * 37 + version * 91) % (20 * 365);
    return kBuildBase + static_cast<std::int32_t>(days * 86400 + 17);
}

std::uint64_t setupSize(int number) {
    return 90000 + static_cast<std::uint64_t>(number) * 7717;
}

SYRuleRow identify(unsigned char invDataType, const std::string& name, const char* app,
                   const char* version, const char* company) {
    SYRuleRow row = rule(invDataType, RuleTypeId, name);
    row.appName = app;
    row.appVersion = version;
    row.appCompany = company;
    return row;
}

SYRuleRow ignore(unsigned char invDataType, const std::string& name, const char* comment) {
    SYRuleRow row = rule(invDataType, RuleTypeIgnore, name);
    row.comment = comment;
    return row;
}

} // namespace generated
