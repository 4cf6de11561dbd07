#pragma once

#include "editing/SYEditRuleDlg.h"
#include "outside/widgets/SYEdit.h"
#include "rules/SYIdRuleItem.h"

// "Identify File": makes or changes an identification rule, which names the application,
// version and company of the files with a name (and, if wanted, a size and modify time).
// In immediate mode the caller that owns the engine runs UpdateSamData afterwards.
class SYEditIdRuleDlg : public SYEditRuleDlg<SYIdRuleItem> {
public:
    explicit SYEditIdRuleDlg(SYWnd* parent = nullptr);

protected:
    void ExchangeOwnFields(CDataExchange* dx) override;
    bool HaveRequiredText() const override;
    // Without the right to edit rules OK closes as Cancel, saving nothing.
    void OnOK() override;
    void OnBrowseApp();
    void OnBrowseCompany();

private:
    SYEdit m_appEdit;
    SYEdit m_companyEdit;
};
