#pragma once

#include <cstdint>
#include <string>

#include "outside/framework/CTime.h"
#include "outside/framework/SYListItem.h"

// One Palm application on one device, a row of the Palm view's Clients page: where the
// application lies, its sizes, dates and counts.
class SYPalmApplicationInstallationSet;

class SYPalmAppDeviceItem : public SYListItem {
public:
    explicit SYPalmAppDeviceItem(SYListItemArray* array = nullptr);
    SYPalmAppDeviceItem(const SYPalmAppDeviceItem& other) = default;
    SYPalmAppDeviceItem& operator=(const SYPalmAppDeviceItem& other) = default;
    ~SYPalmAppDeviceItem() override = default;

    // Columns 0-9 as the list shows them. Client order goes on by DeviceID; every other
    // column goes on by client order ascending, whatever the direction.
    int CompareTo(const SYListItem* item, int column, int ascending) const override;

    // The ten cells, each followed by a tab: client, where, size, total size, the three
    // dates (none for 0), the two counts and the storage card path.
    void MakeString(std::string& text) const;
    // Takes the set's row: every member but DeviceID.
    void CopyInstallation(const SYPalmApplicationInstallationSet& installation);
    // "ROM", else "RAM" without a storage card path, else "Storage Card".
    const std::string& Where() const;

    std::uint32_t DeviceID() const { return m_deviceID; }
    void SetDeviceID(std::uint32_t id) { m_deviceID = id; }
    const std::string& ClientName() const { return m_clientName; }
    void SetClientName(const std::string& name) { m_clientName = name; }
    int InROM() const { return m_inROM; }
    void SetInROM(int inROM) { m_inROM = inROM; }
    std::uint32_t AppSize() const { return m_appSize; }
    void SetAppSize(std::uint32_t size) { m_appSize = size; }
    std::uint32_t TotalSize() const { return m_totalSize; }
    void SetTotalSize(std::uint32_t size) { m_totalSize = size; }
    CTime CreateDate() const { return m_createDate; }
    void SetCreateDate(const CTime& date) { m_createDate = date; }
    CTime ModifyDate() const { return m_modifyDate; }
    void SetModifyDate(const CTime& date) { m_modifyDate = date; }
    CTime BackupDate() const { return m_backupDate; }
    void SetBackupDate(const CTime& date) { m_backupDate = date; }
    std::uint32_t DatabaseCount() const { return m_databaseCount; }
    void SetDatabaseCount(std::uint32_t count) { m_databaseCount = count; }
    std::uint32_t RecordCount() const { return m_recordCount; }
    void SetRecordCount(std::uint32_t count) { m_recordCount = count; }
    const std::string& StorageCardPath() const { return m_storageCardPath; }
    void SetStorageCardPath(const std::string& path) { m_storageCardPath = path; }

private:
    int CompareKey(const SYPalmAppDeviceItem& other, int column) const;

    std::uint32_t m_deviceID = 0;
    std::string m_clientName;
    int m_inROM = 0;
    std::uint32_t m_appSize = 0;
    std::uint32_t m_totalSize = 0;
    CTime m_createDate;
    CTime m_modifyDate;
    CTime m_backupDate;
    std::uint32_t m_databaseCount = 0;
    std::uint32_t m_recordCount = 0;
    std::string m_storageCardPath;
};
