#include "rules/SYSWRule.h"

#include "outside/framework/CException.h"
#include "outside/framework/SYStatus.h"
#include "outside/framework/SYString.h"
#include "outside/framework/SYTimeChecker.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYProgress.h"
#include "outside/services/SYReport.h"
#include "outside/store/SYSWRuleSet.h"
#include "outside/store/SYSamData.h"
#include "outside/store/SYTransaction.h"
#include "rules/SYSWRuleRow.h"

namespace {

unsigned char ruleTypeOf(const SYIdRuleItem&) {
    return RuleTypeId;
}

unsigned char ruleTypeOf(const SYIgnoreRuleItem&) {
    return RuleTypeIgnore;
}

// A row that has passed the store's filters still has to agree on the time to the minute.
bool sameMinute(const SYSWRuleSet& set, const SYAppFileItem& item) {
    return !item.HaveModTime() || SYTimeChecker::EqualIgnoreSeconds(set.FileTime(), item.ModTime());
}

// Each write takes the store's write lock before it reads, so it waits for another writer
// instead of failing when it turns from reading to writing.
SYDatabase& storeOf(SYDatabase* database) {
    if (database == nullptr)
        throw CInvalidArgException("The rule engine has no database.");
    return *database;
}

} // namespace

int SYSWRule::AddIdRule(SYIdRuleItem& rule, int record) {
    return AddRule(rule, record);
}

int SYSWRule::AddExcludeRule(SYIgnoreRuleItem& rule, int record) {
    return AddRule(rule, record);
}

int SYSWRule::ModifyIdRule(SYIdRuleItem& rule) {
    return ModifyRule(rule);
}

int SYSWRule::ModifyExcludeRule(SYIgnoreRuleItem& rule) {
    return ModifyRule(rule);
}

template <class Item> int SYSWRule::AddRule(Item& rule, int record) {
    std::uint32_t ruleID = 0;
    try {
        SYTransaction transaction(storeOf(Database));
        SYSWRuleSet set(Database);
        set.InvDataType = InvDataType;
        set.Open();
        set.AddNew();
        set.SetRuleState(RuleStateAdded);
        set.SetRuleType(ruleTypeOf(rule));
        SYSWRuleRow::WriteFileInfo(set, rule);
        SYSWRuleRow::WriteOwnColumns(set, rule);
        set.Update(1);
        set.Close();
        ruleID = set.RuleID();
        transaction.Commit();
    } catch (const CException& e) {
        SYExReport(e, nullptr);
        return 0;
    }
    rule.SetFileID(ruleID);
    rule.SetItemStatus(ItemStatusStored);
    rule.SetItemType(ItemTypeRule);
    if (record != 0)
        Note(ruleID, 0, RuleChangeAdd);
    return 1;
}

// A name change never edits a row: the rule the inventory knows by that identifier is
// retired and a new one takes its place, so the rule service can move files by both names.
template <class Item> int SYSWRule::ModifyRule(Item& rule) {
    // Without a row there is nothing to modify: the change is an add.
    if (rule.FileID() == 0)
        return AddRule(rule, 1);
    std::uint32_t oldID = rule.FileID();
    int result = 0;
    try {
        std::string rowName;
        bool edited = false;
        {
            SYTransaction transaction(storeOf(Database));
            SYSWRuleSet set(Database);
            set.InvDataType = InvDataType;
            set.FilterForRuleID(oldID);
            set.Open();
            if (!set.IsEOF()) {
                rowName = set.FileName();
                edited = SYStrICmp(rowName, rule.FileName()) == 0;
            }
            if (edited) {
                set.Edit();
                set.SetRuleState(RuleStateModified);
                set.SetRuleType(ruleTypeOf(rule));
                SYSWRuleRow::WriteFileInfo(set, rule);
                SYSWRuleRow::WriteOwnColumns(set, rule);
                set.Update(1);
            }
            set.Close();
            transaction.Commit();
        }
        if (edited) {
            oldID = 0;
            result = 1;
        } else if (SYStrICmp(rowName, rule.FileName()) != 0 && RemoveRule(rule.FileID(), 0) != 0) {
            result = AddRule(rule, 0);
        }
    } catch (const CException& e) {
        SYExReport(e, nullptr);
    }
    if (result == 0)
        return 0;
    Note(rule.FileID(), oldID, RuleChangeModify);
    rule.SetItemStatus(ItemStatusStored);
    rule.SetItemType(ItemTypeRule);
    return result;
}

int SYSWRule::RemoveRule(std::uint32_t ruleID, int record) {
    try {
        SYTransaction transaction(storeOf(Database));
        SYSWRuleSet set(Database);
        set.InvDataType = InvDataType;
        set.FilterForRuleID(ruleID);
        set.Open();
        if (!set.IsEOF()) {
            set.Edit();
            set.SetRuleState(RuleStateRemoved);
            set.Update(1);
        }
        set.Close();
        transaction.Commit();
    } catch (const CException& e) {
        SYExReport(e, nullptr);
        return 0;
    }
    if (record != 0)
        Note(ruleID, 0, RuleChangeDelete);
    return 1;
}

