#pragma once

#include <string>

#include "outside/store/SYEnumerator.h"

// The Palm applications, in order of name and version. The icon name is what the device
// shows under the application's icon; it may be empty.
class SYPalmAppEnum : public SYEnumerator {
public:
    using SYEnumerator::SYEnumerator;

    int BeginEnumApps();
    int EnumApp(std::string& name);
    long CurrentAppID() const { return m_appID; }
    const std::string& CurrentAppVersion() const { return m_version; }
    const std::string& CurrentAppIconName() const { return m_iconName; }

private:
    long m_appID = 0;
    std::string m_version;
    std::string m_iconName;
};
