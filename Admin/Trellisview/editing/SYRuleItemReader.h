#pragma once

#include <memory>

#include "rules/SYIdRuleItem.h"
#include "rules/SYIgnoreRuleItem.h"

class SYSWRuleSet;

// Makes rule items from the current row of a rule set, as the rule dialogs and the rule
// configuration sheet read them.
class SYRuleItemReader {
public:
    // Name, size and time; an absent size or time is cleared.
    static void ReadFileInfo(SYAppFileItem& item, const SYSWRuleSet& set);
    // The row as a stored rule item of its type, with the rule's id as file id.
    static void Read(SYIdRuleItem& item, const SYSWRuleSet& set);
    static void Read(SYIgnoreRuleItem& item, const SYSWRuleSet& set);
    static std::unique_ptr<SYSWRuleItem> Read(const SYSWRuleSet& set);
};
