#pragma once

#include <cstdint>

#include "SYCliDocument.h"

class SYDatabase;

// An application with its files and installations, and one installation, read through the
// library's own detail views and details dialogs, so a script sees what a person sees.
// On Palm and BlackBerry an installation is the application on a device: its id is the
// application's. Unknown ids throw SYCliError.
class SYCliDetails {
public:
    explicit SYCliDetails(SYDatabase& database) : m_database(database) {}

    SYCliDocument App(std::uint32_t appID, unsigned char platform);
    SYCliDocument Installation(std::uint32_t clientID, std::uint32_t installationID,
                               unsigned char platform);

private:
    SYCliDocument WindowsApp(std::uint32_t appID, unsigned char platform);
    template <class TabWnd, class GeneralPage, class DevicesPage, class Item>
    SYCliDocument HandheldApp(std::uint32_t appID, unsigned char platform);
    SYCliDocument WindowsInstallation(std::uint32_t clientID, std::uint32_t installationID,
                                      unsigned char platform);
    SYCliDocument PalmInstallation(std::uint32_t deviceID, std::uint32_t appID);
    SYCliDocument RIMInstallation(std::uint32_t deviceID, std::uint32_t appID);

    SYDatabase& m_database;
};
