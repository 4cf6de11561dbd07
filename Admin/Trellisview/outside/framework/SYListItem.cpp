#include "outside/framework/SYListItem.h"

#include "outside/framework/SYListItemArray.h"

// The array sets itself as the item's array when it takes the item.
SYListItem::SYListItem(SYListItemArray* array) {
    if (array != nullptr)
        array->Add(this);
}

// A copy is a free item: it belongs to no array until one takes it.
SYListItem::SYListItem(const SYListItem& other) : CObject(other) {}

SYListItem& SYListItem::operator=(const SYListItem& other) {
    CObject::operator=(other);
    return *this;
}

int SYListItem::CompareTo(const SYListItem* /*item*/, int /*column*/, int /*ascending*/) const {
    return 0;
}

SYListItem::SortKey SYListItem::GetSortKey(int /*column*/) const {
    return {};
}
