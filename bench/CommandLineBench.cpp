// Every command of the command line as a whole process (start to exit) against the library
// call the program makes for it, on the realistic estate of 10,000 clients in the same run,
// so the process overhead shows as a ratio; and a rule write's preview against the write.
//
// One table lists the commands: their words and their library call. Each row gets a
// library benchmark and a process benchmark from the same template. The library side
// checks the rows it read or the files whose verdict changed; the process side checks its
// exit code and that its output is the library's, byte for byte (a PDF: its header; a new
// inventory: its clients). Rule writes commit, as the program does, and are undone
// untimed, so the estate, which other benchmarks share, stays as it was found.
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "BenchEstate.h"
#include "SYCliDetails.h"
#include "SYCliInventory.h"
#include "SYCliRules.h"
#include "SYCliViews.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryGenerator.h"
#include "outside/store/SYSWRuleSet.h"
#include "outside/store/SYTransaction.h"
#include "rules/SYIdRuleItem.h"
#include "rules/SYIgnoreRuleItem.h"
#include "rules/SYSWRule.h"

extern char** environ;

namespace {

constexpr int kClients = 10000;
constexpr int kGeneratedClients = 200;
constexpr std::uint32_t kGeneratedSeed = 7;
constexpr const char* kBenchApp = "Benchtool";
constexpr const char* kBenchCompany = "Benchworks";
// How many of the widest unidentified names the import file names.
constexpr int kImportedRules = 10;

std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::stringstream text;
    text << in.rdbuf();
    return text.str();
}

std::string csvOf(const SYCliDocument& document) {
    std::ostringstream out;
    document.Write(out, SYCliDocument::Format::Csv);
    return out.str();
}

// A view's rows (its fields and table rows), or a write's files whose verdict changed.
double rowsOf(const SYCliDocument& document) {
    for (const auto& field : document.Fields()) {
        if (field.key == "files")
            return std::stod(field.cell.value);
    }
    auto rows = static_cast<double>(document.Fields().size());
    for (const auto& table : document.Tables())
        rows += static_cast<double>(table.Rows().size());
    return rows;
}

std::int64_t scalar(SYDatabase& db, const std::string& sql) {
    auto statement = db.Cached(sql);
    const std::int64_t value = statement->Step() ? statement->Int64(0) : 0;
    statement->Reset();
    return value;
}

