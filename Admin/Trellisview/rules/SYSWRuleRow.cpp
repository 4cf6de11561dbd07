#include "rules/SYSWRuleRow.h"

#include "outside/store/SYSWRuleSet.h"

void SYSWRuleRow::ReadFileInfo(const SYSWRuleSet& set, SYAppFileItem& item) {
    item.SetFileID(set.RuleID());
    item.SetFileName(set.FileName());
    if (set.HaveFileSize())
        item.SetFileSize(set.FileSizeLo(), set.FileSizeHi());
    else
        item.ClearFileSize();
    if (set.HaveFileTime())
        item.SetModTime(set.FileTime());
    else
        item.ClearModTime();
}

void SYSWRuleRow::Read(const SYSWRuleSet& set, SYIdRuleItem& rule) {
    ReadFileInfo(set, rule);
    rule.SetAppName(set.AppName());
    rule.SetAppVersion(set.AppVersion());
    rule.SetAppCompany(set.AppCompany());
}

void SYSWRuleRow::Read(const SYSWRuleSet& set, SYIgnoreRuleItem& rule) {
    ReadFileInfo(set, rule);
    rule.SetComment(set.Comment());
}

void SYSWRuleRow::WriteFileInfo(SYSWRuleSet& set, const SYAppFileItem& item) {
    set.SetFileName(item.FileName());
    if (item.HaveFileSize()) {
        std::uint32_t lo = 0;
        std::uint32_t hi = 0;
        item.GetFileSize(lo, hi);
        set.SetFileSize(lo, hi);
    } else {
        set.ClearFileSize();
    }
    if (item.HaveModTime())
        set.SetFileTime(item.ModTime());
    else
        set.ClearFileTime();
}

void SYSWRuleRow::WriteOwnColumns(SYSWRuleSet& set, const SYIdRuleItem& rule) {
    set.SetAppName(rule.AppName());
    set.SetAppVersion(rule.AppVersion());
    set.SetAppCompany(rule.AppCompany());
}

void SYSWRuleRow::WriteOwnColumns(SYSWRuleSet& set, const SYIgnoreRuleItem& rule) {
    set.SetComment(rule.Comment());
}
