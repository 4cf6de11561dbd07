#pragma once

#include "outside/widgets/SYAdminPropPage.h"
#include "outside/widgets/SYTextWnd.h"

class SYAppFile;

// The General page of a file's properties: what the scan found, and the rule that decides
// the file's fate, with buttons that identify or ignore it at once.
class SYAppFileGeneralPage : public SYAdminPropPage {
public:
    SYAppFileGeneralPage();

    void SetAppFile(SYAppFile* file) { m_appFile = file; }

protected:
    void DoDataExchange(CDataExchange* dx) override;
    void ShowRuleText();
    void UpdateControls();
    void OnIdentifyFile();
    void OnIgnoreFile();

private:
    void SetText(unsigned id, const std::string& text);
    void Show(unsigned id, bool show);

    SYAppFile* m_appFile = nullptr;
    int m_textReady = 0;
    SYTextWnd m_ruleText;
};