// The estate, what the commands act on, and a scratch folder for their outputs.
class Bench {
public:
    Bench() : m_estate(Estate(kClients)) {
        SYCliInventory::Open(db, m_estate.database, SYDatabase::OpenMode::Write);
        std::string pattern = (std::filesystem::temp_directory_path() / "tvcli-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            throw std::runtime_error("no scratch folder");
        scratch = pattern;
        FindTargets();
        WriteImportFile();
        // The installations as found, so that an undo gives back the ids they had.
        db.Exec("CREATE TEMP TABLE FoundInstallations AS SELECT * FROM Installations; "
                "CREATE UNIQUE INDEX temp.FoundInstallationsByApp ON FoundInstallations "
                "(InvDataType, AppID, MachineID, Location)");
        found = Fingerprint();
    }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;
    ~Bench() {
        db.Close();
        std::error_code ignored;
        std::filesystem::remove_all(scratch, ignored);
    }

    const std::string& Path() const { return m_estate.database; }
    const std::string& Install() const { return m_estate.install; }
    std::string Out(const char* file) const { return scratch + "/" + file; }
    SYCliRules Rules(bool dryRun) { return SYCliRules(db, {0, m_estate.install, dryRun, false}); }

    // What the rows, ids and sequences of the written tables sum to; an undo gives it back.
    std::string Fingerprint() {
        auto statement = db.Cached(
            "SELECT (SELECT COUNT(*) || '/' || TOTAL(RuleID) || '/' || TOTAL(RuleState) FROM "
            "SWRules) || ' ' || (SELECT COUNT(*) || '/' || TOTAL(InstallationID) || '/' || "
            "TOTAL(AppID) FROM Installations) || ' ' || (SELECT COUNT(*) || '/' || "
            "TOTAL(AppInstalled) FROM [Applications]) || ' ' || (SELECT TOTAL(FileState) || '/' "
            "|| TOTAL(RuleID) || '/' || TOTAL(RuleSource) || '/' || TOTAL(AppID) FROM Files) || "
            "' ' || (SELECT group_concat(name || '=' || seq) FROM sqlite_sequence)");
        std::string print = statement->Step() ? statement->Text(0) : std::string();
        statement->Reset();
        return print;
    }

    SYDatabase db;
    std::string scratch;
    std::string found;
    std::string name; // the unidentified file name that lies on the most clients
    std::uint32_t fileID = 0;
    std::uint32_t appID = 0; // the application installed in the most places
    std::string company;
    std::uint32_t clientID = 0;
    std::uint32_t installationID = 0; // one of its installations
    std::uint32_t ruleID = 0;         // the rule a removal removes

private:
    void FindTargets() {
        auto widest = db.Cached("SELECT f.FileID, f.FileName FROM Files f JOIN FileLocations l "
                                "ON l.FileID = f.FileID WHERE f.InvDataType = 0 AND "
                                "f.FileState = 0 GROUP BY f.FileID ORDER BY COUNT(*) DESC, "
                                "f.FileID LIMIT 1");
        if (!widest->Step())
            throw std::runtime_error("the estate has no unidentified file");
        fileID = static_cast<std::uint32_t>(widest->Int64(0));
        name = widest->Text(1);
        widest->Reset();
        auto most = db.Cached("SELECT i.AppID, a.AppCompany, i.MachineID, i.InstallationID "
                              "FROM Installations i JOIN [Applications] a ON a.AppID = i.AppID "
                              "WHERE i.InvDataType = 0 AND i.AppID = (SELECT AppID FROM "
                              "Installations WHERE InvDataType = 0 GROUP BY AppID ORDER BY "
                              "COUNT(*) DESC, AppID LIMIT 1) ORDER BY i.InstallationID LIMIT 1");
        if (!most->Step())
            throw std::runtime_error("the estate has no installation");
        appID = static_cast<std::uint32_t>(most->Int64(0));
        company = most->Text(1);
        clientID = static_cast<std::uint32_t>(most->Int64(2));
        installationID = static_cast<std::uint32_t>(most->Int64(3));
        most->Reset();
    }

    // Identification rules for the widest unidentified names, as rules export writes them.
    void WriteImportFile() {
        std::ofstream out(Out("import.csv"), std::ios::binary);
        out << "type,file_name,size,time,app,version,company,comment\r\n";
        auto names = db.Cached("SELECT f.FileName FROM Files f JOIN FileLocations l ON "
                               "l.FileID = f.FileID WHERE f.InvDataType = 0 AND f.FileState = 0 "
                               "GROUP BY f.FileName ORDER BY COUNT(*) DESC, f.FileName LIMIT ?1");
        names->Bind(1, std::int64_t{kImportedRules});
        while (names->Step())
            out << "identify," << names->Text(0) << ",,," << kBenchApp << ",1.0," << kBenchCompany
                << ",\r\n";
        names->Reset();
    }

    const BenchEstate& m_estate;
};

Bench& bench() {
    static Bench made;
    return made;
}

// Where the writes stood before one began. Undo removes the rules made since (the apply
// runs as after any removal), drops their rows and the applications they made, gives the
// installations the apply made anew the ids they had, and puts the id sequences back.
class Mark {
public:
    explicit Mark(SYDatabase& db)
        : m_rule(scalar(db, "SELECT seq FROM sqlite_sequence WHERE name = 'SWRules'")),
          m_installation(scalar(db, "SELECT seq FROM sqlite_sequence WHERE name = "
                                    "'Installations'")),
          m_app(scalar(db, "SELECT MAX(AppID) FROM [Applications]")) {}

