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
#include <vector>

#include "outside/framework/SYTimeChecker.h"
#include "outside/store/SYDatabase.h"
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
// (verdict, application, an installation per PC), and everything undone between rounds.
// Two raw baselines: counting the file's location rows, and inserting the installation
// rows the change needs with nothing else.
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
    double insertSeconds = 0;
    long long locations = 0;
    {
        RawStatement count(rawDB, "SELECT COUNT(*) FROM FileLocations WHERE FileID = ?1");
        RawStatement insert(rawDB, "INSERT INTO Installations (InvDataType, AppID, MachineID, "
                                   "Location) SELECT 0, -1, MachineID, Location FROM "
                                   "FileLocations WHERE FileID = ?1");
        for (auto _ : state) {
            auto start = Clock::now();
            {
                SYTransaction round(db);
                SYSWRuleSet rules(db);
                rules.AddNew();
                rules.SetRuleState(1);
                rules.SetRuleType(0);
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
            sqlite3_exec(rawDB, "BEGIN", nullptr, nullptr, nullptr);
            start = Clock::now();
            sqlite3_bind_int64(insert.get(), 1, fileID);
            sqlite3_step(insert.get());
            sqlite3_reset(insert.get());
            insertSeconds += std::chrono::duration<double>(Clock::now() - start).count();
            sqlite3_exec(rawDB, "ROLLBACK", nullptr, nullptr, nullptr);
        }
    }
    sqlite3_close_v2(rawDB);
    const auto rounds = static_cast<double>(state.iterations());
    state.counters["locations"] = static_cast<double>(locations);
    state.counters["store_ms"] = storeSeconds / rounds * 1e3;
    state.counters["raw_ms"] = rawSeconds / rounds * 1e3;
    state.counters["raw_insert_ms"] = insertSeconds / rounds * 1e3;
    state.counters["ratio"] = storeSeconds / rawSeconds;
    state.counters["ratio_to_insert"] = storeSeconds / insertSeconds;
}
BENCHMARK(BM_AddRuleOnEveryClientVsRawCount)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(50000)
    ->Iterations(5)
    ->Unit(benchmark::kMillisecond);

} // namespace
