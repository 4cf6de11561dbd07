#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "outside/widgets/CDialog.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYStatic.h"

class SYDatabase;

// "View Application Details" for one Palm application on one device: the application,
// client, creator and database, and the device row's columns as name and value pairs.
// Set the database, then the application and device, then DoModal.
class SYPalmAppInstDetailsDlg : public CDialog {
    SY_DECLARE_DYNAMIC(SYPalmAppInstDetailsDlg)

public:
    explicit SYPalmAppInstDetailsDlg(SYWnd* parent = nullptr);

    void SetDatabase(SYDatabase* database) { m_database = database; }
    void SetInstInfo(std::int32_t appID, std::uint32_t deviceID);
    // 2 without showing when the device lacks the application or the store failed; else
    // 1 after the dialog closed.
    int DoModal() override;
    // What DoModal reads before it shows; 0 when there is nothing to show or the store
    // failed. Lets a caller without a screen read what the dialog would show.
    int LoadData();

    const std::string& DatabaseName() const { return m_databaseName; }
    const std::string& ClientName() const { return m_clientName; }
    const std::string& CreatorID() const { return m_creatorID; }
    // The application's name (its database name when it has none), with its version.
    const std::string& AppName() const { return m_appName; }
    // "label<TAB>value" rows.
    const std::vector<std::string>& Details() const { return m_details; }

protected:
    SYDatabase* GetDatabase() const { return m_database; }
    void DoDataExchange(CDataExchange* dx) override;
    // The fields between tabs, empty ones included: n tabs give n + 1 fields.
    static void ParseString(const std::string& text, std::vector<std::string>& fields);

private:
    SYDatabase* m_database = nullptr;
    std::int32_t m_appID = 0;
    std::uint32_t m_deviceID = 0;
    std::string m_databaseName;
    std::string m_clientName;
    std::string m_creatorID;
    std::string m_appName;
    std::vector<std::string> m_details;
    SYDisplayField m_databaseField;
    SYDisplayField m_clientField;
    SYDisplayField m_creatorField;
    SYDisplayField m_appNameField;
    SYListCtrlEx m_detailList;
};
