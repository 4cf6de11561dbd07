#include "rules/SYIdRuleItem.h"

#include "outside/framework/SYString.h"

namespace {

constexpr int KeyItemType = 7;
constexpr int KeyAppName = 11;
constexpr int KeyAppVersion = 12;
constexpr int KeyAppCompany = 13;

// Chained application columns 4-6 and their tie-breaks.
constexpr int TieBreaks[3][3] = {
    {KeyAppVersion, KeyAppCompany, KeyItemType},
    {KeyAppName, KeyAppCompany, KeyItemType},
    {KeyAppName, KeyAppVersion, KeyItemType},
};

bool isAppColumn(int column) {
    return (column >= 4 && column <= 6) || (column >= KeyAppName && column <= KeyAppCompany);
}

bool isFileColumn(int column) {
    return (column >= 0 && column <= 3) || (column >= KeyItemType && column <= 10);
}

} // namespace

SYIdRuleItem::SYIdRuleItem(SYListItemArray* array) : SYSWRuleItem(array) {}

SYIdRuleItem::SYIdRuleItem(const SYIdRuleItem& other)
    : SYSWRuleItem(other), m_appName(other.m_appName), m_appVersion(other.m_appVersion),
      m_appCompany(other.m_appCompany) {}

SYIdRuleItem& SYIdRuleItem::operator=(const SYIdRuleItem& other) {
    SYSWRuleItem::operator=(other);
    m_appName = other.m_appName;
    m_appVersion = other.m_appVersion;
    m_appCompany = other.m_appCompany;
    return *this;
}

int SYIdRuleItem::CompareTo(const SYListItem* item, int column, int ascending) const {
    if (item == nullptr)
        return 0;
    const auto* rule = dynamic_cast<const SYSWRuleItem*>(item);
    if (rule != nullptr && rule->RuleType() != RuleTypeId)
        return 0;
    const auto* other = dynamic_cast<const SYIdRuleItem*>(item);
    // A row without application strings (a plain file) orders as a file row.
    if (isFileColumn(column) || (other == nullptr && isAppColumn(column)))
        return SYAppFileItem::CompareTo(item, column, ascending);
    if (!isAppColumn(column))
        return 0;
    const int key = column < KeyAppName ? column - 4 + KeyAppName : column;
    int raw = CompareAppKey(*other, key);
    for (int i = 0; raw == 0 && column < KeyAppName && i < 3; ++i)
        raw = CompareTo(item, TieBreaks[column - 4][i], ascending);
    return ascending ? raw : -raw;
}

int SYIdRuleItem::CompareAppKey(const SYIdRuleItem& other, int key) const {
    switch (key) {
    case KeyAppName:
        return SYStrICmp(m_appName, other.m_appName);
    case KeyAppVersion:
        return SYStrICmp(m_appVersion, other.m_appVersion);
    default:
        return SYStrICmp(m_appCompany, other.m_appCompany);
    }
}

void SYIdRuleItem::MakeString(std::string& text) const {
    SYAppFileItem::MakeString(text);
    text += '\t';
    text += m_appName;
    text += '\t';
    text += m_appVersion;
    text += '\t';
    text += m_appCompany.empty() ? std::string(" ") : m_appCompany;
}

bool SYIdRuleItem::operator==(const SYIdRuleItem& other) const {
    return SameFileInfo(other) && m_appName == other.m_appName &&
           m_appVersion == other.m_appVersion && m_appCompany == other.m_appCompany;
}
