// The store against the same work done by raw SQLite in the same process: the counters
// "ratio" tell how much the store's layers cost.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "outside/framework/SYTimeChecker.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYFileVerdict.h"
#include "outside/store/SYInventoryGenerator.h"
#include "outside/store/SYSWRuleSet.h"
#include "outside/store/SYSamData.h"
#include "outside/store/SYTransaction.h"

namespace {

using Clock = std::chrono::steady_clock;

struct Generated {
    std::string folder;
    std::string database;
    std::string install;
};

// One generated inventory per client count, kept for the whole run.
const Generated& inventory(int clients) {
    static std::map<int, Generated> made;
    if (const auto found = made.find(clients); found != made.end())
        return found->second;
    std::string pattern = (std::filesystem::temp_directory_path() / "tvbench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        std::abort();
    Generated g{pattern, pattern + "/inventory.db", pattern + "/installation"};
    SYInventoryGenerator::Options options;
    options.seed = 42;
    options.clients = clients;
    SYInventoryGenerator::CreateIfAbsent(g.database, g.install, options);
    return made.emplace(clients, g).first->second;
}

struct Cleanup {
    ~Cleanup() {
        std::error_code ignored;
        for (const auto& entry :
             std::filesystem::directory_iterator(std::filesystem::temp_directory_path(), ignored)) {
            if (entry.path().filename().string().rfind("tvbench-", 0) == 0)
                std::filesystem::remove_all(entry.path(), ignored);
        }
    }
} cleanup;

class RawStatement {
public:
    RawStatement(sqlite3* db, const char* sql) {
        sqlite3_prepare_v2(db, sql, -1, &m_stmt, nullptr);
    }
    RawStatement(const RawStatement&) = delete;
    RawStatement& operator=(const RawStatement&) = delete;
    ~RawStatement() { sqlite3_finalize(m_stmt); }
    sqlite3_stmt* get() const { return m_stmt; }

private:
    sqlite3_stmt* m_stmt = nullptr;
};

// The effective rule by hand: the file's row, then user rules, then system rules, the
// most specific and newest rule of the first source that has one.
class RawResolver {
public:
    RawResolver(const Generated& g) {
        sqlite3_open_v2(g.database.c_str(), &m_db, SQLITE_OPEN_READWRITE, nullptr);
        const std::string attach = "ATTACH DATABASE '" + g.install + "/SystemRules.db' AS sysrules";
        sqlite3_exec(m_db, attach.c_str(), nullptr, nullptr, nullptr);
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
            if (found < 0)
                found = Best(m_system->get(), name, size, time);
            if (found < 0 && sqlite3_column_bytes(file, 3) > 0)
                found = 0;
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

std::vector<std::int64_t> windowsFiles(SYDatabase& db) {
    std::vector<std::int64_t> ids;
    SYStatement list(db, "SELECT FileID FROM Files WHERE InvDataType = 0 ORDER BY FileID");
    while (list.Step())
        ids.push_back(list.Int64(0));
    return ids;
}

void BM_Generate(benchmark::State& state) {
    const int clients = static_cast<int>(state.range(0));
    for (auto _ : state) {
        SYDatabase db;
        db.OpenMemory();
        SYInventoryGenerator::Options options;
        options.clients = clients;
        SYInventoryGenerator(options).Generate(db, "");
    }
    state.SetLabel(std::to_string(clients) + " clients, in memory, no system rules");
}
BENCHMARK(BM_Generate)->Arg(10000)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_FindEffectiveRuleVsRaw(benchmark::State& state) {
    const Generated& g = inventory(10000);
    SYDatabase db;
    db.Open(g.database);
    SYSamData sam(db);
    sam.InvDataType = 0;
    sam.EstablishSystemRulesDb(g.install);
    RawResolver raw(g);
    const auto ids = windowsFiles(db);
    double storeSeconds = 0;
    double rawSeconds = 0;
    for (auto _ : state) {
        auto start = Clock::now();
        for (const auto id : ids) {
            _SYSAM_RULE_DATA data;
            auto source = SYSamData::RuleSourceUser;
            benchmark::DoNotOptimize(
                sam.FindEffectiveRule(static_cast<unsigned long>(id), data, source));
        }
        auto middle = Clock::now();
        for (const auto id : ids)
            benchmark::DoNotOptimize(raw.Find(id));
        auto end = Clock::now();
        storeSeconds += std::chrono::duration<double>(middle - start).count();
        rawSeconds += std::chrono::duration<double>(end - middle).count();
    }
    const double lookups =
        static_cast<double>(ids.size()) * static_cast<double>(state.iterations());
    state.counters["store_us"] = storeSeconds / lookups * 1e6;
    state.counters["raw_us"] = rawSeconds / lookups * 1e6;
    state.counters["ratio"] = storeSeconds / rawSeconds;
    state.SetLabel(std::to_string(ids.size()) + " files of a 10000-client inventory");
}
BENCHMARK(BM_FindEffectiveRuleVsRaw)->Unit(benchmark::kMillisecond);

// Identifying a file that lies on every PC: the rule's row is written, the rule applied
// (verdict, application, AppInstalled; installations follow from the files), and
// everything undone between rounds. The raw baseline counts the file's location rows.
void BM_AddRuleOnEveryClientVsRawCount(benchmark::State& state) {
    const Generated& g = inventory(static_cast<int>(state.range(0)));
    SYDatabase db;
    db.Open(g.database);
    SYSamData sam(db);
    sam.InvDataType = 0;
    sam.EstablishSystemRulesDb(g.install);
    sqlite3* rawDB = nullptr;
    sqlite3_open_v2(g.database.c_str(), &rawDB, SQLITE_OPEN_READWRITE, nullptr);
    std::int64_t fileID = 0;
    {
        SYStatement find(db, "SELECT FileID FROM Files WHERE InvDataType = 0 AND FileName = "
                             "'desktop.ini'");
        find.Step();
        fileID = find.Int64(0);
    }
    double storeSeconds = 0;
    double rawSeconds = 0;
    long long locations = 0;
    {
        RawStatement count(rawDB, "SELECT COUNT(*) FROM FileLocations WHERE FileID = ?1");
        for (auto _ : state) {
            auto start = Clock::now();
            {
                SYTransaction round(db);
                SYSWRuleSet rules(db);
                rules.AddNew();
                rules.SetRuleState(RuleStateAdded);
                rules.SetRuleType(RuleTypeId);
                rules.SetFileName("desktop.ini");
                rules.SetAppName("Desktop Settings");
                rules.SetAppVersion("1.0");
                rules.SetAppCompany("Bench Works");
                rules.Update(1);
                sam.AddRule(rules.NewID());
                storeSeconds += std::chrono::duration<double>(Clock::now() - start).count();
            }
            start = Clock::now();
            sqlite3_bind_int64(count.get(), 1, fileID);
            sqlite3_step(count.get());
            locations = sqlite3_column_int64(count.get(), 0);
            sqlite3_reset(count.get());
            rawSeconds += std::chrono::duration<double>(Clock::now() - start).count();
        }
    }
    sqlite3_close_v2(rawDB);
    const auto rounds = static_cast<double>(state.iterations());
    state.counters["locations"] = static_cast<double>(locations);
    state.counters["store_ms"] = storeSeconds / rounds * 1e3;
    state.counters["raw_ms"] = rawSeconds / rounds * 1e3;
    state.counters["ratio"] = storeSeconds / rawSeconds;
}
BENCHMARK(BM_AddRuleOnEveryClientVsRawCount)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(50000)
    ->Iterations(20)
    ->Unit(benchmark::kMillisecond);

// Reads of installations, which are derived from the files, against the same rows kept
// in an indexed table, as a store that maintained them would read them. The raw
// connection holds that table (temporary, its own).
class InstallationReads {
public:
    explicit InstallationReads(const Generated& g) {
        m_db.Open(g.database);
        sqlite3_open_v2(g.database.c_str(), &m_raw, SQLITE_OPEN_READWRITE, nullptr);
        sqlite3_exec(m_raw,
                     "CREATE TEMP TABLE Kept (InstallationID INTEGER PRIMARY KEY, InvDataType "
                     "INTEGER, AppID INTEGER, MachineID INTEGER, Location TEXT); INSERT INTO "
                     "Kept SELECT InstallationID, InvDataType, AppID, MachineID, Location FROM "
                     "Installations; CREATE INDEX temp.KeptByApp ON Kept (InvDataType, AppID, "
                     "MachineID, Location)",
                     nullptr, nullptr, nullptr);
        // The application with the most places: the heaviest Clients page there is.
        SYStatement widest(m_db, "SELECT f.AppID FROM Files f JOIN FileLocations l ON "
                                 "l.FileID = f.FileID WHERE f.InvDataType = 0 AND f.AppID <> 0 "
                                 "GROUP BY f.AppID ORDER BY COUNT(*) DESC LIMIT 1");
        widest.Step();
        m_appID = widest.Int64(0);
        SYStatement sample(m_db, "SELECT MachineID, InstallationID FROM Installations WHERE "
                                 "InvDataType = 0 AND AppID = ?1 ORDER BY MachineID LIMIT 256");
        sample.Bind(1, m_appID);
        while (sample.Step())
            m_installations.emplace_back(sample.Int64(0), sample.Int64(1));
    }
    InstallationReads(const InstallationReads&) = delete;
    InstallationReads& operator=(const InstallationReads&) = delete;
    ~InstallationReads() { sqlite3_close_v2(m_raw); }

    SYDatabase& Store() { return m_db; }
    sqlite3* Raw() const { return m_raw; }
    std::int64_t AppID() const { return m_appID; }
    const std::vector<std::pair<std::int64_t, std::int64_t>>& Installations() const {
        return m_installations;
    }

private:
    SYDatabase m_db;
    sqlite3* m_raw = nullptr;
    std::int64_t m_appID = 0;
    std::vector<std::pair<std::int64_t, std::int64_t>> m_installations;
};

InstallationReads& installationReads(int clients) {
    static std::map<int, std::unique_ptr<InstallationReads>> made;
    auto& slot = made[clients];
    if (!slot)
        slot = std::make_unique<InstallationReads>(inventory(clients));
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

void report(benchmark::State& state, double storeSeconds, double rawSeconds, int rows) {
    const auto rounds = static_cast<double>(state.iterations());
    state.counters["rows"] = rows;
    state.counters["store_ms"] = storeSeconds / rounds * 1e3;
    state.counters["raw_ms"] = rawSeconds / rounds * 1e3;
    state.counters["ratio"] = storeSeconds / rawSeconds;
}

// The Clients page of the application with the most places: its installations with the
// client names, by client. Besides the kept table, the counter raw_grouped_ms times the
// grouping the view stands for, written out by hand.
void BM_AppInstallationsVsKeptTable(benchmark::State& state) {
    InstallationReads& reads = installationReads(static_cast<int>(state.range(0)));
    const char* const columns = "SELECT i.MachineID, i.InstallationID, m.MachineName, "
                                "i.Location FROM ";
    const char* const rest = " i JOIN Machines m ON m.MachineID = i.MachineID WHERE "
                             "i.InvDataType = 0 AND i.AppID = ?1 ORDER BY i.MachineID";
    const std::string derived = std::string(columns) + "Installations" + rest;
    RawStatement kept(reads.Raw(), (std::string(columns) + "temp.Kept" + rest).c_str());
    RawStatement grouped(reads.Raw(),
                         "SELECT l.MachineID, MIN(l.LocationID), m.MachineName, l.Location FROM "
                         "Files f JOIN FileLocations l ON l.FileID = f.FileID JOIN Machines m "
                         "ON m.MachineID = l.MachineID WHERE f.InvDataType = 0 AND f.AppID = ?1 "
                         "GROUP BY l.MachineID, l.Location ORDER BY l.MachineID");
    double storeSeconds = 0;
    double rawSeconds = 0;
    double groupedSeconds = 0;
    int rows = 0;
    for (auto _ : state) {
        auto start = Clock::now();
        {
            auto statement = reads.Store().Cached(derived);
            statement->Bind(1, reads.AppID());
            rows = 0;
            for (; statement->Step(); ++rows) {
                benchmark::DoNotOptimize(statement->Int64(1));
                benchmark::DoNotOptimize(statement->Text(2));
                benchmark::DoNotOptimize(statement->Text(3));
            }
        }
        auto middle = Clock::now();
        sqlite3_bind_int64(kept.get(), 1, reads.AppID());
        benchmark::DoNotOptimize(drain(kept.get()));
        auto end = Clock::now();
        sqlite3_bind_int64(grouped.get(), 1, reads.AppID());
        benchmark::DoNotOptimize(drain(grouped.get()));
        groupedSeconds += std::chrono::duration<double>(Clock::now() - end).count();
        storeSeconds += std::chrono::duration<double>(middle - start).count();
        rawSeconds += std::chrono::duration<double>(end - middle).count();
    }
    report(state, storeSeconds, rawSeconds, rows);
    state.counters["raw_grouped_ms"] =
        groupedSeconds / static_cast<double>(state.iterations()) * 1e3;
}
BENCHMARK(BM_AppInstallationsVsKeptTable)->Arg(10000)->Arg(50000)->Unit(benchmark::kMillisecond);

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
    int rows = 0;
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
        auto middle = Clock::now();
        sqlite3_bind_int64(raw.get(), 1, reads.AppID());
        benchmark::DoNotOptimize(drain(raw.get()));
        auto end = Clock::now();
        storeSeconds += std::chrono::duration<double>(middle - start).count();
        rawSeconds += std::chrono::duration<double>(end - middle).count();
    }
    report(state, storeSeconds, rawSeconds, rows);
}
BENCHMARK(BM_AppFilesJoinLocationsVsRaw)->Arg(10000)->Arg(50000)->Unit(benchmark::kMillisecond);

// The installation details dialog for each of 256 installations of that application: the
// installation's files, found by client and id, against the kept table.
void BM_InstallationFilesVsKeptTable(benchmark::State& state) {
    InstallationReads& reads = installationReads(static_cast<int>(state.range(0)));
    RawStatement kept(reads.Raw(),
                      "SELECT f.FileName, f.FileSize, f.FileTime, a.AppVersion FROM temp.Kept i "
                      "JOIN FileLocations l ON l.MachineID = i.MachineID AND l.Location = "
                      "i.Location JOIN Files f ON f.FileID = l.FileID AND f.AppID = i.AppID "
                      "AND f.InvDataType = i.InvDataType LEFT JOIN [Applications] a ON a.AppID "
                      "= f.AppID WHERE i.InstallationID = ?2 AND i.MachineID = ?1");
    double storeSeconds = 0;
    double rawSeconds = 0;
    int rows = 0;
    for (auto _ : state) {
        rows = 0;
        auto start = Clock::now();
        for (const auto& [machine, installation] : reads.Installations()) {
            SYAppFileSet files(reads.Store());
            files.InvDataType = 0;
            files.JoinLocations();
            files.FilterForMachineID(static_cast<unsigned long>(machine));
            files.FilterForInstallationID(static_cast<unsigned long>(installation));
            files.Open();
            for (; !files.IsEOF(); files.MoveNext(), ++rows) {
                benchmark::DoNotOptimize(files.FileName());
                benchmark::DoNotOptimize(files.FileSize());
                benchmark::DoNotOptimize(files.FileTime());
                benchmark::DoNotOptimize(files.AppVersion());
            }
        }
        auto middle = Clock::now();
        for (const auto& [machine, installation] : reads.Installations()) {
            sqlite3_bind_int64(kept.get(), 1, machine);
            sqlite3_bind_int64(kept.get(), 2, installation);
            benchmark::DoNotOptimize(drain(kept.get()));
        }
        auto end = Clock::now();
        storeSeconds += std::chrono::duration<double>(middle - start).count();
        rawSeconds += std::chrono::duration<double>(end - middle).count();
    }
    report(state, storeSeconds, rawSeconds, rows);
}
BENCHMARK(BM_InstallationFilesVsKeptTable)->Arg(10000)->Arg(50000)->Unit(benchmark::kMillisecond);

} // namespace
