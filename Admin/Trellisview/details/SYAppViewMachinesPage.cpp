#include "details/SYAppViewMachinesPage.h"

#include <algorithm>

#include "details/SYAppMachineItem.h"
#include "details/SYAppViewLists.h"
#include "outside/services/SYLocaleInfo.h"
#include "outside/store/SYSWInvObject.h"
#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYAdminImages.h"
#include "outside/widgets/SYPrintEngine.h"
#include "resources/SYResourceIds.h"

SY_IMPLEMENT_DYNCREATE(SYAppViewMachinesPage, SYTabWndPage)

namespace {

const char* const ClientSample = "OOOOOOOOOOOOOOOO";
const char* const LastScanSample = "10/00/0000";
const char* const LocationSample = "C:\\Program Files\\Application Name\\App Path";

int machineImage(const SYAppMachineItem& machine) {
    const SYAdminImages images;
    return machine.InvDataType() == InvDataPPC ? images.GetDeviceImage(SYAdminImages::DevicePPC, 0)
                                               : images.GetMachineImage(0);
}

} // namespace

SYAppViewMachinesPage::SYAppViewMachinesPage() : SYTabWndPage(IDD_APP_VIEW_MACHINES) {
    m_machineList.SetSingleSelection(1);
    MapNotify(IDC_MACHINE_LIST, NM_DBLCLK, [this] { OnDblclkMachineList(); });
}

void SYAppViewMachinesPage::DoDataExchange(CDataExchange* dx) {
    SYTabWndPage::DoDataExchange(dx);
    DDX_Control(dx, IDC_TOTAL_CLIENTS, m_totalClientsField);
    DDX_Control(dx, IDC_TOTAL_INSTALLATIONS, m_totalInstallationsField);
}

int SYAppViewMachinesPage::OnInitDialog() {
    SYTabWndPage::OnInitDialog();
    if (!m_machineList.Initialize(IDC_MACHINE_LIST, SYAdminImages::ClientBitmap,
                                  SYAdminImages::MaskColour, SYAdminImages::ImageWidth, this))
        return 1;
    m_machineList.AddHeader(IDS_HDR_APP_MACHINES);
    for (int column = 0; column < 3; ++column) {
        m_machineList.SetColFormat(column, SYAlignLeft);
        m_machineList.SetHdrFormat(column, SYAlignLeft);
    }
    m_machineList.SetSortCallback(&SortMachines, this);
    BuildMachineList(0);
    return 1;
}

void SYAppViewMachinesPage::UpdateControls() {
    m_totalClientsField.SetText(std::to_string(m_machineTotal));
    m_totalInstallationsField.SetText(std::to_string(m_installationTotal));
}

void SYAppViewMachinesPage::ClearData() {
    ClearMachines();
    BuildMachineList(0);
    m_machineTotal = 0;
    m_installationTotal = 0;
    if (IsWindow()) {
        m_totalClientsField.SetText("");
        m_totalInstallationsField.SetText("");
    }
}

void SYAppViewMachinesPage::SetTotals(int machineTotal, int installationTotal) {
    m_machineTotal = machineTotal;
    m_installationTotal = installationTotal;
    if (IsWindow())
        UpdateControls();
}

void SYAppViewMachinesPage::ClearMachines() {
    m_machineData.RemoveAll();
    m_rowsInStep = false;
}

void SYAppViewMachinesPage::AddMachine(const SYAppMachineItem& machine) {
    m_machineData.Add(std::make_unique<SYAppMachineItem>(machine));
}

void SYAppViewMachinesPage::BuildMachineList(int keepSelection) {
    appview::Rebuild(m_machineList, m_machineData, m_sortColumn, m_sortAscending, keepSelection,
                     [](const SYListItem& item, std::string& text) {
                         const auto& machine = static_cast<const SYAppMachineItem&>(item);
                         machine.MakeString(text);
                         return machineImage(machine);
                     });
    m_rowsInStep = true;
}

void SYAppViewMachinesPage::SetupLayout() {
    const char* const samples[] = {ClientSample, LastScanSample, LocationSample};
    for (int column = 0; column < 3; ++column) {
        m_machineList.SetColWidth(column,
                                  std::max(m_machineList.GetColWidth(column),
                                           appview::SampleWidth(m_machineList, samples[column])));
    }
    const int rest = appview::RemainingWidth(m_machineList, m_machineList.GetColWidth(0) +
                                                                m_machineList.GetColWidth(1));
    if (rest > m_machineList.GetColWidth(2))
        m_machineList.SetColWidth(2, rest);
}

int SYAppViewMachinesPage::GetSelectedInstallation(std::uint32_t& machineID,
                                                   std::uint32_t& installationID) const {
    const auto* machine = dynamic_cast<const SYAppMachineItem*>(
        appview::SelectedItem(m_machineList, m_machineData, m_rowsInStep));
    if (machine == nullptr)
        return 0;
    machineID = machine->MachineID();
    installationID = machine->InstallationID();
    return 1;
}

void SYAppViewMachinesPage::SortMachines(int column, void* page) {
    auto* self = static_cast<SYAppViewMachinesPage*>(page);
    appview::ClickSort(column, self->m_sortColumn, self->m_sortAscending);
    self->BuildMachineList(1);
}

void SYAppViewMachinesPage::OnDblclkMachineList() {
    if (m_machineList.GetSelectedItem() != -1)
        appview::PostCommand(ID_VIEW_INSTALLATION_DETAILS);
}

void SYAppViewMachinesPage::Resize() {
    SYTabWndPage::Resize();
    if (IsWindow())
        appview::StretchToMargins(*this, IDC_MACHINE_LIST);
}

void SYAppViewMachinesPage::BeginPrinting(CDC* dc, SYPrintEngine* engine) {
    const std::string machines = SYLocaleInfo::FormatNumber(m_machineTotal);
    const std::string installations = SYLocaleInfo::FormatNumber(m_installationTotal);
    SYPeDataLabeledList* data = engine->AddLabeledDataList(dc);
    appview::AddLabeledData(*data, *this, IDC_TOTAL_CLIENTS_LABEL, machines, 1);
    appview::AddLabeledData(*data, *this, IDC_TOTAL_INSTALLATIONS_LABEL, installations, 1);
    engine->AddBreak();
    engine->AddList(m_machineList, dc);
}
