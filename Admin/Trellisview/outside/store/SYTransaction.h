#pragma once

class SYDatabase;

// One unit of work: begun on construction, undone on destruction unless committed. Nested
// guards become savepoints of the outer transaction.
class SYTransaction {
public:
    explicit SYTransaction(SYDatabase& database);
    SYTransaction(const SYTransaction&) = delete;
    SYTransaction& operator=(const SYTransaction&) = delete;
    ~SYTransaction();

    void Commit();

private:
    SYDatabase& m_database;
    int m_level = 0;
    bool m_done = false;
};
