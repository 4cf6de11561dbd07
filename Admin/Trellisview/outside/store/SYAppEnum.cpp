#include "outside/store/SYAppEnum.h"

#include <array>

#include "outside/store/SYInventorySchema.h"

namespace {

// Written once per inventory and filter: expanding a tree runs the query once per company.
const std::string& enumSql(unsigned char invDataType, bool byCompany) {
    // AppTable refuses the inventories without files, so the index stays in range.
    const char* table = SYInventorySchema::AppTable(invDataType);
    static std::array<std::array<std::string, 2>, 2> made;
    std::string& sql = made.at(invDataType).at(byCompany ? 1 : 0);
    if (sql.empty())
        sql = std::string("SELECT AppID, AppName, AppVersion, AppNameInternal FROM ") + table +
              " WHERE AppInstalled = 1" +
              (byCompany ? " AND AppCompanyInternal = ?1 COLLATE NOCASE" : "") + " ORDER BY AppID";
    return sql;
}

} // namespace

int SYAppEnum::BeginEnumApps() {
    return Begin(enumSql(InvDataType, m_company.has_value()),
                 m_company ? SYDbValue{*m_company} : SYDbValue{});
}

int SYAppEnum::EnumApp(std::string& name, std::string& version, std::string& internalName) {
    return Advance([&](const SYStatement& row) {
        m_appID = static_cast<unsigned long>(row.Int64(0));
        name = row.Text(1);
        version = row.Text(2);
        internalName = row.Text(3);
    });
}
