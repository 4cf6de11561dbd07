// The console's answer to a key on the realistic estate. Each benchmark runs the console in
// process on a screen in memory, as the program runs it on a terminal, feeds it the key of
// one step, lets it work until the screen is drawn again and stops the clock there; then it
// checks that the screen shows what the step should, so that a step gone wrong cannot pass
// for a fast one. In the same round the reads and writes the step needs run raw on SQLite
// on the same connection (or, for a step that reads nothing, the standard library does its
// work). The iteration time is the console's, key to drawn screen; key_ms and raw_ms are
// the two means and ratio the one over the other. The console aims at 100 ms a step.

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "BenchEstate.h"
#include "RawApply.h"
#include "RawStatement.h"
#include "RawViews.h"
#include "SYTermBufferScreen.h"
#include "SYTermConsole.h"
#include "SYTermConsoleWindow.h"
#include "SYTermKeys.h"
#include "SYTermModalHost.h"
#include "outside/framework/SYString.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/widgets/SYFontMetrics.h"
#include "rules/SYCompanyItem.h"

namespace {

using Keys = SYTermKeys;
using Clock = std::chrono::steady_clock;

constexpr int ScreenRows = 40;
constexpr int ScreenCols = 160;
// Where the right half begins: the tree takes two fifths of the width, at most 48 cells.
constexpr int RightCol = 49;

double since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

// The estate's store, opened once per client count for the whole run.
struct Inventory {
    explicit Inventory(int clients) : estate(Estate(clients)) { db.Open(estate.database); }

    sqlite3* Raw() const { return db.Handle(); }
    std::int64_t Number(const std::string& sql, std::int64_t bound = 0) const {
        RawStatement statement(Raw(), sql);
        statement.Bind(1, bound);
        return statement.Step() ? sqlite3_column_int64(statement.get(), 0) : -1;
    }
    std::string Text(const std::string& sql, std::int64_t bound = 0) const {
        RawStatement statement(Raw(), sql);
        statement.Bind(1, bound);
        const unsigned char* text =
            statement.Step() ? sqlite3_column_text(statement.get(), 0) : nullptr;
        return text == nullptr ? std::string() : reinterpret_cast<const char*>(text);
    }

    const BenchEstate& estate;
    SYDatabase db;
};

Inventory& inventory(const benchmark::State& state) {
    static std::map<std::int64_t, std::unique_ptr<Inventory>> made;
    auto& slot = made[state.range(0)];
    if (!slot)
        slot = std::make_unique<Inventory>(static_cast<int>(state.range(0)));
    SYGetApp().SetInstallPath(slot->estate.install);
    return *slot;
}

// The console as the program runs it, on the estate's store, with the terminal's modal host
// drawing its dialogs over the main screen.
class Console {
public:
    explicit Console(Inventory& inventory) : m_console(inventory.db) {
        if (m_console.Start() == 0)
            throw std::runtime_error("the console did not start");
        m_window.emplace(m_console, m_screen);
        m_host.SetBackdrop([this] { m_window->Draw(); });
        m_window->Draw();
    }

    SYTermConsole* operator->() { return &m_console; }
    SYTermBufferScreen& Screen() { return m_screen; }
    SYTreeCtrlEx& Tree() { return m_console.TreeCtrl(); }

