#include "outside/store/SYTableSet.h"

void SYTableSet::BuildQuery(SYSelect& select) const {
    select.Columns("name AS TableName");
    select.From("main.sqlite_master");
    select.Where("type = 'table'");
    if (m_name)
        select.Where("name = ?", *m_name);
    select.OrderBy("name");
}

std::string SYTableSet::TableName() const {
    return FieldText("TableName");
}
