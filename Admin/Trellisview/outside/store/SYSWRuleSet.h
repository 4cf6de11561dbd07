#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "outside/framework/CTime.h"
#include "outside/store/SYAutoIncRecordset.h"
#include "outside/store/SYStoreValue.h"

// User rules of one inventory (InvDataType 0 or 1): the rule rows of the inventory
// database, read and written. A rule has no size or time when they are NULL; the size
// halves then read as all ones and the time as 0.
//
// Row life (SYRuleState): added, modified by an edit in place, removed. A removed row is
// retired: it stays for history and is never active again (no filter of active rules, no
// rule service decision sees it); the store never deletes it.
class SYSWRuleSet : public SYAutoIncRecordset {
public:
    using SYAutoIncRecordset::SYAutoIncRecordset;

    void FilterForRuleID(unsigned long ruleID);
    // Rules not removed.
    void FilterForActiveRules();
    // Same name, without regard to ASCII case; no wildcards.
    void FilterForFileName(const std::string& name);
    void FilterForFileSize(unsigned long sizeLo, unsigned long sizeHi);
    void FilterForNullFileSize();
    // Rules whose time lies in the same minute as time.
    void FilterForFileTime(const CTime& time);
    void FilterForNullFileTime();

    // After Update of a new row: the new row's identifier, also after Close.
    unsigned long RuleID() const;
    unsigned char RuleState() const;
    unsigned char RuleType() const;
    std::string FileName() const;
    int HaveFileSize() const;
    std::uint64_t FileSize() const;
    unsigned long FileSizeLo() const;
    unsigned long FileSizeHi() const;
    int HaveFileTime() const;
    CTime FileTime() const;
    std::string AppName() const;
    std::string AppVersion() const;
    std::string AppCompany() const;
    std::string Comment() const;

    void SetRuleState(unsigned char state);
    void SetRuleType(unsigned char type);
    void SetFileName(const std::string& name);
    void SetFileSize(unsigned long sizeLo, unsigned long sizeHi);
    void ClearFileSize();
    // A time of 0 is no time and is stored as none.
    void SetFileTime(const CTime& time);
    void ClearFileTime();
    void SetAppName(const std::string& name);
    void SetAppVersion(const std::string& version);
    void SetAppCompany(const std::string& company);
    void SetComment(const std::string& comment);

protected:
    void BuildQuery(SYSelect& select) const override;
    const char* WriteTable() const override { return "SWRules"; }
    const char* WriteKey() const override { return "RuleID"; }
    void AddNewDefaults() override;

private:
    std::optional<unsigned long> m_ruleID;
    std::optional<std::string> m_fileName;
    std::optional<std::uint64_t> m_fileSize;
    std::optional<SYStoreValue::Range> m_fileTime;
    bool m_activeRules = false;
    bool m_nullFileSize = false;
    bool m_nullFileTime = false;
};
