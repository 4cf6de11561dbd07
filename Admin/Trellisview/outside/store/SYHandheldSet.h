#pragma once

#include <optional>
#include <string>

#include "outside/framework/CTime.h"
#include "outside/store/SYRecordset.h"

// The handheld devices of every platform, with the time of their last software scan.
class SYHandheldSet : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    void FilterForDeviceID(unsigned long deviceID);

    unsigned long DeviceID() const;
    std::string DeviceName() const;
    int HaveLastSWInvTime() const;
    CTime LastSWInvTime() const;

protected:
    void BuildQuery(SYSelect& select) const override;

private:
    std::optional<unsigned long> m_deviceID;
};
