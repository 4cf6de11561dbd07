#pragma once

#include <cstdint>
#include <string>

#include "outside/framework/CObject.h"
#include "outside/framework/CTime.h"
#include "outside/framework/SYListItemArray.h"
#include "outside/store/SYFileVerdict.h"
#include "rules/SYIdRuleItem.h"
#include "rules/SYIgnoreRuleItem.h"

class SYDatabase;

// One inventoried file as its properties show it: what the scan found, the application the
// inventory assigned, every active rule for its name and the verdict on it.
class SYAppFile : public CObject {
public:
    SYAppFile() = default;
    SYAppFile(const SYAppFile&) = delete;
    SYAppFile& operator=(const SYAppFile&) = delete;

    SYDatabase* GetDatabase() const { return m_database; }
    void SetDatabase(SYDatabase* database) { m_database = database; }

    int RulesChanged() const { return m_rulesChanged; }
    void SetRulesChanged(int changed) { m_rulesChanged = changed; }

    // Reads the file's row, its rules and its verdict. 0 if there is no database, no such
    // file, or the store failed (reported).
    int LoadData(std::uint32_t fileID, unsigned char invDataType);
    // Reloads the active rules that bear the file's name, of every size and time.
    int LoadRules();
    // Asks the rule service for the effective rule and sets the verdict from it.
    int IdentifyFile();

    int NumIdRules() const { return m_idRules.GetSize(); }
    int NumIgnoreRules() const { return m_ignoreRules.GetSize(); }
    // Still owned by the record; null out of range.
    SYIdRuleItem* GetIdRule(int index) const;
    SYIgnoreRuleItem* GetIgnoreRule(int index) const;

    std::uint32_t FileID() const { return m_fileID; }
    unsigned char InvDataType() const { return m_invDataType; }
    AppFileState State() const { return m_state; }
    void SetState(AppFileState state) { m_state = state; }
    std::uint32_t EffectiveRuleID() const { return m_effectiveRuleID; }
    const std::string& RuleComment() const { return m_ruleComment; }

    const std::string& FileName() const { return m_fileName; }
    void SetFileName(const std::string& name) { m_fileName = name; }
    const CTime& FileTime() const { return m_fileTime; }
    void SetFileTime(const CTime& time) { m_fileTime = time; }
    std::uint64_t FileSize() const { return m_fileSize; }
    void SetFileSize(std::uint64_t size) { m_fileSize = size; }
    const std::string& AppName() const { return m_appName; }
    void SetAppName(const std::string& name) { m_appName = name; }
    const std::string& AppVersion() const { return m_appVersion; }
    void SetAppVersion(const std::string& version) { m_appVersion = version; }
    const std::string& AppCompany() const { return m_appCompany; }
    void SetAppCompany(const std::string& company) { m_appCompany = company; }
    const std::string& UserAppName() const { return m_userAppName; }
    void SetUserAppName(const std::string& name) { m_userAppName = name; }
    const std::string& UserAppVersion() const { return m_userAppVersion; }
    void SetUserAppVersion(const std::string& version) { m_userAppVersion = version; }
    const std::string& UserAppCompany() const { return m_userAppCompany; }
    void SetUserAppCompany(const std::string& company) { m_userAppCompany = company; }

private:
    int ReadFile(std::uint32_t fileID, unsigned char invDataType);
    void ResetVerdict();
    int FindVerdict();

    SYDatabase* m_database = nullptr;
    std::uint32_t m_fileID = 0;
    unsigned char m_invDataType = 0;
    int m_rulesChanged = 0;
    std::string m_fileName;
    CTime m_fileTime;
    std::uint64_t m_fileSize = 0;
    std::string m_appName;
    std::string m_appVersion;
    std::string m_appCompany;
    AppFileState m_state = AppFileNoRule;
    std::uint32_t m_effectiveRuleID = 0;
    std::string m_ruleComment;
    std::string m_userAppName;
    std::string m_userAppVersion;
    std::string m_userAppCompany;
    SYListItemArray m_idRules;
    SYListItemArray m_ignoreRules;
};
