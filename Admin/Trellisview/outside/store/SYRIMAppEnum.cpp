#include "outside/store/SYRIMAppEnum.h"

int SYRIMAppEnum::BeginEnumApps() {
    return Begin("SELECT AppID, AppName, AppVersion FROM [RIM Applications] "
                 "ORDER BY AppName, AppVersion, AppID");
}

int SYRIMAppEnum::EnumApp(std::string& name) {
    return Advance([&](const SYStatement& row) {
        m_appID = static_cast<long>(row.Int64(0));
        name = row.Text(1);
        m_version = row.Text(2);
    });
}
