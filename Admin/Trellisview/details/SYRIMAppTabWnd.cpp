#include "details/SYRIMAppTabWnd.h"

#include "outside/store/SYRIMApplicationInstallationSet.h"
#include "outside/store/SYRIMApplicationSet.h"

SY_IMPLEMENT_DYNCREATE(SYRIMAppTabWnd, SYAppBaseTabWnd)

int SYRIMAppTabWnd::Initialize(unsigned id, SYWnd* parent) {
    const int result = SYAppBaseTabWnd::Initialize(id, parent);
    if (result != 0) {
        AddPage(IDS_RIM_TAB_GENERAL, SY_RUNTIME_CLASS(SYRIMAppViewGeneralPage));
        AddPage(IDS_RIM_TAB_CLIENTS, SY_RUNTIME_CLASS(SYRIMAppViewDevicesPage));
    }
    return result;
}

void SYRIMAppTabWnd::LoadApplication(SYRIMAppViewGeneralPage& page, std::int32_t appID) {
    SYRIMApplicationSet apps(Database());
    apps.FilterForAppID(appID);
    apps.Open();
    if (!apps.IsEOF())
        page.SetAppInfo(apps.AppName(), apps.AppVersion());
    apps.Close();
}

int SYRIMAppTabWnd::LoadDevices(SYRIMAppViewDevicesPage& page, std::int32_t appID) {
    SYRIMApplicationInstallationSet installations(Database());
    installations.JoinDevices();
    installations.FilterForAppID(appID);
    installations.Open();
    SYRIMAppDeviceItem device;
    int count = 0;
    for (; !installations.IsEOF(); installations.MoveNext()) {
        device.SetDeviceID(static_cast<std::uint32_t>(installations.DeviceID()));
        device.SetClientName(installations.ClientName());
        page.AddDevice(device);
        ++count;
    }
    installations.Close();
    return count;
}
