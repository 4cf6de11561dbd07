#pragma once

#include "rules/SYAppFileItem.h"

// A rule's type: what it does with the files it covers.
enum SYRuleType : unsigned char {
    RuleTypeId = 0,
    RuleTypeIgnore = 1,
};

// A stored rule as a row; FileID holds the rule's identifier.
class SYSWRuleItem : public SYAppFileItem {
public:
    explicit SYSWRuleItem(SYListItemArray* array = nullptr);
    SYSWRuleItem(const SYSWRuleItem& other);
    SYSWRuleItem& operator=(const SYSWRuleItem& other);

    virtual unsigned char RuleType() const = 0;
};
