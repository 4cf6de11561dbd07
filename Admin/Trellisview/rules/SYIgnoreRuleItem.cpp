#include "rules/SYIgnoreRuleItem.h"

SYIgnoreRuleItem::SYIgnoreRuleItem(SYListItemArray* array) : SYSWRuleItem(array) {}

SYIgnoreRuleItem::SYIgnoreRuleItem(const SYIgnoreRuleItem& other)
    : SYSWRuleItem(other), m_comment(other.m_comment) {}

SYIgnoreRuleItem& SYIgnoreRuleItem::operator=(const SYIgnoreRuleItem& other) {
    SYSWRuleItem::operator=(other);
    m_comment = other.m_comment;
    return *this;
}

bool SYIgnoreRuleItem::operator==(const SYIgnoreRuleItem& other) const {
    return SameFileInfo(other) && m_comment == other.m_comment;
}
