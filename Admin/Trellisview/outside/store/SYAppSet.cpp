#include "outside/store/SYAppSet.h"

#include "outside/store/SYInventorySchema.h"

void SYAppSet::FilterForAppID(unsigned long appID) {
    m_appID = appID;
}

void SYAppSet::FilterForInstalledApps() {
    m_installed = true;
}

void SYAppSet::FilterForCompany(const std::string& companyInternal) {
    m_company = companyInternal;
}

void SYAppSet::BuildQuery(SYSelect& select) const {
    select.Columns("AppID, AppName, AppNameInternal, AppVersion, AppCompany, AppCompanyInternal, "
                   "AppInstalled");
    select.From(SYInventorySchema::AppTable(InvDataType));
    if (m_appID)
        select.Where("AppID = ?", static_cast<std::int64_t>(*m_appID));
    if (m_installed)
        select.Where("AppInstalled = 1");
    if (m_company)
        select.Where("AppCompanyInternal = ?", *m_company);
    select.OrderBy("AppCompanyInternal, AppNameInternal, AppVersion");
}

unsigned long SYAppSet::AppID() const {
    return static_cast<unsigned long>(FieldInt("AppID"));
}

std::string SYAppSet::AppName() const {
    return FieldText("AppName");
}

std::string SYAppSet::AppNameInternal() const {
    return FieldText("AppNameInternal");
}

std::string SYAppSet::AppVersion() const {
    return FieldText("AppVersion");
}

std::string SYAppSet::AppCompany() const {
    return FieldText("AppCompany");
}

std::string SYAppSet::AppCompanyInternal() const {
    return FieldText("AppCompanyInternal");
}

int SYAppSet::AppInstalled() const {
    return static_cast<int>(FieldInt("AppInstalled"));
}
