#pragma once

#include <cstdint>

#include "details/SYAppBaseTabWnd.h"
#include "outside/framework/CException.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYReport.h"
#include "resources/SYResourceIds.h"

class SYListCtrlEx;

// What the Palm and BlackBerry views share: a "General" page (index 0) and a "Clients"
// page (index 1) of devices, loaded by application id. The derived view reads the store.
template <class GeneralPage, class DevicesPage> class SYHandheldAppTabWnd : public SYAppBaseTabWnd {
public:
    // Fills both pages. AppID 0 blanks them, gives 0 and keeps GetAppID; a store failure
    // is reported and gives 0, leaving what was read.
    int LoadAppData(std::int32_t appID) {
        GeneralPage* general = GetGeneralPage();
        DevicesPage* devices = GetDevicesPage();
        if (appID == 0) {
            if (general != nullptr)
                general->ClearData();
            if (devices != nullptr)
                devices->ClearData();
            return 0;
        }
        SYWaitCursor wait;
        m_appID = appID;
        try {
            if (general != nullptr)
                LoadApplication(*general, appID);
            if (devices != nullptr) {
                devices->ClearDevices();
                const int count = LoadDevices(*devices, appID);
                devices->BuildDeviceList(0);
                devices->SetTotals(count);
                if (general != nullptr)
                    general->SetTotals(count);
            }
            return 1;
        } catch (const CException& exception) {
            SYExReport(exception, nullptr);
            return 0;
        }
    }
    // The application last loaded with a nonzero id.
    std::int32_t GetAppID() const { return m_appID; }
    SYListCtrlEx* DeviceList() const { return GetDevicesPage()->DeviceList(); }
    int DeviceTotal() const { return GetDevicesPage()->DeviceTotal(); }
    void SetupLayout() {
        if (DevicesPage* devices = GetDevicesPage(); devices != nullptr && devices->IsWindow())
            devices->SetupLayout();
    }

    // The context menu and its default command for the control with the focus; 0 if none.
    int GetContextMenuInfo(unsigned& menuId, unsigned& defaultCommand) const {
        DevicesPage* devices = GetDevicesPage();
        if (GetActiveIndex() != 1 || devices == nullptr || !devices->DeviceList()->HasFocus())
            return 0;
        menuId = static_cast<unsigned>(InstallationMenu());
        defaultCommand = ID_VIEW_INSTALLATION_DETAILS;
        return 1;
    }
    // The device selected on the Clients page while it is active; else 0.
    int GetSelectedInstallation(std::uint32_t& deviceID) const {
        DevicesPage* devices = GetDevicesPage();
        if (GetActiveIndex() != 1 || devices == nullptr || !devices->IsWindow())
            return 0;
        return devices->GetSelectedInstallation(deviceID);
    }

    void ActivateGeneralPage() { SetActivePage(0); }
    void ActivateDevicesPage() { SetActivePage(1); }

protected:
    // Sets the application's record on the page, if the store has one.
    virtual void LoadApplication(GeneralPage& page, std::int32_t appID) = 0;
    // Adds the application's devices to the emptied page; gives how many.
    virtual int LoadDevices(DevicesPage& page, std::int32_t appID) = 0;
    virtual int InstallationMenu() const = 0;

    GeneralPage* GetGeneralPage() const { return dynamic_cast<GeneralPage*>(GetPage(0)); }
    DevicesPage* GetDevicesPage() const { return dynamic_cast<DevicesPage*>(GetPage(1)); }

private:
    std::int32_t m_appID = 0;
};
