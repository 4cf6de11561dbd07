#include "rules/SYCompanyItem.h"

#include "outside/framework/SYString.h"

SYCompanyItem::SYCompanyItem(SYListItemArray* array) : SYListItem(array) {}

SYCompanyItem::SYCompanyItem(const SYCompanyItem& other)
    : SYListItem(other), m_displayName(other.m_displayName), m_internalName(other.m_internalName) {}

SYCompanyItem& SYCompanyItem::operator=(const SYCompanyItem& other) {
    SYListItem::operator=(other);
    m_displayName = other.m_displayName;
    m_internalName = other.m_internalName;
    return *this;
}

int SYCompanyItem::CompareTo(const SYListItem* item, int column, int ascending) const {
    const auto* other = dynamic_cast<const SYCompanyItem*>(item);
    if (other == nullptr || (column != 0 && column != 1))
        return 0;
    const int raw = SYStrICmp(m_internalName, other->m_internalName);
    return ascending ? raw : -raw;
}
