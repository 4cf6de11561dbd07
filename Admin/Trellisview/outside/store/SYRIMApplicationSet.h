#pragma once

#include <optional>
#include <string>

#include "outside/store/SYRecordset.h"

// The BlackBerry applications. Opening throws CDBException on a store without the
// "RIM Applications" table.
class SYRIMApplicationSet : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    void FilterForAppID(long appID);

    long AppID() const;
    std::string AppName() const;
    std::string AppVersion() const;

protected:
    void BuildQuery(SYSelect& select) const override;

private:
    std::optional<long> m_appID;
};
