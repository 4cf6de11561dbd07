#include "outside/store/SYPalmApplicationSet.h"

#include <cstdint>

void SYPalmApplicationSet::FilterForAppID(long appID) {
    m_appID = appID;
}

void SYPalmApplicationSet::BuildQuery(SYSelect& select) const {
    select.Columns("AppID, AppName, AppVersion, DatabaseName, CreatorID");
    select.From("[Palm Applications]");
    if (m_appID)
        select.Where("AppID = ?", static_cast<std::int64_t>(*m_appID));
}

long SYPalmApplicationSet::AppID() const {
    return static_cast<long>(FieldInt("AppID"));
}

std::string SYPalmApplicationSet::AppName() const {
    return FieldText("AppName");
}

std::string SYPalmApplicationSet::AppVersion() const {
    return FieldText("AppVersion");
}

std::string SYPalmApplicationSet::DatabaseName() const {
    return FieldText("DatabaseName");
}

std::string SYPalmApplicationSet::CreatorID() const {
    return FieldText("CreatorID");
}
