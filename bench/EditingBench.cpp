// The rule editing sheets on the realistic estate of 10,000 clients against the same reads and
// committed writes done with raw SQLite statements on the same inventory in the same process,
// so that the figures compare as a ratio.
#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "BenchEstate.h"
#include "RawStatement.h"
#include "editing/SYAppFilePropSheet.h"
#include "editing/SYSWRuleConfigPropSheet.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/widgets/CPropertySheet.h"
#include "outside/widgets/SYButton.h"
#include "outside/widgets/SYFileDialog.h"
#include "outside/widgets/SYMessageBox.h"
#include "outside/widgets/SYModalHost.h"
#include "resources/SYResourceIds.h"

namespace {

constexpr const char* EverywhereName = "shared-everywhere.dll";
constexpr int JournalSize = 100;

// The realistic estate copied into memory, so that the writes stay in this run, with its
// installation folder (the system rules are only read) and one file on every PC.
struct Inventory {
    explicit Inventory(int clients) : folder(Estate(clients).install) {
        db.OpenMemory();
        copyFrom(Estate(clients).database);
        std::vector<unsigned long> machines;
        {
            auto statement = db.Cached("SELECT MachineID FROM Machines");
            while (statement->Step())
                machines.push_back(static_cast<unsigned long>(statement->Int64(0)));
        }
        SYInventoryWriter writer(db, folder);
        for (unsigned long machine : machines)
            everywhere = writer.AddFile(0, machine, "C:\\Shared",
                                        {EverywhereName, 4096, 1614862923, "", "", ""});
        writer.Commit();
        pcs = static_cast<int>(machines.size());
    }
    Inventory(const Inventory&) = delete;
    Inventory& operator=(const Inventory&) = delete;

    void copyFrom(const std::string& path) {
        sqlite3* source = nullptr;
        if (sqlite3_open_v2(path.c_str(), &source, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK)
            throw std::runtime_error("cannot open the estate");
        sqlite3_backup* backup = sqlite3_backup_init(db.Handle(), "main", source, "main");
        const bool copied = backup != nullptr && sqlite3_backup_step(backup, -1) == SQLITE_DONE;
        sqlite3_backup_finish(backup);
        sqlite3_close(source);
        if (!copied)
            throw std::runtime_error("cannot copy the estate");
    }

    std::string folder;
    SYDatabase db;
    unsigned long everywhere = 0;
    int pcs = 0;
};

Inventory& estate(int clients) {
    static std::map<int, std::unique_ptr<Inventory>> made;
    auto& slot = made[clients];
    if (!slot)
        slot = std::make_unique<Inventory>(clients);
    SYGetApp().SetInstallPath(slot->folder);
    return *slot;
}

// A modal host that runs one action in each dialog and then closes it; message boxes get
// Yes (or OK).
class ActingHost : public SYModalHost {
public:
    std::function<void(CDialog&)> act;

