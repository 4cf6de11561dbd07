#include "outside/store/SYFileVerdict.h"

AppFileState SYFileVerdict(SYRuleSource source, unsigned char ruleType) {
    if (source == RuleSourceNone)
        return AppFileNoRule;
    const bool user = source == RuleSourceUser;
    if (ruleType == RuleTypeIgnore)
        return user ? AppFileUserIgnored : AppFileSystemIgnored;
    return user && ruleType == RuleTypeId ? AppFileUserIdentified : AppFileSystemIdentified;
}

std::string SYUnidentifiedFileSql(const std::string& fileStateColumn) {
    return fileStateColumn + " = " + std::to_string(AppFileNoRule);
}

std::string SYIgnoredFileSql(const std::string& fileStateColumn) {
    return fileStateColumn + " IN (" + std::to_string(AppFileSystemIgnored) + ", " +
           std::to_string(AppFileUserIgnored) + ")";
}

std::string SYActiveRuleSql(const std::string& ruleStateColumn) {
    return ruleStateColumn + " <> " + std::to_string(RuleStateRemoved);
}
