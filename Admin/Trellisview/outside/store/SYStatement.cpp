#include "outside/store/SYStatement.h"

#include <sqlite3.h>

#include "outside/framework/CException.h"
#include "outside/store/SYDatabase.h"

SYStatement::SYStatement(SYDatabase& database, const std::string& sql)
    : m_database(database), m_sql(sql) {
    if (!database.IsOpen())
        throw CDBException(SQLITE_MISUSE, "The inventory database is not open.");
    const int rc = sqlite3_prepare_v2(database.Handle(), sql.c_str(), -1, &m_stmt, nullptr);
    if (rc != SQLITE_OK)
        Fail(rc);
    m_columns.reserve(static_cast<std::size_t>(ColumnCount()));
    for (int i = 0; i < ColumnCount(); ++i)
        m_columns.push_back(ColumnName(i));
}

SYStatement::~SYStatement() {
    sqlite3_finalize(m_stmt);
}

bool SYStatement::BelongsTo(const sqlite3* connection) const {
    return connection != nullptr && sqlite3_db_handle(m_stmt) == connection;
}

void SYStatement::Fail(int code) const {
    throw CDBException(code, m_database.Describe(code, sqlite3_errmsg(m_database.Handle())));
}

SYStatement& SYStatement::Bind(int index, std::int64_t value) {
    const int rc = sqlite3_bind_int64(m_stmt, index, value);
    if (rc != SQLITE_OK)
        Fail(rc);
    return *this;
}

SYStatement& SYStatement::Bind(int index, const std::string& value) {
    const int rc = sqlite3_bind_text(m_stmt, index, value.data(), static_cast<int>(value.size()),
                                     SQLITE_TRANSIENT);
    if (rc != SQLITE_OK)
        Fail(rc);
    return *this;
}

SYStatement& SYStatement::BindNull(int index) {
    const int rc = sqlite3_bind_null(m_stmt, index);
    if (rc != SQLITE_OK)
        Fail(rc);
    return *this;
}

SYStatement& SYStatement::Bind(int index, const SYDbValue& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value))
        return Bind(index, *number);
    if (const auto* text = std::get_if<std::string>(&value))
        return Bind(index, *text);
    return BindNull(index);
}

bool SYStatement::Step() {
    if (!m_running) {
        m_database.CheckFault(m_sql);
        m_running = true;
    }
    const int rc = sqlite3_step(m_stmt);
    if (rc == SQLITE_ROW)
        return true;
    if (rc == SQLITE_DONE)
        return false;
    sqlite3_reset(m_stmt);
    m_running = false;
    Fail(rc);
}

void SYStatement::Execute() {
    while (Step()) {
    }
    Reset();
}

void SYStatement::Reset() {
    sqlite3_reset(m_stmt);
    sqlite3_clear_bindings(m_stmt);
    m_running = false;
}

int SYStatement::ColumnCount() const {
    return sqlite3_column_count(m_stmt);
}

std::string SYStatement::ColumnName(int column) const {
    const char* name = sqlite3_column_name(m_stmt, column);
    return name == nullptr ? std::string() : std::string(name);
}

int SYStatement::ColumnIndex(std::string_view name) const {
    for (std::size_t i = 0; i < m_columns.size(); ++i)
        if (m_columns[i] == name)
            return static_cast<int>(i);
    return -1;
}

bool SYStatement::IsNull(int column) const {
    return sqlite3_column_type(m_stmt, column) == SQLITE_NULL;
}

std::int64_t SYStatement::Int64(int column) const {
    return sqlite3_column_int64(m_stmt, column);
}

std::string SYStatement::Text(int column) const {
    return std::string(TextView(column));
}

std::string_view SYStatement::TextView(int column) const {
    const auto* text = sqlite3_column_text(m_stmt, column);
    if (text == nullptr)
        return {};
    return {reinterpret_cast<const char*>(text),
            static_cast<std::size_t>(sqlite3_column_bytes(m_stmt, column))};
}

SYDbValue SYStatement::Value(int column) const {
    switch (sqlite3_column_type(m_stmt, column)) {
    case SQLITE_NULL:
        return std::monostate{};
    case SQLITE_INTEGER:
        return Int64(column);
    default:
        return Text(column);
    }
}
