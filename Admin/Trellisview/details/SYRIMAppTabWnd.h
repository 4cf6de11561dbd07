#pragma once

#include "details/SYHandheldAppTabWnd.h"
#include "details/SYRIMAppViewDevicesPage.h"
#include "details/SYRIMAppViewGeneralPage.h"

// The detail view of one BlackBerry application: a "General" page with its name and
// version, and a "Clients" page with the devices holding it.
class SYRIMAppTabWnd
    : public SYHandheldAppTabWnd<SYRIMAppViewGeneralPage, SYRIMAppViewDevicesPage> {
    SY_DECLARE_DYNCREATE(SYRIMAppTabWnd)

public:
    int Initialize(unsigned id, SYWnd* parent) override;

protected:
    void LoadApplication(SYRIMAppViewGeneralPage& page, std::int32_t appID) override;
    int LoadDevices(SYRIMAppViewDevicesPage& page, std::int32_t appID) override;
    int InstallationMenu() const override { return IDM_RIM_INSTALLATION; }
};
