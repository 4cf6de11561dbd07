#pragma once

class SYDatabase;

// One unit of work: begun on construction, undone on destruction unless committed. Nested
// guards become savepoints of the outer transaction. The outermost one takes the write
// lock at once (waiting up to the busy timeout), so every write of the unit waits its
// turn rather than failing half-way; it must not begin while a read is open.
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
