// The rule model against the same work done with raw SQLite statements on the same
// inventory in the same process, so that the figures compare as a ratio.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "BenchEstate.h"
#include "RawStatement.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "rules/SYAppFile.h"
#include "rules/SYSWRule.h"

namespace {

constexpr const char* EverywhereName = "desktop.ini";

// The realistic estate, opened once per client count, and a sample of its PC files.
struct Inventory {
    explicit Inventory(int clients) : estate(Estate(clients)) {
        db.Open(estate.database);
        auto statement = db.Cached("SELECT FileID FROM Files WHERE InvDataType = 0 "
                                   "AND FileID % 37 = 0 ORDER BY FileID LIMIT 256");
        while (statement->Step())
            files.push_back(static_cast<unsigned long>(statement->Int64(0)));
        if (files.empty())
            throw std::runtime_error("the estate has no files");
        auto everywhereFile = db.Cached("SELECT FileID FROM Files WHERE InvDataType = 0 AND "
                                        "FileName = ?1");
        everywhereFile->Bind(1, std::string(EverywhereName));
        if (!everywhereFile->Step())
            throw std::runtime_error("no file lies on every PC");
        everywhere = static_cast<unsigned long>(everywhereFile->Int64(0));
        auto machines = db.Cached("SELECT COUNT(*) FROM Machines");
        machines->Step();
        pcs = static_cast<int>(machines->Int64(0));
    }

