#include "outside/store/SYRIMApplicationSet.h"

#include <cstdint>

void SYRIMApplicationSet::FilterForAppID(long appID) {
    m_appID = appID;
}

void SYRIMApplicationSet::BuildQuery(SYSelect& select) const {
    select.Columns("AppID, AppName, AppVersion");
    select.From("[RIM Applications]");
    if (m_appID)
        select.Where("AppID = ?", static_cast<std::int64_t>(*m_appID));
}

long SYRIMApplicationSet::AppID() const {
    return static_cast<long>(FieldInt("AppID"));
}

std::string SYRIMApplicationSet::AppName() const {
    return FieldText("AppName");
}

std::string SYRIMApplicationSet::AppVersion() const {
    return FieldText("AppVersion");
}
