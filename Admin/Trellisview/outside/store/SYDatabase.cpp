#include "outside/store/SYDatabase.h"

#include <sqlite3.h>

#include <filesystem>

#include "outside/framework/CException.h"
#include "outside/store/SYInventorySchema.h"
#include "outside/store/SYTransaction.h"

namespace {

// A file name as an SQLite URI path: every byte outside the unreserved set is escaped, so
// that a name which looks like a URI ("file:...") is still the file of that name.
std::string uriPath(const std::string& path, const char* query) {
    static const char* const hex = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        const bool plain = (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
                           (byte >= '0' && byte <= '9') || c == '/' || c == '-' || c == '_' ||
                           c == '.' || c == '~';
        if (plain) {
            uri.push_back(c);
            continue;
        }
        uri.push_back('%');
        uri.push_back(hex[byte >> 4]);
        uri.push_back(hex[byte & 0xF]);
    }
    return uri + query;
}

bool fileHasContent(const std::string& path) {
    std::error_code error;
    const auto size = std::filesystem::file_size(path, error);
    return !error && size > 0;
}

std::string inQuotes(const std::string& path) {
    return "\"" + path + "\"";
}

} // namespace

SYDatabase::SYDatabase() = default;

SYDatabase::~SYDatabase() {
    Close();
}

void SYDatabase::OpenConnection(const std::string& path, int flags, bool unchanging) {
    Close();
    const bool memory = (flags & SQLITE_OPEN_MEMORY) != 0;
    const bool readOnly = (flags & SQLITE_OPEN_READONLY) != 0;
    const char* query = !readOnly ? "" : unchanging ? "?mode=ro&immutable=1" : "?mode=ro";
    const std::string name = memory ? path : uriPath(path, query);
    const int rc = sqlite3_open_v2(name.c_str(), &m_db, flags | SQLITE_OPEN_URI, nullptr);
    if (rc != SQLITE_OK) {
        const std::string detail = m_db != nullptr ? sqlite3_errmsg(m_db) : sqlite3_errstr(rc);
        sqlite3_close_v2(m_db);
        m_db = nullptr;
        throw CDBException(rc, "Cannot open " + inQuotes(path) + ": " + detail + ".");
    }
    sqlite3_extended_result_codes(m_db, 0);
    // Set before the first read, so that a lock held elsewhere is waited for and not
    // mistaken for a file that is no inventory.
    sqlite3_busy_timeout(m_db, m_busyTimeoutMs);
    m_path = path;
}

void SYDatabase::ConfigureFile() {
    Exec("PRAGMA cache_size = -65536; PRAGMA temp_store = MEMORY");
}

void SYDatabase::UseWal() {
    SYStatement mode(*this, "PRAGMA journal_mode");
    if (mode.Step() && mode.Text(0) == "wal")
        return;
    mode.Reset();
    Exec("PRAGMA journal_mode = WAL");
}

// A file that is no database at all is left to the schema check to name; a lock, a folder
// that cannot be read or a damaged header is named here.
void SYDatabase::CheckReadable() {
    try {
        SYStatement probe(*this, "PRAGMA schema_version");
        probe.Step();
    } catch (const CDBException& e) {
        if (e.Code() != SQLITE_NOTADB)
            throw;
    }
}

// A file in WAL mode needs its index file beside it, which a folder that cannot be written
// does not give. Without a -wal file the database file holds everything, so it is then read
// as a file that does not change.
void SYDatabase::OpenReadOnly(const std::string& path) {
    OpenConnection(path, SQLITE_OPEN_READONLY);
    try {
        CheckReadable();
        return;
    } catch (const CDBException& e) {
        std::error_code error;
        if (e.Code() != SQLITE_READONLY || std::filesystem::exists(path + "-wal", error))
            throw;
    }
    OpenConnection(path, SQLITE_OPEN_READONLY, true);
}

