#include "details/SYAppViewGeneralPage.h"

#include "details/SYAppViewLists.h"
#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYAdminImages.h"
#include "outside/widgets/SYPrintEngine.h"
#include "resources/SYResourceIds.h"
#include "rules/SYAppFileItem.h"

SY_IMPLEMENT_DYNCREATE(SYAppViewGeneralPage, SYTabWndPage)

namespace {

const char* const FileSample = "OOOOOOOOOOOOO";
const char* const SizeSample = "0,000,000";
const char* const TimeSample = "10/00/0000 12:00 AM";

} // namespace

SYAppViewGeneralPage::SYAppViewGeneralPage() : SYTabWndPage(IDD_APP_VIEW_GENERAL) {
    m_appFileList.SetSingleSelection(1);
    MapNotify(IDC_APP_FILE_LIST, NM_DBLCLK, [this] { OnDblclkAppFileList(); });
}

void SYAppViewGeneralPage::DoDataExchange(CDataExchange* dx) {
    SYTabWndPage::DoDataExchange(dx);
    DDX_Control(dx, IDC_APP_FILES_GROUP, m_filesGroup);
    DDX_Control(dx, IDC_TOTAL_CLIENTS, m_totalClientsField);
    DDX_Control(dx, IDC_TOTAL_INSTALLATIONS, m_totalInstallationsField);
    DDX_Control(dx, IDC_APP_NAME, m_nameField);
    DDX_Control(dx, IDC_APP_VERSION, m_versionField);
    DDX_Control(dx, IDC_APP_COMPANY, m_companyField);
    if (!dx->m_bSaveAndValidate)
        UpdateControls();
}

int SYAppViewGeneralPage::OnInitDialog() {
    SYTabWndPage::OnInitDialog();
    if (!m_appFileList.Initialize(IDC_APP_FILE_LIST, SYAdminImages::InventoryBitmap,
                                  SYAdminImages::MaskColour, SYAdminImages::ImageWidth, this))
        return 1;
    m_appFileList.AddHeader(IDS_HDR_APP_FILES);
    const int formats[] = {SYAlignLeft, SYAlignRight, SYAlignLeft};
    for (int column = 0; column < 3; ++column) {
        m_appFileList.SetColFormat(column, formats[column]);
        m_appFileList.SetHdrFormat(column, formats[column]);
    }
    m_appFileList.SetSortCallback(&SortFiles, this);
    BuildFileList(0);
    return 1;
}

void SYAppViewGeneralPage::UpdateControls() {
    m_nameField.SetText(m_appName);
    m_versionField.SetText(m_appVersion);
    m_companyField.SetText(m_appCompany);
    m_totalClientsField.SetText(std::to_string(m_machineTotal));
    m_totalInstallationsField.SetText(std::to_string(m_installationTotal));
}

void SYAppViewGeneralPage::ClearData() {
    m_appName.clear();
    m_appVersion.clear();
    m_appCompany.clear();
    m_machineTotal = 0;
    m_installationTotal = 0;
    if (IsWindow()) {
        m_totalClientsField.SetText("");
        m_totalInstallationsField.SetText("");
    }
    ClearFiles();
    BuildFileList(0);
}

void SYAppViewGeneralPage::SetAppInfo(const std::string& name, const std::string& version,
                                      const std::string& company) {
    m_appName = name;
    m_appVersion = version;
    m_appCompany = company;
    if (IsWindow())
        UpdateControls();
}

void SYAppViewGeneralPage::AppInfo(std::string& name, std::string& version,
                                   std::string& company) const {
    name = m_appName;
    version = m_appVersion;
    company = m_appCompany;
}

void SYAppViewGeneralPage::SetTotals(int machineTotal, int installationTotal) {
    m_machineTotal = machineTotal;
    m_installationTotal = installationTotal;
    if (IsWindow())
        UpdateControls();
}

void SYAppViewGeneralPage::ClearFiles() {
    m_appFileData.RemoveAll();
    m_rowsInStep = false;
}

void SYAppViewGeneralPage::AddFile(const SYAppFileItem& file) {
    m_appFileData.Add(std::make_unique<SYAppFileItem>(file));
}

void SYAppViewGeneralPage::BuildFileList(int keepSelection) {
    appview::Rebuild(m_appFileList, m_appFileData, m_sortColumn, m_sortAscending, keepSelection,
                     [](const SYListItem& item, std::string& text) {
                         static_cast<const SYAppFileItem&>(item).MakeString(text);
                         return SYAdminImages::ImageAppFile;
                     });
    m_rowsInStep = true;
}

void SYAppViewGeneralPage::SetupLayout() {
    const char* const samples[] = {FileSample, SizeSample, TimeSample};
    for (int column = 0; column < 3; ++column)
        m_appFileList.SetColWidth(column, appview::SampleWidth(m_appFileList, samples[column]));
}

std::uint32_t SYAppViewGeneralPage::GetSelectedFileID() const {
    const auto* file = dynamic_cast<const SYAppFileItem*>(
        appview::SelectedItem(m_appFileList, m_appFileData, m_rowsInStep));
    return file != nullptr ? file->FileID() : 0;
}

void SYAppViewGeneralPage::SortFiles(int column, void* page) {
    auto* self = static_cast<SYAppViewGeneralPage*>(page);
    appview::ClickSort(column, self->m_sortColumn, self->m_sortAscending);
    self->BuildFileList(1);
}

void SYAppViewGeneralPage::OnDblclkAppFileList() {
    if (m_appFileList.GetSelectedItem() != -1)
        appview::PostCommand(ID_PROPERTIES);
}

void SYAppViewGeneralPage::Resize() {
    SYTabWndPage::Resize();
    if (!IsWindow())
        return;
    appview::StretchToMargins(*this, IDC_APP_FILES_GROUP);
    appview::StretchToMargins(*this, IDC_APP_FILE_LIST);
    const int margin = m_nameField.GetWindowRect().top;
    for (const unsigned id : {IDC_APP_NAME, IDC_APP_VERSION, IDC_APP_COMPANY})
        appview::StretchRight(*this, id, margin);
}

void SYAppViewGeneralPage::BeginPrinting(CDC* dc, SYPrintEngine* engine) {
    SYPeDataLabeledList* data = engine->AddLabeledDataList(dc);
    appview::AddLabeledData(*data, *this, IDC_APP_NAME_LABEL, m_appName, 0);
    appview::AddLabeledData(*data, *this, IDC_APP_VERSION_LABEL, m_appVersion, 0);
    appview::AddLabeledData(*data, *this, IDC_APP_COMPANY_LABEL, m_appCompany, 0);
    engine->AddBreak();
    engine->AddList(m_appFileList, dc);
}
