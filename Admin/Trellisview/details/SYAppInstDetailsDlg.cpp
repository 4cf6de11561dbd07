#include "details/SYAppInstDetailsDlg.h"

#include <algorithm>
#include <cctype>

#include "details/SYAppViewLists.h"
#include "outside/framework/CException.h"
#include "outside/framework/SYString.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYLocaleInfo.h"
#include "outside/services/SYPath.h"
#include "outside/services/SYReport.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYAppInstallationSet.h"
#include "outside/store/SYAppSet.h"
#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYAdminImages.h"
#include "resources/SYResourceIds.h"

SY_IMPLEMENT_DYNAMIC(SYAppInstDetailsDlg, CDialog)

namespace {

const char* const FileSample = "OOOOOOOOOOOOO";
const char* const SizeSample = "0,000,000";
const char* const TimeSample = "10/00/0000 12:00 AM";
const char* const VersionSample = "8.8.8.8888";

// The file's name behind its folder below the install location; the name alone for a
// file that lies elsewhere.
std::string shownName(const SYPath& location, const std::string& fileLocation,
                      const std::string& fileName) {
    std::string rest;
    if (SYPath(fileLocation).Subpath(location, rest) == 0)
        return fileName;
    if (rest.size() > 1 && std::isalnum(static_cast<unsigned char>(rest.front())) == 0)
        rest.erase(rest.begin());
    SYPath shown(rest);
    shown.Append(fileName);
    return shown.GetPath();
}

} // namespace

SYAppInstDetailsDlg::SYAppInstDetailsDlg(SYWnd* parent) : CDialog(IDD_APP_INST_DETAILS, parent) {
    m_fileList.SetSingleSelection(1);
    m_fileList.SetHeaderClickable(0);
}

void SYAppInstDetailsDlg::SetInstInfo(std::uint32_t machineID, std::uint32_t installationID,
                                      unsigned char invDataType) {
    m_machineID = machineID;
    m_installationID = installationID;
    m_invDataType = invDataType;
}

int SYAppInstDetailsDlg::DoModal() {
    if (LoadData() == 0)
        return IDCANCEL;
    CDialog::DoModal();
    return IDOK;
}

int SYAppInstDetailsDlg::LoadData() {
    if (m_machineID == 0 || m_installationID == 0)
        return 0;
    SYWaitCursor wait;
    int result = 0;
    try {
        SYAppInstallationSet installation(m_database);
        installation.InvDataType = m_invDataType;
        installation.JoinMachines();
        installation.FilterForMachineID(m_machineID);
        installation.FilterForInstallationID(m_installationID);
        installation.Open();
        if (!installation.IsEOF()) {
            m_clientName = installation.MachineName();
            m_location = installation.Location();
            if (const unsigned long appID = installation.AppID(); appID != 0) {
                SYAppSet app(m_database);
                app.InvDataType = m_invDataType;
                app.FilterForAppID(appID);
                app.Open();
                if (!app.IsEOF())
                    m_appName = appview::NameAndVersion(app.AppName(), app.AppVersion());
                app.Close();
            }
            result = 1;
        }
        installation.Close();
        if (result != 0)
            LoadFiles();
        std::sort(m_fileData.begin(), m_fileData.end(),
                  [](const SYAppInstFileItem& first, const SYAppInstFileItem& second) {
                      return CompareFileItems(&first, &second) < 0;
                  });
    } catch (const CException& exception) {
        SYExReport(exception, nullptr);
        result = 0;
    }
    return result;
}

void SYAppInstDetailsDlg::LoadFiles() {
    const SYPath location(m_location);
    SYAppFileSet files(m_database);
    files.InvDataType = m_invDataType;
    files.JoinLocations();
    files.FilterForMachineID(m_machineID);
    files.FilterForInstallationID(m_installationID);
    files.Open();
    for (; !files.IsEOF(); files.MoveNext()) {
        m_fileData.push_back({shownName(location, files.FileLocation(), files.FileName()),
                              files.FileSize(), files.FileTime(), files.AppVersion()});
    }
    files.Close();
}

int SYAppInstDetailsDlg::CompareFileItems(const SYAppInstFileItem* first,
                                          const SYAppInstFileItem* second) {
    if (first == nullptr || second == nullptr)
        return 0;
    return SYStrICmp(first->FileName, second->FileName);
}

void SYAppInstDetailsDlg::DoDataExchange(CDataExchange* dx) {
    CDialog::DoDataExchange(dx);
    DDX_Control(dx, IDC_APP_NAME, m_appNameField);
    DDX_Control(dx, IDC_INST_CLIENT, m_clientField);
    DDX_Control(dx, IDC_INST_LOCATION, m_locationField);
    if (dx->m_bSaveAndValidate)
        return;
    m_appNameField.SetText(m_appName);
    m_clientField.SetText(m_clientName);
    m_locationField.SetText(m_location);
    if (m_fileList.Initialize(IDC_INST_FILE_LIST, SYAdminImages::InventoryBitmap,
                              SYAdminImages::MaskColour, SYAdminImages::ImageWidth, this))
        FillFileList();
}

void SYAppInstDetailsDlg::FillFileList() {
    m_fileList.AddHeader(IDS_HDR_INST_FILES);
    const char* const samples[] = {SizeSample, TimeSample, VersionSample};
    int others = 0;
    for (int column = 1; column <= 3; ++column) {
        const int width = appview::SampleWidth(m_fileList, samples[column - 1]);
        m_fileList.SetColWidth(column, width);
        others += width;
    }
    m_fileList.SetColWidth(0, std::max(appview::RemainingWidth(m_fileList, others),
                                       appview::SampleWidth(m_fileList, FileSample)));
    for (int column = 0; column <= 3; ++column) {
        const int format = column == 1 ? SYAlignRight : SYAlignLeft;
        m_fileList.SetColFormat(column, format);
        m_fileList.SetHdrFormat(column, format);
    }
    for (std::size_t i = 0; i < m_fileData.size(); ++i) {
        const SYAppInstFileItem& file = m_fileData[i];
        const std::string text = file.FileName + '\t' + SYLocaleInfo::FormatNumber(file.FileSize) +
                                 '\t' + SYLocaleInfo::FormatDateAndTime(file.ModTime, 0, 0) + '\t' +
                                 file.Version;
        const int row = m_fileList.InsertBitmapString(SYAdminImages::ImageAppFile, -1, text);
        if (row != -1)
            m_fileList.SetItemData(row, static_cast<std::uint32_t>(i));
    }
}
