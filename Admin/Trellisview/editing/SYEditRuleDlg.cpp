#include "editing/SYEditRuleDlg.h"

#include <type_traits>

#include "editing/SYRuleItemReader.h"
#include "outside/framework/CException.h"
#include "outside/framework/SYListItemArray.h"
#include "outside/framework/SYStatus.h"
#include "outside/framework/SYString.h"
#include "outside/framework/SYTimeChecker.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYReport.h"
#include "outside/services/SYStringTable.h"
#include "outside/services/SYTextFormat.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYAppNames.h"
#include "outside/store/SYSWRuleSet.h"
#include "outside/store/SYSamData.h"
#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYMessageBox.h"
#include "resources/SYResourceIds.h"
#include "rules/SYSWRule.h"

namespace {

template <class Item> constexpr bool isIdRule = std::is_same_v<Item, SYIdRuleItem>;

// The rule type whose existing rule the dialog first expects to meet.
template <class Item>
constexpr unsigned char ownRuleType = isIdRule<Item> ? RuleTypeId : RuleTypeIgnore;

template <class Item> int titleStringId() {
    return isIdRule<Item> ? IDS_IDENTIFY_FILE_TITLE : IDS_IGNORE_FILE_TITLE;
}

} // namespace

template <class Item>
SYEditRuleDlg<Item>::SYEditRuleDlg(int templateId, SYWnd* parent)
    : CDialog(templateId, parent), m_fileFields(&m_ruleItem) {
    for (unsigned id :
         {IDC_RULE_ALL_VERSIONS, IDC_RULE_SOME_VERSIONS, IDC_RULE_HAS_TIME, IDC_RULE_HAS_SIZE})
        MapCommand(id, BN_CLICKED, [this] { UpdateControls(); });
    MapCommand(IDC_RULE_FILE_NAME, EN_CHANGE, [this] { UpdateControls(); });
    MapCommand(IDC_RULE_BROWSE_FILE, BN_CLICKED, [this] { OnBrowseAppFile(); });
}

template <class Item> int SYEditRuleDlg<Item>::DoModal() {
    if (m_swRule == nullptr) {
        m_ownedRule = std::make_unique<SYSWRule>();
        m_ownedRule->Database = m_database;
        m_ownedRule->InvDataType = InvDataType;
        m_swRule = m_ownedRule.get();
    }
    const int result = LoadAndRun();
    if (m_ownedRule != nullptr) {
        m_ownedRule.reset();
        m_swRule = nullptr;
    }
    return result;
}

template <class Item> int SYEditRuleDlg<Item>::LoadAndRun() {
    if (m_ruleID != 0 && !LoadRuleData())
        return IDCANCEL;
    if (m_ruleID == 0 && m_fileID != 0 && !LoadFileData())
        return IDCANCEL;
    return CDialog::DoModal();
}

template <class Item> int SYEditRuleDlg<Item>::LoadRuleData() {
    try {
        SYSWRuleSet set(m_database);
        set.InvDataType = m_swRule->InvDataType;
        set.FilterForRuleID(m_ruleID);
        set.Open();
        if (set.IsEOF())
            return 0;
        SYRuleItemReader::Read(m_ruleItem, set);
        return 1;
    } catch (const CException& exception) {
        SYExReport(exception, nullptr);
        return 0;
    }
}

template <class Item> int SYEditRuleDlg<Item>::LoadFileData() {
    try {
        SYAppFileSet set(m_database);
        set.InvDataType = m_swRule->InvDataType;
        set.FilterForFileID(m_fileID);
        set.Open();
        if (set.IsEOF())
            return 0;
        m_ruleItem.SetItemType(ItemTypeRule);
        m_ruleItem.SetItemStatus(ItemStatusStored);
        m_ruleItem.SetFileID(0);
        m_ruleItem.SetFileName(set.FileName());
        m_ruleItem.SetFileSize(static_cast<std::uint32_t>(set.FileSizeLo()),
                               static_cast<std::uint32_t>(set.FileSizeHi()));
        m_ruleItem.SetModTime(set.FileTime());
        if constexpr (isIdRule<Item>) {
            m_ruleItem.SetAppName(set.VersionAppName());
            m_ruleItem.SetAppVersion(set.VersionAppVersion());
            m_ruleItem.SetAppCompany(set.VersionAppCompany());
            set.Close();
            SYSamData samData(m_database);
            samData.InvDataType = m_swRule->InvDataType;
            samData.EstablishSystemRulesDb(SYInstallation::Path().GetPath());
            _SYSAM_RULE_DATA data;
            SYSamData::SYRULE_SOURCE source = SYSamData::RuleSourceUser;
            if (samData.FindEffectiveRule(m_fileID, data, source) && data.RuleType == RuleTypeId) {
                m_ruleItem.SetAppName(data.AppName);
                m_ruleItem.SetAppVersion(data.AppVersion);
                m_ruleItem.SetAppCompany(data.AppCompany);
            }
        }
        return 1;
    } catch (const CException& exception) {
        SYExReport(exception, nullptr);
        return 0;
    } catch (const SYStatus& status) {
        SYStatusReport(status, nullptr);
        return 0;
    }
}

