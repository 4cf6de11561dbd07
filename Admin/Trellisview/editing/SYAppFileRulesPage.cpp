#include "editing/SYAppFileRulesPage.h"

#include "editing/SYEditExcludeDlg.h"
#include "editing/SYEditIdRuleDlg.h"
#include "editing/SYLocalRuleEngine.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYStringTable.h"
#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYFontMetrics.h"
#include "outside/widgets/SYMessageBox.h"
#include "resources/SYResourceIds.h"
#include "rules/SYAppFile.h"

namespace {

constexpr const char* IdRuleSamples =
    "0,000,000\t10/00/0000 12:00 AM\tSAMPLE_X Software SAMPLE1 Client\t8.8.8.8888\t"
    "SAMPLE2 Software, Inc.";
constexpr const char* IgnoreRuleSamples = "0,000,000\t10/00/0000 12:00 AM";

} // namespace

SYAppFileRulesPage::SYAppFileRulesPage() : SYAdminPropPage(IDD_APP_FILE_RULES) {
    m_idRuleList.SetSingleSelection(1);
    m_ignoreRuleList.SetSingleSelection(1);
    for (const bool ignore : {false, true}) {
        MapNotify(ignore ? IDC_FILE_IGNORE_RULE_LIST : IDC_FILE_ID_RULE_LIST, LVN_ITEMCHANGED,
                  [this] { UpdateButtons(); });
        MapCommand(ignore ? IDC_FILE_IGNORE_RULE_ADD : IDC_FILE_ID_RULE_ADD, BN_CLICKED,
                   [this, ignore] { EditRule(ignore, 0); });
        MapCommand(ignore ? IDC_FILE_IGNORE_RULE_EDIT : IDC_FILE_ID_RULE_EDIT, BN_CLICKED,
                   [this, ignore] { OnEdit(ignore); });
        MapCommand(ignore ? IDC_FILE_IGNORE_RULE_REMOVE : IDC_FILE_ID_RULE_REMOVE, BN_CLICKED,
                   [this, ignore] { OnRemove(ignore); });
    }
}

void SYAppFileRulesPage::DoDataExchange(CDataExchange* dx) {
    if (dx->m_bSaveAndValidate || m_appFile == nullptr)
        return;
    if (!m_columnsReady) {
        SetupLists();
        m_columnsReady = 1;
    }
    RefillList(false);
    RefillList(true);
    UpdateButtons();
}

void SYAppFileRulesPage::SetupLists() {
    m_idRuleList.Initialize(IDC_FILE_ID_RULE_LIST, this);
    m_ignoreRuleList.Initialize(IDC_FILE_IGNORE_RULE_LIST, this);
    m_idRuleList.AddHeader(IDS_HDR_RULE_ID_RULES);
    m_ignoreRuleList.AddHeader(IDS_HDR_RULE_IGNORE_RULES);
    m_idRuleList.SetupColumnsFromString(IdRuleSamples);
    m_ignoreRuleList.SetupColumnsFromString(IgnoreRuleSamples);
    for (SYListCtrlEx* list : {&m_idRuleList, &m_ignoreRuleList}) {
        list->SetHeaderClickable(0);
        list->SetColFormat(0, SYAlignRight);
        list->SetHdrFormat(0, SYAlignRight);
    }
}

void SYAppFileRulesPage::RefillList(bool ignore) {
    SYListCtrlEx& list = ListOf(ignore);
    list.SetRedraw(0);
    const int top = list.GetTopIndex();
    const SYSWRuleItem* selected = RuleOfRow(ignore, list.GetSelectedItem());
    const std::uint32_t selectedID = selected != nullptr ? selected->FileID() : 0;
    list.DeleteAllItems();
    const int count = ignore ? m_appFile->NumIgnoreRules() : m_appFile->NumIdRules();
    for (int index = 0; index < count; ++index) {
        std::string text;
        if (ignore) {
            const SYIgnoreRuleItem* rule = m_appFile->GetIgnoreRule(index);
            if (rule == nullptr || rule->ItemStatus() == ItemStatusRemoved)
                continue;
            rule->MakeString(text);
        } else {
            const SYIdRuleItem* rule = m_appFile->GetIdRule(index);
            if (rule == nullptr || rule->ItemStatus() == ItemStatusRemoved)
                continue;
            rule->MakeString(text);
        }
        // Every row bears the file's name: the list shows what follows it.
        const std::size_t tab = text.find('\t');
        const int row = list.InsertBitmapString(
            -1, -1, tab == std::string::npos ? std::string() : text.substr(tab + 1));
        list.SetItemData(row, static_cast<std::uint32_t>(index));
    }
    list.Scroll(0, SYFontMetrics::RowHeight * top);
    if (selectedID != 0)
        SelectRule(ignore, selectedID);
    list.SetRedraw(1);
    list.Invalidate();
}

