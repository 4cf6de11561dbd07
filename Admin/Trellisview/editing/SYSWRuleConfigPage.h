#pragma once

#include "outside/store/SYSWInvObject.h"
#include "outside/widgets/SYAdminPropPage.h"
#include "outside/widgets/SYListCtrlEx.h"

class SYListItemArray;

// A page of the rule configuration sheet: the rules of one type from the sheet's array of
// rule items. Edits go into the array, with each item's status as the journal; the sheet
// applies them on its OK. The rows' item data are slot indexes of the array.
class SYSWRuleConfigPage : public SYAdminPropPage, public SYSWInvObject {
public:
    SYSWRuleConfigPage(int templateId, SYListItemArray* ruleArray);

    // The row whose item data is this slot, or -1.
    int RowOfIndex(int slot) const;
    // Deletes the row of this slot if the page shows one.
    void RemoveRowOfIndex(int slot);

protected:
    void DoDataExchange(CDataExchange* dx) override;
    virtual void SetupList();
    virtual void BuildList() = 0;
    virtual void EditRule(int row) = 0;
    virtual void DeleteRule(int row);
    void UpdateButtons();
    // Runs the page's rule dialog in deferred mode on the row (-1 adds) and journals the
    // result in the array.
    template <class Dialog, class Item> void EditRuleWith(int row);
    // Rows for the live items of the array whose type is ruleType.
    template <class Item> void BuildRows();

    SYListItemArray* RuleArray() const { return m_ruleArray; }
    SYListCtrlEx& List() { return m_list; }

private:
    int m_columnsReady = 0;
    int m_fillListOnce = 1;
    SYListItemArray* m_ruleArray;
    SYListCtrlEx m_list;
};
