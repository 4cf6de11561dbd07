#include "details/SYPalmAppTabWnd.h"

#include "outside/store/SYPalmApplicationInstallationSet.h"
#include "outside/store/SYPalmApplicationSet.h"

SY_IMPLEMENT_DYNCREATE(SYPalmAppTabWnd, SYAppBaseTabWnd)

int SYPalmAppTabWnd::Initialize(unsigned id, SYWnd* parent) {
    const int result = SYAppBaseTabWnd::Initialize(id, parent);
    if (result != 0) {
        AddPage(IDS_PALM_TAB_GENERAL, SY_RUNTIME_CLASS(SYPalmAppViewGeneralPage));
        AddPage(IDS_PALM_TAB_CLIENTS, SY_RUNTIME_CLASS(SYPalmAppViewDevicesPage));
    }
    return result;
}

void SYPalmAppTabWnd::LoadApplication(SYPalmAppViewGeneralPage& page, std::int32_t appID) {
    SYPalmApplicationSet apps(Database());
    apps.FilterForAppID(appID);
    apps.Open();
    if (!apps.IsEOF())
        page.SetAppInfo(apps.DatabaseName(), apps.AppVersion(), apps.CreatorID(), apps.AppName());
    apps.Close();
}

int SYPalmAppTabWnd::LoadDevices(SYPalmAppViewDevicesPage& page, std::int32_t appID) {
    SYPalmApplicationInstallationSet installations(Database());
    installations.JoinDevices();
    installations.FilterForAppID(appID);
    installations.Open();
    SYPalmAppDeviceItem device;
    int count = 0;
    for (; !installations.IsEOF(); installations.MoveNext()) {
        device.CopyInstallation(installations);
        device.SetDeviceID(static_cast<std::uint32_t>(installations.DeviceID()));
        page.AddDevice(device);
        ++count;
    }
    installations.Close();
    return count;
}
