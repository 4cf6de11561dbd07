#pragma once

#include <optional>
#include <string>

#include "outside/store/SYEnumerator.h"

// The installed applications of inventory 0 or 1, of one company when SetCompanyName was
// given its internal name (compared without regard to case, as the company set runs), in
// order of AppID. That is the order of the company index, so a company's rows need no sort
// in the store: the views sort them by name themselves.
class SYAppEnum : public SYEnumerator {
public:
    using SYEnumerator::SYEnumerator;

    void SetCompanyName(const std::string& companyInternal) { m_company = companyInternal; }
    int BeginEnumApps();
    int EnumApp(std::string& name, std::string& version, std::string& internalName);
    unsigned long CurrentAppID() const { return m_appID; }

private:
    std::optional<std::string> m_company;
    unsigned long m_appID = 0;
};
