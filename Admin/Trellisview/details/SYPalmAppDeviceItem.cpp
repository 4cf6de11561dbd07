#include "details/SYPalmAppDeviceItem.h"

#include "outside/framework/SYString.h"
#include "outside/services/SYDiskSize.h"
#include "outside/services/SYLocaleInfo.h"
#include "outside/services/SYStringTable.h"
#include "outside/store/SYPalmApplicationInstallationSet.h"
#include "resources/SYResourceIds.h"

namespace {

constexpr int ColumnClient = 0;
constexpr int ColumnWhere = 1;
constexpr int ColumnSize = 2;
constexpr int ColumnTotalSize = 3;
constexpr int ColumnCreateDate = 4;
constexpr int ColumnModifyDate = 5;
constexpr int ColumnBackupDate = 6;
constexpr int ColumnDatabaseCount = 7;
constexpr int ColumnRecordCount = 8;
constexpr int ColumnStorageCardPath = 9;

struct WhereTexts {
    std::string rom = SYStringTable::Get(IDS_WHERE_ROM);
    std::string ram = SYStringTable::Get(IDS_WHERE_RAM);
    std::string storageCard = SYStringTable::Get(IDS_WHERE_STORAGE_CARD);
};

// Loaded when the first item is made, kept for the life of the process.
const WhereTexts& whereTexts() {
    static const WhereTexts texts;
    return texts;
}

template <class T> int order(const T& a, const T& b) {
    return a < b ? -1 : (b < a ? 1 : 0);
}

int sign(int value) {
    return order(value, 0);
}

} // namespace

SYPalmAppDeviceItem::SYPalmAppDeviceItem(SYListItemArray* array) : SYListItem(array) {
    whereTexts();
}

int SYPalmAppDeviceItem::CompareKey(const SYPalmAppDeviceItem& other, int column) const {
    switch (column) {
    case ColumnClient:
        if (const int byName = sign(SYStrICmp(m_clientName, other.m_clientName)); byName != 0)
            return byName;
        return order(m_deviceID, other.m_deviceID);
    case ColumnWhere:
        return order(m_inROM != 0, other.m_inROM != 0);
    case ColumnSize:
        return order(m_appSize, other.m_appSize);
    case ColumnTotalSize:
        return order(m_totalSize, other.m_totalSize);
    case ColumnCreateDate:
        return order(m_createDate, other.m_createDate);
    case ColumnModifyDate:
        return order(m_modifyDate, other.m_modifyDate);
    case ColumnBackupDate:
        return order(m_backupDate, other.m_backupDate);
    case ColumnDatabaseCount:
        return order(m_databaseCount, other.m_databaseCount);
    case ColumnRecordCount:
        return order(m_recordCount, other.m_recordCount);
    case ColumnStorageCardPath:
        return order(m_storageCardPath, other.m_storageCardPath);
    default:
        return 0;
    }
}

int SYPalmAppDeviceItem::CompareTo(const SYListItem* item, int column, int ascending) const {
    const auto* other = dynamic_cast<const SYPalmAppDeviceItem*>(item);
    if (other == nullptr || column < ColumnClient || column > ColumnStorageCardPath)
        return 0;
    if (const int result = CompareKey(*other, column); result != 0)
        return ascending != 0 ? result : -result;
    return column == ColumnClient ? 0 : CompareKey(*other, ColumnClient);
}

void SYPalmAppDeviceItem::CopyInstallation(const SYPalmApplicationInstallationSet& installation) {
    m_clientName = installation.ClientName();
    m_inROM = installation.InROM();
    m_appSize = static_cast<std::uint32_t>(installation.AppSize());
    m_totalSize = static_cast<std::uint32_t>(installation.TotalSize());
    m_createDate = installation.CreateDate();
    m_modifyDate = installation.ModifyDate();
    m_backupDate = installation.BackupDate();
    m_databaseCount = static_cast<std::uint32_t>(installation.DatabaseCount());
    m_recordCount = static_cast<std::uint32_t>(installation.RecordCount());
    m_storageCardPath = installation.StorageCardPath();
}

const std::string& SYPalmAppDeviceItem::Where() const {
    const WhereTexts& texts = whereTexts();
    if (m_inROM != 0)
        return texts.rom;
    return m_storageCardPath.empty() ? texts.ram : texts.storageCard;
}

void SYPalmAppDeviceItem::MakeString(std::string& text) const {
    const std::string cells[] = {m_clientName,
                                 Where(),
                                 SYDiskSize::MakeAutoString(m_appSize),
                                 SYDiskSize::MakeAutoString(m_totalSize),
                                 SYLocaleInfo::FormatDateAndTime(m_createDate, 0, 0),
                                 SYLocaleInfo::FormatDateAndTime(m_modifyDate, 0, 0),
                                 SYLocaleInfo::FormatDateAndTime(m_backupDate, 0, 0),
                                 SYLocaleInfo::FormatNumber(m_databaseCount),
                                 SYLocaleInfo::FormatNumber(m_recordCount),
                                 m_storageCardPath};
    text.clear();
    for (const std::string& cell : cells)
        text += cell + '\t';
}
