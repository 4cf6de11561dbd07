#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "outside/store/SYFileVerdict.h"
#include "outside/store/SYSWInvObject.h"
#include "rules/SYIdRuleItem.h"
#include "rules/SYIgnoreRuleItem.h"

class SYDatabase;
class SYSWRuleSet;

// What happened to a rule row, as the rule service is told of it.
enum SYRuleChangeKind : unsigned char {
    RuleChangeAdd = 1,
    RuleChangeModify = 2,
    RuleChangeDelete = 3,
};

// One noted rule change. All zero stands for no record.
struct _SYSWRULE_INFO {
    std::uint32_t RuleID = 0;
    // For a modify that replaced the row: the old row; otherwise 0.
    std::uint32_t ReplacedRuleID = 0;
    unsigned char ChangeKind = 0;
};

// The one writer of rules. A change is written to the rule table at once and noted;
// UpdateSamData later hands the noted changes to the rule service, which brings the
// inventory in line. Nothing is rolled back: the result tells the caller what happened.
class SYSWRule : public SYSWInvObject {
public:
    SYSWRule() = default;
    SYSWRule(const SYSWRule&) = delete;
    SYSWRule& operator=(const SYSWRule&) = delete;

    // The open inventory, set by the creator before the first operation. Not owned.
    SYDatabase* Database = nullptr;

    const std::string& InstallPath() const { return m_installPath; }
    void SetInstallPath(const std::string& path) { m_installPath = path; }

    // Insert a new row; the item takes the new identifier. A non-zero record notes an add.
    int AddIdRule(SYIdRuleItem& rule, int record);
    int AddExcludeRule(SYIgnoreRuleItem& rule, int record);
    // Edit the item's row in place, or replace it when the name changed (the item then
    // carries the new identifier). Always noted.
    int ModifyIdRule(SYIdRuleItem& rule);
    int ModifyExcludeRule(SYIgnoreRuleItem& rule);
    // Marks the row removed; succeeds also when no row has this identifier.
    int RemoveRule(std::uint32_t ruleID, int record);
    // Removes the item's row (noted) and empties the item.
    int RemoveRule(SYAppFileItem* rule);
    // Removes every other active rule with the item's file information, of either type.
    int RemoveMatchingRules(SYAppFileItem& rule);

    // The last active rule with the item's file information, or 0. On a match ruleType
    // receives the row's type.
    std::uint32_t FindMatchingRule(const SYAppFileItem& item, unsigned char& ruleType);
    // Fill the item from an active rule of that type; 0 leaves the item untouched.
    int LookupIdRule(std::uint32_t ruleID, SYIdRuleItem& rule);
    int LookupExcludeRule(std::uint32_t ruleID, SYIgnoreRuleItem& rule);

    int NumChangedRules() const { return static_cast<int>(m_changedRules.size()); }
    _SYSWRULE_INFO GetChangedRule(int index) const;
    void ClearChangedRules() { m_changedRules.clear(); }

    // Hands every noted change, oldest first, to the rule service. The list stays; rule
    // service failures pass to the caller.
    void UpdateSamData();

private:
    template <class Item> int AddRule(Item& rule, int record);
    template <class Item> int ModifyRule(Item& rule);
    template <class Item> int LookupRule(std::uint32_t ruleID, Item& rule);
    // A set on the engine's database and inventory, filtered to the item's file
    // information as far as the store can filter it.
    void FilterForFileInfo(SYSWRuleSet& set, const SYAppFileItem& item) const;
    void Note(std::uint32_t ruleID, std::uint32_t replacedRuleID, unsigned char kind);

    std::vector<_SYSWRULE_INFO> m_changedRules;
    std::string m_installPath;
};
