#pragma once

#include <cstdint>
#include <string>

#include "outside/widgets/CDialog.h"
#include "outside/widgets/SYStatic.h"

class SYDatabase;

// "View Application Details" for one BlackBerry application on one device: the
// application with its version and the client. Set the database, then the application and
// device, then DoModal.
class SYRIMAppInstDetailsDlg : public CDialog {
    SY_DECLARE_DYNAMIC(SYRIMAppInstDetailsDlg)

public:
    explicit SYRIMAppInstDetailsDlg(SYWnd* parent = nullptr);

    void SetDatabase(SYDatabase* database) { m_database = database; }
    void SetInstInfo(std::int32_t appID, std::uint32_t deviceID);
    // 2 without showing when the device lacks the application or the store failed; else
    // 1 after the dialog closed.
    int DoModal() override;
    // What DoModal reads before it shows; 0 when there is nothing to show or the store
    // failed. Lets a caller without a screen read what the dialog would show.
    int LoadData();

    // "name  [ version ]".
    const std::string& AppName() const { return m_appName; }
    const std::string& ClientName() const { return m_clientName; }

protected:
    SYDatabase* GetDatabase() const { return m_database; }
    void DoDataExchange(CDataExchange* dx) override;

private:
    SYDisplayField m_appNameField;
    SYDisplayField m_clientField;
    SYDatabase* m_database = nullptr;
    std::int32_t m_appID = 0;
    std::uint32_t m_deviceID = 0;
    std::string m_appName;
    std::string m_clientName;
};
