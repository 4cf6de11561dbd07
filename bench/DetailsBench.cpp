// The Windows application view and the installation details on the realistic estate of 10,000
// clients, each beside the raw SQLite reads of the same rows on the same connection in the same
// run: the ratio of a view benchmark to its raw twin is the figure to watch.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "BenchEstate.h"
#include "RawStatement.h"
#include "RawViews.h"
#include "details/SYAppInstDetailsDlg.h"
#include "details/SYAppTabWnd.h"
#include "outside/store/SYDatabase.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYWnd.h"

namespace {

constexpr int Clients = 10000;

// The realistic estate's store, opened once, with the application installed on the most PCs
// and the first of its installations.
class Inventory {
public:
    Inventory() {
        m_db.Open(Estate(Clients).database);
        RawStatement app(Raw(), rawview::MostInstalledApp);
        if (!app.Step())
            std::abort();
        appID = static_cast<std::uint32_t>(sqlite3_column_int64(app.get(), 0));
        RawStatement first(Raw(), "SELECT MachineID, InstallationID FROM Installations WHERE "
                                  "InvDataType = 0 AND AppID = ?1 ORDER BY MachineID LIMIT 1");
        if (!first.Bind(1, appID).Step())
            std::abort();
        machineID = static_cast<std::uint32_t>(sqlite3_column_int64(first.get(), 0));
        installationID = static_cast<std::uint32_t>(sqlite3_column_int64(first.get(), 1));
    }

    SYDatabase& Db() { return m_db; }
    sqlite3* Raw() { return m_db.Handle(); }

    std::uint32_t appID = 0;
    std::uint32_t machineID = 0;
    std::uint32_t installationID = 0;

private:
    SYDatabase m_db;
};

Inventory& estate() {
    static Inventory made;
    return made;
}

void checkRows(benchmark::State& state, std::int64_t rows, std::int64_t expected) {
    state.counters["rows"] = static_cast<double>(rows);
    if (rows != expected)
        state.SkipWithError("the rows read differ from the raw reads");
}

// --- LoadAppData for the most installed application ----------------------------------------

void BM_RawAppData(benchmark::State& state) {
    rawview::AppData raw(estate().Raw(), estate().appID);
    std::int64_t rows = 0;
    for (auto _ : state)
        rows = raw.Rows();
    state.counters["rows"] = static_cast<double>(rows);
}

void BM_LoadAppData(benchmark::State& state) {
    SYWnd main;
    main.Create(SYControlKind::Static, 1, "main", {0, 0, 1024, 768}, nullptr);
    SYAppTabWnd tabs;
    tabs.Initialize(100, &main);
    tabs.SetDatabase(&estate().Db());
    const std::int64_t expected = rawview::AppData(estate().Raw(), estate().appID).Rows();
    for (auto _ : state)
        tabs.LoadAppData(estate().appID, 0);
    checkRows(state, tabs.AppFileList().GetItemCount() + tabs.MachineList()->GetItemCount(),
              expected);
    state.counters["clients"] = tabs.MachineTotal();
}

// --- the details of one installation ------------------------------------------------------

// As the dialog does, the installation's read ends before its files are read.
std::int64_t rawDetails(RawStatement& installation, RawStatement& app, RawStatement& files) {
    installation.Bind(1, estate().machineID).Bind(2, estate().installationID);
    if (!installation.Step()) {
        installation.Reset();
        return 0;
    }
    touchRow(installation.get());
    const std::int64_t appID = sqlite3_column_int64(installation.get(), 0);
    const std::string location =
        reinterpret_cast<const char*>(sqlite3_column_text(installation.get(), 1));
    app.Bind(1, appID);
    if (app.Step())
        touchRow(app.get());
    app.Reset();
    installation.Reset();
    std::int64_t rows = 0;
    files.Bind(1, appID)
        .Bind(2, estate().machineID)
        .Bind(3, reinterpret_cast<const unsigned char*>(location.c_str()));
    while (files.Step()) {
        touchRow(files.get());
        ++rows;
    }
    files.Reset();
    return rows;
}

struct RawDetails {
    RawStatement installation{
        estate().Raw(), "SELECT i.AppID, i.Location, m.MachineName FROM Installations i LEFT "
                        "JOIN Machines m ON m.MachineID = i.MachineID WHERE i.InvDataType = 0 "
                        "AND i.MachineID = ?1 AND i.InstallationID = ?2"};
    RawStatement app{estate().Raw(),
                     "SELECT AppName, AppVersion FROM [Applications] WHERE AppID = ?1"};
    RawStatement files{estate().Raw(),
                       "SELECT f.FileName, f.FileSize, f.FileTime, l.Location FROM Files f JOIN "
                       "FileLocations l ON l.FileID = f.FileID WHERE f.InvDataType = 0 AND "
                       "f.AppID = ?1 AND l.MachineID = ?2 AND l.Location = ?3"};
    std::int64_t Run() { return rawDetails(installation, app, files); }
};

void BM_RawInstallationDetails(benchmark::State& state) {
    RawDetails raw;
    std::int64_t rows = 0;
    for (auto _ : state)
        rows = raw.Run();
    state.counters["rows"] = static_cast<double>(rows);
}

void BM_InstallationDetails(benchmark::State& state) {
    const std::int64_t expected = RawDetails().Run();
    std::int64_t rows = 0;
    for (auto _ : state) {
        // Without a modal host the dialog loads and gives up showing at once.
        SYAppInstDetailsDlg details;
        details.SetDatabase(&estate().Db());
        details.SetInstInfo(estate().machineID, estate().installationID, 0);
        details.DoModal();
        rows = static_cast<std::int64_t>(details.FileData().size());
    }
    checkRows(state, rows, expected);
}

} // namespace

BENCHMARK(BM_RawAppData)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LoadAppData)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RawInstallationDetails)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_InstallationDetails)->Unit(benchmark::kMicrosecond);