template <class Item> int SYEditRuleDlg<Item>::OnInitDialog() {
    CDialog::OnInitDialog();
    if (m_ruleItem.FileID() == 0 && m_ruleItem.ItemStatus() == ItemStatusStored) {
        SetTitle(SYStringTable::Get(titleStringId<Item>()));
        m_ruleItem.SetItemType(ItemTypeRule);
    }
    return 1;
}

template <class Item> void SYEditRuleDlg<Item>::DoDataExchange(CDataExchange* dx) {
    if (!dx->m_bSaveAndValidate)
        DDX_Control(dx, IDOK, m_okButton);
    m_fileFields.DoDataExchange(dx);
    ExchangeOwnFields(dx);
    if (!dx->m_bSaveAndValidate) {
        UpdateControls();
        return;
    }
    if (!ValidateData())
        dx->Fail();
}

template <class Item> bool SYEditRuleDlg<Item>::HaveRequiredText() const {
    const SYWnd* name = GetDlgItem(IDC_RULE_FILE_NAME);
    return name != nullptr && !SYAppNames::Trim(name->GetWindowText()).empty();
}

template <class Item> void SYEditRuleDlg<Item>::UpdateControls() {
    m_fileFields.UpdateControls();
    if (m_okButton.IsWindow())
        m_okButton.EnableWindow(HaveRequiredText());
}

template <class Item> int SYEditRuleDlg<Item>::ValidateData() {
    return CheckRules(m_ruleList);
}

template <class Item>
int SYEditRuleDlg<Item>::FindMatchingRuleInList(SYListItemArray* list, SYAppFileItem* item) {
    if (list == nullptr || item == nullptr)
        return -1;
    for (int index = 0; index < list->GetSize(); ++index) {
        const auto* entry = dynamic_cast<const SYAppFileItem*>(list->GetAt(index));
        if (entry == nullptr || entry->ItemStatus() == ItemStatusRemoved)
            continue;
        if (SYStrICmp(entry->FileName(), item->FileName()) != 0 ||
            entry->FileSize() != item->FileSize() ||
            !SYTimeChecker::EqualIgnoreSeconds(entry->ModTime(), item->ModTime()))
            continue;
        const bool newAgainstOld =
            entry->ItemStatus() == ItemStatusNew && item->ItemStatus() != ItemStatusNew;
        if (entry->FileID() != item->FileID() || newAgainstOld)
            return index;
    }
    return -1;
}

template <class Item> int SYEditRuleDlg<Item>::CheckRules(SYListItemArray* list) {
    std::uint32_t existingID = 0;
    unsigned char existingType = ownRuleType<Item>;
    int index = -1;
    SYIdRuleItem existingIdRule;
    if (list != nullptr) {
        index = FindMatchingRuleInList(list, &m_ruleItem);
        if (index == -1)
            return 1;
        const auto* entry = dynamic_cast<const SYSWRuleItem*>(list->GetAt(index));
        existingID = entry->FileID();
        existingType = entry->RuleType();
        if (const auto* idRule = dynamic_cast<const SYIdRuleItem*>(entry))
            existingIdRule = *idRule;
    } else {
        existingID = m_swRule->FindMatchingRule(m_ruleItem, existingType);
        if (existingID == 0)
            return 1;
        if (existingType == RuleTypeId)
            m_swRule->LookupIdRule(existingID, existingIdRule);
    }
    const std::string question =
        existingType == RuleTypeId
            ? SYFormatText(SYStringTable::Get(IDS_OVERWRITE_ID_RULE),
                           {existingIdRule.AppName(), existingIdRule.AppVersion(),
                            existingIdRule.AppCompany()})
            : SYStringTable::Get(IDS_OVERWRITE_IGNORE_RULE);
    if (SYMessageBox::Show(this, question, "", MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) != IDYES)
        return 0;
    if (m_ruleItem.FileID() == 0)
        m_ruleItem.SetFileID(existingID);
    m_replacedRuleIndex = index;
    return 1;
}

template <class Item> int SYEditRuleDlg<Item>::SaveData() {
    SYWaitCursor wait;
    if (!m_swRule->RemoveMatchingRules(m_ruleItem))
        return 0;
    if constexpr (isIdRule<Item>)
        return m_ruleItem.FileID() != 0 ? m_swRule->ModifyIdRule(m_ruleItem)
                                        : m_swRule->AddIdRule(m_ruleItem, 1);
    else
        return m_ruleItem.FileID() != 0 ? m_swRule->ModifyExcludeRule(m_ruleItem)
                                        : m_swRule->AddExcludeRule(m_ruleItem, 1);
}

template <class Item> void SYEditRuleDlg<Item>::OnOK() {
    if (!UpdateData(1))
        return;
    if (m_shouldSaveData && !SaveData())
        return;
    EndDialog(IDOK);
}

template class SYEditRuleDlg<SYIdRuleItem>;
template class SYEditRuleDlg<SYIgnoreRuleItem>;
