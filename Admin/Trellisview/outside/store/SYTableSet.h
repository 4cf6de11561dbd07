#pragma once

#include <optional>
#include <string>

#include "outside/store/SYRecordset.h"

// The tables of the store; with FilterForTable, the one table of that exact name, so a set
// at its end after opening means the table does not exist.
class SYTableSet : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    void FilterForTable(const std::string& name) { m_name = name; }
    std::string TableName() const;

protected:
    void BuildQuery(SYSelect& select) const override;

private:
    std::optional<std::string> m_name;
};
