// The store against the same work done by raw SQLite in the same process, on the realistic
// estate: the counters "ratio" tell how much the store's layers cost. Each benchmark checks
// that both sides got the same rows and stops with an error when they did not.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "BenchEstate.h"
#include "RawStatement.h"
#include "outside/framework/SYTimeChecker.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYSamData.h"

namespace {

using Clock = std::chrono::steady_clock;

double since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

sqlite3* openRaw(const std::string& path) {
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(path.c_str(), &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr) !=
        SQLITE_OK)
        std::abort();
    // What the store sets on its own connections.
    sqlite3_exec(db,
                 "PRAGMA journal_mode = WAL; PRAGMA cache_size = -65536; PRAGMA temp_store "
                 "= MEMORY",
                 nullptr, nullptr, nullptr);
    return db;
}

long long scalar(sqlite3* db, const std::string& sql) {
    RawStatement statement(db, sql);
    return sqlite3_step(statement.get()) == SQLITE_ROW ? sqlite3_column_int64(statement.get(), 0)
                                                       : -1;
}

void report(benchmark::State& state, double storeSeconds, double rawSeconds, long long rows) {
    const auto rounds = static_cast<double>(state.iterations());
    state.counters["rows"] = static_cast<double>(rows);
    state.counters["store_ms"] = storeSeconds / rounds * 1e3;
    state.counters["raw_ms"] = rawSeconds / rounds * 1e3;
    state.counters["ratio"] = storeSeconds / rawSeconds;
}

// --- generation -----------------------------------------------------------------------------