int SYDatabase::Open(const std::string& path, OpenMode mode, int quickCheck) {
    std::error_code error;
    const bool present = std::filesystem::exists(path, error);
    if (error)
        throw CDBException(SQLITE_CANTOPEN, "The inventory " + inQuotes(path) +
                                                " cannot be reached: " + error.message() + ".");
    if (!present)
        throw CDBException(SQLITE_CANTOPEN, "The inventory " + inQuotes(path) + " does not exist.");
    try {
        if (mode == OpenMode::ReadOnly)
            OpenReadOnly(path);
        else
            OpenConnection(path, SQLITE_OPEN_READWRITE);
        CheckReadable();
        SYInventorySchema::Check(*this, path);
        if (quickCheck != 0)
            RefuseDamage();
        if (mode == OpenMode::ReadOnly)
            RefuseUpgrade();
        else
            Upgrade();
        if (mode == OpenMode::Write)
            UseWal();
        ConfigureFile();
    } catch (...) {
        Close();
        throw;
    }
    return 1;
}

// The upgrade is one transaction: when it fails, the file is as it was.
void SYDatabase::Upgrade() {
    try {
        SYInventorySchema::Upgrade(*this);
    } catch (const CDBException& e) {
        if (e.ErrorMessage().find(m_path) != std::string::npos)
            throw;
        throw CDBException(e.Code(), "The inventory " + inQuotes(m_path) +
                                         " cannot be upgraded: " + e.ErrorMessage());
    }
}

void SYDatabase::RefuseUpgrade() {
    SYStatement version(*this, "PRAGMA user_version");
    if (version.Step() && version.Int64(0) >= SYInventorySchema::Version)
        return;
    throw CDBException(SQLITE_READONLY,
                       "The inventory " + inQuotes(m_path) + " is of an older schema version (" +
                           std::to_string(version.Int64(0)) +
                           ") and can be read only after an upgrade, which needs write access.");
}

void SYDatabase::RefuseDamage() {
    const std::string finding = QuickCheck();
    if (finding != "ok")
        throw CDBException(SQLITE_CORRUPT,
                           "The inventory " + inQuotes(m_path) + " is damaged: " + finding + ".");
}

bool SYDatabase::IsReadOnly() const {
    return m_db != nullptr && sqlite3_db_readonly(m_db, "main") == 1;
}

void SYDatabase::SetBusyTimeout(int milliseconds) {
    m_busyTimeoutMs = milliseconds;
    if (m_db != nullptr)
        sqlite3_busy_timeout(m_db, milliseconds);
}

std::string SYDatabase::QuickCheck() {
    SYStatement check(*this, "PRAGMA quick_check(1)");
    return check.Step() ? check.Text(0) : std::string("ok");
}

std::string SYDatabase::Describe(int code, const std::string& engineMessage) {
    if (code == SQLITE_BUSY || code == SQLITE_LOCKED)
        return "The inventory " + inQuotes(m_path) + " is busy: another program held it locked " +
               "past the " + std::to_string(m_busyTimeoutMs) + " ms wait.";
    if (code != SQLITE_CORRUPT || m_checkingDamage)
        return engineMessage;
    m_checkingDamage = true;
    std::string finding;
    try {
        finding = QuickCheck();
    } catch (const CDBException&) {
        finding = engineMessage;
    }
    m_checkingDamage = false;
    return "The inventory " + inQuotes(m_path) + " is damaged: " + finding + ".";
}

bool SYDatabase::HaveRunningStatement() const {
    for (sqlite3_stmt* statement = sqlite3_next_stmt(m_db, nullptr); statement != nullptr;
         statement = sqlite3_next_stmt(m_db, statement)) {
        if (sqlite3_stmt_busy(statement) != 0)
            return true;
    }
    return false;
}

