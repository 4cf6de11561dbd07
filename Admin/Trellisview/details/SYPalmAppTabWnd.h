#pragma once

#include "details/SYHandheldAppTabWnd.h"
#include "details/SYPalmAppViewDevicesPage.h"
#include "details/SYPalmAppViewGeneralPage.h"

// The detail view of one Palm application: a "General" page with its database and
// creator, and a "Clients" page with where it lies on each device.
class SYPalmAppTabWnd
    : public SYHandheldAppTabWnd<SYPalmAppViewGeneralPage, SYPalmAppViewDevicesPage> {
    SY_DECLARE_DYNCREATE(SYPalmAppTabWnd)

public:
    int Initialize(unsigned id, SYWnd* parent) override;

protected:
    void LoadApplication(SYPalmAppViewGeneralPage& page, std::int32_t appID) override;
    int LoadDevices(SYPalmAppViewDevicesPage& page, std::int32_t appID) override;
    int InstallationMenu() const override { return IDM_PALM_INSTALLATION; }
};
