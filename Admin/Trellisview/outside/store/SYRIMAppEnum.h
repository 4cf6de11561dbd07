#pragma once

#include <string>

#include "outside/store/SYEnumerator.h"

// The BlackBerry applications, in order of name and version. BeginEnumApps throws
// CDBException on a store without the "RIM Applications" table.
class SYRIMAppEnum : public SYEnumerator {
public:
    using SYEnumerator::SYEnumerator;

    int BeginEnumApps();
    int EnumApp(std::string& name);
    long CurrentAppID() const { return m_appID; }
    const std::string& CurrentAppVersion() const { return m_version; }

private:
    long m_appID = 0;
    std::string m_version;
};
