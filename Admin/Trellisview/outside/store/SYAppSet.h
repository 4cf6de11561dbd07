#pragma once

#include <optional>
#include <string>

#include "outside/store/SYRecordset.h"

// Applications of the Windows PC or Windows CE inventory (InvDataType 0 or 1), in order of
// internal company name, internal name and version.
class SYAppSet : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    void FilterForAppID(unsigned long appID);
    // Applications with at least one installation (AppInstalled 1).
    void FilterForInstalledApps();
    void FilterForCompany(const std::string& companyInternal);

    unsigned long AppID() const;
    std::string AppName() const;
    std::string AppNameInternal() const;
    std::string AppVersion() const;
    std::string AppCompany() const;
    std::string AppCompanyInternal() const;
    int AppInstalled() const;

protected:
    void BuildQuery(SYSelect& select) const override;

private:
    std::optional<unsigned long> m_appID;
    std::optional<std::string> m_company;
    bool m_installed = false;
};
