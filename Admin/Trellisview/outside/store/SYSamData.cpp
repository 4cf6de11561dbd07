#include "outside/store/SYSamData.h"

#include <vector>

#include "outside/framework/CException.h"
#include "outside/services/SYPath.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryClassifier.h"
#include "outside/store/SYRuleResolver.h"
#include "outside/store/SYTransaction.h"

SYSamData::SYSamData(SYDatabase* database) : m_database(database) {
    if (database == nullptr)
        throw CInvalidArgException("The rule service needs a database.");
}

SYDatabase& SYSamData::Database() const {
    return *m_database;
}

int SYSamData::EstablishSystemRulesDb(const std::string& installPath) {
    m_systemRulesPath.clear();
    if (installPath.empty())
        return 0;
    SYPath path(installPath);
    path.Append(SystemRulesFileName);
    if (!Database().AttachSystemRules(path.NativePath()))
        return 0;
    m_systemRulesPath = path.NativePath();
    return 1;
}

// Another service object on the same database may have attached other system rules since.
bool SYSamData::UseSystemRules() {
    return !m_systemRulesPath.empty() && Database().AttachSystemRules(m_systemRulesPath);
}

int SYSamData::FindEffectiveRule(unsigned long fileID, _SYSAM_RULE_DATA& data,
                                 SYRULE_SOURCE& source) {
    if (InvDataType > InvDataPPC)
        return 0;
    SYRuleResolver resolver(Database(), InvDataType, UseSystemRules());
    SYScanFile file;
    if (!resolver.LoadFile(fileID, file))
        return 0;
    return resolver.Find(file, data, source) ? 1 : 0;
}

void SYSamData::AddRule(unsigned long ruleID) {
    ApplyRules(ruleID, 0);
}

void SYSamData::ModifyRule(unsigned long ruleID) {
    ApplyRules(ruleID, 0);
}

void SYSamData::ModifyRule(unsigned long replacedRuleID, unsigned long ruleID) {
    ApplyRules(replacedRuleID, ruleID);
}

void SYSamData::DeleteRule(unsigned long ruleID) {
    ApplyRules(ruleID, 0);
}

// Whatever the change was, the files that bear the names of the rows concerned (a removed
// row keeps its name) are decided again; rows that do not exist concern no file.
void SYSamData::ApplyRules(unsigned long first, unsigned long second) {
    if (InvDataType > InvDataPPC)
        return;
    const bool systemRules = UseSystemRules();
    SYTransaction transaction(Database());
    std::vector<std::string> names;
    for (const unsigned long ruleID : {first, second}) {
        if (ruleID == 0)
            continue;
        auto statement = Database().Cached(
            "SELECT FileName FROM SWRules WHERE RuleID = ?1 AND InvDataType = ?2");
        statement->Bind(1, static_cast<std::int64_t>(ruleID)).Bind(2, std::int64_t{InvDataType});
        if (statement->Step())
            names.push_back(statement->Text(0));
    }
    if (!names.empty())
        SYInventoryClassifier(Database(), InvDataType, systemRules).ReclassifyNames(names);
    transaction.Commit();
}
