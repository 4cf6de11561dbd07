#include "editing/SYAppFileMachinesPage.h"

#include <utility>

#include "editing/SYAppFilePropSheet.h"
#include "outside/framework/CException.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYReport.h"
#include "outside/services/SYStringTable.h"
#include "outside/services/SYTextFormat.h"
#include "outside/store/SYAppFileLocSet.h"
#include "outside/widgets/SYAdminImages.h"
#include "outside/widgets/SYFontMetrics.h"
#include "outside/widgets/SYWndPrintEngine.h"
#include "resources/SYResourceIds.h"

namespace {

// A client that lies in the Windows CE inventory is a device of that platform.
constexpr int PPCDeviceKind = 2;

} // namespace

SYAppFileMachinesPage::SYAppFileMachinesPage() : SYAdminPropPage(IDD_APP_FILE_MACHINES) {
    m_list.SetSingleSelection(1);
    MapCommand(IDC_FILE_PRINT, BN_CLICKED, [this] { OnPrint(); });
}

int SYAppFileMachinesPage::LoadData(std::uint32_t fileID, unsigned char invDataType) {
    SYWaitCursor wait;
    m_places.clear();
    m_clientCount = 0;
    m_invDataType = invDataType;
    try {
        SYAppFileLocSet set(GetDatabase());
        set.InvDataType = invDataType;
        set.JoinMachines();
        set.SortByMachineAndLocation();
        set.FilterForFileID(fileID);
        set.Open();
        const std::string clientFormat = SYStringTable::Get(IDS_CLIENT_AND_USER);
        std::uint32_t previous = 0;
        for (; !set.IsEOF(); set.MoveNext()) {
            const auto machineID = static_cast<std::uint32_t>(set.MachineID());
            std::vector<std::string>& cells = m_places.emplace_back();
            cells.reserve(2);
            cells.push_back(SYFormatText(clientFormat, {set.MachineName(), set.MachineUser()}));
            cells.push_back(set.Location());
            if (machineID != previous)
                ++m_clientCount;
            previous = machineID;
        }
    } catch (const CException& exception) {
        SYExReport(exception, nullptr);
        return 0;
    }
    return 1;
}

int SYAppFileMachinesPage::OnInitDialog() {
    SYAdminPropPage::OnInitDialog();
    m_list.Initialize(IDC_FILE_CLIENT_LIST, SYAdminImages::ClientBitmap, SYAdminImages::MaskColour,
                      SYAdminImages::ImageWidth, this);
    m_list.SetHeaderClickable(0);
    m_list.AddHeader(IDS_HDR_FILE_CLIENTS);
    const int clientWidth =
        m_list.GetStringWidth("OOOOOOOOOOOOOOOO") + SYFontMetrics::ColumnPadding;
    m_list.SetColWidth(0, clientWidth);
    m_list.SetColWidth(1, m_list.GetClientRect().Width() - clientWidth -
                              SYFontMetrics::ScrollBarWidth);
    const SYAdminImages images;
    const int image =
        m_invDataType == 1 ? images.GetDeviceImage(PPCDeviceKind, 0) : images.GetMachineImage(0);
    for (std::size_t index = 0; index < m_places.size(); ++index) {
        const int row = m_list.InsertBitmapString(image, -1, std::move(m_places[index]));
        m_list.SetItemData(row, static_cast<std::uint32_t>(index));
    }
    m_places.clear();
    if (SYWnd* total = GetDlgItem(IDC_FILE_TOTAL_CLIENTS))
        total->SetWindowText(std::to_string(m_clientCount));
    return 1;
}

void SYAppFileMachinesPage::OnPrint() {
    SYWndPrintEngine engine(this, SYStringTable::Get(IDS_FILE_CLIENTS_PRINT_TITLE));
    if (!engine.PrintSetup(0) || !engine.BeginPrinting())
        return;
    SYPeDataLabeledList* data = engine.AddLabeledDataList(engine.GetDC());
    std::string label;
    std::string value;
    if (const auto* sheet = dynamic_cast<const SYAppFilePropSheet*>(GetSheet())) {
        sheet->GetFileNamePrintData(label, value);
        data->AddData(label, value, 0);
        sheet->GetFileTimePrintData(label, value);
        data->AddData(label, value, 0);
        sheet->GetFileSizePrintData(label, value);
        data->AddData(label, value, 0);
    }
    const SYWnd* totalLabel = GetDlgItem(IDC_FILE_TOTAL_CLIENTS_LABEL);
    const SYWnd* total = GetDlgItem(IDC_FILE_TOTAL_CLIENTS);
    if (totalLabel != nullptr && total != nullptr)
        data->AddData(totalLabel->GetWindowText(), total->GetWindowText(), 0);
    engine.AddBreak();
    engine.AddList(m_list, engine.GetDC());
    engine.Print();
}
