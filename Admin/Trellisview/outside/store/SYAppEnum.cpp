#include "outside/store/SYAppEnum.h"

#include "outside/store/SYInventorySchema.h"

int SYAppEnum::BeginEnumApps() {
    const std::string sql =
        std::string("SELECT AppID, AppName, AppVersion, AppNameInternal FROM ") +
        SYInventorySchema::AppTable(InvDataType) + " WHERE AppInstalled = 1" +
        (m_company ? " AND AppCompanyInternal = ?1 COLLATE NOCASE" : "") + " ORDER BY AppID";
    return Begin(sql, m_company ? SYDbValue{*m_company} : SYDbValue{});
}

int SYAppEnum::EnumApp(std::string& name, std::string& version, std::string& internalName) {
    return Advance([&](const SYStatement& row) {
        m_appID = static_cast<unsigned long>(row.Int64(0));
        name = row.Text(1);
        version = row.Text(2);
        internalName = row.Text(3);
    });
}