int SYDatabase::Create(const std::string& path, bool withRIMTables) {
    if (fileHasContent(path))
        throw CDBException(SQLITE_CANTOPEN, "Cannot create the inventory \"" + path +
                                                "\": a file of that name exists.");
    OpenConnection(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    try {
        UseWal();
        ConfigureFile();
        SYTransaction transaction(*this);
        SYInventorySchema::Create(*this, withRIMTables);
        transaction.Commit();
    } catch (...) {
        Close();
        throw;
    }
    return 1;
}

int SYDatabase::CreateSystemRules(const std::string& path) {
    if (fileHasContent(path))
        throw CDBException(SQLITE_CANTOPEN, "Cannot create the system rules database \"" + path +
                                                "\": a file of that name exists.");
    OpenConnection(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    try {
        SYTransaction transaction(*this);
        SYInventorySchema::CreateSystemRules(*this);
        transaction.Commit();
    } catch (...) {
        Close();
        throw;
    }
    return 1;
}

int SYDatabase::OpenMemory(bool withRIMTables) {
    OpenConnection(":memory:", SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_MEMORY);
    SYInventorySchema::Create(*this, withRIMTables);
    return 1;
}

void SYDatabase::Close() {
    if (m_db == nullptr)
        return;
    m_cache.clear();
    m_idle.clear();
    sqlite3_close_v2(m_db);
    m_db = nullptr;
    m_path.clear();
    m_systemRulesPath.clear();
    m_transactionDepth = 0;
}

void SYDatabase::CheckFault(const std::string& sql) {
    if (m_faultCountdown == 0 || --m_faultCountdown > 0)
        return;
    throw CDBException(m_faultCode, "Injected failure (in: " + sql + ")");
}

void SYDatabase::FailStatement(int nth, int code) {
    m_faultCountdown = nth > 0 ? nth : 0;
    m_faultCode = code;
}

void SYDatabase::Exec(const std::string& sql) {
    if (m_db == nullptr)
        throw CDBException(SQLITE_MISUSE, "The inventory database is not open.");
    CheckFault(sql);
    char* message = nullptr;
    const int rc = sqlite3_exec(m_db, sql.c_str(), nullptr, nullptr, &message);
    if (rc == SQLITE_OK)
        return;
    const std::string detail = message != nullptr ? message : sqlite3_errstr(rc);
    sqlite3_free(message);
    throw CDBException(rc, Describe(rc, detail));
}

SYCachedStatement SYDatabase::Cached(const std::string& sql) {
    auto& entry = m_cache[sql];
    if (!entry.statement)
        entry.statement = std::make_unique<SYStatement>(*this, sql);
    return SYCachedStatement(*entry.statement, entry.inUse);
}

std::unique_ptr<SYStatement> SYDatabase::TakeStatement(const std::string& sql) {
    // A taken statement leaves its place empty, so that giving it back costs no new entry.
    if (const auto idle = m_idle.find(sql); idle != m_idle.end() && idle->second)
        return std::move(idle->second);
    return std::make_unique<SYStatement>(*this, sql);
}

void SYDatabase::KeepStatement(std::unique_ptr<SYStatement> statement) {
    // A statement of a connection closed since goes with it.
    if (!statement || !statement->BelongsTo(m_db))
        return;
    statement->Reset();
    if (const auto place = m_idle.find(statement->Sql()); place != m_idle.end()) {
        if (!place->second)
            place->second = std::move(statement);
        return;
    }
    m_idle.try_emplace(statement->Sql(), std::move(statement));
}

std::int64_t SYDatabase::LastInsertID() const {
    return sqlite3_last_insert_rowid(m_db);
}

int SYDatabase::Changes() const {
    return sqlite3_changes(m_db);
}

bool SYDatabase::HaveTable(const std::string& name) {
    auto statement = Cached("SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ?1");
    statement->Bind(1, name);
    return statement->Step();
}

bool SYDatabase::AttachSystemRules(const std::string& nativePath) {
    if (nativePath == m_systemRulesPath)
        return true;
    DetachSystemRules();
    if (!std::filesystem::is_regular_file(nativePath))
        return false;
    if (InTransaction())
        throw CDBException(SQLITE_MISUSE,
                           "The system rules database cannot be attached inside a transaction.");
    SYStatement attach(*this, "ATTACH DATABASE ?1 AS sysrules");
    attach.Bind(1, uriPath(nativePath, "?mode=ro"));
    attach.Execute();
    try {
        SYInventorySchema::CheckSystemRules(*this, "sysrules", nativePath);
    } catch (...) {
        Exec("DETACH DATABASE sysrules");
        throw;
    }
    m_systemRulesPath = nativePath;
    return true;
}

void SYDatabase::DetachSystemRules() {
    if (m_systemRulesPath.empty())
        return;
    m_systemRulesPath.clear();
    Exec("DETACH DATABASE sysrules");
}
