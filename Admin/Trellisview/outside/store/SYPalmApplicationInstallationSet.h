#pragma once

#include <optional>
#include <string>

#include "outside/framework/CTime.h"
#include "outside/store/SYRecordset.h"

// Palm applications on devices: where each lies, with its sizes, dates and counts, in
// order of device. JoinDevices adds the client's name, JoinApplications the application's
// record.
class SYPalmApplicationInstallationSet : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    void FilterForAppID(long appID);
    void FilterForDeviceID(unsigned long deviceID);
    void JoinDevices();
    void JoinApplications();

    long AppID() const;
    unsigned long DeviceID() const;
    int InROM() const;
    unsigned long AppSize() const;
    unsigned long TotalSize() const;
    CTime CreateDate() const;
    CTime ModifyDate() const;
    CTime BackupDate() const;
    unsigned long DatabaseCount() const;
    unsigned long RecordCount() const;
    std::string StorageCardPath() const;
    // With JoinDevices; empty for a device that is gone.
    std::string ClientName() const;
    // With JoinApplications; empty for an application that is gone.
    std::string AppName() const;
    std::string AppVersion() const;
    std::string DatabaseName() const;
    std::string CreatorID() const;

protected:
    void BuildQuery(SYSelect& select) const override;

private:
    CTime TimeField(const char* name) const;

    std::optional<long> m_appID;
    std::optional<unsigned long> m_deviceID;
    bool m_joinDevices = false;
    bool m_joinApplications = false;
};
