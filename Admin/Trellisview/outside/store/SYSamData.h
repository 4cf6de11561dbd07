#pragma once

#include <string>

#include "outside/store/SYFileVerdict.h"
#include "outside/store/SYSWInvObject.h"

class SYDatabase;

// What FindEffectiveRule tells about the rule that governs a file.
struct _SYSAM_RULE_DATA {
    unsigned long RuleID = 0;
    std::string AppName;
    std::string AppCompany;
    std::string AppVersion;
    unsigned char RuleType = RuleTypeId;
    std::string Comment;
};

// The inventory's rule service. Set InvDataType first, then EstablishSystemRulesDb.
//
// The effective rule of a file: active user rules first, then system rules, then the
// file's own version information. Within one source the most specific rule wins (size and
// time, then size, then time, then name only) and among equals the newest (highest id).
// A rule applies to a file of the same name without regard to case, whose size equals the
// rule's if the rule has one, and whose time equals the rule's leaving out seconds if the
// rule has one.
//
// AddRule, ModifyRule and DeleteRule bring the inventory in line with the rule table for
// the names concerned, each in one transaction: on a failure nothing has changed and the
// exception (CException or SYStatus) reaches the caller.
class SYSamData : public SYSWInvObject {
public:
    using SYRULE_SOURCE = SYRuleSource;
    // Spelled out rather than brought in with a using-enum, which g++ 12 cannot expand
    // inside templates.
    static constexpr SYRuleSource RuleSourceNone = ::RuleSourceNone;
    static constexpr SYRuleSource RuleSourceUser = ::RuleSourceUser;
    static constexpr SYRuleSource RuleSourceSystem = ::RuleSourceSystem;
    static constexpr SYRuleSource RuleSourceVersionInfo = ::RuleSourceVersionInfo;

    // Name of the system rules database inside the installation folder.
    static constexpr const char* SystemRulesFileName = "SystemRules.db";

    explicit SYSamData(SYDatabase* database);
    explicit SYSamData(SYDatabase& database) : SYSamData(&database) {}

    // installPath: the installation folder, with '\' or '/' separators. Gives 0 when no
    // system rules database lies there (the service then knows user rules only); a file
    // there that is not a system rules database throws CDBException.
    int EstablishSystemRulesDb(const std::string& installPath);

    // Nonzero if a rule governs the file; data and source are then filled. An unknown
    // file, or one of another inventory, gives 0.
    int FindEffectiveRule(unsigned long fileID, _SYSAM_RULE_DATA& data, SYRULE_SOURCE& source);

    void AddRule(unsigned long ruleID);
    void ModifyRule(unsigned long ruleID);
    void ModifyRule(unsigned long replacedRuleID, unsigned long ruleID);
    void DeleteRule(unsigned long ruleID);

private:
    void ApplyRules(unsigned long first, unsigned long second);
    bool UseSystemRules();
    SYDatabase& Database() const;

    SYDatabase* m_database;
    std::string m_systemRulesPath;
};