    // Seconds from the key to the screen drawn again.
    double Key(int key) {
        const auto start = Clock::now();
        m_window->HandleKey(key);
        m_window->Draw();
        return since(start);
    }
    void Select(HTREEITEM node) {
        Tree().SelectItem(node);
        m_window->Draw();
    }
    // The line shown selected in the tree or the right half (in reverse), and its row; -1
    // when none is.
    int SelectedRow(int col) const {
        for (int row = 2; row + 1 < ScreenRows; ++row)
            if (m_screen.AttrAt(row, col) == SYTermAttr::Reverse)
                return row;
        return -1;
    }
    std::string SelectedLine(int col) const {
        const int row = SelectedRow(col);
        return row < 0 ? std::string() : m_screen.Text(row, col, ScreenCols - col);
    }
    bool Shows(const std::string& text) const {
        int row = 0;
        int col = 0;
        return m_screen.Find(text, row, col);
    }
    // Selects the list row of the file; its row, or -1 if none.
    int SelectFile(std::uint32_t id, const std::string& name) {
        SYInvListCtrl& list = m_console.List();
        for (int row = 0; row < list.GetItemCount(); ++row) {
            if (list.GetItemText(row, 0) != name)
                continue;
            SelectListRow(row);
            if (list.GetSelectedFileID() == id)
                return row;
        }
        return -1;
    }
    // The text as far as the first column of the list shows it.
    std::string ShownName(const std::string& text) {
        const auto cells = m_console.List().GetColWidth(0) / SYFontMetrics::CharWidth - 1;
        return text.substr(0, static_cast<std::size_t>(std::max(cells, 1)));
    }
    void SelectListRow(int row) {
        m_console.List().SelectItem(row);
        m_console.List().EnsureVisible(row);
        m_window->Draw();
    }

private:
    SYTermBufferScreen m_screen{ScreenRows, ScreenCols};
    SYTermModalHost m_host{m_screen};
    SYModalHostScope m_scope{&m_host};
    SYTermConsole m_console;
    std::optional<SYTermConsoleWindow> m_window;
};

// The two sides' times over the rounds, reported as means and their ratio.
struct Figures {
    double key = 0;
    double raw = 0;

