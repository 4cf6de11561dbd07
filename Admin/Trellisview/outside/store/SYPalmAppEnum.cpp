#include "outside/store/SYPalmAppEnum.h"

int SYPalmAppEnum::BeginEnumApps() {
    return Begin("SELECT AppID, AppName, AppVersion, IconName FROM [Palm Applications] "
                 "ORDER BY AppName, AppVersion, AppID");
}

int SYPalmAppEnum::EnumApp(std::string& name) {
    return Advance([&](const SYStatement& row) {
        m_appID = static_cast<long>(row.Int64(0));
        name = row.Text(1);
        m_version = row.Text(2);
        m_iconName = row.Text(3);
    });
}
