#include "outside/store/SYRuleResolver.h"

#include "outside/framework/SYTimeChecker.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYFileVerdict.h"
#include "outside/store/SYInventorySchema.h"
#include "outside/store/SYStoreValue.h"

namespace {

const std::string& userRules() {
    static const std::string sql =
        "SELECT RuleID, RuleType, FileSize, FileTime, AppName, AppCompany, AppVersion, Comment "
        "FROM main.SWRules WHERE InvDataType = ?1 AND FileName = ?2 AND " +
        SYActiveRuleSql("RuleState") + " AND (FileSize IS NULL OR FileSize = ?3)";
    return sql;
}

const char* const kSystemRules =
    "SELECT RuleID, RuleType, FileSize, FileTime, AppName, AppCompany, AppVersion, Comment "
    "FROM sysrules.SystemRules WHERE InvDataType = ?1 AND FileName = ?2 "
    "AND (FileSize IS NULL OR FileSize = ?3)";

const char* const kFile = "SELECT FileName, FileSize, FileTime, VerAppName, VerAppVersion, "
                          "VerAppCompany FROM Files WHERE FileID = ?1 AND InvDataType = ?2";

// Size and time together beat size, size beats time, time beats the name alone.
int specificity(bool haveSize, bool haveTime) {
    return (haveSize ? 2 : 0) + (haveTime ? 1 : 0);
}

} // namespace

SYRuleResolver::SYRuleResolver(SYDatabase& database, unsigned char invDataType, bool useSystemRules)
    : m_database(database), m_invDataType(invDataType), m_useSystemRules(useSystemRules) {
    SYInventorySchema::CheckFileInventory(invDataType);
}

bool SYRuleResolver::LoadFile(unsigned long fileID, SYScanFile& file) {
    auto statement = m_database.Cached(kFile);
    statement->Bind(1, static_cast<std::int64_t>(fileID)).Bind(2, std::int64_t{m_invDataType});
    if (!statement->Step())
        return false;
    file.name = statement->Text(0);
    file.size = SYStoreValue::ToSize(statement->Int64(1));
    file.time = CTime(static_cast<std::int32_t>(statement->Int64(2)));
    file.appName = statement->Text(3);
    file.appVersion = statement->Text(4);
    file.appCompany = statement->Text(5);
    return true;
}

bool SYRuleResolver::FindInTable(const std::string& sql, const SYScanFile& file,
                                 _SYSAM_RULE_DATA& data) {
    auto statement = m_database.Cached(sql);
    statement->Bind(1, std::int64_t{m_invDataType})
        .Bind(2, file.name)
        .Bind(3, SYStoreValue::FromSize(file.size));
    int bestScore = -1;
    std::int64_t bestID = 0;
    while (statement->Step()) {
        const bool haveTime = !statement->IsNull(3);
        if (haveTime && !SYTimeChecker::EqualIgnoreSeconds(
                            CTime(static_cast<std::int32_t>(statement->Int64(3))), file.time))
            continue;
        const int score = specificity(!statement->IsNull(2), haveTime);
        const std::int64_t id = statement->Int64(0);
        if (score < bestScore || (score == bestScore && id < bestID))
            continue;
        bestScore = score;
        bestID = id;
        data.RuleID = static_cast<unsigned long>(id);
        data.RuleType = static_cast<unsigned char>(statement->Int64(1));
        data.AppName = statement->Text(4);
        data.AppCompany = statement->Text(5);
        data.AppVersion = statement->Text(6);
        data.Comment = statement->Text(7);
    }
    return bestScore >= 0;
}

bool SYRuleResolver::Find(const SYScanFile& file, _SYSAM_RULE_DATA& data,
                          SYSamData::SYRULE_SOURCE& source) {
    _SYSAM_RULE_DATA found;
    if (FindInTable(userRules(), file, found)) {
        data = found;
        source = SYSamData::RuleSourceUser;
        return true;
    }
    if (m_useSystemRules && FindInTable(kSystemRules, file, found)) {
        data = found;
        source = SYSamData::RuleSourceSystem;
        return true;
    }
    if (file.appName.empty())
        return false;
    data = _SYSAM_RULE_DATA{};
    data.AppName = file.appName;
    data.AppCompany = file.appCompany;
    data.AppVersion = file.appVersion;
    source = SYSamData::RuleSourceVersionInfo;
    return true;
}

SYRuleResolver::Verdict SYRuleResolver::Decide(const SYScanFile& file) {
    Verdict verdict;
    _SYSAM_RULE_DATA data;
    auto source = SYSamData::RuleSourceUser;
    if (!Find(file, data, source))
        return verdict;
    verdict.ruleID = data.RuleID;
    verdict.source = source;
    verdict.state = SYFileVerdict(source, data.RuleType);
    if (data.RuleType != RuleTypeId)
        return verdict;
    verdict.identified = true;
    verdict.appName = data.AppName;
    verdict.appVersion = data.AppVersion;
    verdict.appCompany = data.AppCompany;
    return verdict;
}