    const BenchEstate& estate;
    SYDatabase db;
    std::vector<unsigned long> files;
    unsigned long everywhere = 0;
    int pcs = 0;
};

Inventory& inventory(int clients) {
    static std::map<int, std::unique_ptr<Inventory>> made;
    auto& slot = made[clients];
    if (!slot)
        slot = std::make_unique<Inventory>(clients);
    SYGetApp().SetInstallPath(slot->estate.install);
    return *slot;
}

void BM_AppFileLoadData(benchmark::State& state) {
    Inventory& inv = inventory(static_cast<int>(state.range(0)));
    SYAppFile record;
    record.SetDatabase(&inv.db);
    std::size_t next = 0;
    for (auto _ : state) {
        if (record.LoadData(inv.files[next++ % inv.files.size()], 0) == 0)
            state.SkipWithError("LoadData failed");
        benchmark::DoNotOptimize(record.State());
    }
}

// The same reads LoadData makes: the file with its application, the active rules of its
// name, and the effective rule among user and system rules of its name and size.
void BM_AppFileLoadDataRawSQLite(benchmark::State& state) {
    Inventory& inv = inventory(static_cast<int>(state.range(0)));
    SYAppFile attach;
    attach.SetDatabase(&inv.db);
    attach.LoadData(inv.files.front(), 0); // attaches the system rules
    sqlite3* db = inv.db.Handle();
    RawStatement file(db, rawfile::File);
    RawStatement rules(db, rawfile::Rules);
    RawStatement user(db, rawfile::UserRules);
    RawStatement system(db, rawfile::SystemRules);
    std::size_t next = 0;
    for (auto _ : state) {
        sqlite3_bind_int64(file.get(), 1, inv.files[next++ % inv.files.size()]);
        if (sqlite3_step(file.get()) != SQLITE_ROW) {
            state.SkipWithError("file not found");
            break;
        }
        const std::string name = reinterpret_cast<const char*>(sqlite3_column_text(file.get(), 0));
        const sqlite3_int64 size = sqlite3_column_int64(file.get(), 2);
        for (int c = 3; c < 6; ++c)
            benchmark::DoNotOptimize(sqlite3_column_text(file.get(), c));
        sqlite3_reset(file.get());
        sqlite3_bind_text(rules.get(), 1, name.c_str(), -1, SQLITE_TRANSIENT);
        benchmark::DoNotOptimize(rules.Drain());
        for (RawStatement* verdict : {&user, &system}) {
            sqlite3_bind_text(verdict->get(), 1, name.c_str(), -1, SQLITE_TRANSIENT);
            sqlite3_bind_int64(verdict->get(), 2, size);
            benchmark::DoNotOptimize(verdict->Drain());
        }
    }
}

using Clock = std::chrono::steady_clock;

long long scalar(SYDatabase& db, const std::string& sql) {
    SYStatement statement(db, sql);
    return statement.Step() ? statement.Int64(0) : -1;
}

// Wall and processor time of one side of a twin, and its quickest round. On a shared
// machine the processor time tells the work apart from the waiting for a core; the wall
// time adds the waits for the disk that a commit makes.
struct Spent {
    double wallSeconds = 0;
    double cpuSeconds = 0;
    double bestSeconds = 1e9;
};

double threadSeconds() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

template <class Work> auto timed(Spent& spent, Work work) {
    const auto start = Clock::now();
    const double cpuStart = threadSeconds();
    const auto result = work();
    spent.cpuSeconds += threadSeconds() - cpuStart;
    const double wall = std::chrono::duration<double>(Clock::now() - start).count();
    spent.wallSeconds += wall;
    spent.bestSeconds = std::min(spent.bestSeconds, wall);
    return result;
}

// The rule's own columns, as the engine and the raw twin write them.
constexpr const char* EverywhereApp = "Everywhere";
constexpr const char* EverywhereCompany = "Ubiquity";

// Takes the identification rule away again through the engine, committed.
void removeRule(Inventory& inv, std::uint32_t ruleID) {
    SYSWRule undo;
    undo.Database = &inv.db;
    undo.InvDataType = 0;
    undo.SetInstallPath(inv.estate.install);
    undo.RemoveRule(ruleID, 1);
    undo.UpdateSamData();
}

// The identification the engine makes, done with raw statements: the rule row in a
// transaction of its own, then in one more the file of that name decided by the most
// specific active user rule, the application found, the file's verdict stored, an
// installation made in every folder it lies in and the application marked installed.
// Taking the rule away again is its mirror: the row retired, then the file decided by no
// user nor system rule, so back to the verdict it had before (read once here), and the
// installations ended: all of them when the application keeps no file, else those where it
// was the application's last file.
class RawApply {
public:
    RawApply(sqlite3* db, std::int64_t fileID)
        : m_db(db), m_rules(db, "SELECT RuleID FROM SWRules WHERE InvDataType = 0"),
          m_insertRule(db, "INSERT INTO SWRules (InvDataType, RuleState, RuleType, FileName, "
                           "FileSize, FileTime, AppName, AppVersion, AppCompany, Comment) VALUES "
                           "(0, 1, 0, ?1, NULL, NULL, ?2, '1.0', ?3, '')"),
          m_ruleName(db, "SELECT FileName FROM SWRules WHERE RuleID = ?1 AND InvDataType = 0"),
          m_files(db, "SELECT FileID, FileName, FileSize, FileTime, VerAppName, VerAppVersion, "
                      "VerAppCompany, FileState, RuleID, RuleSource, AppID FROM Files WHERE "
                      "InvDataType = 0 AND FileName = ?1"),
          m_user(db, "SELECT RuleID, RuleType, FileSize, FileTime, AppName, AppVersion, "
                     "AppCompany FROM SWRules WHERE InvDataType = 0 AND FileName = ?1 AND "
                     "RuleState <> 3 AND (FileSize IS NULL OR FileSize = ?2)"),
          m_app(db, "SELECT AppID FROM [Applications] WHERE AppCompanyInternal = ?1 AND "
                    "AppNameInternal = ?2 AND AppVersion = ?3"),
          m_verdict(db, "UPDATE Files SET FileState = 2, RuleID = ?1, RuleSource = 0, AppID = ?2 "
                        "WHERE FileID = ?3"),
          m_install(db, "INSERT OR IGNORE INTO Installations (InvDataType, AppID, MachineID, "
                        "Location) SELECT 0, ?1, MachineID, Location FROM FileLocations WHERE "
                        "FileID = ?2"),
          m_flag(db, "UPDATE [Applications] SET AppInstalled = EXISTS (SELECT 1 FROM "
                     "Installations WHERE InvDataType = 0 AND AppID = ?1) WHERE AppID = ?1"),
          m_rule(db, "SELECT RuleID, InvDataType, RuleState, RuleType, FileName, FileSize, "
                     "FileTime, AppName, AppVersion, AppCompany, Comment FROM SWRules WHERE "
                     "InvDataType = 0 AND RuleID = ?1"),
          m_retire(db, "UPDATE SWRules SET RuleState = 3 WHERE RuleID = ?1"),
          m_system(db, "SELECT RuleID, RuleType, FileSize, FileTime, AppName, AppCompany, "
                       "AppVersion, Comment FROM sysrules.SystemRules WHERE InvDataType = 0 AND "
                       "FileName = ?1 AND (FileSize IS NULL OR FileSize = ?2)"),
          m_before(db, "SELECT FileState, RuleID, RuleSource FROM Files WHERE FileID = ?1"),
          m_unverdict(db, "UPDATE Files SET FileState = ?1, RuleID = ?2, RuleSource = ?3, AppID "
                          "= 0 WHERE FileID = ?4"),
          m_end(db, "DELETE FROM Installations WHERE InstallationID IN (SELECT i.InstallationID "
                    "FROM FileLocations l CROSS JOIN Installations i ON i.InvDataType = 0 AND "
                    "i.AppID = ?1 AND i.MachineID = l.MachineID AND i.Location = l.Location "
                    "WHERE l.FileID = ?2 AND NOT EXISTS (SELECT 1 FROM FileLocations o JOIN "
                    "Files g ON g.FileID = o.FileID WHERE o.MachineID = l.MachineID AND "
                    "o.Location = l.Location AND g.InvDataType = 0 AND g.AppID = ?1))"),
          m_keeps(db, "SELECT EXISTS (SELECT 1 FROM Files WHERE InvDataType = 0 AND AppID = ?1)"),
          m_endApp(db, "DELETE FROM Installations WHERE InvDataType = 0 AND AppID = ?1") {
        sqlite3_bind_int64(m_before.get(), 1, fileID);
        if (!m_before.Step())
            throw std::runtime_error("the file has no verdict");
        for (int c = 0; c < 3; ++c)
            sqlite3_bind_value(m_unverdict.get(), c + 1, sqlite3_column_value(m_before.get(), c));
        m_before.Reset();
    }