// The estate's generation, timed when it was made in this process, against SQLite writing
// the same rows into a file of the same schema and indexes, one prepared insert per row in
// one transaction. Reading the rows from the estate is timed apart and taken off.
void BM_GenerateVsRawInsert(benchmark::State& state) {
    const BenchEstate& estate = Estate(static_cast<int>(state.range(0)));
    if (estate.generateSeconds == 0) {
        state.SkipWithError("the estate was kept from an earlier run; its generation is not timed");
        return;
    }
    const std::string copy = estate.folder + "/raw.db";
    double insertSeconds = 0;
    long long rows = 0;
    for (auto _ : state) {
        std::filesystem::remove(copy);
        sqlite3* raw = openRaw(copy);
        sqlite3_exec(raw, ("ATTACH '" + estate.database + "' AS src").c_str(), nullptr, nullptr,
                     nullptr);
        std::vector<std::string> tables;
        {
            RawStatement schema(raw, "SELECT type, name, sql FROM src.sqlite_master WHERE sql "
                                     "IS NOT NULL AND name NOT LIKE 'sqlite%' ORDER BY type "
                                     "DESC");
            while (sqlite3_step(schema.get()) == SQLITE_ROW) {
                const std::string type =
                    reinterpret_cast<const char*>(sqlite3_column_text(schema.get(), 0));
                if (type == "table")
                    tables.emplace_back(
                        reinterpret_cast<const char*>(sqlite3_column_text(schema.get(), 1)));
                sqlite3_exec(raw,
                             reinterpret_cast<const char*>(sqlite3_column_text(schema.get(), 2)),
                             nullptr, nullptr, nullptr);
            }
        }
        double readSeconds = 0;
        for (const auto& table : tables) {
            RawStatement read(raw, "SELECT * FROM src.[" + table + "] ORDER BY rowid");
            const auto start = Clock::now();
            while (sqlite3_step(read.get()) == SQLITE_ROW)
                for (int c = 0; c < sqlite3_column_count(read.get()); ++c)
                    benchmark::DoNotOptimize(sqlite3_column_value(read.get(), c));
            readSeconds += since(start);
        }
        const auto start = Clock::now();
        sqlite3_exec(raw, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        rows = 0;
        for (const auto& table : tables) {
            RawStatement read(raw, "SELECT * FROM src.[" + table + "] ORDER BY rowid");
            const int columns = sqlite3_column_count(read.get());
            std::string values = "?";
            for (int c = 1; c < columns; ++c)
                values += ", ?";
            RawStatement insert(raw, "INSERT INTO main.[" + table + "] VALUES (" + values + ")");
            while (sqlite3_step(read.get()) == SQLITE_ROW) {
                for (int c = 0; c < columns; ++c)
                    sqlite3_bind_value(insert.get(), c + 1, sqlite3_column_value(read.get(), c));
                if (sqlite3_step(insert.get()) != SQLITE_DONE) {
                    state.SkipWithError(("raw insert into " + table + " failed").c_str());
                    break;
                }
                sqlite3_reset(insert.get());
                ++rows;
            }
        }
        sqlite3_exec(raw, "COMMIT", nullptr, nullptr, nullptr);
        insertSeconds += since(start) - readSeconds;
        for (const char* table : {"Files", "FileLocations", "Installations", "SWRules"}) {
            const std::string count = std::string("SELECT COUNT(*) FROM ") + table;
            if (scalar(raw, count) != scalar(raw, "SELECT COUNT(*) FROM src." + std::string(table)))
                state.SkipWithError((std::string("raw copy differs in ") + table).c_str());
        }
        sqlite3_close_v2(raw);
        std::filesystem::remove(copy);
    }
    const auto rounds = static_cast<double>(state.iterations());
    state.counters["rows"] = static_cast<double>(rows);
    state.counters["generate_s"] = estate.generateSeconds;
    state.counters["raw_insert_s"] = insertSeconds / rounds;
    state.counters["ratio"] = estate.generateSeconds / (insertSeconds / rounds);
    state.counters["file_MB"] = estate.bytes / 1e6;
}
BENCHMARK(BM_GenerateVsRawInsert)->Arg(10000)->Iterations(1)->Unit(benchmark::kSecond);

// --- verdicts -------------------------------------------------------------------------------

// The effective rule by hand: the file's row, then user rules, then system rules, the
// most specific and newest rule of the first source that has one. Gives source * 1e9 + rule
// id, or -1 when nothing governs the file.
class RawResolver {
public:
    explicit RawResolver(const BenchEstate& estate) : m_db(openRaw(estate.database)) {
        sqlite3_exec(m_db, ("ATTACH '" + estate.install + "/SystemRules.db' AS sysrules").c_str(),
                     nullptr, nullptr, nullptr);
        m_file = std::make_unique<RawStatement>(
            m_db, "SELECT FileName, FileSize, FileTime, VerAppName FROM Files WHERE FileID = ?1 "
                  "AND InvDataType = 0");
        m_user = std::make_unique<RawStatement>(
            m_db, "SELECT RuleID, RuleType, FileSize, FileTime, AppName, AppCompany, AppVersion, "
                  "Comment FROM SWRules WHERE InvDataType = 0 AND FileName = ?1 AND "
                  "RuleState <> 3 AND (FileSize IS NULL OR FileSize = ?2)");
        m_system = std::make_unique<RawStatement>(
            m_db, "SELECT RuleID, RuleType, FileSize, FileTime, AppName, AppCompany, AppVersion, "
                  "Comment FROM sysrules.SystemRules WHERE InvDataType = 0 AND FileName = ?1 AND "
                  "(FileSize IS NULL OR FileSize = ?2)");
    }
    RawResolver(const RawResolver&) = delete;
    RawResolver& operator=(const RawResolver&) = delete;
    ~RawResolver() {
        m_file.reset();
        m_user.reset();
        m_system.reset();
        sqlite3_close_v2(m_db);
    }

    long long Find(std::int64_t fileID) {
        sqlite3_stmt* file = m_file->get();
        sqlite3_bind_int64(file, 1, fileID);
        long long found = -1;
        if (sqlite3_step(file) == SQLITE_ROW) {
            const std::string name = reinterpret_cast<const char*>(sqlite3_column_text(file, 0));
            const auto size = sqlite3_column_int64(file, 1);
            const auto time = static_cast<std::int32_t>(sqlite3_column_int64(file, 2));
            found = Best(m_user->get(), name, size, time);
            if (found < 0 && (found = Best(m_system->get(), name, size, time)) >= 0)
                found += 1000000000LL;
            if (found < 0 && sqlite3_column_bytes(file, 3) > 0)
                found = 2000000000LL;
        }
        sqlite3_reset(file);
        return found;
    }

private:
    static long long Best(sqlite3_stmt* rules, const std::string& name, std::int64_t size,
                          std::int32_t time) {
        sqlite3_bind_text(rules, 1, name.c_str(), -1, SQLITE_STATIC);
        sqlite3_bind_int64(rules, 2, size);
        int bestScore = -1;
        long long bestID = -1;
        while (sqlite3_step(rules) == SQLITE_ROW) {
            const bool haveTime = sqlite3_column_type(rules, 3) != SQLITE_NULL;
            if (haveTime &&
                !SYTimeChecker::EqualIgnoreSeconds(
                    CTime(static_cast<std::int32_t>(sqlite3_column_int64(rules, 3))), CTime(time)))
                continue;
            const int score =
                (sqlite3_column_type(rules, 2) != SQLITE_NULL ? 2 : 0) + (haveTime ? 1 : 0);
            const long long id = sqlite3_column_int64(rules, 0);
            if (score < bestScore || (score == bestScore && id < bestID))
                continue;
            bestScore = score;
            bestID = id;
            benchmark::DoNotOptimize(sqlite3_column_text(rules, 4));
            benchmark::DoNotOptimize(sqlite3_column_text(rules, 7));
        }
        sqlite3_reset(rules);
        return bestID;
    }

    sqlite3* m_db = nullptr;
    std::unique_ptr<RawStatement> m_file;
    std::unique_ptr<RawStatement> m_user;
    std::unique_ptr<RawStatement> m_system;
};

// Every PC file of the estate, its verdict through the rule service against the raw
// resolver; the two must agree on every file.
void BM_FindEffectiveRuleVsRaw(benchmark::State& state) {
    const BenchEstate& estate = Estate(static_cast<int>(state.range(0)));
    SYDatabase db;
    db.Open(estate.database);
    SYSamData sam(db);
    sam.InvDataType = 0;
    sam.EstablishSystemRulesDb(estate.install);
    RawResolver raw(estate);
    std::vector<std::int64_t> ids;
    {
        SYStatement list(db, "SELECT FileID FROM Files WHERE InvDataType = 0 ORDER BY FileID");
        while (list.Step())
            ids.push_back(list.Int64(0));
    }
    std::vector<long long> storeVerdicts(ids.size());
    std::vector<long long> rawVerdicts(ids.size());
    double storeSeconds = 0;
    double rawSeconds = 0;
    for (auto _ : state) {
        auto start = Clock::now();
        for (std::size_t i = 0; i < ids.size(); ++i) {
            _SYSAM_RULE_DATA data;
            auto source = SYSamData::RuleSourceUser;
            storeVerdicts[i] =
                sam.FindEffectiveRule(static_cast<unsigned long>(ids[i]), data, source) == 0
                    ? -1
                    : source * 1000000000LL + static_cast<long long>(data.RuleID);
        }
        storeSeconds += since(start);
        start = Clock::now();
        for (std::size_t i = 0; i < ids.size(); ++i)
            rawVerdicts[i] = raw.Find(ids[i]);
        rawSeconds += since(start);
        if (storeVerdicts != rawVerdicts) {
            state.SkipWithError("the rule service and the raw resolver disagree");
            break;
        }
    }
    report(state, storeSeconds, rawSeconds, static_cast<long long>(ids.size()));
    const auto lookups = static_cast<double>(ids.size()) * static_cast<double>(state.iterations());
    state.counters["store_us"] = storeSeconds / lookups * 1e6;
    state.counters["raw_us"] = rawSeconds / lookups * 1e6;
}
BENCHMARK(BM_FindEffectiveRuleVsRaw)->Arg(10000)->Unit(benchmark::kMillisecond);

// --- installations --------------------------------------------------------------------------

// The store's connection and a raw one on the same estate, with the application installed
// in the most places and a sample of its installations.
class InstallationReads {
public:
    explicit InstallationReads(const BenchEstate& estate) : m_raw(openRaw(estate.database)) {
        m_db.Open(estate.database);
        m_appID = scalar(m_raw, "SELECT AppID FROM Installations WHERE InvDataType = 0 GROUP BY "
                                "AppID ORDER BY COUNT(*) DESC LIMIT 1");
        m_places = scalar(m_raw, "SELECT COUNT(*) FROM Installations WHERE InvDataType = 0 AND "
                                 "AppID = " +
                                     std::to_string(m_appID));
        RawStatement sample(m_raw, "SELECT InstallationID FROM Installations WHERE InvDataType "
                                   "= 0 AND AppID = ?1 ORDER BY MachineID LIMIT 256");
        sqlite3_bind_int64(sample.get(), 1, m_appID);
        while (sqlite3_step(sample.get()) == SQLITE_ROW)
            m_installations.push_back(sqlite3_column_int64(sample.get(), 0));
    }
    InstallationReads(const InstallationReads&) = delete;
    InstallationReads& operator=(const InstallationReads&) = delete;
    ~InstallationReads() { sqlite3_close_v2(m_raw); }

    SYDatabase& Store() { return m_db; }
    sqlite3* Raw() const { return m_raw; }
    std::int64_t AppID() const { return m_appID; }
    long long Places() const { return m_places; }
    const std::vector<std::int64_t>& Installations() const { return m_installations; }

private:
    SYDatabase m_db;
    sqlite3* m_raw = nullptr;
    std::int64_t m_appID = 0;
    long long m_places = 0;
    std::vector<std::int64_t> m_installations;
};

InstallationReads& installationReads(int clients) {
    static std::map<int, std::unique_ptr<InstallationReads>> made;
    auto& slot = made[clients];
    if (!slot)
        slot = std::make_unique<InstallationReads>(Estate(clients));
    return *slot;
}

int drain(sqlite3_stmt* statement) {
    int rows = 0;
    while (sqlite3_step(statement) == SQLITE_ROW) {
        for (int c = 0; c < sqlite3_column_count(statement); ++c)
            benchmark::DoNotOptimize(sqlite3_column_text(statement, c));
        ++rows;
    }
    sqlite3_reset(statement);
    return rows;
}

// The Clients page of the application installed in the most places: its installations
// with the clients and their last scan, by client name, through the store's statements
// against the same query raw. raw_grouped_ms times the grouping of every file location
// that stood for the installations before they were stored.
void BM_ClientsPageVsRaw(benchmark::State& state) {
    InstallationReads& reads = installationReads(static_cast<int>(state.range(0)));
    const std::string page =
        "SELECT i.InstallationID, m.MachineID, m.MachineName, d.CreationTime, i.Location FROM "
        "Installations i JOIN Machines m ON m.MachineID = i.MachineID LEFT JOIN MachineData d "
        "ON d.MachineID = m.MachineID AND d.ResourceID = 1 WHERE i.InvDataType = 0 AND i.AppID "
        "= ?1 ORDER BY m.MachineName, i.Location";
    RawStatement raw(reads.Raw(), page);
    RawStatement grouped(reads.Raw(),
                         "SELECT MIN(l.LocationID), l.MachineID, m.MachineName, l.Location FROM "
                         "Files f JOIN FileLocations l ON l.FileID = f.FileID JOIN Machines m "
                         "ON m.MachineID = l.MachineID WHERE f.InvDataType = 0 AND f.AppID = ?1 "
                         "GROUP BY l.MachineID, l.Location ORDER BY m.MachineName");
    double storeSeconds = 0;
    double rawSeconds = 0;
    double groupedSeconds = 0;
    for (auto _ : state) {
        auto start = Clock::now();
        long long storeRows = 0;
        {
            auto statement = reads.Store().Cached(page);
            statement->Bind(1, reads.AppID());
            for (; statement->Step(); ++storeRows) {
                benchmark::DoNotOptimize(statement->Int64(0));
                benchmark::DoNotOptimize(statement->Text(2));
                benchmark::DoNotOptimize(statement->Int64(3));
                benchmark::DoNotOptimize(statement->Text(4));
            }
        }
        storeSeconds += since(start);
        start = Clock::now();
        sqlite3_bind_int64(raw.get(), 1, reads.AppID());
        const int rawRows = drain(raw.get());
        rawSeconds += since(start);
        start = Clock::now();
        sqlite3_bind_int64(grouped.get(), 1, reads.AppID());
        const int groupedRows = drain(grouped.get());
        groupedSeconds += since(start);
        if (storeRows != reads.Places() || rawRows != reads.Places() ||
            groupedRows != reads.Places()) {
            state.SkipWithError("the Clients page lost or gained rows");
            break;
        }
    }
    report(state, storeSeconds, rawSeconds, reads.Places());
    state.counters["raw_grouped_ms"] =
        groupedSeconds / static_cast<double>(state.iterations()) * 1e3;
}
BENCHMARK(BM_ClientsPageVsRaw)->Arg(10000)->Arg(50000)->Unit(benchmark::kMillisecond);

// The General page of the same application: its files, once per place, through the
// record set, against the same join run raw.
void BM_AppFilesJoinLocationsVsRaw(benchmark::State& state) {
    InstallationReads& reads = installationReads(static_cast<int>(state.range(0)));
    RawStatement raw(reads.Raw(),
                     "SELECT f.FileID, f.FileName, f.FileSize, f.FileTime FROM Files f LEFT JOIN "
                     "[Applications] a ON a.AppID = f.AppID JOIN FileLocations l ON "
                     "l.FileID = f.FileID WHERE f.InvDataType = 0 AND f.AppID = ?1 ORDER BY "
                     "f.FileID, l.MachineID, l.Location");
    double storeSeconds = 0;
    double rawSeconds = 0;
    long long rows = 0;
    for (auto _ : state) {
        auto start = Clock::now();
        SYAppFileSet files(reads.Store());
        files.InvDataType = 0;
        files.JoinLocations();
        files.FilterForAppID(static_cast<unsigned long>(reads.AppID()));
        files.SortByID(0);
        files.Open();
        rows = 0;
        for (; !files.IsEOF(); files.MoveNext(), ++rows) {
            benchmark::DoNotOptimize(files.FileID());
            benchmark::DoNotOptimize(files.FileName());
            benchmark::DoNotOptimize(files.FileSize());
            benchmark::DoNotOptimize(files.FileTime());
        }
        files.Close();
        storeSeconds += since(start);
        start = Clock::now();
        sqlite3_bind_int64(raw.get(), 1, reads.AppID());
        const int rawRows = drain(raw.get());
        rawSeconds += since(start);
        if (rows == 0 || rows != rawRows) {
            state.SkipWithError("the record set and the raw join disagree");
            break;
        }
    }
    report(state, storeSeconds, rawSeconds, rows);
}
BENCHMARK(BM_AppFilesJoinLocationsVsRaw)->Arg(10000)->Unit(benchmark::kMillisecond);

// The installation details dialog for each of 256 installations of that application,
// found by id alone, against the same join raw.
void BM_InstallationFilesByIdVsRaw(benchmark::State& state) {
    InstallationReads& reads = installationReads(static_cast<int>(state.range(0)));
    RawStatement raw(reads.Raw(),
                     "SELECT f.FileName, f.FileSize, f.FileTime, a.AppVersion FROM Installations i "
                     "JOIN FileLocations l ON l.MachineID = i.MachineID AND l.Location = "
                     "i.Location JOIN Files f ON f.FileID = l.FileID AND f.AppID = i.AppID "
                     "AND f.InvDataType = i.InvDataType LEFT JOIN [Applications] a ON a.AppID "
                     "= f.AppID WHERE i.InstallationID = ?1");
    double storeSeconds = 0;
    double rawSeconds = 0;
    long long rows = 0;
    for (auto _ : state) {
        rows = 0;
        auto start = Clock::now();
        for (const auto installation : reads.Installations()) {
            SYAppFileSet files(reads.Store());
            files.InvDataType = 0;
            files.FilterForInstallationID(static_cast<unsigned long>(installation));
            files.Open();
            for (; !files.IsEOF(); files.MoveNext(), ++rows) {
                benchmark::DoNotOptimize(files.FileName());
                benchmark::DoNotOptimize(files.FileSize());
                benchmark::DoNotOptimize(files.FileTime());
                benchmark::DoNotOptimize(files.AppVersion());
            }
        }
        storeSeconds += since(start);
        start = Clock::now();
        long long rawRows = 0;
        for (const auto installation : reads.Installations()) {
            sqlite3_bind_int64(raw.get(), 1, installation);
            rawRows += drain(raw.get());
        }
        rawSeconds += since(start);
        if (rows < static_cast<long long>(reads.Installations().size()) || rows != rawRows) {
            state.SkipWithError("an installation lost its files");
            break;
        }
    }
    report(state, storeSeconds, rawSeconds, rows);
}
BENCHMARK(BM_InstallationFilesByIdVsRaw)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
