#pragma once

#include <optional>
#include <string>

#include "outside/store/SYRecordset.h"

// The Palm applications, known by database name and creator id; the name may be empty.
class SYPalmApplicationSet : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    void FilterForAppID(long appID);

    long AppID() const;
    std::string AppName() const;
    std::string AppVersion() const;
    std::string DatabaseName() const;
    std::string CreatorID() const;

protected:
    void BuildQuery(SYSelect& select) const override;

private:
    std::optional<long> m_appID;
};