int SYSWRule::RemoveRule(SYAppFileItem* rule) {
    if (rule == nullptr)
        return 0;
    const int result = RemoveRule(rule->FileID(), 1);
    if (result == 0)
        return 0;
    rule->SetItemStatus(ItemStatusStored);
    rule->SetFileID(0);
    rule->SetFileName({});
    rule->ClearFileSize();
    rule->ClearModTime();
    return result;
}

int SYSWRule::RemoveMatchingRules(SYAppFileItem& rule) {
    SYWaitCursor wait;
    if (rule.ItemType() != ItemTypeRule)
        return 0;
    try {
        std::vector<std::uint32_t> matching;
        SYSWRuleSet set(Database);
        FilterForFileInfo(set, rule);
        set.Open();
        for (; !set.IsEOF(); set.MoveNext()) {
            if (set.RuleID() != rule.FileID() && sameMinute(set, rule))
                matching.push_back(set.RuleID());
        }
        set.Close();
        // Removal writes rows, so it waits until the reading set is closed; each removal
        // stands alone, as the changes it notes do.
        for (std::uint32_t ruleID : matching)
            RemoveRule(ruleID, 1);
    } catch (const CException& e) {
        SYExReport(e, nullptr);
        return 0;
    } catch (const SYStatus& status) {
        SYStatusReport(status, nullptr);
        return 0;
    }
    return 1;
}

std::uint32_t SYSWRule::FindMatchingRule(const SYAppFileItem& item, unsigned char& ruleType) {
    std::uint32_t result = 0;
    // A file item's identifier is a file identifier and never names a rule row.
    const bool isRule = item.ItemType() == ItemTypeRule;
    try {
        SYSWRuleSet set(Database);
        FilterForFileInfo(set, item);
        set.Open();
        // The last row that passes wins; the set's order decides which that is.
        for (; !set.IsEOF(); set.MoveNext()) {
            if (!sameMinute(set, item) || (isRule && set.RuleID() == item.FileID()))
                continue;
            result = set.RuleID();
            ruleType = set.RuleType();
        }
        set.Close();
    } catch (const CException& e) {
        SYExReport(e, nullptr);
    } catch (const SYStatus& status) {
        SYStatusReport(status, nullptr);
    }
    return result;
}

int SYSWRule::LookupIdRule(std::uint32_t ruleID, SYIdRuleItem& rule) {
    return LookupRule(ruleID, rule);
}

int SYSWRule::LookupExcludeRule(std::uint32_t ruleID, SYIgnoreRuleItem& rule) {
    return LookupRule(ruleID, rule);
}

template <class Item> int SYSWRule::LookupRule(std::uint32_t ruleID, Item& rule) {
    int result = 0;
    try {
        SYSWRuleSet set(Database);
        set.InvDataType = InvDataType;
        set.FilterForActiveRules();
        set.FilterForRuleID(ruleID);
        set.Open();
        if (!set.IsEOF() && set.RuleType() == ruleTypeOf(rule)) {
            SYSWRuleRow::Read(set, rule);
            result = 1;
        }
        set.Close();
    } catch (const CException& e) {
        SYExReport(e, nullptr);
    }
    return result;
}

void SYSWRule::FilterForFileInfo(SYSWRuleSet& set, const SYAppFileItem& item) const {
    set.InvDataType = InvDataType;
    set.FilterForActiveRules();
    set.FilterForFileName(item.FileName());
    if (item.HaveFileSize()) {
        std::uint32_t lo = 0;
        std::uint32_t hi = 0;
        item.GetFileSize(lo, hi);
        set.FilterForFileSize(lo, hi);
    } else {
        set.FilterForNullFileSize();
    }
    if (!item.HaveModTime())
        set.FilterForNullFileTime();
}

_SYSWRULE_INFO SYSWRule::GetChangedRule(int index) const {
    if (index < 0 || index >= NumChangedRules())
        return {};
    return m_changedRules[static_cast<std::size_t>(index)];
}

void SYSWRule::Note(std::uint32_t ruleID, std::uint32_t replacedRuleID, unsigned char kind) {
    m_changedRules.push_back({ruleID, replacedRuleID, kind});
}

void SYSWRule::UpdateSamData() {
    SYSamData sam(Database);
    sam.InvDataType = InvDataType;
    sam.EstablishSystemRulesDb(m_installPath);
    SYProgress progress(SYProgress::ApplyingRules, m_changedRules.size());
    for (const _SYSWRULE_INFO& change : m_changedRules) {
        switch (change.ChangeKind) {
        case RuleChangeAdd:
            sam.AddRule(change.RuleID);
            break;
        case RuleChangeModify:
            if (change.ReplacedRuleID != 0)
                sam.ModifyRule(change.ReplacedRuleID, change.RuleID);
            else
                sam.ModifyRule(change.RuleID);
            break;
        case RuleChangeDelete:
            sam.DeleteRule(change.RuleID);
            break;
        default:
            break;
        }
        progress.Step();
    }
}
