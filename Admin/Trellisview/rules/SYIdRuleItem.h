#pragma once

#include <string>

#include "rules/SYSWRuleItem.h"

// An identification rule: files it covers belong to the named application.
class SYIdRuleItem : public SYSWRuleItem {
public:
    explicit SYIdRuleItem(SYListItemArray* array = nullptr);
    SYIdRuleItem(const SYIdRuleItem& other);
    SYIdRuleItem& operator=(const SYIdRuleItem& other);

    // Adds the application columns 4-6 (chained) and 11-13 (single keys). Against an ignore
    // rule it answers 0.
    int CompareTo(const SYListItem* item, int column, int ascending) const override;
    unsigned char RuleType() const override { return RuleTypeId; }

    const std::string& AppName() const { return m_appName; }
    void SetAppName(const std::string& name) { m_appName = name; }
    const std::string& AppVersion() const { return m_appVersion; }
    void SetAppVersion(const std::string& version) { m_appVersion = version; }
    const std::string& AppCompany() const { return m_appCompany; }
    void SetAppCompany(const std::string& company) { m_appCompany = company; }

    // The file row followed by application, version and company (one blank if empty).
    void MakeString(std::string& text) const;

    // Exact equality: case counts in every string and seconds count in the time.
    bool operator==(const SYIdRuleItem& other) const;
    bool operator!=(const SYIdRuleItem& other) const { return !(*this == other); }

private:
    int CompareAppKey(const SYIdRuleItem& other, int key) const;

    std::string m_appName;
    std::string m_appVersion;
    std::string m_appCompany;
};
