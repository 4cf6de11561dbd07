#include "outside/store/SYEnumerator.h"

#include "outside/framework/CException.h"
#include "outside/store/SYDatabase.h"

SYEnumerator::~SYEnumerator() {
    Release();
}

// Hands the statement back to the database, which keeps it prepared for the next walk.
void SYEnumerator::Release() {
    if (m_statement)
        m_database->KeepStatement(std::move(m_statement));
    m_haveRow = false;
}

int SYEnumerator::Begin(const std::string& sql, const SYDbValue& parameter) {
    if (m_database == nullptr)
        throw CInvalidArgException("An application enumerator needs a database.");
    Release();
    m_statement = m_database->TakeStatement(sql);
    if (!std::holds_alternative<std::monostate>(parameter))
        m_statement->Bind(1, parameter);
    m_haveRow = m_statement->Step();
    if (!m_haveRow)
        Release();
    return m_haveRow ? 1 : 0;
}

void SYEnumerator::EndEnumApps() {
    Release();
}
