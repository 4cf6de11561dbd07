#include "outside/store/SYSelect.h"

void SYSelect::Where(std::string condition, SYDbValue value) {
    m_where.push_back(std::move(condition));
    m_parameters.push_back(std::move(value));
}

void SYSelect::Where(std::string condition, SYDbValue first, SYDbValue second) {
    m_where.push_back(std::move(condition));
    m_parameters.push_back(std::move(first));
    m_parameters.push_back(std::move(second));
}

std::string SYSelect::Sql() const {
    std::string sql = "SELECT " + m_columns + " FROM " + m_from;
    for (std::size_t i = 0; i < m_where.size(); ++i)
        sql += (i == 0 ? " WHERE " : " AND ") + m_where[i];
    if (!m_groupBy.empty())
        sql += " GROUP BY " + m_groupBy;
    if (!m_orderBy.empty())
        sql += " ORDER BY " + m_orderBy;
    return sql;
}

bool SYSelect::SameText(const SYSelect& other) const {
    return m_columns == other.m_columns && m_from == other.m_from && m_where == other.m_where &&
           m_groupBy == other.m_groupBy && m_orderBy == other.m_orderBy;
}
