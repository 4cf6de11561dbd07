#pragma once

#include <string>

#include "outside/widgets/SYStatic.h"
#include "outside/widgets/SYTabWndPage.h"

// The "General" page of the Palm view: the application's name, version, creator id and
// database name, and the number of devices holding it.
class SYPalmAppViewGeneralPage : public SYTabWndPage {
    SY_DECLARE_DYNCREATE(SYPalmAppViewGeneralPage)

public:
    SYPalmAppViewGeneralPage();

    // Blank strings and no total (the total field shows no text).
    void ClearData();
    // An empty application name takes the database name.
    void SetAppInfo(const std::string& databaseName, const std::string& appVersion,
                    const std::string& creatorID, const std::string& appName);
    void SetTotals(int deviceTotal);
    const std::string& AppName() const { return m_appName; }
    const std::string& AppVersion() const { return m_appVersion; }
    int DeviceTotal() const { return m_deviceTotal; }

    void Resize() override;
    void BeginPrinting(CDC* dc, SYPrintEngine* engine) override;

protected:
    void DoDataExchange(CDataExchange* dx) override;
    void UpdateControls();

private:
    SYStatic m_totalClientsField;
    std::string m_databaseName;
    std::string m_appVersion;
    std::string m_creatorID;
    std::string m_appName;
    SYDisplayField m_databaseField;
    SYDisplayField m_versionField;
    SYDisplayField m_creatorField;
    SYDisplayField m_appNameField;
    int m_deviceTotal = 0;
};
