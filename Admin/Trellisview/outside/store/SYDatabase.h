#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "outside/store/SYCachedStatement.h"
#include "outside/store/SYStatement.h"

struct sqlite3;

// The open inventory store, owned by the console. A thin boundary over the engine: record
// sets and services speak to it through SYStatement and SYTransaction only.
//
// Open refuses a file that is not an inventory or whose schema is newer than this program
// knows, with a CDBException, before anything is written to it; an older one is upgraded
// in place, in one transaction. Opened for writing, a file is switched to WAL mode after
// that, so a scanner can write while a console reads. Every connection waits for the
// busy timeout when another one holds the file locked; failures that name a lock or
// damage say so in words, never in SQL.
class SYDatabase {
public:
    enum class OpenMode {
        // Checked, upgraded, then switched to WAL mode.
        Write,
        // Checked and upgraded; the journal mode stays as the file has it, so a file that
        // is only read is not rewritten.
        Read,
        // A read-only connection: nothing is written, an older schema is refused.
        ReadOnly,
    };

    static constexpr int DefaultBusyTimeoutMs = 5000;

    SYDatabase();
    SYDatabase(const SYDatabase&) = delete;
    SYDatabase& operator=(const SYDatabase&) = delete;
    ~SYDatabase();

    // An existing inventory. Nonzero on success; failures throw CDBException. A nonzero
    // quickCheck refuses a damaged file before it is upgraded or used.
    int Open(const std::string& path, OpenMode mode = OpenMode::Write, int quickCheck = 0);
    // A new, empty inventory at a path where no database stands yet. Without withRIMTables
    // the store has no "RIM Applications" table, as older stores lack it.
    int Create(const std::string& path, bool withRIMTables = true);
    // A new, empty system rules database (see SYInventorySchema) at a path where no
    // database stands yet.
    int CreateSystemRules(const std::string& path);
    // A new, empty inventory in memory, gone on Close.
    int OpenMemory(bool withRIMTables = true);
    void Close();

    bool IsOpen() const { return m_db != nullptr; }
    bool IsReadOnly() const;
    const std::string& Path() const { return m_path; }

    // Runs SQL that gives no rows (several statements may be given).
    void Exec(const std::string& sql);
    // A statement prepared once per connection, for one use at a time.
    SYCachedStatement Cached(const std::string& sql);
    // For a record set's run, which may last long: an idle statement of this text that
    // the database kept, else a new one. Kept statements are reset; one per text is kept.
    std::unique_ptr<SYStatement> TakeStatement(const std::string& sql);
    void KeepStatement(std::unique_ptr<SYStatement> statement);
    std::int64_t LastInsertID() const;
    int Changes() const;
    bool HaveTable(const std::string& name);
    bool InTransaction() const { return m_transactionDepth > 0; }

    // How long a statement waits for another connection's lock; kept across Open.
    void SetBusyTimeout(int milliseconds);
    int BusyTimeout() const { return m_busyTimeoutMs; }
    // The engine's quick consistency check: "ok", or the first problem it found.
    std::string QuickCheck();
    // The words for a failure of the engine: a lock held past the timeout and a damaged
    // file are named as such (damage after a quick check).
    std::string Describe(int code, const std::string& engineMessage);

    // The system rules database (see SYInventorySchema), attached read-only under the
    // schema name "sysrules". AttachSystemRules gives false if the file does not exist;
    // a file that is not a system rules database throws CDBException.
    bool AttachSystemRules(const std::string& nativePath);
    void DetachSystemRules();
    bool HaveSystemRules() const { return !m_systemRulesPath.empty(); }
    const std::string& SystemRulesPath() const { return m_systemRulesPath; }

    // Fault hook for tests: the nth statement run from now on fails with a CDBException
    // carrying code. Rollbacks are never failed, so a failed change can always be undone.
    void FailStatement(int nth = 1, int code = 10);
    void ClearFault() { m_faultCountdown = 0; }
    // True while an armed fault has not fired yet.
    bool HaveFaultPending() const { return m_faultCountdown > 0; }

    // Engine handle for the driver's own classes.
    sqlite3* Handle() const { return m_db; }

private:
    friend class SYStatement;
    friend class SYTransaction;

    void OpenConnection(const std::string& path, int flags, bool unchanging = false);
    void OpenReadOnly(const std::string& path);
    void ConfigureFile();
    void CheckReadable();
    void Upgrade();
    void RefuseUpgrade();
    void RefuseDamage();
    void UseWal();
    // True while a statement of this connection is between its first step and its reset.
    bool HaveRunningStatement() const;
    void CheckFault(const std::string& sql);

    sqlite3* m_db = nullptr;
    std::string m_path;
    std::string m_systemRulesPath;
    struct CacheEntry {
        std::unique_ptr<SYStatement> statement;
        bool inUse = false;
    };
    std::map<std::string, CacheEntry> m_cache;
    std::map<std::string, std::unique_ptr<SYStatement>> m_idle;
    int m_transactionDepth = 0;
    int m_busyTimeoutMs = DefaultBusyTimeoutMs;
    bool m_checkingDamage = false;
    int m_faultCountdown = 0;
    int m_faultCode = 0;
};
