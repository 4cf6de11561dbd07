#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "outside/framework/CTime.h"
#include "outside/widgets/CDialog.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYStatic.h"

class SYDatabase;

// One file of an installation as the details dialog lists it.
struct SYAppInstFileItem {
    // The name, behind its folder below the install location.
    std::string FileName;
    std::uint64_t FileSize = 0;
    CTime ModTime;
    // The application version recorded for the file.
    std::string Version;
};

// "View Installation Details": one installation of an application on a Windows PC or
// Windows CE device, with its files. Set the database, then the installation, then DoModal;
// the data are read before the dialog shows, and one object serves one showing.
class SYAppInstDetailsDlg : public CDialog {
    SY_DECLARE_DYNAMIC(SYAppInstDetailsDlg)

public:
    explicit SYAppInstDetailsDlg(SYWnd* parent = nullptr);

    void SetDatabase(SYDatabase* database) { m_database = database; }
    void SetInstInfo(std::uint32_t machineID, std::uint32_t installationID,
                     unsigned char invDataType);
    // 2 without showing when there is nothing to show or the store failed; else 1 after
    // the dialog closed.
    int DoModal() override;
    // What DoModal reads before it shows; 0 when there is nothing to show or the store
    // failed. Lets a caller without a screen read what the dialog would show.
    int LoadData();

    // "name  [ version ]"; empty for an installation without an application record.
    const std::string& AppName() const { return m_appName; }
    const std::string& ClientName() const { return m_clientName; }
    const std::string& Location() const { return m_location; }
    const std::vector<SYAppInstFileItem>& FileData() const { return m_fileData; }

protected:
    SYDatabase* GetDatabase() const { return m_database; }
    void DoDataExchange(CDataExchange* dx) override;
    // Name order without regard to case; a null row gives 0.
    static int CompareFileItems(const SYAppInstFileItem* first, const SYAppInstFileItem* second);

private:
    void LoadFiles();
    void FillFileList();

    std::vector<SYAppInstFileItem> m_fileData;
    SYDatabase* m_database = nullptr;
    std::uint32_t m_machineID = 0;
    std::uint32_t m_installationID = 0;
    unsigned char m_invDataType = 255;
    std::string m_appName;
    std::string m_clientName;
    std::string m_location;
    SYDisplayField m_appNameField;
    SYDisplayField m_clientField;
    SYDisplayField m_locationField;
    SYListCtrlEx m_fileList;
};
