#include "details/SYRIMAppViewDevicesPage.h"

#include <algorithm>

SY_IMPLEMENT_DYNCREATE(SYRIMAppViewDevicesPage, SYTabWndPage)

namespace {

const char* const ClientSample = "OOOOOOOOOOOO";

} // namespace

SYRIMAppViewDevicesPage::SYRIMAppViewDevicesPage()
    : SYHandheldDevicesPage({IDD_RIM_APP_VIEW_DEVICES, IDC_RIM_DEVICE_LIST, IDC_RIM_TOTAL_CLIENTS,
                             IDC_RIM_TOTAL_CLIENTS_LABEL, IDS_HDR_RIM_DEVICES,
                             SYAdminImages::ImageRIMDevice}) {}

void SYRIMAppViewDevicesPage::SetupColumns(SYListCtrlEx& list) {
    list.SetColFormat(0, SYAlignLeft);
    list.SetHdrFormat(0, SYAlignLeft);
}

void SYRIMAppViewDevicesPage::SetupLayout() {
    SYListCtrlEx& list = *DeviceList();
    list.CalcColsFromHeader(-1);
    list.SetColWidth(0, std::max(list.GetColWidth(0), appview::SampleWidth(list, ClientSample)));
    SetupColumns(list);
}
