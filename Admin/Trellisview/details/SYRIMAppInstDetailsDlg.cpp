#include "details/SYRIMAppInstDetailsDlg.h"

#include "details/SYAppViewLists.h"
#include "outside/framework/CException.h"
#include "outside/framework/SYStatus.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYReport.h"
#include "outside/store/SYRIMApplicationInstallationSet.h"
#include "outside/widgets/CDataExchange.h"
#include "resources/SYResourceIds.h"

SY_IMPLEMENT_DYNAMIC(SYRIMAppInstDetailsDlg, CDialog)

SYRIMAppInstDetailsDlg::SYRIMAppInstDetailsDlg(SYWnd* parent)
    : CDialog(IDD_RIM_APP_INST_DETAILS, parent) {}

void SYRIMAppInstDetailsDlg::SetInstInfo(std::int32_t appID, std::uint32_t deviceID) {
    m_appID = appID;
    m_deviceID = deviceID;
}

int SYRIMAppInstDetailsDlg::DoModal() {
    if (LoadData() == 0)
        return IDCANCEL;
    CDialog::DoModal();
    return IDOK;
}

int SYRIMAppInstDetailsDlg::LoadData() {
    if (m_appID == 0 || m_deviceID == 0)
        return 0;
    SYWaitCursor wait;
    try {
        SYRIMApplicationInstallationSet installation(m_database);
        installation.JoinDevices();
        installation.JoinApplications();
        installation.FilterForAppID(m_appID);
        installation.FilterForDeviceID(m_deviceID);
        installation.Open();
        if (installation.IsEOF())
            return 0;
        m_appName = appview::NameAndVersion(installation.AppName(), installation.AppVersion());
        m_clientName = installation.ClientName();
        return 1;
    } catch (const CException& exception) {
        SYExReport(exception, nullptr);
    } catch (const SYStatus& status) {
        SYStatusReport(status, nullptr);
    }
    return 0;
}

void SYRIMAppInstDetailsDlg::DoDataExchange(CDataExchange* dx) {
    CDialog::DoDataExchange(dx);
    DDX_Control(dx, IDC_RIM_APP_NAME, m_appNameField);
    DDX_Control(dx, IDC_RIM_CLIENT, m_clientField);
    if (dx->m_bSaveAndValidate)
        return;
    m_appNameField.SetText(m_appName);
    m_clientField.SetText(m_clientName);
}
