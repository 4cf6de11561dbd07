#pragma once

#include <cstdint>
#include <string>

// The words the store and the rules share about rules and the verdicts they give. The
// values are stored in inventories, so they never change.

// The verdict of the rule system on one file.
enum AppFileState : std::int32_t {
    AppFileNoRule = 0,
    AppFileSystemIdentified = 1,
    AppFileUserIdentified = 2,
    AppFileSystemIgnored = 3,
    AppFileUserIgnored = 4,
};

// A rule's type: what it does with the files it covers.
enum SYRuleType : unsigned char {
    RuleTypeId = 0,
    RuleTypeIgnore = 1,
};

// The life of a rule row: added, edited in place, removed (retired, never active again).
enum SYRuleState : unsigned char {
    RuleStateAdded = 1,
    RuleStateModified = 2,
    RuleStateRemoved = 3,
};

// Where the rule that governs a file comes from. Callers test for the user only: every
// other source counts as the system's.
enum SYRuleSource : int {
    // No rule governs the file; the store keeps NULL.
    RuleSourceNone = -1,
    RuleSourceUser = 0,
    // A rule of the system rules database that came with the installation.
    RuleSourceSystem = 1,
    // No rule: the file's own version information names its application.
    RuleSourceVersionInfo = 2,
};

// The verdict that a rule of this type from this source gives. A user identification is
// the user's; an ignore rule is the user's or the system's; anything else, a user rule of
// an unknown type included, counts as identified by the system.
AppFileState SYFileVerdict(SYRuleSource source, unsigned char ruleType);

// SQL conditions on stored states, for the column as the statement names it
// ("f.FileState", "RuleState").
std::string SYUnidentifiedFileSql(const std::string& fileStateColumn);
std::string SYIgnoredFileSql(const std::string& fileStateColumn);
std::string SYActiveRuleSql(const std::string& ruleStateColumn);
