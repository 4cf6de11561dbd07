// The rule model against the same work done with raw SQLite statements on the same
// inventory in the same process, so that the figures compare as a ratio.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryGenerator.h"
#include "outside/store/SYInventoryWriter.h"
#include "rules/SYAppFile.h"
#include "rules/SYSWRule.h"

namespace {

constexpr const char* EverywhereName = "everywhere.dll";
constexpr std::int32_t ScanTime = 1614862923;

// A generated inventory in memory, its installation folder, and one extra file that lies on
// every Windows PC.
struct Inventory {
    explicit Inventory(int clients)
    {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "tvbench-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
        folder = pattern;
        db.OpenMemory();
        SYInventoryGenerator::Options options;
        options.seed = 7;
        options.clients = clients;
        SYInventoryGenerator(options).Generate(db, folder);
        AddEverywhereFile();
        SampleFiles();
    }
    Inventory(const Inventory&) = delete;
    Inventory& operator=(const Inventory&) = delete;
    ~Inventory()
    {
        db.Close();
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }

    void AddEverywhereFile()
    {
        std::vector<unsigned long> machines;
        {
            auto statement = db.Cached("SELECT MachineID FROM Machines");
            while (statement->Step())
                machines.push_back(static_cast<unsigned long>(statement->Int64(0)));
        }
        SYInventoryWriter writer(db, folder);
        SYScanFile file;
        file.name = EverywhereName;
        file.size = 123456;
        file.time = ScanTime;
        for (unsigned long machine : machines)
            everywhere = writer.AddFile(0, machine, "C:\\Shared", file);
        writer.Commit();
        pcs = static_cast<int>(machines.size());
    }

    // Files of the PC inventory spread over the id range, so that loads do not hit one page.
    void SampleFiles()
    {
        auto statement = db.Cached("SELECT FileID FROM Files WHERE InvDataType = 0 "
                                   "AND FileID % 37 = 0 ORDER BY FileID LIMIT 256");
        while (statement->Step())
            files.push_back(static_cast<unsigned long>(statement->Int64(0)));
        if (files.empty())
            throw std::runtime_error("the generated inventory has no files");
    }

    std::string folder;
    SYDatabase db;
    std::vector<unsigned long> files;
    unsigned long everywhere = 0;
    int pcs = 0;
};

Inventory& inventory(int clients)
{
    static std::map<int, std::unique_ptr<Inventory>> made;
    auto& slot = made[clients];
    if (!slot)
        slot = std::make_unique<Inventory>(clients);
    SYGetApp().SetInstallPath(slot->folder);
    return *slot;
}

// One raw statement, prepared once, reset after every use.
class RawStatement {
public:
    RawStatement(sqlite3* db, const char* sql)
    {
        if (sqlite3_prepare_v3(db, sql, -1, SQLITE_PREPARE_PERSISTENT, &m_stmt, nullptr) !=
            SQLITE_OK)
            throw std::runtime_error(sqlite3_errmsg(db));
    }
    RawStatement(const RawStatement&) = delete;
    RawStatement& operator=(const RawStatement&) = delete;
    ~RawStatement() { sqlite3_finalize(m_stmt); }

    sqlite3_stmt* operator->() const { return m_stmt; }
    sqlite3_stmt* get() const { return m_stmt; }
    // Steps through every row, reading each column as the record would.
    int Drain()
    {
        int rows = 0;
        while (sqlite3_step(m_stmt) == SQLITE_ROW) {
            for (int c = 0; c < sqlite3_column_count(m_stmt); ++c)
                benchmark::DoNotOptimize(sqlite3_column_text(m_stmt, c));
            ++rows;
        }
        sqlite3_reset(m_stmt);
        return rows;
    }

private:
    sqlite3_stmt* m_stmt = nullptr;
};

void BM_AppFileLoadData(benchmark::State& state)
{
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
void BM_AppFileLoadDataRawSQLite(benchmark::State& state)
{
    Inventory& inv = inventory(static_cast<int>(state.range(0)));
    SYAppFile attach;
    attach.SetDatabase(&inv.db);
    attach.LoadData(inv.files.front(), 0); // attaches the system rules
    sqlite3* db = inv.db.Handle();
    RawStatement file(db, "SELECT f.FileName, f.FileTime, f.FileSize, a.AppName, a.AppVersion, "
                          "a.AppCompany FROM Files f LEFT JOIN [Applications] a "
                          "ON a.AppID = f.AppID WHERE f.FileID = ?1 AND f.InvDataType = 0");
    RawStatement rules(db, "SELECT RuleID, RuleType, FileName, FileSize, FileTime, AppName, "
                           "AppVersion, AppCompany, Comment FROM SWRules WHERE InvDataType = 0 "
                           "AND FileName = ?1 AND RuleState <> 3 ORDER BY RuleID");
    RawStatement user(db, "SELECT RuleID, RuleType, FileSize, FileTime, AppName, AppCompany, "
                          "AppVersion, Comment FROM main.SWRules WHERE InvDataType = 0 "
                          "AND FileName = ?1 AND RuleState <> 3 "
                          "AND (FileSize IS NULL OR FileSize = ?2)");
    RawStatement system(db, "SELECT RuleID, RuleType, FileSize, FileTime, AppName, AppCompany, "
                            "AppVersion, Comment FROM sysrules.SystemRules WHERE "
                            "InvDataType = 0 AND FileName = ?1 "
                            "AND (FileSize IS NULL OR FileSize = ?2)");
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

// Identifying a file that lies on every PC, through to the inventory; the rule is removed
// again, untimed, after each round.
void BM_AddIdRuleAndApply(benchmark::State& state)
{
    Inventory& inv = inventory(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        SYSWRule engine;
        engine.Database = &inv.db;
        engine.InvDataType = 0;
        engine.SetInstallPath(inv.folder);
        SYIdRuleItem rule;
        rule.SetFileName(EverywhereName);
        rule.SetAppName("Everywhere");
        rule.SetAppVersion("1.0");
        rule.SetAppCompany("Ubiquity");
        if (engine.AddIdRule(rule, 1) == 0) {
            state.SkipWithError("AddIdRule failed");
            break;
        }
        engine.UpdateSamData();

        state.PauseTiming();
        SYSWRule undo;
        undo.Database = &inv.db;
        undo.InvDataType = 0;
        undo.SetInstallPath(inv.folder);
        undo.RemoveRule(rule.FileID(), 1);
        undo.UpdateSamData();
        state.ResumeTiming();
    }
    state.counters["locations"] = inv.pcs;
}

void BM_CountLocationsRawSQLite(benchmark::State& state)
{
    Inventory& inv = inventory(static_cast<int>(state.range(0)));
    RawStatement count(inv.db.Handle(), "SELECT COUNT(*) FROM FileLocations WHERE FileID = ?1");
    for (auto _ : state) {
        sqlite3_bind_int64(count.get(), 1, inv.everywhere);
        if (sqlite3_step(count.get()) != SQLITE_ROW) {
            state.SkipWithError("count failed");
            break;
        }
        benchmark::DoNotOptimize(sqlite3_column_int64(count.get(), 0));
        sqlite3_reset(count.get());
    }
    state.counters["locations"] = inv.pcs;
}

BENCHMARK(BM_AppFileLoadData)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_AppFileLoadDataRawSQLite)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_AddIdRuleAndApply)->Arg(1000)->Arg(10000)->Arg(50000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_CountLocationsRawSQLite)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(50000)
    ->Unit(benchmark::kMicrosecond);

} // namespace
