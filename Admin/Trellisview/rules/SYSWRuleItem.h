#pragma once

#include "outside/store/SYFileVerdict.h"
#include "rules/SYAppFileItem.h"

// A stored rule as a row; FileID holds the rule's identifier.
class SYSWRuleItem : public SYAppFileItem {
public:
    explicit SYSWRuleItem(SYListItemArray* array = nullptr);
    SYSWRuleItem(const SYSWRuleItem& other);
    SYSWRuleItem& operator=(const SYSWRuleItem& other);

    virtual unsigned char RuleType() const = 0;
};
