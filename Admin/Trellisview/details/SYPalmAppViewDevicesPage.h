#pragma once

#include "details/SYHandheldDevicesPage.h"
#include "details/SYPalmAppDeviceItem.h"

// The "Clients" page of the Palm view: one row per device holding the application, with
// where it lies, its sizes, dates and counts.
class SYPalmAppViewDevicesPage : public SYHandheldDevicesPage<SYPalmAppDeviceItem> {
    SY_DECLARE_DYNCREATE(SYPalmAppViewDevicesPage)

public:
    SYPalmAppViewDevicesPage();

    // Columns as wide as their titles or samples, whichever is wider; a print-out leaves
    // out "Modify Date" and "Database Count".
    void SetupLayout() override;

protected:
    void SetupColumns(SYListCtrlEx& list) override;
};
