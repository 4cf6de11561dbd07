#include "editing/SYAppFileGeneralPage.h"

#include "editing/SYEditExcludeDlg.h"
#include "editing/SYEditIdRuleDlg.h"
#include "editing/SYLocalRuleEngine.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYDiskSize.h"
#include "outside/services/SYLocaleInfo.h"
#include "outside/services/SYStringTable.h"
#include "outside/widgets/CDataExchange.h"
#include "resources/SYResourceIds.h"
#include "rules/SYAppFile.h"

namespace {

constexpr unsigned UserInfoControls[] = {
    IDC_FILE_USER_APP_LABEL, IDC_FILE_USER_APP,           IDC_FILE_USER_VERSION_LABEL,
    IDC_FILE_USER_VERSION,   IDC_FILE_USER_COMPANY_LABEL, IDC_FILE_USER_COMPANY,
};

bool isIgnored(AppFileState state) {
    return state == AppFileSystemIgnored || state == AppFileUserIgnored;
}

} // namespace

SYAppFileGeneralPage::SYAppFileGeneralPage() : SYAdminPropPage(IDD_APP_FILE_GENERAL) {
    MapCommand(IDC_FILE_IDENTIFY, BN_CLICKED, [this] { OnIdentifyFile(); });
    MapCommand(IDC_FILE_IGNORE, BN_CLICKED, [this] { OnIgnoreFile(); });
}

void SYAppFileGeneralPage::SetText(unsigned id, const std::string& text) {
    if (SYWnd* control = GetDlgItem(id))
        control->SetWindowText(text);
}

void SYAppFileGeneralPage::Show(unsigned id, bool show) {
    if (SYWnd* control = GetDlgItem(id))
        control->ShowWindow(show ? 1 : 0);
}

void SYAppFileGeneralPage::DoDataExchange(CDataExchange* dx) {
    if (dx->m_bSaveAndValidate || m_appFile == nullptr)
        return;
    if (!m_textReady) {
        m_ruleText.CreateFromControl(IDC_FILE_RULE_TEXT, this, 1);
        m_textReady = 1;
    }
    SetText(IDC_FILE_NAME, m_appFile->FileName());
    SetText(IDC_FILE_TIME, SYLocaleInfo::FormatDateAndTime(m_appFile->FileTime(), 0, 0));
    SetText(IDC_FILE_SIZE, SYDiskSize::MakeBytesString(m_appFile->FileSize()));
    SetText(IDC_FILE_REPORTED_APP, m_appFile->AppName());
    SetText(IDC_FILE_REPORTED_VERSION, m_appFile->AppVersion());
    SetText(IDC_FILE_REPORTED_COMPANY, m_appFile->AppCompany());
    SetText(IDC_FILE_USER_APP, m_appFile->UserAppName());
    SetText(IDC_FILE_USER_VERSION, m_appFile->UserAppVersion());
    SetText(IDC_FILE_USER_COMPANY, m_appFile->UserAppCompany());
    if (isIgnored(m_appFile->State()))
        ShowRuleText();
    UpdateControls();
    CancelToClose();
}

void SYAppFileGeneralPage::ShowRuleText() {
    m_ruleText.Empty();
    std::string text = m_appFile->RuleComment();
    if (text.empty())
        text = SYStringTable::Get(m_appFile->State() == AppFileSystemIgnored ? IDS_SYSTEM_IGNORED
                                                                             : IDS_USER_IGNORED);
    m_ruleText.AddText(text);
    m_ruleText.LayoutText();
}

void SYAppFileGeneralPage::UpdateControls() {
    const AppFileState state = m_appFile->State();
    const bool userIdentified = state == AppFileUserIdentified;
    const bool ignored = isIgnored(state);
    Show(IDC_FILE_RULE_GROUP, userIdentified || ignored);
    if (userIdentified)
        SetText(IDC_FILE_RULE_GROUP, SYStringTable::Get(IDS_USER_VERSION_INFO));
    if (ignored)
        SetText(IDC_FILE_RULE_GROUP, SYStringTable::Get(IDS_IGNORED_COMMENTS));
    for (const unsigned id : UserInfoControls)
        Show(id, userIdentified);
    if (m_ruleText.IsWindow())
        m_ruleText.ShowWindow(ignored ? 1 : 0);
    const bool canEdit = SYGetApp().CanEditRules() != 0;
    if (SYWnd* identify = GetDlgItem(IDC_FILE_IDENTIFY))
        identify->EnableWindow(canEdit);
    if (SYWnd* ignore = GetDlgItem(IDC_FILE_IGNORE))
        ignore->EnableWindow(canEdit && !ignored);
}

void SYAppFileGeneralPage::OnIdentifyFile() {
    SYLocalRuleEngine local(GetDatabase(), m_appFile->InvDataType());
    SYEditIdRuleDlg dialog(this);
    local.Prepare(dialog, *m_appFile);
    if (m_appFile->EffectiveRuleID() != 0 && m_appFile->State() == AppFileUserIdentified)
        dialog.SetRuleID(m_appFile->EffectiveRuleID());
    else
        dialog.SetFileID(m_appFile->FileID());
    if (dialog.DoModal() != IDOK)
        return;
    local.Apply(*m_appFile, this);
    UpdateData(0);
}

void SYAppFileGeneralPage::OnIgnoreFile() {
    SYLocalRuleEngine local(GetDatabase(), m_appFile->InvDataType());
    SYEditExcludeDlg dialog(this);
    local.Prepare(dialog, *m_appFile);
    dialog.SetFileID(m_appFile->FileID());
    if (dialog.DoModal() != IDOK)
        return;
    local.Apply(*m_appFile, this);
    UpdateData(0);
}