    void Undo(Bench& b) const {
        SYSWRule engine;
        engine.Database = &b.db;
        engine.SetInstallPath(b.Install());
        std::vector<std::uint32_t> made;
        {
            SYSWRuleSet rules(&b.db);
            rules.FilterForActiveRules();
            rules.Open();
            for (; !rules.IsEOF(); rules.MoveNext()) {
                if (static_cast<std::int64_t>(rules.RuleID()) > m_rule)
                    made.push_back(rules.RuleID());
            }
            rules.Close();
        }
        for (const std::uint32_t id : made)
            engine.RemoveRule(id, 1);
        engine.UpdateSamData();

        SYTransaction transaction(b.db);
        Run(b.db, "DELETE FROM SWRules WHERE RuleID > ?1", m_rule);
        Run(b.db, "DELETE FROM [Applications] WHERE AppID > ?1", m_app);
        Run(b.db,
            "UPDATE Installations SET InstallationID = (SELECT f.InstallationID FROM "
            "temp.FoundInstallations f WHERE f.InvDataType = Installations.InvDataType AND "
            "f.AppID = Installations.AppID AND f.MachineID = Installations.MachineID AND "
            "f.Location = Installations.Location) WHERE InstallationID > ?1",
            m_installation);
        Run(b.db, "UPDATE sqlite_sequence SET seq = ?1 WHERE name = 'SWRules'", m_rule);
        Run(b.db, "UPDATE sqlite_sequence SET seq = ?1 WHERE name = 'Installations'",
            m_installation);
        transaction.Commit();
    }

private:
    static void Run(SYDatabase& db, const char* sql, std::int64_t value) {
        auto statement = db.Cached(sql);
        statement->Bind(1, value);
        statement->Execute();
    }

