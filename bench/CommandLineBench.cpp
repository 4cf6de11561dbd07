// The command line as whole processes (start to exit) against the library calls they make,
// in the same run on the same inventory file, so the process overhead shows as a ratio; and
// a rule write's preview against the write itself.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "navigation/SYInvListCtrl.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryGenerator.h"
#include "outside/store/SYInventorySummary.h"
#include "outside/store/SYRuleChangeReport.h"
#include "outside/widgets/SYWnd.h"
#include "rules/SYIdRuleItem.h"
#include "rules/SYSWRule.h"

namespace {

constexpr int kClients = 10000;

// A realistic estate on disk with its installation folder, and the unidentified file name
// that lies on the most clients.
struct Estate {
    Estate() {
        std::string pattern = (std::filesystem::temp_directory_path() / "tvcli-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
        folder = pattern;
        path = folder + "/inv.db";
        install = folder + "/installation";
        SYInventoryGenerator::Options options = SYInventoryGenerator::DemoOptions();
        options.clients = kClients;
        options.tailVendors = 200;
        SYInventoryGenerator::CreateIfAbsent(path, install, options);
        db.Open(path);
        auto widest = db.Cached("SELECT f.FileName FROM Files f JOIN FileLocations l ON "
                                "l.FileID = f.FileID WHERE f.InvDataType = 0 AND f.FileState = 0 "
                                "GROUP BY f.FileName ORDER BY COUNT(*) DESC LIMIT 1");
        if (!widest->Step())
            throw std::runtime_error("the estate has no unidentified file");
        name = widest->Text(0);
        SYGetApp().SetInstallPath(install);
    }
    Estate(const Estate&) = delete;
    Estate& operator=(const Estate&) = delete;
    ~Estate() {
        db.Close();
        std::error_code ignored;
        std::filesystem::remove_all(folder, ignored);
    }

    std::string folder, path, install, name;
    SYDatabase db;
};

Estate& estate() {
    static Estate made;
    return made;
}

int runProcess(benchmark::State& state, const std::string& words) {
    const std::string command =
        std::string("'") + TV_BINARY + "' " + words + " --db '" + estate().path + "' >/dev/null";
    const int status = std::system(command.c_str());
    if (status != 0)
        state.SkipWithError(("trellisview failed: " + words).c_str());
    return status;
}

// The identification the preview and the write make; files changed, or -1 on a failure.
int identify(bool commit, std::uint32_t* ruleID = nullptr) {
    Estate& e = estate();
    SYRuleChangeReport report;
    report.AddName(e.name);
    report.SetInstallPath(e.install);
    SYSWRule engine;
    engine.Database = &e.db;
    engine.SetInstallPath(e.install);
    SYIdRuleItem rule;
    rule.SetItemType(ItemTypeRule);
    rule.SetFileName(e.name);
    rule.SetAppName("Bench Tool");
    rule.SetAppVersion("1.0");
    rule.SetAppCompany("Bench Works");
    const bool done = report.Run(e.db, 0, commit, [&] {
        if (engine.RemoveMatchingRules(rule) == 0 || engine.AddIdRule(rule, 1) == 0)
            return false;
        engine.UpdateSamData();
        return true;
    });
    if (ruleID != nullptr)
        *ruleID = rule.FileID();
    return done ? report.Files() : -1;
}

void removeRule(std::uint32_t ruleID) {
    SYSWRule engine;
    engine.Database = &estate().db;
    engine.SetInstallPath(estate().install);
    engine.RemoveRule(ruleID, 1);
    engine.UpdateSamData();
}

void BM_IdentifyPreview(benchmark::State& state) {
    estate(); // made once, outside every timed loop
    int files = 0;
    for (auto _ : state)
        files = identify(false);
    if (files <= 0)
        state.SkipWithError("the preview changed no file");
    state.counters["files"] = files;
}

void BM_IdentifyWrite(benchmark::State& state) {
    int files = 0;
    for (auto _ : state) {
        std::uint32_t ruleID = 0;
        files = identify(true, &ruleID);
        state.PauseTiming();
        removeRule(ruleID);
        state.ResumeTiming();
    }
    if (files <= 0 || files != identify(false))
        state.SkipWithError("the write and its preview disagree");
    state.counters["files"] = files;
}

void BM_ProcessIdentifyDryRun(benchmark::State& state) {
    const std::string words = "rules identify '" + estate().name +
                              "' --app 'Bench Tool' --version 1.0 --dry-run --format json";
    for (auto _ : state)
        runProcess(state, words);
}

void BM_LibrarySummary(benchmark::State& state) {
    long long files = 0;
    for (auto _ : state) {
        SYDatabase db;
        db.Open(estate().path);
        SYInventorySummary summary;
        summary.Load(db);
        files = summary.Of(0).files;
    }
    state.counters["files"] = static_cast<double>(files);
}

void BM_ProcessSummary(benchmark::State& state) {
    for (auto _ : state)
        runProcess(state, "summary --format csv");
}

void BM_LibraryListUnidentified(benchmark::State& state) {
    int rows = 0;
    for (auto _ : state) {
        SYDatabase db;
        db.Open(estate().path);
        SYWnd host;
        host.Create(SYControlKind::Static, 1, "host", {0, 0, 800, 600}, nullptr);
        SYInvListCtrl list;
        list.Initialize(300, 4052, 0x808000, 14, &host);
        list.SetDatabase(&db);
        list.SetUnidFilesMode(0);
        list.BuildUnidFiles();
        rows = list.GetItemCount();
        host.DestroyWindow();
    }
    state.counters["rows"] = rows;
}

void BM_ProcessListUnidentified(benchmark::State& state) {
    for (auto _ : state)
        runProcess(state, "list unidentified --format csv");
}

} // namespace

BENCHMARK(BM_IdentifyPreview)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_IdentifyWrite)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ProcessIdentifyDryRun)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LibrarySummary)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ProcessSummary)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_LibraryListUnidentified)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ProcessListUnidentified)->Unit(benchmark::kMillisecond);
