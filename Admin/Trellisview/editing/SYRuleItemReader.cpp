#include "editing/SYRuleItemReader.h"

#include "outside/store/SYSWRuleSet.h"

namespace {

void readStored(SYAppFileItem& item, const SYSWRuleSet& set) {
    item.SetItemType(ItemTypeRule);
    item.SetItemStatus(ItemStatusStored);
    item.SetFileID(static_cast<std::uint32_t>(set.RuleID()));
    SYRuleItemReader::ReadFileInfo(item, set);
}

} // namespace

void SYRuleItemReader::ReadFileInfo(SYAppFileItem& item, const SYSWRuleSet& set) {
    item.SetFileName(set.FileName());
    if (set.HaveFileSize())
        item.SetFileSize(static_cast<std::uint32_t>(set.FileSizeLo()),
                         static_cast<std::uint32_t>(set.FileSizeHi()));
    else
        item.ClearFileSize();
    if (set.HaveFileTime())
        item.SetModTime(set.FileTime());
    else
        item.ClearModTime();
}

void SYRuleItemReader::Read(SYIdRuleItem& item, const SYSWRuleSet& set) {
    readStored(item, set);
    item.SetAppName(set.AppName());
    item.SetAppVersion(set.AppVersion());
    item.SetAppCompany(set.AppCompany());
}

void SYRuleItemReader::Read(SYIgnoreRuleItem& item, const SYSWRuleSet& set) {
    readStored(item, set);
    item.SetComment(set.Comment());
}

std::unique_ptr<SYSWRuleItem> SYRuleItemReader::Read(const SYSWRuleSet& set) {
    if (set.RuleType() == RuleTypeIgnore) {
        auto rule = std::make_unique<SYIgnoreRuleItem>();
        Read(*rule, set);
        return rule;
    }
    auto rule = std::make_unique<SYIdRuleItem>();
    Read(*rule, set);
    return rule;
}
