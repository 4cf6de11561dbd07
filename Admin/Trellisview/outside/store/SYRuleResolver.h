#pragma once

#include <string>

#include "outside/store/SYFileVerdict.h"
#include "outside/store/SYSamData.h"
#include "outside/store/SYScanFile.h"

class SYDatabase;

// Finds the rule that governs a file, as SYSamData documents, and turns it into the
// verdict the inventory stores. System rules take part when useSystemRules is set (the
// system rules database is then attached).
class SYRuleResolver {
public:
    struct Verdict {
        AppFileState state = AppFileNoRule;
        unsigned long ruleID = 0;
        SYRuleSource source = RuleSourceNone;
        bool identified = false;
        std::string appName;
        std::string appVersion;
        std::string appCompany;
    };

    SYRuleResolver(SYDatabase& database, unsigned char invDataType, bool useSystemRules);

    // The scanned facts of a file of this inventory; false if there is no such file.
    bool LoadFile(unsigned long fileID, SYScanFile& file);
    bool Find(const SYScanFile& file, _SYSAM_RULE_DATA& data, SYSamData::SYRULE_SOURCE& source);
    Verdict Decide(const SYScanFile& file);

private:
    bool FindInTable(const std::string& sql, const SYScanFile& file, _SYSAM_RULE_DATA& data);

    SYDatabase& m_database;
    unsigned char m_invDataType;
    bool m_useSystemRules;
};
