#include "editing/SYEditIdRuleDlg.h"

#include "outside/framework/CException.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYReport.h"
#include "outside/store/SYAppNames.h"
#include "outside/store/SYAppSet.h"
#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYAppCompanySelectDlg.h"
#include "outside/widgets/SYAppSelectDlg.h"
#include "resources/SYResourceIds.h"
#include "rules/SYSWRule.h"

namespace {

constexpr int AppTextLimit = 100;

} // namespace

SYEditIdRuleDlg::SYEditIdRuleDlg(SYWnd* parent)
    : SYEditRuleDlg<SYIdRuleItem>(IDD_EDIT_ID_RULE, parent) {
    MapCommand(IDC_RULE_APP_NAME, EN_CHANGE, [this] { UpdateControls(); });
    MapCommand(IDC_RULE_BROWSE_APP, BN_CLICKED, [this] { OnBrowseApp(); });
    MapCommand(IDC_RULE_BROWSE_COMPANY, BN_CLICKED, [this] { OnBrowseCompany(); });
}

void SYEditIdRuleDlg::ExchangeOwnFields(CDataExchange* dx) {
    DDX_Control(dx, IDC_RULE_APP_NAME, m_appEdit);
    DDX_Control(dx, IDC_RULE_APP_COMPANY, m_companyEdit);
    SYWnd* version = dx->PrepareCtrl(IDC_RULE_APP_VERSION);
    SYIdRuleItem& item = EditedItem();
    if (dx->m_bSaveAndValidate) {
        item.SetAppName(SYAppNames::Trim(m_appEdit.GetWindowText()));
        item.SetAppVersion(SYAppNames::Trim(version->GetWindowText()));
        item.SetAppCompany(SYAppNames::Trim(m_companyEdit.GetWindowText()));
        return;
    }
    m_appEdit.LimitText(AppTextLimit);
    m_companyEdit.LimitText(AppTextLimit);
    m_appEdit.SetWindowText(item.AppName());
    version->SetWindowText(item.AppVersion());
    m_companyEdit.SetWindowText(item.AppCompany());
}

bool SYEditIdRuleDlg::HaveRequiredText() const {
    return SYEditRuleDlg<SYIdRuleItem>::HaveRequiredText() &&
           !SYAppNames::Trim(m_appEdit.GetWindowText()).empty();
}

void SYEditIdRuleDlg::OnOK() {
    if (!SYGetApp().CanEditRules()) {
        EndDialog(IDCANCEL);
        return;
    }
    SYEditRuleDlg<SYIdRuleItem>::OnOK();
}

void SYEditIdRuleDlg::OnBrowseApp() {
    SYAppSelectDlg select(this);
    select.SetDatabase(GetDatabase());
    select.SetInvDataType(Engine()->InvDataType);
    if (select.DoModal() != IDOK)
        return;
    try {
        SYWaitCursor wait;
        SYAppSet set(GetDatabase());
        set.InvDataType = Engine()->InvDataType;
        set.FilterForAppID(select.AppID());
        set.Open();
        if (set.IsEOF())
            return;
        m_appEdit.SetWindowText(set.AppName());
        if (SYWnd* version = GetDlgItem(IDC_RULE_APP_VERSION))
            version->SetWindowText(set.AppVersion());
        m_companyEdit.SetWindowText(set.AppCompany());
    } catch (const CException& exception) {
        SYExReport(exception, this);
    }
}

void SYEditIdRuleDlg::OnBrowseCompany() {
    SYAppCompanySelectDlg select(this);
    select.SetDatabase(GetDatabase());
    select.SetInvDataType(Engine()->InvDataType);
    select.SetCompanyName(m_companyEdit.GetWindowText());
    if (select.DoModal() == IDOK)
        m_companyEdit.SetWindowText(select.CompanyName());
}
