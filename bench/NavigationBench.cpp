// The inventory tree and list on the realistic estate of 10,000 clients, each against the
// raw SQLite query for the same rows on the same connection (or the standard library doing
// the same work) in the same run: each view benchmark follows its twin, and the ratio of
// the two times is the figure to watch. Both sides report their rows, and a view that shows
// other than its twin read stops with an error.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "BenchEstate.h"
#include "RawViews.h"
#include "navigation/SYInvListCtrl.h"
#include "navigation/SYInvTreeWnd.h"
#include "outside/store/SYDatabase.h"
#include "outside/widgets/SYWnd.h"
#include "rules/SYIgnoreRuleItem.h"

namespace {

constexpr int Clients = 10000;

// The estate's store, opened once for the whole run.
class Inventory {
public:
    Inventory() { m_db.Open(Estate(Clients).database); }

    SYDatabase& Db() { return m_db; }
    sqlite3* Raw() { return m_db.Handle(); }

private:
    SYDatabase m_db;
};

Inventory& inventory() {
    static Inventory made;
    return made;
}

// Steps a statement to its end, reading every column as the views read them.
std::int64_t drain(sqlite3_stmt* stmt) {
    std::int64_t rows = 0;
    const int columns = sqlite3_column_count(stmt);
    while (sqlite3_step(stmt) == SQLITE_ROW) {
        for (int c = 0; c < columns; ++c) {
            if (sqlite3_column_type(stmt, c) == SQLITE_TEXT)
                benchmark::DoNotOptimize(sqlite3_column_text(stmt, c));
            else
                benchmark::DoNotOptimize(sqlite3_column_int64(stmt, c));
        }
        ++rows;
    }
    sqlite3_reset(stmt);
    return rows;
}

class Raw {
public:
    explicit Raw(const char* sql) {
        if (sqlite3_prepare_v2(inventory().Raw(), sql, -1, &m_stmt, nullptr) != SQLITE_OK)
            std::abort();
    }
    Raw(const Raw&) = delete;
    Raw& operator=(const Raw&) = delete;
    ~Raw() { sqlite3_finalize(m_stmt); }
    sqlite3_stmt* get() const { return m_stmt; }
    std::int64_t Run() { return drain(m_stmt); }

private:
    sqlite3_stmt* m_stmt = nullptr;
};

const char* const CompanySql =
    "SELECT AppCompany, AppCompanyInternal FROM (SELECT AppCompany, AppCompanyInternal, "
    "MIN(AppID) AS FirstAppID FROM [PPC Applications] WHERE AppInstalled = 1 GROUP BY "
    "AppCompanyInternal, AppCompany) ORDER BY AppCompanyInternal COLLATE NOCASE, FirstAppID";
const char* const CompanyAppsSql =
    "SELECT AppID, AppName, AppNameInternal, AppVersion FROM [PPC Applications] WHERE "
    "AppInstalled = 1 AND AppCompanyInternal = ? COLLATE NOCASE";
const char* const UnidFilesSql =
    "SELECT f.FileID, f.FileName, f.FileSize, f.FileTime FROM Files f WHERE f.InvDataType = 0 "
    "AND f.FileState = 0";

// A twin that read nothing did no work worth timing.
void countRows(benchmark::State& state, std::int64_t rows) {
    if (rows == 0)
        state.SkipWithError("the raw query read no rows");
    state.counters["rows"] = static_cast<double>(rows);
}

// Everything an update reads: the Windows CE companies, both flat branches, the table
// check and the counts.
void runRawUpdate(Raw& companies, Raw& palm, Raw& rim, Raw& table, std::vector<Raw*>& counts,
                  benchmark::State& state) {
    std::int64_t rows = companies.Run() + palm.Run() + rim.Run() + table.Run();
    for (Raw* count : counts)
        rows += count->Run();
    countRows(state, rows);
}

struct Host {
    Host() { window.Create(SYControlKind::Static, 1, "host", {0, 0, 1024, 768}, nullptr); }
    SYWnd window;
};

std::unique_ptr<SYInvTreeWnd> newTree(Host& host) {
    auto tree = std::make_unique<SYInvTreeWnd>();
    tree->Initialize(200, &host.window);
    tree->SetDatabase(&inventory().Db());
    return tree;
}

std::vector<HTREEITEM> companyNodes(SYInvTreeWnd& tree) {
    std::vector<HTREEITEM> nodes;
    SYTreeCtrlEx& ctrl = tree.GetTreeCtrl();
    for (HTREEITEM n = ctrl.GetChildItem(tree.PPCAppsItem()); n; n = ctrl.GetNextSiblingItem(n))
        nodes.push_back(n);
    return nodes;
}

// --- raw twins ------------------------------------------------------------------------------

void BM_RawUpdateQueries(benchmark::State& state) {
    Raw companies(CompanySql);
    Raw palm("SELECT AppID, AppName, AppVersion, IconName FROM [Palm Applications] ORDER BY "
             "AppID");
    Raw rim("SELECT AppID, AppName, AppVersion FROM [RIM Applications] ORDER BY AppID");
    Raw table("SELECT name FROM sqlite_master WHERE type = 'table' AND name = 'RIM "
              "Applications' COLLATE NOCASE ORDER BY name");
    Raw c1("SELECT Count([Palm Applications].AppID) AS AppCount FROM [Palm Applications]");
    Raw c2("SELECT Count([PPC Applications].AppID) AS AppCount FROM [PPC Applications] WHERE "
           "[PPC Applications].AppInstalled=1");
    Raw c3("SELECT Count([RIM Applications].AppID) AS AppCount FROM [RIM Applications]");
    std::vector<Raw*> counts{&c1, &c2, &c3};
    for (auto _ : state)
        runRawUpdate(companies, palm, rim, table, counts, state);
}

void BM_RawCompanyApps(benchmark::State& state) {
    Raw companies("SELECT DISTINCT AppCompanyInternal FROM [PPC Applications] WHERE "
                  "AppInstalled = 1");
    std::vector<std::string> names;
    while (sqlite3_step(companies.get()) == SQLITE_ROW)
        names.emplace_back(reinterpret_cast<const char*>(sqlite3_column_text(companies.get(), 0)));
    Raw apps(CompanyAppsSql);
    for (auto _ : state) {
        std::int64_t rows = 0;
        for (const std::string& name : names) {
            sqlite3_bind_text(apps.get(), 1, name.c_str(), -1, SQLITE_TRANSIENT);
            rows += apps.Run();
        }
        countRows(state, rows);
    }
}

// The rows in the order the list shows them.
void BM_RawUnidFiles(benchmark::State& state) {
    Raw files((std::string(UnidFilesSql) + rawview::UnidFilesOrder).c_str());
    for (auto _ : state)
        countRows(state, files.Run());
}

// The same rows with every column the store's file set reads for them.
void BM_RawUnidFilesAsStored(benchmark::State& state) {
    Raw files(rawview::UnidFilesAsStored);
    for (auto _ : state)
        countRows(state, files.Run());
}

void BM_RawUnidFilesBySize(benchmark::State& state) {
    Raw files((std::string(UnidFilesSql) + " ORDER BY f.FileSize DESC, f.FileName").c_str());
    for (auto _ : state)
        countRows(state, files.Run());
}

// --- the views ------------------------------------------------------------------------------

// The Windows CE companies the tree must show: one node per internal name, however many
// spellings the company query reads for it.
std::int64_t rawCompanies() {
    Raw companies("SELECT COUNT(DISTINCT AppCompanyInternal COLLATE NOCASE) FROM [PPC "
                  "Applications] WHERE AppInstalled = 1");
    sqlite3_step(companies.get());
    return sqlite3_column_int64(companies.get(), 0);
}

// Nonzero when the tree shows as many companies as the raw query reads, else the error.
std::string treeWrong(SYInvTreeWnd& tree) {
    static const std::int64_t expected = rawCompanies();
    const auto shown = static_cast<std::int64_t>(companyNodes(tree).size());
    if (expected > 0 && shown == expected)
        return {};
    return "the tree shows " + std::to_string(shown) + " companies, the store holds " +
           std::to_string(expected);
}

void BM_UpdateTreeFirst(benchmark::State& state) {
    Host host;
    for (auto _ : state) {
        state.PauseTiming();
        auto tree = newTree(host);
        state.ResumeTiming();
        tree->UpdateTree();
        state.PauseTiming();
        const std::string wrong = treeWrong(*tree);
        tree.reset();
        state.ResumeTiming();
        if (!wrong.empty()) {
            state.SkipWithError(wrong.c_str());
            break;
        }
    }
}

void BM_UpdateTreeUnchanged(benchmark::State& state) {
    Host host;
    auto tree = newTree(host);
    tree->UpdateTree();
    for (auto _ : state)
        tree->UpdateTree();
    if (const std::string wrong = treeWrong(*tree); !wrong.empty())
        state.SkipWithError(wrong.c_str());
    state.counters["companies"] = static_cast<double>(companyNodes(*tree).size());
}

void BM_ExpandEveryCompany(benchmark::State& state) {
    Host host;
    auto tree = newTree(host);
    tree->UpdateTree();
    const std::vector<HTREEITEM> nodes = companyNodes(*tree);
    std::int64_t apps = 0;
    for (auto _ : state) {
        // Each company is unexpanded, so CheckBuildItem reads its applications.
        for (HTREEITEM node : nodes)
            tree->CheckBuildItem(node);
    }
    SYTreeCtrlEx& ctrl = tree->GetTreeCtrl();
    for (HTREEITEM node : nodes)
        for (HTREEITEM app = ctrl.GetChildItem(node); app; app = ctrl.GetNextSiblingItem(app))
            ++apps;
    Raw installed("SELECT COUNT(*) FROM [PPC Applications] WHERE AppInstalled = 1");
    sqlite3_step(installed.get());
    if (apps != sqlite3_column_int64(installed.get(), 0))
        state.SkipWithError("the companies show other applications than the store holds");
    state.counters["companies"] = static_cast<double>(nodes.size());
    state.counters["rows"] = static_cast<double>(apps);
}

std::unique_ptr<SYInvListCtrl> newList(Host& host) {
    auto list = std::make_unique<SYInvListCtrl>();
    list->Initialize(300, 4052, 0x808000, 14, &host.window);
    list->SetDatabase(&inventory().Db());
    list->SetUnidFilesMode(0);
    return list;
}

std::int64_t unidCount() {
    Raw count("SELECT COUNT(*) FROM Files WHERE InvDataType = 0 AND FileState = 0");
    sqlite3_step(count.get());
    return sqlite3_column_int64(count.get(), 0);
}

void BM_BuildUnidFiles(benchmark::State& state) {
    Host host;
    auto list = newList(host);
    const std::int64_t expected = unidCount();
    for (auto _ : state) {
        list->BuildUnidFiles();
        if (list->GetItemCount() != expected || expected == 0) {
            state.SkipWithError("the list shows other files than the store holds");
            break;
        }
    }
    state.counters["rows"] = list->GetItemCount();
}

// The size a file row shows, its digits without the grouping.
std::int64_t shownSize(SYInvListCtrl& list, int row) {
    std::int64_t size = 0;
    for (const char c : list.GetItemText(row, 1))
        if (c >= '0' && c <= '9')
            size = size * 10 + (c - '0');
    return size;
}

template <class Size> bool ordered(const std::vector<Size>& sizes, bool ascending) {
    return ascending ? std::is_sorted(sizes.begin(), sizes.end())
                     : std::is_sorted(sizes.rbegin(), sizes.rend());
}

// Each round is one click on the size header, which turns the order around.
void BM_SortUnidFilesBySize(benchmark::State& state) {
    Host host;
    auto list = newList(host);
    list->BuildUnidFiles();
    const int rows = list->GetItemCount();
    bool ascending = false;
    for (auto _ : state) {
        list->SortOnHeader(1);
        state.PauseTiming();
        ascending = !ascending;
        std::vector<std::int64_t> shown;
        for (int row = 0; row < list->GetItemCount(); ++row)
            shown.push_back(shownSize(*list, row));
        state.ResumeTiming();
        if (static_cast<int>(shown.size()) != rows || rows == 0 || !ordered(shown, ascending)) {
            state.SkipWithError("the list is not in the order of the sizes");
            break;
        }
    }
    state.counters["rows"] = list->GetItemCount();
}

// The same rows sorted by std::stable_sort the same way, a click at a time: each row
// holds what a list row shows (its texts, its data) and its size.
void BM_StableSortUnidFilesBySize(benchmark::State& state) {
    struct Row {
        std::uint32_t id;
        std::int64_t size;
        std::vector<std::string> texts;
    };
    Host host;
    auto list = newList(host);
    list->BuildUnidFiles();
    std::vector<Row> rows;
    for (int row = 0; row < list->GetItemCount(); ++row) {
        std::vector<std::string> texts;
        for (int column = 0; column < 3; ++column)
            texts.push_back(list->GetItemText(row, column));
        rows.push_back({list->GetItemData(row), shownSize(*list, row), std::move(texts)});
    }
    bool ascending = false;
    for (auto _ : state) {
        ascending = !ascending;
        std::stable_sort(rows.begin(), rows.end(), [ascending](const Row& a, const Row& b) {
            return ascending ? a.size < b.size : b.size < a.size;
        });
        state.PauseTiming();
        std::vector<std::int64_t> shown;
        for (const Row& row : rows)
            shown.push_back(row.size);
        state.ResumeTiming();
        if (!ordered(shown, ascending)) {
            state.SkipWithError("std::stable_sort left rows out of order");
            break;
        }
    }
    state.counters["rows"] = static_cast<double>(rows.size());
}

class TestList : public SYInvListCtrl {
public:
    using SYInvListCtrl::RemoveMatchingFiles;
};

void BM_RemoveMatchingFiles(benchmark::State& state) {
    Host host;
    TestList list;
    list.Initialize(300, 4052, 0x808000, 14, &host.window);
    list.SetDatabase(&inventory().Db());
    list.SetUnidFilesMode(0);
    std::string name;
    std::int64_t removed = 0;
    for (auto _ : state) {
        state.PauseTiming();
        list.BuildUnidFiles();
        name = list.GetItemText(list.GetItemCount() / 2, 0);
        const int before = list.GetItemCount();
        SYIgnoreRuleItem rule;
        rule.SetFileName(name);
        state.ResumeTiming();
        list.RemoveMatchingFiles(&rule);
        state.PauseTiming();
        removed = before - list.GetItemCount();
        state.ResumeTiming();
        if (removed <= 0) {
            state.SkipWithError("the rule removed no file from the list");
            break;
        }
    }
    state.counters["rows"] = list.GetItemCount();
    state.counters["removed"] = static_cast<double>(removed);
}

void BM_RawMatchingFiles(benchmark::State& state) {
    // The rows a rule covers, as the store would read them for the list.
    Raw files((std::string(UnidFilesSql) + " AND f.FileName = ?").c_str());
    Raw pick((std::string(UnidFilesSql) + " ORDER BY f.FileName LIMIT 1 OFFSET "
                                          "(SELECT COUNT(*) / 2 FROM Files WHERE InvDataType = 0 "
                                          "AND FileState = 0)")
                 .c_str());
    sqlite3_step(pick.get());
    const std::string name = reinterpret_cast<const char*>(sqlite3_column_text(pick.get(), 1));
    sqlite3_bind_text(files.get(), 1, name.c_str(), -1, SQLITE_TRANSIENT);
    for (auto _ : state) {
        const auto rows = files.Run();
        if (rows == 0) {
            state.SkipWithError("no file bears the picked name");
            break;
        }
        state.counters["rows"] = static_cast<double>(rows);
    }
}

} // namespace

// A refresh reads all that a first build reads (the flat branches are rebuilt and the counts
// written each time), so both stand against the same twin.
BENCHMARK(BM_RawUpdateQueries)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_UpdateTreeFirst)->Unit(benchmark::kMillisecond)->Iterations(2000);
BENCHMARK(BM_UpdateTreeUnchanged)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RawCompanyApps)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExpandEveryCompany)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RawUnidFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RawUnidFilesAsStored)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_BuildUnidFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RawUnidFilesBySize)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_SortUnidFilesBySize)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StableSortUnidFilesBySize)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RawMatchingFiles)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RemoveMatchingFiles)->Unit(benchmark::kMillisecond)->Iterations(200);
