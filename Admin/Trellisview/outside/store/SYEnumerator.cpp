#include "outside/store/SYEnumerator.h"

#include "outside/framework/CException.h"
#include "outside/store/SYDatabase.h"

SYEnumerator::~SYEnumerator() = default;

int SYEnumerator::Begin(const std::string& sql, const SYDbValue& parameter) {
    if (m_database == nullptr)
        throw CInvalidArgException("An application enumerator needs a database.");
    m_statement = std::make_unique<SYStatement>(*m_database, sql);
    if (!std::holds_alternative<std::monostate>(parameter))
        m_statement->Bind(1, parameter);
    m_haveRow = m_statement->Step();
    if (!m_haveRow)
        m_statement.reset();
    return m_haveRow ? 1 : 0;
}

void SYEnumerator::EndEnumApps() {
    m_statement.reset();
    m_haveRow = false;
}
