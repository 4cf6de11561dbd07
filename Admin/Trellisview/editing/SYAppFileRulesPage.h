#pragma once

#include <cstdint>

#include "outside/widgets/SYAdminPropPage.h"
#include "outside/widgets/SYListCtrlEx.h"

class SYAppFile;
class SYSWRuleItem;

// The Rules page of a file's properties: every active identification and ignore rule for
// the file's name, with Add, Edit and Remove, each written to the store at once.
class SYAppFileRulesPage : public SYAdminPropPage {
public:
    SYAppFileRulesPage();

    void SetAppFile(SYAppFile* file) { m_appFile = file; }

protected:
    void DoDataExchange(CDataExchange* dx) override;
    void UpdateButtons();
    void EditRule(bool ignore, std::uint32_t ruleID);
    void OnEdit(bool ignore);
    void OnRemove(bool ignore);

private:
    void SetupLists();
    // Fills a list again from the file's rules, keeping its scroll position and selection.
    void RefillList(bool ignore);
    SYListCtrlEx& ListOf(bool ignore) { return ignore ? m_ignoreRuleList : m_idRuleList; }
    const SYSWRuleItem* RuleOfRow(bool ignore, int row);
    void SelectRule(bool ignore, std::uint32_t ruleID);
    template <class Dialog> int RunDialog(Dialog& dialog, std::uint32_t ruleID);

    SYAppFile* m_appFile = nullptr;
    int m_columnsReady = 0;
    SYListCtrlEx m_idRuleList;
    SYListCtrlEx m_ignoreRuleList;
};
