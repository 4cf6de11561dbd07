#include "details/SYPalmAppViewGeneralPage.h"

#include "details/SYAppViewLists.h"
#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYPrintEngine.h"
#include "resources/SYResourceIds.h"

SY_IMPLEMENT_DYNCREATE(SYPalmAppViewGeneralPage, SYTabWndPage)

namespace {

constexpr unsigned Fields[] = {IDC_PALM_APP_NAME, IDC_PALM_VERSION, IDC_PALM_CREATOR,
                               IDC_PALM_DATABASE};

} // namespace

SYPalmAppViewGeneralPage::SYPalmAppViewGeneralPage() : SYTabWndPage(IDD_PALM_APP_VIEW_GENERAL) {}

void SYPalmAppViewGeneralPage::DoDataExchange(CDataExchange* dx) {
    SYTabWndPage::DoDataExchange(dx);
    DDX_Control(dx, IDC_PALM_TOTAL_CLIENTS, m_totalClientsField);
    DDX_Control(dx, IDC_PALM_DATABASE, m_databaseField);
    DDX_Control(dx, IDC_PALM_VERSION, m_versionField);
    DDX_Control(dx, IDC_PALM_CREATOR, m_creatorField);
    DDX_Control(dx, IDC_PALM_APP_NAME, m_appNameField);
    if (!dx->m_bSaveAndValidate)
        UpdateControls();
}

void SYPalmAppViewGeneralPage::UpdateControls() {
    m_databaseField.SetText(m_databaseName);
    m_versionField.SetText(m_appVersion);
    m_creatorField.SetText(m_creatorID);
    m_appNameField.SetText(m_appName);
    m_totalClientsField.SetText(std::to_string(m_deviceTotal));
}

void SYPalmAppViewGeneralPage::ClearData() {
    m_databaseName.clear();
    m_appVersion.clear();
    m_creatorID.clear();
    m_appName.clear();
    m_deviceTotal = 0;
    if (IsWindow())
        m_totalClientsField.SetText("");
}

void SYPalmAppViewGeneralPage::SetAppInfo(const std::string& databaseName,
                                          const std::string& appVersion,
                                          const std::string& creatorID,
                                          const std::string& appName) {
    m_databaseName = databaseName;
    m_appVersion = appVersion;
    m_creatorID = creatorID;
    m_appName = appName.empty() ? databaseName : appName;
    if (IsWindow())
        UpdateControls();
}

void SYPalmAppViewGeneralPage::SetTotals(int deviceTotal) {
    m_deviceTotal = deviceTotal;
    if (IsWindow())
        UpdateControls();
}

void SYPalmAppViewGeneralPage::Resize() {
    SYTabWndPage::Resize();
    if (!IsWindow())
        return;
    // One common right edge, as far from the page's edge as the first field from its top.
    const int margin = m_appNameField.GetWindowRect().top;
    for (const unsigned id : Fields)
        appview::StretchRight(*this, id, margin);
}

void SYPalmAppViewGeneralPage::BeginPrinting(CDC* dc, SYPrintEngine* engine) {
    SYPeDataLabeledList* data = engine->AddLabeledDataList(dc);
    appview::AddLabeledData(*data, *this, IDC_PALM_DATABASE_LABEL, m_databaseName, 0);
    appview::AddLabeledData(*data, *this, IDC_PALM_VERSION_LABEL, m_appVersion, 0);
    appview::AddLabeledData(*data, *this, IDC_PALM_CREATOR_LABEL, m_creatorID, 0);
    appview::AddLabeledData(*data, *this, IDC_PALM_APP_NAME_LABEL, m_appName, 0);
}
