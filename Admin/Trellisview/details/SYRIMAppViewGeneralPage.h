#pragma once

#include <string>

#include "outside/widgets/SYStatic.h"
#include "outside/widgets/SYTabWndPage.h"

// The "General" page of the BlackBerry view: the application's name and version and the
// number of devices holding it.
class SYRIMAppViewGeneralPage : public SYTabWndPage {
    SY_DECLARE_DYNCREATE(SYRIMAppViewGeneralPage)

public:
    SYRIMAppViewGeneralPage();

    // Blank strings and no total (the total field shows no text).
    void ClearData();
    void SetAppInfo(const std::string& appName, const std::string& appVersion);
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
    std::string m_appName;
    std::string m_appVersion;
    SYDisplayField m_appNameField;
    SYDisplayField m_versionField;
    int m_deviceTotal = 0;
};
