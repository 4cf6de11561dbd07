#include <gtest/gtest.h>

#include "outside/store/SYFileVerdict.h"

namespace {

TEST(FileVerdictTest, SourceAndRuleTypeGiveTheVerdict) {
    constexpr unsigned char unknownType = 7;
    struct Case {
        SYRuleSource source;
        unsigned char ruleType;
        AppFileState expected;
    };
    const Case cases[] = {
        {RuleSourceNone, RuleTypeId, AppFileNoRule},
        {RuleSourceNone, RuleTypeIgnore, AppFileNoRule},
        {RuleSourceUser, RuleTypeId, AppFileUserIdentified},
        {RuleSourceUser, RuleTypeIgnore, AppFileUserIgnored},
        {RuleSourceUser, unknownType, AppFileSystemIdentified},
        {RuleSourceSystem, RuleTypeId, AppFileSystemIdentified},
        {RuleSourceSystem, RuleTypeIgnore, AppFileSystemIgnored},
        {RuleSourceSystem, unknownType, AppFileSystemIdentified},
        {RuleSourceVersionInfo, RuleTypeId, AppFileSystemIdentified},
        {RuleSourceVersionInfo, RuleTypeIgnore, AppFileSystemIgnored},
    };
    for (const Case& c : cases)
        EXPECT_EQ(SYFileVerdict(c.source, c.ruleType), c.expected)
            << "source " << c.source << ", rule type " << int{c.ruleType};
}

} // namespace
