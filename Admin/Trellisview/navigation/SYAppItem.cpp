#include "navigation/SYAppItem.h"

#include <array>
#include <utility>

#include "outside/framework/SYString.h"

namespace {

enum Key { KeyName, KeyVersion, KeyType };

struct ColumnOrder {
    Key key;
    std::array<int, 2> furtherColumns; // -1: none
};

// Columns 0-2 chain into the bare-key columns 3-5.
constexpr std::array<ColumnOrder, 6> columnOrders{{
    {KeyName, {4, 5}},
    {KeyVersion, {3, 5}},
    {KeyType, {3, 4}},
    {KeyName, {-1, -1}},
    {KeyVersion, {-1, -1}},
    {KeyType, {-1, -1}},
}};

} // namespace

SYAppItem::SYAppItem(SYListItemArray* array) : SYListItem(array) {}

SYAppItem::SYAppItem(SYInventoryModel::AppRow row, std::uint8_t appType)
    : m_appID(row.appID), m_appType(appType), m_appName(std::move(row.name)),
      m_appVersion(std::move(row.version)), m_appNameInternal(std::move(row.nameInternal)) {}

SYAppItem::SYAppItem(SYInventoryModel::AppRow row, std::uint8_t appType,
                     const std::string& shownName)
    : SYAppItem(std::move(row), appType) {
    m_appName = shownName;
    m_appNameInternal = shownName;
}

SYAppItem::SYAppItem(const SYAppItem& other) : SYListItem() {
    *this = other;
}

SYAppItem& SYAppItem::operator=(const SYAppItem& other) {
    if (this == &other)
        return *this;
    SYListItem::operator=(other);
    SetAppID(other.AppID());
    SetAppType(other.AppType());
    SetAppName(other.AppName());
    SetAppVersion(other.AppVersion());
    SetAppNameInternal(other.AppNameInternal());
    return *this;
}

void SYAppItem::MakeString(std::string& text) const {
    text = m_appName + '\t' + m_appVersion;
}

int SYAppItem::CompareKey(const SYAppItem& other, int key) const {
    switch (key) {
    case KeyName:
        return SYStrICmp(m_appNameInternal, other.m_appNameInternal);
    case KeyVersion:
        return SYStrICmp(m_appVersion, other.m_appVersion);
    default:
        return m_appType < other.m_appType ? -1 : (m_appType > other.m_appType ? 1 : 0);
    }
}

int SYAppItem::CompareTo(const SYListItem* item, int column, int ascending) const {
    const auto* other = dynamic_cast<const SYAppItem*>(item);
    if (other == nullptr || column < 0 || column >= static_cast<int>(columnOrders.size()))
        return 0;
    const ColumnOrder& order = columnOrders[static_cast<std::size_t>(column)];
    int result = CompareKey(*other, order.key);
    // Each further call applies the direction itself, and the negation below undoes it:
    // tie-breaks stay ascending.
    for (int further : order.furtherColumns) {
        if (result != 0 || further < 0)
            break;
        result = CompareTo(item, further, ascending);
    }
    return ascending ? result : -result;
}
