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
#include "RawApply.h"
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
    removeRule(inv.db, inv.estate.install, first);
    RawApply raw(inv.db.Handle());
    RawRemove rawUndo(inv.db.Handle(), inv.everywhere);
    const RawIdRule rule{EverywhereName, EverywhereApp,     "everywhere",
                         "1.0",          EverywhereCompany, "ubiquity"};
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
            removeRule(inv.db, inv.estate.install, storeRule);
            return true;
        });
        const bool storeRemoved = removed();

        const std::int64_t rawRule = timed(rawSide, [&] { return raw.Apply(rule); });
        const bool rawAdded = rawRule != 0 && scalar(inv.db, installations) == inv.pcs;
        const bool rawRemoved =
            timed(rawRemove, [&] { return rawUndo.Remove(rule.fileName, rawRule, appID); }) &&
            removed();
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