    std::int64_t m_rule;
    std::int64_t m_installation;
    std::int64_t m_app;
};

// What a command does to the estate, and where its output goes.
enum class Kind {
    View,       // reads; the output on stdout
    Write,      // a rule write, committed and undone; the report on stdout
    Removal,    // removes a rule made for it untimed; the report on stdout
    CsvExport,  // the view as CSV into {out}
    PdfExport,  // the view as PDF into {out}
    Generation, // a new inventory at {out}
};

struct Command {
    const char* name;
    // The words after the program's name, split at spaces; {placeholders} are filled from
    // the estate after the split, so a value may hold spaces.
    const char* words;
    SYCliDocument (*call)(Bench&);
    Kind kind = Kind::View;
};

SYIdRuleItem identification(const Bench& b) {
    SYIdRuleItem rule;
    rule.SetItemType(ItemTypeRule);
    rule.SetFileName(b.name);
    rule.SetAppName(kBenchApp);
    rule.SetAppVersion("1.0");
    rule.SetAppCompany(kBenchCompany);
    return rule;
}

SYCliDocument unidentified(Bench& b) {
    return SYCliViews(b.db).List("unidentified", 0, {}, {});
}

const std::array<Command, 22> kCommands{{
    {"summary", "summary", [](Bench& b) { return SYCliViews(b.db).Summary(); }},
    {"tree", "tree", [](Bench& b) { return SYCliViews(b.db).Tree(true, 0); }},
    {"list_companies", "list companies",
     [](Bench& b) { return SYCliViews(b.db).List("companies", 0, {}, {}); }},
    {"list_apps", "list apps --company {company}",
     [](Bench& b) { return SYCliViews(b.db).List("apps", 0, b.company, {}); }},
    {"list_unidentified", "list unidentified", unidentified},
    {"list_ignored", "list ignored",
     [](Bench& b) { return SYCliViews(b.db).List("ignored", 0, {}, {}); }},
    {"list_palm", "list palm", [](Bench& b) { return SYCliViews(b.db).List("palm", 0, {}, {}); }},
    {"list_rim", "list rim", [](Bench& b) { return SYCliViews(b.db).List("rim", 0, {}, {}); }},
    {"app", "app {app}", [](Bench& b) { return SYCliDetails(b.db).App(b.appID, 0); }},
    {"installation", "installation {client} {installation}",
     [](Bench& b) { return SYCliDetails(b.db).Installation(b.clientID, b.installationID, 0); }},
    {"file", "file {file}", [](Bench& b) { return SYCliViews(b.db).File(b.fileID, 0); }},
    {"rules_list", "rules list", [](Bench& b) { return SYCliViews(b.db).Rules(0, {}); }},
    {"rules_identify_dry_run",
     "rules identify {name} --app Benchtool --version 1.0 --company Benchworks --dry-run",
     [](Bench& b) {
         SYIdRuleItem rule = identification(b);
         return b.Rules(true).Identify(rule);
     },
     Kind::Write},
    {"rules_identify", "rules identify {name} --app Benchtool --version 1.0 --company Benchworks",
     [](Bench& b) {
         SYIdRuleItem rule = identification(b);
         return b.Rules(false).Identify(rule);
     },
     Kind::Write},
    {"rules_ignore", "rules ignore {name} --comment Bench",
     [](Bench& b) {
         SYIgnoreRuleItem rule;
         rule.SetItemType(ItemTypeRule);
         rule.SetFileName(b.name);
         rule.SetComment("Bench");
         return b.Rules(false).Ignore(rule);
     },
     Kind::Write},
    {"rules_ignore_app", "rules ignore-app {app} --comment Bench",
     [](Bench& b) { return b.Rules(false).IgnoreApp(b.appID, "Bench"); }, Kind::Write},
    {"rules_remove", "rules remove {rule}",
     [](Bench& b) { return b.Rules(false).Remove(b.ruleID); }, Kind::Removal},
    {"rules_export", "rules export {out}",
     [](Bench& b) {
         SYCliDocument rules = SYCliViews(b.db).Rules(0, {}, false);
         std::ofstream out(b.Out("out.csv"), std::ios::binary | std::ios::trunc);
         rules.Write(out, SYCliDocument::Format::Csv);
         return rules;
     },
     Kind::CsvExport},
    {"rules_import_dry_run", "rules import {import} --dry-run",
     [](Bench& b) { return b.Rules(true).Import(b.Out("import.csv")); }, Kind::Write},
    {"export_csv", "export csv list unidentified --out {out}",
     [](Bench& b) {
         SYCliDocument list = unidentified(b);
         std::ofstream out(b.Out("out.csv"), std::ios::binary | std::ios::trunc);
         list.Write(out, SYCliDocument::Format::Csv);
         return list;
     },
     Kind::CsvExport},
    {"export_pdf", "export pdf list unidentified --out {out}",
     [](Bench& b) {
         SYCliDocument list = unidentified(b);
         if (list.WritePdf(b.Out("out.pdf")) == 0)
             throw std::runtime_error("no PDF written");
         return list;
     },
     Kind::PdfExport},
    {"generate", "generate --clients {clients} --profile realistic --seed 7 --out {out}",
     [](Bench& b) {
         const std::string out = b.Out("out.db");
         SYInventoryGenerator::CreateIfAbsent(
             out, SYCliInventory::InstallFolder(out),
             SYInventoryGenerator::RealisticOptions(kGeneratedClients, kGeneratedSeed));
         return SYCliDocument();
     },
     Kind::Generation},
}};

// Where a command's output goes: stdout into a file, or the file {out} names.
std::string outputOf(Kind kind, const Bench& b) {
    switch (kind) {
    case Kind::CsvExport:
        return b.Out("out.csv");
    case Kind::PdfExport:
        return b.Out("out.pdf");
    case Kind::Generation:
        return b.Out("out.db");
    default:
        return b.Out("stdout");
    }
}

std::vector<std::string> wordsOf(const Command& command, const Bench& b) {
    const std::pair<const char*, std::string> values[] = {
        {"{name}", b.name},
        {"{file}", std::to_string(b.fileID)},
        {"{app}", std::to_string(b.appID)},
        {"{company}", b.company},
        {"{client}", std::to_string(b.clientID)},
        {"{installation}", std::to_string(b.installationID)},
        {"{rule}", std::to_string(b.ruleID)},
        {"{clients}", std::to_string(kGeneratedClients)},
        {"{out}", outputOf(command.kind, b)},
        {"{import}", b.Out("import.csv")},
    };
    std::vector<std::string> words;
    std::istringstream split(command.words);
    for (std::string word; split >> word;) {
        for (const auto& [placeholder, value] : values) {
            if (word == placeholder)
                word = value;
        }
        words.push_back(word);
    }
    if (command.kind != Kind::Generation) {
        words.push_back("--db");
        words.push_back(b.Path());
    }
    if (command.kind != Kind::CsvExport && command.kind != Kind::PdfExport &&
        command.kind != Kind::Generation)
        words.push_back("--format=csv");
    return words;
}

// Runs the program with stdout into a file; its exit code, -1 if it did not end normally.
int runProgram(std::vector<std::string> words, const std::string& stdoutPath) {
    words.insert(words.begin(), TV_BINARY);
    std::vector<char*> argv;
    for (std::string& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, stdoutPath.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0644);
    pid_t pid = 0;
    const int spawned = posix_spawn(&pid, TV_BINARY, &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    if (spawned != 0 || waitpid(pid, &status, 0) != pid)
        return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

// Untimed: what a command needs in place before it runs.
void prepare(const Command& command, Bench& b) {
    if (command.kind == Kind::Removal) {
        SYIdRuleItem rule = identification(b);
        b.Rules(false).Identify(rule);
        b.ruleID = rule.FileID();
    }
    if (command.kind == Kind::Generation) {
        std::filesystem::remove(b.Out("out.db"));
        std::filesystem::remove_all(SYCliInventory::InstallFolder(b.Out("out.db")));
    }
}

// Untimed: puts the estate back as it was found; false if it is not.
bool restore(const Command& command, Bench& b, const Mark& mark) {
    if (command.kind != Kind::Write && command.kind != Kind::Removal)
        return true;
    mark.Undo(b);
    return b.Fingerprint() == b.found;
}

// The library's call, run once untimed and undone: what the process must give.
SYCliDocument expected(const Command& command, Bench& b) {
    const Mark mark(b.db);
    prepare(command, b);
    SYCliDocument document = command.call(b);
    restore(command, b, mark);
    return document;
}

// The clients of the inventory a generation made.
std::int64_t generatedClients(const Bench& b) {
    SYDatabase made;
    made.Open(b.Out("out.db"), SYDatabase::OpenMode::ReadOnly);
    return scalar(made, "SELECT (SELECT COUNT(*) FROM Machines) + (SELECT COUNT(*) FROM Devices)");
}

// What the process wrote where the command puts it, against the library's own result. Read
// first: the library's run writes the same files.
bool sameOutput(const Command& command, Bench& b) {
    const std::string output = readFile(outputOf(command.kind, b));
    if (command.kind == Kind::PdfExport)
        return output.starts_with("%PDF");
    if (command.kind == Kind::Generation)
        return generatedClients(b) == kGeneratedClients;
    const SYCliDocument library = expected(command, b);
    return rowsOf(library) > 0 && output == csvOf(library);
}

void BM_Library(benchmark::State& state, const Command* command) {
    Bench& b = bench();
    double rows = 0;
    for (auto _ : state) {
        state.PauseTiming();
        const Mark mark(b.db);
        prepare(*command, b);
        state.ResumeTiming();
        const SYCliDocument document = command->call(b);
        state.PauseTiming();
        rows = command->kind == Kind::Generation ? static_cast<double>(generatedClients(b))
                                                 : rowsOf(document);
        if (!restore(*command, b, mark))
            state.SkipWithError("the estate was not left as it was found");
        state.ResumeTiming();
    }
    if (rows <= 0)
        state.SkipWithError("the library call gave nothing");
    state.counters["rows"] = rows;
}

void BM_Process(benchmark::State& state, const Command* command) {
    Bench& b = bench();
    const std::string stdoutPath = outputOf(Kind::View, b);
    for (auto _ : state) {
        state.PauseTiming();
        const Mark mark(b.db);
        prepare(*command, b);
        const std::vector<std::string> words = wordsOf(*command, b);
        state.ResumeTiming();
        const int code = runProgram(words, stdoutPath);
        state.PauseTiming();
        if (code != 0)
            state.SkipWithError(
                ("trellisview " + std::string(command->words) + ": exit " + std::to_string(code))
                    .c_str());
        if (!restore(*command, b, mark))
            state.SkipWithError("the estate was not left as it was found");
        state.ResumeTiming();
    }
    if (!sameOutput(*command, b))
        state.SkipWithError("the process gave other output than the library");
    state.counters["bytes"] =
        static_cast<double>(std::filesystem::file_size(outputOf(command->kind, b)));
}

const bool registered = [] {
    for (const Command& command : kCommands) {
        const std::string name = std::string("CommandLine/") + command.name;
        benchmark::RegisterBenchmark((name + "/library").c_str(), BM_Library, &command)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
        benchmark::RegisterBenchmark((name + "/process").c_str(), BM_Process, &command)
            ->Unit(benchmark::kMillisecond)
            ->UseRealTime();
    }
    return true;
}();

} // namespace
