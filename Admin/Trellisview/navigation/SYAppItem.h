#pragma once

#include <cstdint>
#include <string>

#include "outside/framework/SYListItem.h"
#include "outside/store/SYInventoryModel.h"

// One application as a row of the inventory list, or while the tree reads and sorts a
// branch. Sorting goes by the internal name, showing by AppName.
class SYAppItem : public SYListItem {
public:
    // Platform codes of an application. Not the inventory data type: there 1 is Windows CE
    // and 2 is Palm.
    enum : std::uint8_t {
        AppTypeWindows = 0,
        AppTypePalm = 1,
        AppTypePPC = 2,
        AppTypeRIM = 3,
    };

    explicit SYAppItem(SYListItemArray* array = nullptr);
    // An application the inventory model read, of the given platform code.
    SYAppItem(SYInventoryModel::AppRow row, std::uint8_t appType);
    // A Palm or BlackBerry application, which shows and sorts by the one name given.
    SYAppItem(SYInventoryModel::AppRow row, std::uint8_t appType, const std::string& shownName);
    SYAppItem(const SYAppItem& other);
    SYAppItem& operator=(const SYAppItem& other);
    ~SYAppItem() override = default;

    // Columns 0 to 2 chain further keys (lists pass their column straight in), 3 to 5 are
    // the bare keys. Descending reverses the first key only.
    int CompareTo(const SYListItem* item, int column, int ascending) const override;

    // Name, tab, version: the row of the "Name\tVersion" columns.
    void MakeString(std::string& text) const;

    std::uint32_t AppID() const { return m_appID; }
    std::uint8_t AppType() const { return m_appType; }
    const std::string& AppName() const { return m_appName; }
    const std::string& AppVersion() const { return m_appVersion; }
    const std::string& AppNameInternal() const { return m_appNameInternal; }

    void SetAppID(std::uint32_t id) { m_appID = id; }
    void SetAppType(std::uint8_t type) { m_appType = type; }
    void SetAppName(const std::string& name) { m_appName = name; }
    void SetAppVersion(const std::string& version) { m_appVersion = version; }
    void SetAppNameInternal(const std::string& name) { m_appNameInternal = name; }

private:
    int CompareKey(const SYAppItem& other, int key) const;

    std::uint32_t m_appID = 0;
    std::uint8_t m_appType = AppTypeWindows;
    std::string m_appName;
    std::string m_appVersion;
    std::string m_appNameInternal;
};
