#pragma once

#include "editing/SYSWIdRulesPage.h"
#include "editing/SYSWIgnoreRulesPage.h"
#include "outside/framework/SYListItemArray.h"
#include "outside/store/SYSWInvObject.h"
#include "outside/widgets/SYAdminPropSheet.h"

class SYSWRule;
class SYSWRuleItem;

// All active rules of one inventory on two pages. Edits collect in one array of rule items,
// each item's status saying what is still to do; OK writes them to the store in array
// order and applies them to the inventory at once. Cancel forgets them.
class SYSWRuleConfigPropSheet : public SYAdminPropSheet, public SYSWInvObject {
public:
    explicit SYSWRuleConfigPropSheet(SYWnd* parent = nullptr);

    // IDCANCEL without showing if the rules cannot be read.
    int DoModal() override;
    // Nonzero once a save touched the rule store.
    int RulesChanged() const { return m_changed; }
    // Takes the row of a slot off the page of that rule type.
    void RemoveRuleFromPage(int slot, unsigned char ruleType);

protected:
    int LoadData() override;
    // Stops at the first write that fails; items written before it are stored.
    int SaveData() override;
    // A read-only sheet saves nothing.
    int OnOK(unsigned wParam, long lParam) override;

private:
    // Writes one journalled item; 0 if a write failed.
    int SaveItem(SYSWRule& engine, SYSWRuleItem& item);

    SYListItemArray m_ruleArray;
    SYSWIdRulesPage m_idPage{&m_ruleArray};
    SYSWIgnoreRulesPage m_ignorePage{&m_ruleArray};
    int m_changed = 0;
};
