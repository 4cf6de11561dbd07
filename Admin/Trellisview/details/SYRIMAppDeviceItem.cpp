#include "details/SYRIMAppDeviceItem.h"

#include "outside/framework/SYString.h"

int SYRIMAppDeviceItem::CompareTo(const SYListItem* item, int column, int ascending) const {
    const auto* other = dynamic_cast<const SYRIMAppDeviceItem*>(item);
    if (other == nullptr || column != 0)
        return 0;
    const int byName = SYStrICmp(m_clientName, other->m_clientName);
    int result = byName < 0 ? -1 : (byName > 0 ? 1 : 0);
    if (result == 0)
        result = m_deviceID < other->m_deviceID ? -1 : (other->m_deviceID < m_deviceID ? 1 : 0);
    return ascending != 0 ? result : -result;
}
