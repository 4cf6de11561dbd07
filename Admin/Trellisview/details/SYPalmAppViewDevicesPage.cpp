#include "details/SYPalmAppViewDevicesPage.h"

#include <algorithm>

SY_IMPLEMENT_DYNCREATE(SYPalmAppViewDevicesPage, SYTabWndPage)

namespace {

struct ColumnLayout {
    const char* sample; // null: the title's width stands
    int format;
};

const ColumnLayout Layout[] = {
    {"OOOOOOOOOOOO", SYAlignLeft},
    {"Storage Card", SYAlignCentre},
    {"888 Kb", SYAlignRight},
    {"888 Kb", SYAlignRight},
    {"10/00/0000 12:00 AM", SYAlignLeft},
    {"10/00/0000 12:00 AM", SYAlignLeft},
    {"10/00/0000 12:00 AM", SYAlignLeft},
    {nullptr, SYAlignCentre},
    {nullptr, SYAlignCentre},
    {"C:\\Program Files\\Application Name\\App Path", SYAlignLeft},
};

constexpr int ColumnModifyDate = 5;
constexpr int ColumnDatabaseCount = 7;

} // namespace

SYPalmAppViewDevicesPage::SYPalmAppViewDevicesPage()
    : SYHandheldDevicesPage({IDD_PALM_APP_VIEW_DEVICES, IDC_PALM_DEVICE_LIST,
                             IDC_PALM_TOTAL_CLIENTS, IDC_PALM_TOTAL_CLIENTS_LABEL,
                             IDS_HDR_PALM_DEVICES, SYAdminImages::ImagePalmDevice}) {}

void SYPalmAppViewDevicesPage::SetupColumns(SYListCtrlEx& list) {
    for (int column = 0; column < 2; ++column) {
        list.SetColFormat(column, SYAlignLeft);
        list.SetHdrFormat(column, SYAlignLeft);
    }
}

void SYPalmAppViewDevicesPage::SetupLayout() {
    SYListCtrlEx& list = *DeviceList();
    list.CalcColsFromHeader(-1);
    for (int column = 0; column < static_cast<int>(std::size(Layout)); ++column) {
        const ColumnLayout& layout = Layout[column];
        if (layout.sample != nullptr)
            list.SetColWidth(column, std::max(list.GetColWidth(column),
                                              appview::SampleWidth(list, layout.sample)));
        list.SetColFormat(column, layout.format);
        list.SetHdrFormat(column, layout.format);
    }
    list.ExcludeColumnFromPrinting(ColumnModifyDate);
    list.ExcludeColumnFromPrinting(ColumnDatabaseCount);
}
