#include "outside/store/SYCachedStatement.h"

#include "outside/framework/CException.h"

SYCachedStatement::SYCachedStatement(SYStatement& statement, bool& inUse)
    : m_statement(statement), m_inUse(inUse) {
    if (m_inUse)
        throw CDBException(21, "A cached statement is already in use: " + statement.Sql());
    m_inUse = true;
    m_statement.Reset();
}

SYCachedStatement::~SYCachedStatement() {
    m_statement.Reset();
    m_inUse = false;
}
