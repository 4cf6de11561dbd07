#pragma once

#include <string>

#include "outside/framework/SYListItem.h"

// One company as a list row or tree node. InternalName is the key that is compared and
// handed on; DisplayName is what the user sees. An empty InternalName stands for files
// without a company.
class SYCompanyItem : public SYListItem {
public:
    explicit SYCompanyItem(SYListItemArray* array = nullptr);
    SYCompanyItem(const SYCompanyItem& other);
    SYCompanyItem& operator=(const SYCompanyItem& other);

    // Columns 0 and 1 order by InternalName, without regard to case.
    int CompareTo(const SYListItem* item, int column, int ascending) const override;

    const std::string& DisplayName() const { return m_displayName; }
    void SetDisplayName(const std::string& name) { m_displayName = name; }
    const std::string& InternalName() const { return m_internalName; }
    void SetInternalName(const std::string& name) { m_internalName = name; }
    void GetDisplayName(std::string& name) const { name = m_displayName; }

private:
    std::string m_displayName;
    std::string m_internalName;
};
