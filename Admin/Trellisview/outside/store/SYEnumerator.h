#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "outside/store/SYSWInvObject.h"
#include "outside/store/SYStatement.h"

class SYDatabase;

// Common walk of the application enumerators: Begin runs the query and tells whether a
// row is there; each Advance hands out the row that stands and moves on.
class SYEnumerator : public SYSWInvObject {
public:
    SYEnumerator() = default;
    explicit SYEnumerator(SYDatabase* database) : m_database(database) {}
    SYEnumerator(const SYEnumerator&) = delete;
    SYEnumerator& operator=(const SYEnumerator&) = delete;
    ~SYEnumerator() override;

    void SetDatabase(SYDatabase* database) { m_database = database; }
    void EndEnumApps();

protected:
    // Nonzero if the query gives a row; throws CDBException on a failure of the store.
    int Begin(const std::string& sql, const SYDbValue& parameter = {});
    // Copies the standing row through read, then moves on; 0 when no row stands.
    template <typename Read> int Advance(Read read) {
        if (!m_statement || !m_haveRow)
            return 0;
        read(*m_statement);
        m_haveRow = m_statement->Step();
        return 1;
    }

private:
    void Release();

    SYDatabase* m_database = nullptr;
    std::unique_ptr<SYStatement> m_statement;
    bool m_haveRow = false;
};
