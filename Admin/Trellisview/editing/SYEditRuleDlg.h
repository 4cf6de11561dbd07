#pragma once

#include <cstdint>
#include <memory>

#include "editing/SYRuleFileFields.h"
#include "outside/store/SYSWInvObject.h"
#include "outside/widgets/CDialog.h"
#include "outside/widgets/SYButton.h"
#include "rules/SYSWRule.h"

class SYDatabase;
class SYListItemArray;

// What the Identify File and Ignore File dialogs share, for their rule item kind: the
// setters, the load of a stored rule or of an inventoried file, the file fields, the
// overwrite question and the save.
//
// Immediate mode (the default) writes the rule on OK through the engine: matching rules
// are removed first, then the rule is added or modified. Deferred mode
// (SetShouldSaveData(0) with SetRuleList) writes nothing; conflicts are looked up in the
// caller's list and ReplacedRuleIndex names the entry the user agreed to overwrite.
template <class Item> class SYEditRuleDlg : public CDialog, public SYSWInvObject {
public:
    SYEditRuleDlg(int templateId, SYWnd* parent);

    void SetShouldSaveData(int save) { m_shouldSaveData = save; }
    void SetAllowNameChange(int allow) { m_fileFields.SetAllowNameChange(allow); }
    void SetDatabase(SYDatabase* database) { m_database = database; }
    void SetDefTime(const CTime& time) { m_fileFields.SetDefTime(time); }
    void SetDefSize(std::uint64_t size) { m_fileFields.SetDefSize(size); }
    void SetSWRule(SYSWRule* engine) { m_swRule = engine; }
    // A stored rule to edit; wins over SetFileID.
    void SetRuleID(std::uint32_t ruleID) { m_ruleID = ruleID; }
    // An inventoried file to make a new rule from.
    void SetFileID(std::uint32_t fileID) { m_fileID = fileID; }
    void SetRuleList(SYListItemArray* list) { m_ruleList = list; }
    void SetRuleItem(const Item& item) { m_ruleItem = item; }

    // Loads first; IDCANCEL without showing if the load fails.
    int DoModal() override;
    const Item& RuleItem() const { return m_ruleItem; }
    int ReplacedRuleIndex() const { return m_replacedRuleIndex; }

protected:
    SYDatabase* GetDatabase() const { return m_database; }
    void DoDataExchange(CDataExchange* dx) override;
    // The dialog's own fields beyond the file information, in either direction.
    virtual void ExchangeOwnFields(CDataExchange* dx) = 0;
    // Whether the fields that a rule needs hold text.
    virtual bool HaveRequiredText() const;
    void UpdateControls();
    int ValidateData();
    // 1 if the dialog may save: no conflicting rule, or the user agreed to overwrite it.
    int CheckRules(SYListItemArray* list);
    // Index of the first live rule of the list with the item's file information, else -1.
    int FindMatchingRuleInList(SYListItemArray* list, SYAppFileItem* item);
    int LoadRuleData();
    int LoadFileData();
    int SaveData();
    int OnInitDialog() override;
    void OnOK() override;
    void OnBrowseAppFile() { m_fileFields.Browse(); }

    SYSWRule* Engine() const { return m_swRule; }
    Item& EditedItem() { return m_ruleItem; }

private:
    int LoadAndRun();

    SYButton m_okButton;
    SYRuleFileFields m_fileFields;
    int m_shouldSaveData = 1;
    SYDatabase* m_database = nullptr;
    SYSWRule* m_swRule = nullptr;
    std::unique_ptr<SYSWRule> m_ownedRule;
    std::uint32_t m_fileID = 0;
    std::uint32_t m_ruleID = 0;
    int m_replacedRuleIndex = -1;
    Item m_ruleItem;
    SYListItemArray* m_ruleList = nullptr;
};
