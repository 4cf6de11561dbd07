#pragma once

#include <string>

#include "outside/store/SYRecordset.h"

// The tables of the store: a set filtered for one name is at its end at once if the store
// has no such table. Names compare as the engine does, without regard to ASCII case.
class SYTableSet : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    void FilterForTable(const std::string& name);

    std::string TableName() const;

protected:
    void BuildQuery(SYSelect& select) const override;

private:
    std::string m_name;
    bool m_filtered = false;
};
