#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "outside/store/SYRecordset.h"

// Applications of the Windows PC or Windows CE inventory (InvDataType 0 or 1), read only.
// Company names compare without regard to ASCII case, as the tree merges them.
class SYAppSet : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    void FilterForAppID(std::uint32_t appID);
    // By the internal company name.
    void FilterForCompany(const std::string& companyInternal);
    // Applications with at least one installation.
    void FilterForInstalled();

    std::uint32_t AppID() const;
    std::string AppName() const;
    std::string AppNameInternal() const;
    std::string AppVersion() const;
    std::string AppCompany() const;
    std::string AppCompanyInternal() const;
    int AppInstalled() const;

protected:
    void BuildQuery(SYSelect& select) const override;

private:
    std::optional<std::uint32_t> m_appID;
    std::optional<std::string> m_company;
    bool m_installed = false;
};
