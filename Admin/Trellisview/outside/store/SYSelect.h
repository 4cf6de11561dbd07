#pragma once

#include <string>
#include <vector>

#include "outside/store/SYStatement.h"

// A SELECT built from a record set's joins, filters and sort. Conditions hold '?'
// placeholders; their values are kept in the order the conditions were added, so values
// are always bound and never pasted into the text.
class SYSelect {
public:
    void Columns(std::string columns) { m_columns = std::move(columns); }
    void From(std::string from) { m_from = std::move(from); }
    void Join(const std::string& join) { m_from += " " + join; }
    void Where(std::string condition) { m_where.push_back(std::move(condition)); }
    void Where(std::string condition, SYDbValue value);
    void Where(std::string condition, SYDbValue first, SYDbValue second);
    void GroupBy(std::string group) { m_groupBy = std::move(group); }
    void OrderBy(std::string order) { m_orderBy = std::move(order); }

    std::string Sql() const;
    // Whether both give the same text, found without writing either.
    bool SameText(const SYSelect& other) const;
    const std::vector<SYDbValue>& Parameters() const { return m_parameters; }

private:
    std::string m_columns;
    std::string m_from;
    std::vector<std::string> m_where;
    std::string m_groupBy;
    std::string m_orderBy;
    std::vector<SYDbValue> m_parameters;
};
