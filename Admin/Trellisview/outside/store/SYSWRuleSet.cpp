#include "outside/store/SYSWRuleSet.h"

#include "outside/store/SYFileVerdict.h"
#include "outside/store/SYInventorySchema.h"

void SYSWRuleSet::FilterForRuleID(unsigned long ruleID) {
    m_ruleID = ruleID;
}

void SYSWRuleSet::FilterForActiveRules() {
    m_activeRules = true;
}

void SYSWRuleSet::FilterForFileName(const std::string& name) {
    m_fileName = name;
}

void SYSWRuleSet::FilterForFileSize(unsigned long sizeLo, unsigned long sizeHi) {
    m_fileSize = SYStoreValue::Size(sizeLo, sizeHi);
    m_nullFileSize = false;
}

void SYSWRuleSet::FilterForNullFileSize() {
    m_nullFileSize = true;
    m_fileSize.reset();
}

void SYSWRuleSet::FilterForFileTime(const CTime& time) {
    m_fileTime = SYStoreValue::SameMinute(time);
    m_nullFileTime = time.IsNull();
}

void SYSWRuleSet::FilterForNullFileTime() {
    m_nullFileTime = true;
    m_fileTime.reset();
}

void SYSWRuleSet::BuildQuery(SYSelect& select) const {
    SYInventorySchema::CheckFileInventory(InvDataType);
    select.Columns("RuleID, InvDataType, RuleState, RuleType, FileName, FileSize, FileTime, "
                   "AppName, AppVersion, AppCompany, Comment");
    select.From("SWRules");
    const bool narrowed = m_ruleID || m_activeRules || m_fileName || m_fileSize || m_nullFileSize ||
                          m_nullFileTime || m_fileTime;
    // Unnarrowed, the rows come in RuleID order straight from the table, so the first one
    // stands at once rather than after every rule of the inventory was sorted.
    select.Where(narrowed ? "InvDataType = ?" : "+InvDataType = ?", std::int64_t{InvDataType});
    if (m_ruleID)
        select.Where("RuleID = ?", std::int64_t{static_cast<std::int64_t>(*m_ruleID)});
    if (m_activeRules)
        select.Where(SYActiveRuleSql("RuleState"));
    if (m_fileName)
        select.Where("FileName = ?", *m_fileName);
    if (m_fileSize)
        select.Where("FileSize = ?", SYStoreValue::FromSize(*m_fileSize));
    if (m_nullFileSize)
        select.Where("FileSize IS NULL");
    if (m_nullFileTime)
        select.Where("FileTime IS NULL");
    else if (m_fileTime)
        select.Where("FileTime BETWEEN ? AND ?", m_fileTime->first, m_fileTime->last);
    select.OrderBy("RuleID");
}

void SYSWRuleSet::AddNewDefaults() {
    SYInventorySchema::CheckFileInventory(InvDataType);
    SetField("InvDataType", std::int64_t{InvDataType});
}

unsigned long SYSWRuleSet::RuleID() const {
    if (HaveNewID())
        return NewID();
    return static_cast<unsigned long>(FieldInt("RuleID"));
}

unsigned char SYSWRuleSet::RuleState() const {
    return static_cast<unsigned char>(FieldInt("RuleState"));
}

unsigned char SYSWRuleSet::RuleType() const {
    return static_cast<unsigned char>(FieldInt("RuleType"));
}

std::string SYSWRuleSet::FileName() const {
    return FieldText("FileName");
}

int SYSWRuleSet::HaveFileSize() const {
    return FieldIsNull("FileSize") ? 0 : 1;
}

std::uint64_t SYSWRuleSet::FileSize() const {
    return HaveFileSize() ? SYStoreValue::ToSize(FieldInt("FileSize")) : ~std::uint64_t{0};
}

unsigned long SYSWRuleSet::FileSizeLo() const {
    return SYStoreValue::Lo(FileSize());
}

unsigned long SYSWRuleSet::FileSizeHi() const {
    return SYStoreValue::Hi(FileSize());
}

int SYSWRuleSet::HaveFileTime() const {
    return FieldIsNull("FileTime") ? 0 : 1;
}

CTime SYSWRuleSet::FileTime() const {
    return CTime(static_cast<std::int32_t>(FieldInt("FileTime")));
}

std::string SYSWRuleSet::AppName() const {
    return FieldText("AppName");
}

std::string SYSWRuleSet::AppVersion() const {
    return FieldText("AppVersion");
}

std::string SYSWRuleSet::AppCompany() const {
    return FieldText("AppCompany");
}

std::string SYSWRuleSet::Comment() const {
    return FieldText("Comment");
}

void SYSWRuleSet::SetRuleState(unsigned char state) {
    SetField("RuleState", std::int64_t{state});
}

void SYSWRuleSet::SetRuleType(unsigned char type) {
    SetField("RuleType", std::int64_t{type});
}

void SYSWRuleSet::SetFileName(const std::string& name) {
    SetField("FileName", name);
}

void SYSWRuleSet::SetFileSize(unsigned long sizeLo, unsigned long sizeHi) {
    SetField("FileSize", SYStoreValue::FromSize(SYStoreValue::Size(sizeLo, sizeHi)));
}

void SYSWRuleSet::ClearFileSize() {
    SetField("FileSize", std::monostate{});
}

void SYSWRuleSet::SetFileTime(const CTime& time) {
    if (time.IsNull()) {
        ClearFileTime();
        return;
    }
    SetField("FileTime", std::int64_t{time.GetTime()});
}

void SYSWRuleSet::ClearFileTime() {
    SetField("FileTime", std::monostate{});
}

void SYSWRuleSet::SetAppName(const std::string& name) {
    SetField("AppName", name);
}

void SYSWRuleSet::SetAppVersion(const std::string& version) {
    SetField("AppVersion", version);
}

void SYSWRuleSet::SetAppCompany(const std::string& company) {
    SetField("AppCompany", company);
}

void SYSWRuleSet::SetComment(const std::string& comment) {
    SetField("Comment", comment);
}
