#include "outside/store/SYTableSet.h"

#include "outside/store/SYSelect.h"

void SYTableSet::FilterForTable(const std::string& name) {
    m_name = name;
    m_filtered = true;
}

void SYTableSet::BuildQuery(SYSelect& select) const {
    select.Columns("name");
    select.From("sqlite_master");
    select.Where("type = 'table'");
    if (m_filtered)
        select.Where("name = ? COLLATE NOCASE", m_name);
    select.OrderBy("name");
}

std::string SYTableSet::TableName() const {
    return FieldText("name");
}
