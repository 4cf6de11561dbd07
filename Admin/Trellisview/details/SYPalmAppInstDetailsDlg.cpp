#include "details/SYPalmAppInstDetailsDlg.h"

#include "details/SYAppViewLists.h"
#include "details/SYPalmAppDeviceItem.h"
#include "outside/framework/CException.h"
#include "outside/framework/SYStatus.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYReport.h"
#include "outside/services/SYStringTable.h"
#include "outside/store/SYPalmApplicationInstallationSet.h"
#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYFontMetrics.h"
#include "resources/SYResourceIds.h"

SY_IMPLEMENT_DYNAMIC(SYPalmAppInstDetailsDlg, CDialog)

SYPalmAppInstDetailsDlg::SYPalmAppInstDetailsDlg(SYWnd* parent)
    : CDialog(IDD_PALM_APP_INST_DETAILS, parent) {
    m_detailList.SetSingleSelection(1);
    m_detailList.SetHeaderClickable(0);
}

void SYPalmAppInstDetailsDlg::SetInstInfo(std::int32_t appID, std::uint32_t deviceID) {
    m_appID = appID;
    m_deviceID = deviceID;
}

int SYPalmAppInstDetailsDlg::DoModal() {
    if (LoadData() == 0)
        return IDCANCEL;
    CDialog::DoModal();
    return IDOK;
}

void SYPalmAppInstDetailsDlg::ParseString(const std::string& text,
                                          std::vector<std::string>& fields) {
    fields.clear();
    std::string field;
    for (const char c : text) {
        if (c == '\t') {
            fields.push_back(field);
            field.clear();
        } else {
            field += c;
        }
    }
    fields.push_back(field);
}

int SYPalmAppInstDetailsDlg::LoadData() {
    if (m_appID == 0 || m_deviceID == 0)
        return 0;
    SYWaitCursor wait;
    try {
        SYPalmApplicationInstallationSet installation(m_database);
        SYPalmAppDeviceItem device;
        installation.JoinDevices();
        installation.JoinApplications();
        installation.FilterForAppID(m_appID);
        installation.FilterForDeviceID(m_deviceID);
        installation.Open();
        if (installation.IsEOF())
            return 0;
        m_databaseName = installation.DatabaseName();
        m_clientName = installation.ClientName();
        m_creatorID = installation.CreatorID();
        m_appName = installation.AppName().empty() ? m_databaseName : installation.AppName();
        m_appName = appview::NameAndVersion(m_appName, installation.AppVersion());
        device.CopyInstallation(installation);
        installation.Close();

        // The Clients page's header and the device's row, cell for cell, less the client.
        std::string row;
        device.MakeString(row);
        std::vector<std::string> labels;
        std::vector<std::string> values;
        ParseString(SYStringTable::Get(IDS_HDR_PALM_DEVICES), labels);
        ParseString(row, values);
        m_details.clear();
        labels.erase(labels.begin());
        values.erase(values.begin());
        for (std::size_t i = 0; i < labels.size(); ++i)
            m_details.push_back(labels[i] + '\t' + (i < values.size() ? values[i] : ""));
        return 1;
    } catch (const CException& exception) {
        SYExReport(exception, nullptr);
    } catch (const SYStatus& status) {
        SYStatusReport(status, nullptr);
    }
    return 0;
}

void SYPalmAppInstDetailsDlg::DoDataExchange(CDataExchange* dx) {
    CDialog::DoDataExchange(dx);
    DDX_Control(dx, IDC_PALM_DATABASE, m_databaseField);
    DDX_Control(dx, IDC_PALM_CLIENT, m_clientField);
    DDX_Control(dx, IDC_PALM_CREATOR, m_creatorField);
    DDX_Control(dx, IDC_PALM_APP_NAME, m_appNameField);
    if (dx->m_bSaveAndValidate)
        return;
    if (m_detailList.Initialize(IDC_PALM_DETAIL_LIST, this)) {
        m_detailList.AddHeader(IDS_HDR_NAME_VALUE);
        const int half = (m_detailList.GetClientRect().Width() - SYFontMetrics::ScrollBarWidth) / 2;
        for (int column = 0; column < 2; ++column) {
            m_detailList.SetColWidth(column, half);
            m_detailList.SetColFormat(column, SYAlignLeft);
            m_detailList.SetHdrFormat(column, SYAlignLeft);
        }
    }
    m_databaseField.SetText(m_databaseName);
    m_clientField.SetText(m_clientName);
    m_creatorField.SetText(m_creatorID);
    m_appNameField.SetText(m_appName);
    m_detailList.DeleteAllItems();
    for (std::size_t i = 0; i < m_details.size(); ++i)
        m_detailList.InsertBitmapString(-1, static_cast<int>(i), m_details[i]);
}
