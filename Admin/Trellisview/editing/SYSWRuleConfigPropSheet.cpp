#include "editing/SYSWRuleConfigPropSheet.h"

#include "editing/SYLocalRuleEngine.h"
#include "editing/SYRuleItemReader.h"
#include "outside/framework/CException.h"
#include "outside/framework/SYStatus.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYReport.h"
#include "outside/services/SYStringTable.h"
#include "outside/store/SYSWRuleSet.h"
#include "resources/SYResourceIds.h"
#include "rules/SYSWRule.h"

SYSWRuleConfigPropSheet::SYSWRuleConfigPropSheet(SYWnd* parent) : SYAdminPropSheet("", parent) {}

int SYSWRuleConfigPropSheet::DoModal() {
    if (GetPageCount() == 0) {
        AddPage(&m_idPage);
        AddPage(&m_ignorePage);
    }
    m_idPage.InvDataType = InvDataType;
    m_ignorePage.InvDataType = InvDataType;
    if (!LoadData())
        return IDCANCEL;
    SetTitle(SYStringTable::Get(InvDataType == 1 ? IDS_RULES_TITLE_PPC : IDS_RULES_TITLE_PC));
    return SYAdminPropSheet::DoModal();
}

int SYSWRuleConfigPropSheet::LoadData() {
    SYWaitCursor wait;
    try {
        SYSWRuleSet set(GetDatabase());
        set.InvDataType = InvDataType;
        set.FilterForActiveRules();
        set.Open();
        for (; !set.IsEOF(); set.MoveNext()) {
            std::unique_ptr<SYSWRuleItem> rule = SYRuleItemReader::Read(set);
            m_ruleArray.Add(std::move(rule));
        }
    } catch (const CException& exception) {
        SYExReport(exception, nullptr);
        return 0;
    } catch (const SYStatus& status) {
        SYStatusReport(status, nullptr);
        return 0;
    }
    // Identification and ignore rules answer 0 against each other: the sort has to bear it.
    m_ruleArray.SortArray(0, 1);
    return 1;
}

void SYSWRuleConfigPropSheet::RemoveRuleFromPage(int slot, unsigned char ruleType) {
    if (ruleType == RuleTypeId)
        m_idPage.RemoveRowOfIndex(slot);
    else if (ruleType == RuleTypeIgnore)
        m_ignorePage.RemoveRowOfIndex(slot);
}

int SYSWRuleConfigPropSheet::OnOK(unsigned wParam, long lParam) {
    if (IsReadOnly())
        return 0;
    return SYAdminPropSheet::OnOK(wParam, lParam);
}

int SYSWRuleConfigPropSheet::SaveItem(SYSWRule& engine, SYSWRuleItem& item) {
    auto* idRule = dynamic_cast<SYIdRuleItem*>(&item);
    auto* ignoreRule = dynamic_cast<SYIgnoreRuleItem*>(&item);
    int result = 1;
    switch (item.ItemStatus()) {
    case ItemStatusNew:
        result = idRule != nullptr ? engine.AddIdRule(*idRule, 1)
                                   : engine.AddExcludeRule(*ignoreRule, 1);
        break;
    case ItemStatusChanged:
        result = idRule != nullptr ? engine.ModifyIdRule(*idRule)
                                   : engine.ModifyExcludeRule(*ignoreRule);
        break;
    case ItemStatusRemoved:
        engine.RemoveRule(item.FileID(), 1);
        m_changed = 1;
        return 1;
    default:
        return 1;
    }
    m_changed = 1;
    return result != 0 && engine.RemoveMatchingRules(item) != 0 ? 1 : 0;
}

int SYSWRuleConfigPropSheet::SaveData() {
    SYWaitCursor wait;
    SYLocalRuleEngine local(GetDatabase(), InvDataType);
    try {
        int result = 1;
        for (int slot = 0; slot < m_ruleArray.GetSize() && result != 0; ++slot) {
            if (auto* rule = dynamic_cast<SYSWRuleItem*>(m_ruleArray.GetAt(slot)))
                result = SaveItem(local.Engine(), *rule);
        }
        if (m_changed)
            local.Engine().UpdateSamData();
        return result;
    } catch (const CException& exception) {
        SYExReport(exception, nullptr);
    } catch (const SYStatus& status) {
        SYStatusReport(status, nullptr);
    }
    return 0;
}