const SYSWRuleItem* SYAppFileRulesPage::RuleOfRow(bool ignore, int row) {
    if (row < 0 || row >= ListOf(ignore).GetItemCount())
        return nullptr;
    const int index = static_cast<int>(ListOf(ignore).GetItemData(row));
    if (ignore)
        return m_appFile->GetIgnoreRule(index);
    return m_appFile->GetIdRule(index);
}

void SYAppFileRulesPage::SelectRule(bool ignore, std::uint32_t ruleID) {
    SYListCtrlEx& list = ListOf(ignore);
    for (int row = 0; row < list.GetItemCount(); ++row) {
        const SYSWRuleItem* rule = RuleOfRow(ignore, row);
        if (rule != nullptr && rule->FileID() == ruleID) {
            list.SelectItem(row);
            return;
        }
    }
}

void SYAppFileRulesPage::UpdateButtons() {
    const bool canEdit = SYGetApp().CanEditRules() != 0;
    const auto enable = [this](unsigned id, bool on) {
        if (SYWnd* button = GetDlgItem(id))
            button->EnableWindow(on ? 1 : 0);
    };
    enable(IDC_FILE_ID_RULE_ADD, canEdit);
    enable(IDC_FILE_IGNORE_RULE_ADD, canEdit);
    const bool idSelected = m_idRuleList.IsWindow() && m_idRuleList.GetSelectedItem() != -1;
    const bool ignoreSelected =
        m_ignoreRuleList.IsWindow() && m_ignoreRuleList.GetSelectedItem() != -1;
    enable(IDC_FILE_ID_RULE_EDIT, canEdit && idSelected);
    enable(IDC_FILE_ID_RULE_REMOVE, canEdit && idSelected);
    enable(IDC_FILE_IGNORE_RULE_EDIT, canEdit && ignoreSelected);
    enable(IDC_FILE_IGNORE_RULE_REMOVE, canEdit && ignoreSelected);
}

template <class Dialog> int SYAppFileRulesPage::RunDialog(Dialog& dialog, std::uint32_t ruleID) {
    SYLocalRuleEngine local(GetDatabase(), m_appFile->InvDataType());
    local.Prepare(dialog, *m_appFile);
    if (ruleID != 0)
        dialog.SetRuleID(ruleID);
    else
        dialog.SetFileID(m_appFile->FileID());
    if (dialog.DoModal() != IDOK)
        return 0;
    local.Apply(*m_appFile, this);
    UpdateData(0);
    return 1;
}

void SYAppFileRulesPage::EditRule(bool ignore, std::uint32_t ruleID) {
    std::uint32_t edited = 0;
    if (ignore) {
        SYEditExcludeDlg dialog(this);
        if (RunDialog(dialog, ruleID))
            edited = dialog.RuleItem().FileID();
    } else {
        SYEditIdRuleDlg dialog(this);
        if (RunDialog(dialog, ruleID))
            edited = dialog.RuleItem().FileID();
    }
    if (edited == 0)
        return;
    SelectRule(ignore, edited);
    ListOf(ignore).EnsureVisible(ListOf(ignore).GetSelectedItem());
}

void SYAppFileRulesPage::OnEdit(bool ignore) {
    if (const SYSWRuleItem* rule = RuleOfRow(ignore, ListOf(ignore).GetSelectedItem()))
        EditRule(ignore, rule->FileID());
}

void SYAppFileRulesPage::OnRemove(bool ignore) {
    SYListCtrlEx& list = ListOf(ignore);
    int row = list.GetSelectedItem();
    const SYSWRuleItem* rule = RuleOfRow(ignore, row);
    if (rule == nullptr)
        return;
    if (SYMessageBox::Show(this, SYStringTable::Get(IDS_CONFIRM_REMOVE_RULE), "",
                           MB_YESNO | MB_ICONEXCLAMATION | MB_DEFBUTTON2) != IDYES)
        return;
    SYLocalRuleEngine local(GetDatabase(), m_appFile->InvDataType());
    if (local.Engine().RemoveRule(rule->FileID(), 1)) {
        local.Apply(*m_appFile, this);
        UpdateData(0);
    }
    if (row >= list.GetItemCount())
        row = list.GetItemCount() - 1;
    list.SelectItem(row);
    if (row != -1)
        list.EnsureVisible(row);
}
