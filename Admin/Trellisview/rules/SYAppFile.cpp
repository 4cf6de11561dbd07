#include "rules/SYAppFile.h"

#include "outside/framework/CException.h"
#include "outside/framework/SYStatus.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYReport.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYSWRuleSet.h"
#include "outside/store/SYSamData.h"
#include "rules/SYSWRuleRow.h"

int SYAppFile::LoadData(std::uint32_t fileID, unsigned char invDataType) {
    if (m_database == nullptr || fileID == 0)
        return 0;
    if (ReadFile(fileID, invDataType) == 0)
        return 0;
    LoadRules();
    return IdentifyFile();
}

// Fields are copied straight into the record, so a failure halfway leaves what was read.
int SYAppFile::ReadFile(std::uint32_t fileID, unsigned char invDataType) {
    try {
        SYAppFileSet set(m_database);
        set.InvDataType = invDataType;
        set.FilterForFileID(fileID);
        set.Open();
        if (set.IsEOF())
            return 0;
        m_fileName = set.FileName();
        m_fileTime = set.FileTime();
        m_fileSize = (static_cast<std::uint64_t>(set.FileSizeHi()) << 32) | set.FileSizeLo();
        m_appName = set.AppName();
        m_appVersion = set.AppVersion();
        m_appCompany = set.AppCompany();
        m_fileID = fileID;
        m_invDataType = invDataType;
        set.Close();
    } catch (const CException& e) {
        SYExReport(e, nullptr);
        return 0;
    }
    return 1;
}

int SYAppFile::LoadRules() {
    m_idRules.RemoveAll();
    m_ignoreRules.RemoveAll();
    if (m_database == nullptr)
        return 0;
    try {
        SYSWRuleSet set(m_database);
        set.InvDataType = m_invDataType;
        set.FilterForFileName(m_fileName);
        set.FilterForActiveRules();
        set.Open();
        for (; !set.IsEOF(); set.MoveNext()) {
            if (set.RuleType() == RuleTypeId) {
                auto rule = std::make_unique<SYIdRuleItem>();
                SYSWRuleRow::Read(set, *rule);
                m_idRules.Add(std::move(rule));
            } else if (set.RuleType() == RuleTypeIgnore) {
                auto rule = std::make_unique<SYIgnoreRuleItem>();
                SYSWRuleRow::Read(set, *rule);
                m_ignoreRules.Add(std::move(rule));
            }
        }
        set.Close();
    } catch (const CException& e) {
        SYExReport(e, nullptr);
        return 0;
    }
    m_idRules.SortArray(0, 1);
    m_ignoreRules.SortArray(0, 1);
    return 1;
}

int SYAppFile::IdentifyFile() {
    ResetVerdict();
    if (m_database == nullptr)
        return 0;
    try {
        return FindVerdict();
    } catch (const CException& e) {
        SYExReport(e, nullptr);
    } catch (const SYStatus& status) {
        SYStatusReport(status, nullptr);
    }
    return 0;
}

void SYAppFile::ResetVerdict() {
    m_effectiveRuleID = 0;
    m_state = AppFileSystemIdentified;
    m_ruleComment.clear();
    m_userAppName.clear();
    m_userAppVersion.clear();
    m_userAppCompany.clear();
}

int SYAppFile::FindVerdict() {
    SYSamData sam(m_database);
    sam.InvDataType = m_invDataType;
    sam.EstablishSystemRulesDb(SYInstallation::Path().GetPath());
    _SYSAM_RULE_DATA data;
    SYSamData::SYRULE_SOURCE source = SYSamData::RuleSourceNone;
    if (!sam.FindEffectiveRule(m_fileID, data, source))
        source = SYSamData::RuleSourceNone;
    m_state = SYFileVerdict(source, data.RuleType);
    if (m_state == AppFileNoRule)
        return 1;
    if (m_state == AppFileUserIdentified) {
        m_userAppName = data.AppName;
        m_userAppVersion = data.AppVersion;
        m_userAppCompany = data.AppCompany;
    }
    m_ruleComment = data.Comment;
    m_effectiveRuleID = source == SYSamData::RuleSourceUser ? data.RuleID : 0;
    return 1;
}

SYIdRuleItem* SYAppFile::GetIdRule(int index) const {
    return static_cast<SYIdRuleItem*>(m_idRules.GetAt(index));
}

SYIgnoreRuleItem* SYAppFile::GetIgnoreRule(int index) const {
    return static_cast<SYIgnoreRuleItem*>(m_ignoreRules.GetAt(index));
}