    int RunModal(CDialog& dialog) override {
        if (!dialog.BeginModal())
            return IDCANCEL;
        if (act)
            act(dialog);
        if (!dialog.IsModalEnded())
            dialog.EndDialog(IDCANCEL);
        return dialog.FinishModal();
    }
    int MessageBox(const SYMessageBoxRequest& request) override {
        return request.Offers(IDYES) ? IDYES : IDOK;
    }
    int RunFileDialog(SYFileDialog&) override { return IDCANCEL; }
};

void exec(sqlite3* db, const char* sql) {
    if (sqlite3_exec(db, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(db));
}

// Opening the properties of a file on every PC and looking at its clients.
void BM_FilePropertiesOpen(benchmark::State& state) {
    Inventory& inv = estate(static_cast<int>(state.range(0)));
    ActingHost host;
    SYModalHostScope scope(&host);
    std::string clients;
    host.act = [&](CDialog& dialog) {
        dynamic_cast<CPropertySheet&>(dialog).SetActivePage(1);
        clients = dialog.FindControl(IDC_FILE_TOTAL_CLIENTS)->GetWindowText();
    };
    for (auto _ : state) {
        SYAppFilePropSheet sheet;
        sheet.SetDatabase(&inv.db);
        sheet.SetFileID(static_cast<std::uint32_t>(inv.everywhere), 0);
        sheet.DoModal();
        if (clients != std::to_string(inv.pcs)) {
            state.SkipWithError("the sheet did not count every client");
            break;
        }
    }
    state.counters["clients"] = inv.pcs;
}

// The same reads: the file with its application, the rules of its name, the effective rule
// among user and system rules, and its locations with their clients in order.
void BM_FilePropertiesOpenRawSQLite(benchmark::State& state) {
    Inventory& inv = estate(static_cast<int>(state.range(0)));
    {
        SYAppFile attach; // attaches the system rules as the sheet does
        attach.SetDatabase(&inv.db);
        attach.LoadData(static_cast<std::uint32_t>(inv.everywhere), 0);
    }
    sqlite3* db = inv.db.Handle();
    RawStatement file(db, rawfile::File);
    RawStatement rules(db, rawfile::Rules);
    RawStatement user(db, rawfile::UserRules);
    RawStatement system(db, rawfile::SystemRules);
    RawStatement places(db, rawfile::Places);
    for (auto _ : state) {
        sqlite3_bind_int64(file.get(), 1, static_cast<sqlite3_int64>(inv.everywhere));
        if (sqlite3_step(file.get()) != SQLITE_ROW) {
            state.SkipWithError("file not found");
            break;
        }
        const std::string name = reinterpret_cast<const char*>(sqlite3_column_text(file.get(), 0));
        const sqlite3_int64 size = sqlite3_column_int64(file.get(), 2);
        sqlite3_reset(file.get());
        sqlite3_bind_text(rules.get(), 1, name.c_str(), -1, SQLITE_TRANSIENT);
        benchmark::DoNotOptimize(rules.Drain());
        for (RawStatement* verdict : {&user, &system}) {
            sqlite3_bind_text(verdict->get(), 1, name.c_str(), -1, SQLITE_TRANSIENT);
            sqlite3_bind_int64(verdict->get(), 2, size);
            benchmark::DoNotOptimize(verdict->Drain());
        }
        sqlite3_bind_int64(places.get(), 1, static_cast<sqlite3_int64>(inv.everywhere));
        if (places.Drain() != inv.pcs) {
            state.SkipWithError("not every client read");
            break;
        }
    }
    state.counters["clients"] = inv.pcs;
}

std::string journalName(int index) {
    return "bench-journal-" + std::to_string(index) + ".exe";
}

// Takes the journal's rules out of the store again, untimed.
void undoJournal(Inventory& inv) {
    exec(inv.db.Handle(), "DELETE FROM SWRules WHERE FileName LIKE 'bench-journal-%'");
}

// OK of the rule configuration sheet with 100 new identification rules in its journal.
void BM_RuleConfigOK(benchmark::State& state) {
    Inventory& inv = estate(static_cast<int>(state.range(0)));
    ActingHost host;
    SYModalHostScope scope(&host);
    int next = 0;
    host.act = [&](CDialog& dialog) {
        if (dialog.TemplateId() == IDD_EDIT_ID_RULE) {
            dialog.FindControl(IDC_RULE_FILE_NAME)->SetWindowText(journalName(next++));
            dialog.FindControl(IDC_RULE_APP_NAME)->SetWindowText("Journal");
            dialog.OnCommand(SYMakeCommand(IDOK, BN_CLICKED), 0);
            return;
        }
        next = 0;
        auto* add = dynamic_cast<SYButton*>(dialog.FindControl(IDC_CONFIG_RULE_ADD));
        for (int i = 0; i < JournalSize; ++i)
            add->Click();
        state.ResumeTiming();
        dialog.OnCommand(SYMakeCommand(IDOK, BN_CLICKED), 0);
        state.PauseTiming();
    };
    for (auto _ : state) {
        state.PauseTiming();
        SYSWRuleConfigPropSheet sheet;
        sheet.InvDataType = 0;
        sheet.SetDatabase(&inv.db);
        const int result = sheet.DoModal();
        const std::int64_t stored = [&] {
            auto count = inv.db.Cached("SELECT COUNT(*) FROM SWRules WHERE RuleState <> 3 AND "
                                       "FileName LIKE 'bench-journal-%'");
            return count->Step() ? count->Int64(0) : -1;
        }();
        undoJournal(inv);
        state.ResumeTiming();
        if (result != IDOK || stored != JournalSize) {
            state.SkipWithError("the journal was not saved");
            break;
        }
    }
}

// The same committed writes and reads: each rule inserted, the rules of its file information
// read back, then its name decided again in a write transaction of its own.
void BM_RuleConfigOKRawSQLite(benchmark::State& state) {
    Inventory& inv = estate(static_cast<int>(state.range(0)));
    sqlite3* db = inv.db.Handle();
    RawStatement insert(db, "INSERT INTO SWRules (InvDataType, RuleState, RuleType, FileName, "
                            "AppName, AppVersion, AppCompany, Comment) "
                            "VALUES (0, 1, 0, ?1, 'Journal', '', '', '')");
    RawStatement matching(db, "SELECT RuleID, FileTime FROM SWRules WHERE InvDataType = 0 AND "
                              "RuleState <> 3 AND FileName = ?1 AND FileSize IS NULL AND "
                              "FileTime IS NULL");
    RawStatement name(db, "SELECT FileName FROM SWRules WHERE RuleID = ?1 AND InvDataType = 0");
    RawStatement files(db, "SELECT FileID, FileSize, FileTime, FileState, RuleID, AppID FROM "
                           "Files WHERE InvDataType = 0 AND FileName = ?1");
    for (auto _ : state) {
        int stored = 0;
        for (int i = 0; i < JournalSize; ++i) {
            const std::string file = journalName(i);
            sqlite3_bind_text(insert.get(), 1, file.c_str(), -1, SQLITE_TRANSIENT);
            stored += sqlite3_step(insert.get()) == SQLITE_DONE ? 1 : 0;
            sqlite3_reset(insert.get());
            const sqlite3_int64 id = sqlite3_last_insert_rowid(db);
            sqlite3_bind_text(matching.get(), 1, file.c_str(), -1, SQLITE_TRANSIENT);
            benchmark::DoNotOptimize(matching.Drain());
            exec(db, "BEGIN IMMEDIATE");
            sqlite3_bind_int64(name.get(), 1, id);
            benchmark::DoNotOptimize(name.Drain());
            sqlite3_bind_text(files.get(), 1, file.c_str(), -1, SQLITE_TRANSIENT);
            benchmark::DoNotOptimize(files.Drain());
            exec(db, "COMMIT");
        }
        state.PauseTiming();
        undoJournal(inv);
        state.ResumeTiming();
        if (stored != JournalSize) {
            state.SkipWithError("the rules were not stored");
            break;
        }
    }
}

BENCHMARK(BM_FilePropertiesOpen)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FilePropertiesOpenRawSQLite)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RuleConfigOK)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RuleConfigOKRawSQLite)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