    // Sets the round's time to the console's.
    void Add(benchmark::State& state, double keySeconds, double rawSeconds) {
        key += keySeconds;
        raw += rawSeconds;
        state.SetIterationTime(keySeconds);
    }
    void Report(benchmark::State& state) const {
        const auto rounds =
            static_cast<double>(std::max<benchmark::IterationCount>(state.iterations(), 1));
        state.counters["key_ms"] = key / rounds * 1e3;
        state.counters["raw_ms"] = raw / rounds * 1e3;
        state.counters["ratio"] = raw > 0 ? key / raw : 0;
    }
};

// Fails the benchmark with the first error; a failure report of the console is one too.
bool failed(benchmark::State& state, const std::string& wrong) {
    std::string error = wrong;
    if (error.empty() && !SYGetApp().Reports().empty())
        error = "the console reported: " + SYGetApp().Reports().back().message;
    if (error.empty())
        return false;
    SYGetApp().ClearReports();
    state.SkipWithError(error.c_str());
    return true;
}

// The company with the most installed applications, by internal name.
std::string largestCompany(const Inventory& inv) {
    return inv.Text("SELECT AppCompanyInternal FROM [Applications] WHERE AppInstalled = 1 GROUP "
                    "BY AppCompanyInternal COLLATE NOCASE ORDER BY COUNT(*) DESC LIMIT 1");
}

// The company's node below the applications root, opened first.
HTREEITEM companyNode(Console& console, const std::string& internal) {
    SYInvTreeWnd& tree = console->Tree();
    console->Expand(tree.AppsItem());
    const std::string wanted = SYToLower(internal);
    for (HTREEITEM node = console.Tree().GetChildItem(tree.AppsItem()); node != nullptr;
         node = console.Tree().GetNextSiblingItem(node)) {
        const auto* company =
            static_cast<SYCompanyItem*>(tree.Companies()[console.Tree().GetItemData(node)]);
        if (company != nullptr && SYToLower(company->InternalName()) == wanted)
            return node;
    }
    throw std::runtime_error("no node for the company " + internal);
}

// The node shown just above this one.
HTREEITEM nodeAbove(Console& console, HTREEITEM node) {
    const HTREEITEM previous = console.Tree().GetPrevSiblingItem(node);
    return previous != nullptr ? previous : console.Tree().GetParentItem(node);
}

// Brings the unidentified Windows files into the right half, with the focus there.
void openUnidentifiedFiles(Console& console) {
    console.Select(console->Tree().UnidFilesItem());
    console.Key(Keys::Tab);
}

// --- moving ---------------------------------------------------------------------------------

// Down from the applications root onto the unidentified files, which fill the list; the
// twin reads the same rows in the order the list shows them.
void BM_ConsoleTreeDownToUnidentifiedFiles(benchmark::State& state) {
    Inventory& inv = inventory(state);
    Console console(inv);
    RawStatement unidentified(inv.Raw(),
                              std::string(rawview::UnidFilesAsStored) + rawview::UnidFilesOrder);
    Figures figures;
    for (auto _ : state) {
        console.Select(console->Tree().AppsItem());
        const int from = console.SelectedRow(0);
        const double key = console.Key(Keys::Down);
        const auto start = Clock::now();
        const int rows = unidentified.Drain();
        figures.Add(state, key, since(start));
        const SYInvListCtrl& list = console->List();
        std::string wrong;
        if (console.SelectedRow(0) != from + 1 ||
            console.SelectedLine(0).find("Unidentified Windows Files") == std::string::npos)
            wrong = "the tree's selection did not move onto the unidentified files";
        else if (rows == 0 || list.GetItemCount() != rows || !console.Shows(list.GetItemText(0, 0)))
            wrong = "the list does not show the unidentified files";
        if (failed(state, wrong))
            break;
    }
    figures.Report(state);
}

// Down onto the company with the most applications, which the list then shows; the twin
// reads its applications.
void BM_ConsoleTreeDownToLargestCompany(benchmark::State& state) {
    Inventory& inv = inventory(state);
    Console console(inv);
    const std::string company = largestCompany(inv);
    const HTREEITEM node = companyNode(console, company);
    const std::string shown = console.Tree().GetItemText(node);
    RawStatement apps(inv.Raw(), rawview::CompanyApps);
    apps.Bind(1, reinterpret_cast<const unsigned char*>(company.c_str()));
    Figures figures;
    for (auto _ : state) {
        console.Select(nodeAbove(console, node));
        const int from = console.SelectedRow(0);
        const double key = console.Key(Keys::Down);
        const auto start = Clock::now();
        const int rows = apps.Drain();
        figures.Add(state, key, since(start));
        const SYInvListCtrl& list = console->List();
        std::string wrong;
        if (console.SelectedRow(0) != from + 1 ||
            console.SelectedLine(0).find(shown) == std::string::npos)
            wrong = "the tree's selection did not move onto " + shown;
        else if (rows == 0 || list.GetItemCount() != rows || !console.Shows(list.GetItemText(0, 0)))
            wrong = "the list does not show the applications of " + shown;
        if (failed(state, wrong))
            break;
    }
    state.counters["rows"] = console->List().GetItemCount();
    figures.Report(state);
}

// The lines of a page of rows as a list draws them: each cell cut or padded to its column.
std::vector<std::string> pageLines(const std::vector<std::vector<std::string>>& rows, int top,
                                   int height, const std::vector<int>& widths) {
    std::vector<std::string> lines;
    for (int row = top; row < top + height && row < static_cast<int>(rows.size()); ++row) {
        std::string line;
        for (std::size_t column = 0; column < widths.size(); ++column) {
            std::string cell = rows[static_cast<std::size_t>(row)][column];
            cell.resize(static_cast<std::size_t>(widths[column]), ' ');
            line += cell;
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

// Down by one row in the middle of the unidentified files: nothing is read, so the twin is
// the standard library laying out the page of rows the list shows from rows in memory.
void BM_ConsoleListDown(benchmark::State& state) {
    Inventory& inv = inventory(state);
    Console console(inv);
    openUnidentifiedFiles(console);
    SYInvListCtrl& list = console->List();
    const int middle = list.GetItemCount() / 2;
    std::vector<std::vector<std::string>> rows;
    std::vector<int> widths;
    for (int column = 0; column < list.GetColumnCount(); ++column)
        widths.push_back(list.GetColWidth(column) / SYFontMetrics::CharWidth);
    for (int row = 0; row < list.GetItemCount(); ++row) {
        rows.emplace_back();
        for (int column = 0; column < list.GetColumnCount(); ++column)
            rows.back().push_back(list.GetItemText(row, column));
    }
    Figures figures;
    for (auto _ : state) {
        // The row stands mid-page, so that the move does not scroll.
        list.EnsureVisible(middle + ScreenRows / 4);
        console.SelectListRow(middle);
        const int from = console.SelectedRow(RightCol);
        const double key = console.Key(Keys::Down);
        const int top = list.GetTopIndex();
        const auto start = Clock::now();
        const auto lines = pageLines(rows, top, ScreenRows - 4, widths);
        figures.Add(state, key, since(start));
        const std::string name = console.ShownName(list.GetItemText(middle + 1, 0));
        std::string wrong;
        if (list.GetSelectedItem() != middle + 1 || console.SelectedRow(RightCol) != from + 1 ||
            console.SelectedLine(RightCol).find(name) == std::string::npos)
            wrong = "the list's selection did not move down to " + name;
        else if (std::none_of(lines.begin(), lines.end(), [&](const std::string& line) {
                     return line.find(name) != std::string::npos;
                 }))
            wrong = "the page laid out raw does not show " + name;
        if (failed(state, wrong))
            break;
    }
    state.counters["rows"] = list.GetItemCount();
    figures.Report(state);
}

// --- opening --------------------------------------------------------------------------------

// Right on the company with the most applications, in a console just started, so that its
// applications are read for the first time; the twin reads them raw.
void BM_ConsoleExpandLargestCompany(benchmark::State& state) {
    Inventory& inv = inventory(state);
    const std::string company = largestCompany(inv);
    RawStatement apps(inv.Raw(), rawview::CompanyApps);
    apps.Bind(1, reinterpret_cast<const unsigned char*>(company.c_str()));
    Figures figures;
    int shown = 0;
    for (auto _ : state) {
        Console console(inv);
        const HTREEITEM node = companyNode(console, company);
        console.Select(node);
        const double key = console.Key(Keys::Right);
        const auto start = Clock::now();
        const int rows = apps.Drain();
        figures.Add(state, key, since(start));
        shown = 0;
        for (HTREEITEM app = console.Tree().GetChildItem(node); app != nullptr;
             app = console.Tree().GetNextSiblingItem(app))
            ++shown;
        const HTREEITEM first = console.Tree().GetChildItem(node);
        const int row = console.SelectedRow(0);
        std::string wrong;
        if (rows == 0 || shown != rows)
            wrong = "the company shows other applications than it holds";
        else if (console.SelectedLine(0).find("- " + console.Tree().GetItemText(node)) ==
                     std::string::npos ||
                 console.Screen()
                         .Text(row + 1, 0, RightCol)
                         .find(console.Tree().GetItemText(first)) == std::string::npos)
            wrong = "the company did not open onto its applications";
        if (failed(state, wrong))
            break;
    }
    state.counters["rows"] = shown;
    figures.Report(state);
}

// Down onto the application installed on the most PCs, which opens its view; the twin
// makes the view's reads.
void BM_ConsoleOpenMostInstalledApplication(benchmark::State& state) {
    Inventory& inv = inventory(state);
    Console console(inv);
    const std::int64_t appID = inv.Number(rawview::MostInstalledApp);
    const HTREEITEM company = companyNode(
        console, inv.Text("SELECT AppCompanyInternal FROM [Applications] WHERE AppID = ?1", appID));
    console->Expand(company);
    HTREEITEM node = console.Tree().GetChildItem(company);
    while (node != nullptr && console.Tree().GetItemData(node) != appID)
        node = console.Tree().GetNextSiblingItem(node);
    if (node == nullptr)
        throw std::runtime_error("the most installed application has no node");
    const std::string name = inv.Text("SELECT AppName FROM [Applications] WHERE AppID = ?1", appID);
    rawview::AppData raw(inv.Raw(), appID);
    Figures figures;
    for (auto _ : state) {
        console.Select(nodeAbove(console, node));
        const double key = console.Key(Keys::Down);
        const auto start = Clock::now();
        const std::int64_t rows = raw.Rows();
        figures.Add(state, key, since(start));
        SYAppTabWnd& view = console->AppView();
        const std::string clients = std::to_string(view.MachineTotal());
        std::string wrong;
        if (console->Shown() != SYTermConsole::View::App ||
            view.AppFileList().GetItemCount() + view.MachineList()->GetItemCount() != rows)
            wrong = "the application view shows other rows than the twin read";
        else if (view.MachineTotal() != raw.machines || !console.Shows(name) ||
                 !console.Shows(clients))
            wrong = "the screen does not show " + name + " on " + std::to_string(raw.machines) +
                    " clients";
        if (failed(state, wrong))
            break;
    }
    state.counters["clients"] = static_cast<double>(raw.machines);
    figures.Report(state);
}

// The unidentified file that lies on the most PCs, and its name.
struct WidestFile {
    explicit WidestFile(const Inventory& inv)
        : id(static_cast<std::uint32_t>(inv.Number(Widest))),
          name(inv.Text("SELECT FileName FROM Files WHERE FileID = ?1", id)) {}

    static constexpr const char* Widest =
        "SELECT f.FileID FROM Files f JOIN FileLocations l ON l.FileID = f.FileID WHERE "
        "f.InvDataType = 0 AND f.FileState = 0 GROUP BY f.FileID ORDER BY COUNT(*) DESC LIMIT 1";
    std::uint32_t id;
    std::string name;
};

// The reads of the properties sheet, raw: the file with its application, the rules of its
// name, the effective rule among user and system rules, and its locations with their
// clients. Gives the locations read.
class RawFileProperties {
public:
    RawFileProperties(sqlite3* db, std::uint32_t fileID)
        : m_id(fileID), m_file(db, rawfile::File), m_rules(db, rawfile::Rules),
          m_user(db, rawfile::UserRules), m_system(db, rawfile::SystemRules),
          m_places(db, rawfile::Places) {}

    int Run() {
        m_file.Bind(1, m_id);
        if (!m_file.Step()) {
            m_file.Reset();
            return 0;
        }
        const std::string name =
            reinterpret_cast<const char*>(sqlite3_column_text(m_file.get(), 0));
        const std::int64_t size = sqlite3_column_int64(m_file.get(), 2);
        touchRow(m_file.get());
        m_file.Reset();
        const auto* text = reinterpret_cast<const unsigned char*>(name.c_str());
        m_rules.Bind(1, text).Drain();
        m_user.Bind(1, text).Bind(2, size).Drain();
        m_system.Bind(1, text).Bind(2, size).Drain();
        return m_places.Bind(1, m_id).Drain();
    }

private:
    std::uint32_t m_id;
    RawStatement m_file, m_rules, m_user, m_system, m_places;
};

// Enter on the unidentified file on the most PCs opens its properties; the clock stops when
// the sheet is drawn and waits for a key, which is Esc.
void BM_ConsoleFileProperties(benchmark::State& state) {
    Inventory& inv = inventory(state);
    Console console(inv);
    const WidestFile file(inv);
    openUnidentifiedFiles(console);
    const int row = console.SelectFile(file.id, file.name);
    if (row < 0)
        throw std::runtime_error("the list does not hold " + file.name);
    const std::string title = file.name + " - File Properties";
    std::optional<RawFileProperties> raw;
    Figures figures;
    for (auto _ : state) {
        console.SelectListRow(row);
        Clock::time_point drawn;
        std::string sheet;
        console.Screen().Then([&] {
            drawn = Clock::now();
            sheet = console.Screen().Dump();
        });
        console.Screen().Keys({Keys::Esc});
        const auto start = Clock::now();
        console.Key(Keys::Enter);
        const double key = std::chrono::duration<double>(drawn - start).count();
        // The sheet attached the system rules that the twin reads.
        if (!raw)
            raw.emplace(inv.Raw(), file.id);
        const auto rawStart = Clock::now();
        const int places = raw->Run();
        figures.Add(state, key, since(rawStart));
        std::string wrong;
        if (sheet.find(title) == std::string::npos)
            wrong = "the sheet \"" + title + "\" did not show";
        else if (places == 0)
            wrong = "the twin read no location of " + file.name;
        if (failed(state, wrong))
            break;
        state.counters["clients"] = places;
    }
    figures.Report(state);
}

// --- identifying ----------------------------------------------------------------------------

constexpr const char* BenchApp = "Bench Identified";
constexpr const char* BenchVersion = "1.0";
constexpr const char* BenchCompany = "Bench Makers";

// The active identification rule of the file's name to the bench's application; 0 if none.
std::uint32_t benchRule(const Inventory& inv, const std::string& fileName) {
    RawStatement rule(inv.Raw(), "SELECT RuleID FROM SWRules WHERE InvDataType = 0 AND RuleType "
                                 "= 0 AND RuleState <> 3 AND FileName = ?1 AND AppName = ?2");
    rule.Bind(1, reinterpret_cast<const unsigned char*>(fileName.c_str()))
        .Bind(2, reinterpret_cast<const unsigned char*>(BenchApp));
    return rule.Step() ? static_cast<std::uint32_t>(sqlite3_column_int64(rule.get(), 0)) : 0;
}

// The rows the rules and the application leave behind once undone: rules stay in the
// removed state and the application uninstalled. They go, so that the estate stays as it
// was.
void forget(const Inventory& inv, const std::vector<std::int64_t>& rules) {
    RawStatement rule(inv.Raw(), "DELETE FROM SWRules WHERE RuleID = ?1 AND RuleState = 3");
    for (const std::int64_t id : rules)
        rule.Bind(1, id).Drain();
    RawStatement app(inv.Raw(), "DELETE FROM [Applications] WHERE AppName = ?1 AND AppInstalled "
                                "= 0 AND NOT EXISTS (SELECT 1 FROM Files f WHERE f.AppID = "
                                "[Applications].AppID)");
    app.Bind(1, reinterpret_cast<const unsigned char*>(BenchApp)).Drain();
}

// The bench's application as the store names it, for the raw twin's rule.
RawIdRule rawRule(const Inventory& inv, const std::string& fileName) {
    RawStatement app(inv.Raw(), "SELECT AppNameInternal, AppCompanyInternal FROM [Applications] "
                                "WHERE AppName = ?1 AND AppVersion = ?2 AND AppCompany = ?3");
    app.Bind(1, reinterpret_cast<const unsigned char*>(BenchApp))
        .Bind(2, reinterpret_cast<const unsigned char*>(BenchVersion))
        .Bind(3, reinterpret_cast<const unsigned char*>(BenchCompany));
    if (!app.Step())
        throw std::runtime_error("the console made no application for the rule");
    const auto text = [&](int column) {
        return std::string(reinterpret_cast<const char*>(sqlite3_column_text(app.get(), column)));
    };
    return {fileName, BenchApp, text(0), BenchVersion, BenchCompany, text(1)};
}

// The rows of the list that bear the name.
int rowsNamed(SYInvListCtrl& list, const std::string& name) {
    int rows = 0;
    for (int row = 0; row < list.GetItemCount(); ++row)
        rows += SYToLower(list.GetItemText(row, 0)) == SYToLower(name) ? 1 : 0;
    return rows;
}

// The Identify File dialog on the unidentified file on the most PCs, from its actions
// (F9), filled by keys for all versions of the file; the clock runs from its OK to the
// main screen drawn again with the rule applied and the file gone from the list. The twin
// writes the same rule and verdicts raw, committed alike, and reads the companies the
// tree shows again. Both rules are taken away again, untimed, after their round.
void BM_ConsoleIdentifyApply(benchmark::State& state) {
    Inventory& inv = inventory(state);
    Console console(inv);
    const WidestFile file(inv);
    openUnidentifiedFiles(console);
    SYInvListCtrl& list = console->List();
    const int before = list.GetItemCount();
    const int covered = rowsNamed(list, file.name);
    RawApply raw(inv.Raw());
    RawStatement companies(inv.Raw(), rawview::Companies);
    std::optional<RawIdRule> rule;
    std::vector<std::int64_t> made;
    Figures figures;
    for (auto _ : state) {
        if (console.SelectFile(file.id, file.name) < 0)
            throw std::runtime_error("the list does not hold " + file.name);
        Clock::time_point start;
        SYTermBufferScreen& screen = console.Screen();
        // The menu's first command, then all versions, the application, its version and
        // its company.
        screen.Keys({Keys::Newline, Keys::Tab, Keys::Tab, ' ', Keys::Tab, Keys::Tab})
            .Type(BenchApp)
            .Keys({Keys::Tab, Keys::Tab})
            .Type(BenchVersion)
            .Keys({Keys::Tab})
            .Type(BenchCompany)
            .Then([&] { start = Clock::now(); })
            .Keys({Keys::Newline});
        console.Key(Keys::F(9));
        const double key = since(start);
        const std::uint32_t applied = benchRule(inv, file.name);
        std::string wrong;
        if (applied == 0)
            wrong = "the dialog stored no rule for " + file.name;
        else if (list.GetItemCount() != before - covered || rowsNamed(list, file.name) != 0)
            wrong = "the list still shows " + file.name;
        else if (console.Shows(console.ShownName(file.name)))
            wrong = "the screen still shows " + file.name;
        removeRule(inv.db, inv.estate.install, applied);
        made.push_back(applied);
        console.Key(Keys::F(5));
        if (!wrong.empty() || list.GetItemCount() != before) {
            failed(state, wrong.empty() ? "the rule was not undone" : wrong);
            break;
        }
        if (!rule)
            rule = rawRule(inv, file.name);
        const auto rawStart = Clock::now();
        const std::int64_t rawApplied = raw.Apply(*rule);
        companies.Drain();
        figures.Add(state, key, since(rawStart));
        removeRule(inv.db, inv.estate.install, static_cast<std::uint32_t>(rawApplied));
        made.push_back(rawApplied);
        if (failed(state, rawApplied == 0 ? "the twin stored no rule" : ""))
            break;
    }
    forget(inv, made);
    state.counters["files"] = covered;
    figures.Report(state);
}

} // namespace

BENCHMARK(BM_ConsoleTreeDownToUnidentifiedFiles)
    ->Arg(10000)
    ->Arg(50000)
    ->UseManualTime()
    ->Iterations(20)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ConsoleTreeDownToLargestCompany)
    ->Arg(10000)
    ->Arg(50000)
    ->UseManualTime()
    ->Iterations(50)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ConsoleListDown)
    ->Arg(10000)
    ->Arg(50000)
    ->UseManualTime()
    ->Iterations(200)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ConsoleExpandLargestCompany)
    ->Arg(10000)
    ->Arg(50000)
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ConsoleOpenMostInstalledApplication)
    ->Arg(10000)
    ->Arg(50000)
    ->UseManualTime()
    ->Iterations(20)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ConsoleFileProperties)
    ->Arg(10000)
    ->Arg(50000)
    ->UseManualTime()
    ->Iterations(20)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ConsoleIdentifyApply)
    ->Arg(10000)
    ->Arg(50000)
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);
