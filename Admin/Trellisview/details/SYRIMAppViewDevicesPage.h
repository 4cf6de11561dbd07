#pragma once

#include "details/SYHandheldDevicesPage.h"
#include "details/SYRIMAppDeviceItem.h"

// The "Clients" page of the BlackBerry view: one column, the name of each device holding
// the application.
class SYRIMAppViewDevicesPage : public SYHandheldDevicesPage<SYRIMAppDeviceItem> {
    SY_DECLARE_DYNCREATE(SYRIMAppViewDevicesPage)

public:
    SYRIMAppViewDevicesPage();

    // The column as wide as its title or its sample, whichever is wider.
    void SetupLayout() override;

protected:
    void SetupColumns(SYListCtrlEx& list) override;
};
