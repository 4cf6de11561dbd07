#include "rules/SYSWRuleItem.h"

SYSWRuleItem::SYSWRuleItem(SYListItemArray* array) : SYAppFileItem(array) {
    SetItemType(ItemTypeRule);
}

SYSWRuleItem::SYSWRuleItem(const SYSWRuleItem& other) : SYAppFileItem(other) {}

SYSWRuleItem& SYSWRuleItem::operator=(const SYSWRuleItem& other) {
    SYAppFileItem::operator=(other);
    return *this;
}
