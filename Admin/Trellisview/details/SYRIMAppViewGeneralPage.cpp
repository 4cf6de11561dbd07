#include "details/SYRIMAppViewGeneralPage.h"

#include "details/SYAppViewLists.h"
#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYPrintEngine.h"
#include "resources/SYResourceIds.h"

SY_IMPLEMENT_DYNCREATE(SYRIMAppViewGeneralPage, SYTabWndPage)

SYRIMAppViewGeneralPage::SYRIMAppViewGeneralPage() : SYTabWndPage(IDD_RIM_APP_VIEW_GENERAL) {}

void SYRIMAppViewGeneralPage::DoDataExchange(CDataExchange* dx) {
    SYTabWndPage::DoDataExchange(dx);
    DDX_Control(dx, IDC_RIM_TOTAL_CLIENTS, m_totalClientsField);
    DDX_Control(dx, IDC_RIM_APP_NAME, m_appNameField);
    DDX_Control(dx, IDC_RIM_VERSION, m_versionField);
    if (!dx->m_bSaveAndValidate)
        UpdateControls();
}

void SYRIMAppViewGeneralPage::UpdateControls() {
    m_appNameField.SetText(m_appName);
    m_versionField.SetText(m_appVersion);
    m_totalClientsField.SetText(std::to_string(m_deviceTotal));
}

void SYRIMAppViewGeneralPage::ClearData() {
    m_appName.clear();
    m_appVersion.clear();
    m_deviceTotal = 0;
    if (IsWindow())
        m_totalClientsField.SetText("");
}

void SYRIMAppViewGeneralPage::SetAppInfo(const std::string& appName,
                                         const std::string& appVersion) {
    m_appName = appName;
    m_appVersion = appVersion;
    if (IsWindow())
        UpdateControls();
}

void SYRIMAppViewGeneralPage::SetTotals(int deviceTotal) {
    m_deviceTotal = deviceTotal;
    if (IsWindow())
        UpdateControls();
}

void SYRIMAppViewGeneralPage::Resize() {
    SYTabWndPage::Resize();
    if (!IsWindow())
        return;
    // One common right edge, as far from the page's edge as the first field from its top.
    const int margin = m_appNameField.GetWindowRect().top;
    appview::StretchRight(*this, IDC_RIM_APP_NAME, margin);
    appview::StretchRight(*this, IDC_RIM_VERSION, margin);
}

void SYRIMAppViewGeneralPage::BeginPrinting(CDC* dc, SYPrintEngine* engine) {
    SYPeDataLabeledList* data = engine->AddLabeledDataList(dc);
    appview::AddLabeledData(*data, *this, IDC_RIM_APP_NAME_LABEL, m_appName, 0);
    appview::AddLabeledData(*data, *this, IDC_RIM_VERSION_LABEL, m_appVersion, 0);
}