    // Gives the rule's id, 0 on a failure.
    std::int64_t Apply() {
        sqlite3_exec(m_db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        Run(m_rules.get(), true);
        sqlite3_bind_text(m_insertRule.get(), 1, EverywhereName, -1, SQLITE_STATIC);
        sqlite3_bind_text(m_insertRule.get(), 2, EverywhereApp, -1, SQLITE_STATIC);
        sqlite3_bind_text(m_insertRule.get(), 3, EverywhereCompany, -1, SQLITE_STATIC);
        Run(m_insertRule.get(), false);
        const std::int64_t ruleID = sqlite3_last_insert_rowid(m_db);
        if (sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK)
            return 0;
        std::int64_t appID = 0;
        for (const auto& [fileID, size] : BeginOnFiles(ruleID)) {
            sqlite3_bind_text(m_user.get(), 1, EverywhereName, -1, SQLITE_STATIC);
            sqlite3_bind_int64(m_user.get(), 2, size);
            Run(m_user.get(), true);
            sqlite3_bind_text(m_app.get(), 1, "ubiquity", -1, SQLITE_STATIC);
            sqlite3_bind_text(m_app.get(), 2, "everywhere", -1, SQLITE_STATIC);
            sqlite3_bind_text(m_app.get(), 3, "1.0", -1, SQLITE_STATIC);
            if (sqlite3_step(m_app.get()) == SQLITE_ROW)
                appID = sqlite3_column_int64(m_app.get(), 0);
            sqlite3_reset(m_app.get());
            sqlite3_bind_int64(m_verdict.get(), 1, ruleID);
            sqlite3_bind_int64(m_verdict.get(), 2, appID);
            sqlite3_bind_int64(m_verdict.get(), 3, fileID);
            Run(m_verdict.get(), false);
            sqlite3_bind_int64(m_install.get(), 1, appID);
            sqlite3_bind_int64(m_install.get(), 2, fileID);
            Run(m_install.get(), false);
        }
        sqlite3_bind_int64(m_flag.get(), 1, appID);
        Run(m_flag.get(), false);
        return sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK && appID != 0
                   ? ruleID
                   : 0;
    }

    // Gives whether both transactions committed.
    bool Remove(std::int64_t ruleID, std::int64_t appID) {
        sqlite3_exec(m_db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        sqlite3_bind_int64(m_rule.get(), 1, ruleID);
        Run(m_rule.get(), true);
        sqlite3_bind_int64(m_retire.get(), 1, ruleID);
        Run(m_retire.get(), false);
        if (sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK)
            return false;
        for (const auto& [fileID, size] : BeginOnFiles(ruleID)) {
            for (RawStatement* rules : {&m_user, &m_system}) {
                sqlite3_bind_text(rules->get(), 1, EverywhereName, -1, SQLITE_STATIC);
                sqlite3_bind_int64(rules->get(), 2, size);
                Run(rules->get(), true);
            }
            sqlite3_bind_int64(m_unverdict.get(), 4, fileID);
            Run(m_unverdict.get(), false);
            sqlite3_bind_int64(m_keeps.get(), 1, appID);
            const bool keeps = m_keeps.Step() && sqlite3_column_int64(m_keeps.get(), 0) != 0;
            m_keeps.Reset();
            RawStatement& end = keeps ? m_end : m_endApp;
            sqlite3_bind_int64(end.get(), 1, appID);
            if (keeps)
                sqlite3_bind_int64(end.get(), 2, fileID);
            Run(end.get(), false);
        }
        sqlite3_bind_int64(m_flag.get(), 1, appID);
        Run(m_flag.get(), false);
        return sqlite3_exec(m_db, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK;
    }

private:
    // Opens the transaction that applies the rule and gives the files of its name with
    // their sizes.
    std::vector<std::pair<std::int64_t, std::int64_t>> BeginOnFiles(std::int64_t ruleID) {
        sqlite3_exec(m_db, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        sqlite3_bind_int64(m_ruleName.get(), 1, ruleID);
        Run(m_ruleName.get(), false);
        sqlite3_bind_text(m_files.get(), 1, EverywhereName, -1, SQLITE_STATIC);
        std::vector<std::pair<std::int64_t, std::int64_t>> files;
        while (sqlite3_step(m_files.get()) == SQLITE_ROW)
            files.emplace_back(sqlite3_column_int64(m_files.get(), 0),
                               sqlite3_column_int64(m_files.get(), 2));
        sqlite3_reset(m_files.get());
        return files;
    }

    static void Run(sqlite3_stmt* statement, bool readAll) {
        while (sqlite3_step(statement) == SQLITE_ROW && readAll)
            for (int c = 0; c < sqlite3_column_count(statement); ++c)
                benchmark::DoNotOptimize(sqlite3_column_text(statement, c));
        sqlite3_reset(statement);
    }

    sqlite3* m_db;
    RawStatement m_rules, m_insertRule, m_ruleName, m_files, m_user, m_app, m_verdict, m_install,
        m_flag, m_rule, m_retire, m_system, m_before, m_unverdict, m_end, m_keeps, m_endApp;
};

// Sets name_ms, name_cpu_ms and name_best_ms: one side's times per round.
void count(benchmark::State& state, const std::string& name, const Spent& spent) {
    const auto rounds = static_cast<double>(state.iterations());
    state.counters[name + "_ms"] = spent.wallSeconds / rounds * 1e3;
    state.counters[name + "_cpu_ms"] = spent.cpuSeconds / rounds * 1e3;
    state.counters[name + "_best_ms"] = spent.bestSeconds * 1e3;
}

// Identifying a file that lies on every PC, through the rule engine to the inventory,
// committed, against the raw twin, and taking each rule away again the same way. Each must
// leave an installation on every PC, and each removal none and the file without its
// application.
void BM_AddIdRuleOnEveryPCVsRaw(benchmark::State& state) {
    Inventory& inv = inventory(static_cast<int>(state.range(0)));
    const auto engineApply = [&inv]() -> std::uint32_t {
        SYSWRule engine;
        engine.Database = &inv.db;
        engine.InvDataType = 0;
        engine.SetInstallPath(inv.estate.install);
        SYIdRuleItem rule;
        rule.SetFileName(EverywhereName);
        rule.SetAppName(EverywhereApp);
        rule.SetAppVersion("1.0");
        rule.SetAppCompany(EverywhereCompany);
        if (engine.AddIdRule(rule, 1) == 0)
            return 0;
        engine.UpdateSamData();
        return rule.FileID();
    };
    // The application exists from a first identification on, for both sides alike.
    const std::uint32_t first = engineApply();
    const std::string fileApp =
        "SELECT AppID FROM Files WHERE FileID = " + std::to_string(inv.everywhere);
    const long long appID = scalar(inv.db, fileApp);
    removeRule(inv, first);
    RawApply raw(inv.db.Handle(), inv.everywhere);
    const std::string installations =
        "SELECT COUNT(*) FROM Installations WHERE InvDataType = 0 AND AppID = " +
        std::to_string(appID);
    const auto removed = [&] {
        return scalar(inv.db, installations) == 0 && scalar(inv.db, fileApp) == 0;
    };
    Spent store;
    Spent rawSide;
    Spent storeRemove;
    Spent rawRemove;
    for (auto _ : state) {
        const std::uint32_t storeRule = timed(store, engineApply);
        const bool storeAdded = storeRule != 0 && scalar(inv.db, installations) == inv.pcs;
        timed(storeRemove, [&] {
            removeRule(inv, storeRule);
            return true;
        });
        const bool storeRemoved = removed();

        const std::int64_t rawRule = timed(rawSide, [&raw] { return raw.Apply(); });
        const bool rawAdded = rawRule != 0 && scalar(inv.db, installations) == inv.pcs;
        const bool rawRemoved =
            timed(rawRemove, [&] { return raw.Remove(rawRule, appID); }) && removed();
        if (!storeAdded || !rawAdded) {
            state.SkipWithError("an identification left a PC without its installation");
            break;
        }
        if (!storeRemoved || !rawRemoved) {
            state.SkipWithError("taking the rule away left an installation or the verdict");
            break;
        }
    }
    state.counters["locations"] = inv.pcs;
    count(state, "store", store);
    count(state, "raw", rawSide);
    count(state, "remove_store", storeRemove);
    count(state, "remove_raw", rawRemove);
    state.counters["ratio"] = store.wallSeconds / rawSide.wallSeconds;
    state.counters["remove_ratio"] = storeRemove.wallSeconds / rawRemove.wallSeconds;
}

BENCHMARK(BM_AppFileLoadData)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_AppFileLoadDataRawSQLite)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_AddIdRuleOnEveryPCVsRaw)
    ->Arg(10000)
    ->Arg(50000)
    ->Iterations(20)
    ->Unit(benchmark::kMillisecond);

} // namespace
