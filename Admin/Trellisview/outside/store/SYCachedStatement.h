#pragma once

#include "outside/store/SYStatement.h"

// One use of a statement the database keeps prepared: the statement is reset when the use
// ends, so no read stays open behind the caller's back.
class SYCachedStatement {
public:
    explicit SYCachedStatement(SYStatement& statement, bool& inUse);
    SYCachedStatement(const SYCachedStatement&) = delete;
    SYCachedStatement& operator=(const SYCachedStatement&) = delete;
    ~SYCachedStatement();

    SYStatement& operator*() const { return m_statement; }
    SYStatement* operator->() const { return &m_statement; }

private:
    SYStatement& m_statement;
    bool& m_inUse;
};
