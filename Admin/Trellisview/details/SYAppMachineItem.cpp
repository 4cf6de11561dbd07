#include "details/SYAppMachineItem.h"

#include "outside/framework/SYString.h"
#include "outside/services/SYLocaleInfo.h"

namespace {

constexpr int KeyClient = 3;
constexpr int KeyLastScan = 4;
constexpr int KeyLocation = 5;

int sign(int value) {
    return value < 0 ? -1 : (value > 0 ? 1 : 0);
}

} // namespace

int SYAppMachineItem::CompareTo(const SYListItem* item, int column, int ascending) const {
    const auto* other = dynamic_cast<const SYAppMachineItem*>(item);
    if (other == nullptr)
        return 0;
    int result = 0;
    switch (column) {
    case 0:
    case KeyClient:
        result = sign(SYStrICmp(m_machineName, other->m_machineName));
        break;
    case 1:
    case KeyLastScan:
        result = m_lastScan < other->m_lastScan ? -1 : (other->m_lastScan < m_lastScan ? 1 : 0);
        break;
    case 2:
    case KeyLocation:
        result = sign(SYStrICmp(m_location, other->m_location));
        break;
    default:
        return 0;
    }
    if (result != 0)
        return ascending != 0 ? result : -result;
    switch (column) {
    case 0:
        return CompareTo(item, KeyLocation, 1);
    case 1:
        if (const int byClient = CompareTo(item, KeyClient, 1); byClient != 0)
            return byClient;
        return CompareTo(item, KeyLocation, 1);
    case 2:
        return CompareTo(item, KeyClient, 1);
    default:
        return 0;
    }
}

void SYAppMachineItem::MakeString(std::string& text) const {
    text = m_machineName + '\t' + SYLocaleInfo::FormatDate(m_lastScan, 0) + '\t' + m_location;
}
