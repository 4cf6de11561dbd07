#pragma once

#include <string>

#include "rules/SYSWRuleItem.h"

// An ignore (exclude) rule: files it covers are left out of the inventory's reckoning. It
// orders and prints as a file row; the comment is not part of its row text.
class SYIgnoreRuleItem : public SYSWRuleItem {
public:
    explicit SYIgnoreRuleItem(SYListItemArray* array = nullptr);
    SYIgnoreRuleItem(const SYIgnoreRuleItem& other);
    SYIgnoreRuleItem& operator=(const SYIgnoreRuleItem& other);

    unsigned char RuleType() const override { return RuleTypeIgnore; }

    const std::string& Comment() const { return m_comment; }
    void SetComment(const std::string& comment) { m_comment = comment; }

    // Exact equality: case counts in the name and comment, seconds count in the time.
    bool operator==(const SYIgnoreRuleItem& other) const;
    bool operator!=(const SYIgnoreRuleItem& other) const { return !(*this == other); }

private:
    std::string m_comment;
};
