#include "outside/store/SYTransaction.h"

#include <sqlite3.h>

#include <string>

#include "outside/framework/CException.h"
#include "outside/store/SYDatabase.h"

namespace {

std::string savepoint(int level) {
    return "sy_savepoint_" + std::to_string(level);
}

// Kept prepared on the connection: a unit of work is begun and ended often, and its few texts
// need not be parsed each time.
void run(SYDatabase& database, const std::string& sql) {
    database.Cached(sql)->Execute();
}

} // namespace

SYTransaction::SYTransaction(SYDatabase& database)
    : m_database(database), m_level(database.m_transactionDepth) {
    // A read still open would turn the write lock into an upgrade, which the engine
    // refuses at once instead of waiting its turn.
    if (m_level == 0 && database.HaveRunningStatement())
        throw CDBException(SQLITE_MISUSE,
                           "A change to the inventory cannot begin while a read is still open.");
    run(database,
        m_level == 0 ? std::string("BEGIN IMMEDIATE") : "SAVEPOINT " + savepoint(m_level));
    ++database.m_transactionDepth;
}

void SYTransaction::Commit() {
    if (m_done)
        return;
    run(m_database, m_level == 0 ? std::string("COMMIT") : "RELEASE " + savepoint(m_level));
    m_done = true;
    --m_database.m_transactionDepth;
}

SYTransaction::~SYTransaction() {
    if (m_done)
        return;
    // Undoing bypasses the fault hook: a failed change must always be reversible.
    const std::string sql =
        m_level == 0 ? std::string("ROLLBACK")
                     : "ROLLBACK TO " + savepoint(m_level) + "; RELEASE " + savepoint(m_level);
    sqlite3_exec(m_database.Handle(), sql.c_str(), nullptr, nullptr, nullptr);
    --m_database.m_transactionDepth;
}
