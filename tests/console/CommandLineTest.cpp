#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

#include "details/SYAppMachineItem.h"
#include "details/SYAppTabWnd.h"
#include "details/SYAppViewGeneralPage.h"
#include "details/SYAppViewMachinesPage.h"
#include "navigation/SYInvListCtrl.h"
#include "navigation/SYInvTreeWnd.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryGenerator.h"
#include "outside/store/SYInventorySummary.h"
#include "outside/widgets/SYWnd.h"
#include "rules/SYAppFile.h"
#include "rules/SYAppFileItem.h"
#include "support/CommandRunner.h"
#include "support/TempDir.h"

namespace {

using nlohmann::json;
using Words = std::vector<std::string>;

// A small generated inventory per test, with the library's own views on it for comparison.
class CommandLineTest : public ::testing::Test {
protected:
    void SetUp() override {
        SYInventoryGenerator::Options options = SYInventoryGenerator::DemoOptions();
        options.clients = 40;
        ASSERT_EQ(SYInventoryGenerator::CreateIfAbsent(db, dir.File("installation"), options), 1);
    }

    CommandResult Run(Words words) {
        words.push_back("--db");
        words.push_back(db);
        return runCommand(dir.Path(), words);
    }
    json Json(const Words& words) {
        Words all = words;
        all.insert(all.end(), {"--format", "json"});
        const CommandResult result = Run(all);
        EXPECT_EQ(result.code, 0) << result.err;
        return json::parse(result.out);
    }
    // The bytes of the inventory as a script would find them after a command.
    std::string Bytes() const { return readFile(db) + readFile(db + "-wal"); }

    // The ids and first cells of a list mode as the library's list shows them.
    std::vector<std::pair<std::string, std::string>> LibraryList(void (*fill)(SYInvListCtrl&)) {
        SYDatabase database;
        database.Open(db);
        SYWnd host;
        host.Create(SYControlKind::Static, 1, "host", {0, 0, 800, 600}, nullptr);
        SYInvListCtrl list;
        list.Initialize(300, 4052, 0x808000, 14, &host);
        list.SetDatabase(&database);
        fill(list);
        std::vector<std::pair<std::string, std::string>> rows;
        for (int row = 0; row < list.GetItemCount(); ++row)
            rows.emplace_back(list.GetItemText(row, 0), list.GetItemText(row, 1));
        host.DestroyWindow();
        return rows;
    }

    TempDir dir;
    std::string db = dir.File("inv.db");
};

TEST_F(CommandLineTest, ListsShowTheLibrarysRowsInEveryFormat) {
    struct Case {
        Words words;
        void (*fill)(SYInvListCtrl&);
        const char* nameKey;
    };
    const std::vector<Case> cases = {
        {{"list", "unidentified"},
         [](SYInvListCtrl& l) { l.SetUnidFilesMode(0), l.BuildUnidFiles(); },
         "file"},
        {{"list", "ignored", "--platform", "ce"},
         [](SYInvListCtrl& l) { l.SetExcludedFilesMode(1), l.BuildExcludes(); },
         "file"},
        {{"list", "unidentified", "--sort", "size:desc"},
         [](SYInvListCtrl& l) {
             l.SetUnidFilesMode(0), l.BuildUnidFiles(), l.SortOnHeader(1), l.SortOnHeader(1);
         },
         "file"},
        {{"list", "companies", "--platform", "ce"},
         [](SYInvListCtrl& l) { l.SetCompanyListMode(1), l.BuildCompanies(); },
         "name"},
        {{"list", "palm"},
         [](SYInvListCtrl& l) { l.SetPalmAppListMode(), l.BuildPalmAppList(); },
         "name"},
        {{"list", "rim"},
         [](SYInvListCtrl& l) { l.SetRIMAppListMode(), l.BuildRIMAppList(); },
         "name"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.words[1]);
        const auto expected = LibraryList(c.fill);
        ASSERT_FALSE(expected.empty());
        const json rows = Json(c.words);
        ASSERT_EQ(rows.size(), expected.size());
        Words csvWords = c.words;
        csvWords.insert(csvWords.end(), {"--format", "csv"});
        const std::string csv = Run(csvWords).out;
        Words textWords = c.words;
        textWords.insert(textWords.end(), {"--format", "text"});
        const std::string text = Run(textWords).out;
        std::size_t csvAt = csv.find("\r\n") + 2;
        std::size_t textAt = text.find('\n') + 1;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            const std::string shown = expected[i].first;
            EXPECT_EQ(rows[i][c.nameKey].get<std::string>(), shown) << i;
            // CSV and text keep the same rows in the same order.
            const std::string id = rows[i]["id"].is_string()
                                       ? rows[i]["id"].get<std::string>()
                                       : std::to_string(rows[i]["id"].get<long>());
            EXPECT_EQ(csv.substr(csvAt, id.size() + 1), id + ",") << i;
            csvAt = csv.find("\r\n", csvAt) + 2;
            const std::string line = text.substr(textAt, text.find('\n', textAt) - textAt);
            EXPECT_EQ(line.rfind(id, 0), 0u) << line;
            EXPECT_NE(line.find(shown), std::string::npos) << line;
            EXPECT_NE(line.find(expected[i].second), std::string::npos) << line;
            textAt = text.find('\n', textAt) + 1;
        }
        EXPECT_EQ(csvAt, csv.size());
    }
}

TEST_F(CommandLineTest, SummaryTreeAndFileAgreeWithTheLibrary) {
    SYDatabase database;
    database.Open(db);
    SYInventorySummary summary;
    summary.Load(database);
    const json platforms = Json({"summary"});
    ASSERT_EQ(platforms.size(), 4u);
    for (unsigned char type = 0; type < 4; ++type) {
        EXPECT_EQ(platforms[type]["files"].get<long long>(), summary.Of(type).files);
        EXPECT_EQ(platforms[type]["unidentified"].get<long long>(), summary.Of(type).unidentified);
        EXPECT_EQ(platforms[type]["applications"].get<long long>(), summary.Of(type).applications);
    }

    // The Windows CE branch: the tree's own company and application nodes, in its order.
    SYWnd host;
    host.Create(SYControlKind::Static, 1, "host", {0, 0, 800, 600}, nullptr);
    SYInvTreeWnd tree;
    tree.Initialize(200, &host);
    tree.SetDatabase(&database);
    tree.UpdateTree();
    SYTreeCtrlEx& ctrl = tree.GetTreeCtrl();
    std::vector<std::string> expected{ctrl.GetItemText(tree.PPCAppsItem())};
    for (HTREEITEM company = ctrl.GetChildItem(tree.PPCAppsItem()); company != nullptr;
         company = ctrl.GetNextSiblingItem(company)) {
        tree.CheckBuildItem(company);
        expected.push_back(ctrl.GetItemText(company));
        for (HTREEITEM app = ctrl.GetChildItem(company); app; app = ctrl.GetNextSiblingItem(app))
            expected.push_back(ctrl.GetItemText(app));
    }
    expected.push_back(ctrl.GetItemText(tree.PPCUnidFilesItem()));
    expected.push_back(ctrl.GetItemText(tree.PPCExcludesItem()));
    host.DestroyWindow();
    std::vector<std::string> shown;
    for (const json& node : Json({"tree", "--platform", "ce"}))
        shown.push_back(node["text"].get<std::string>());
    EXPECT_EQ(shown, expected);

    const json unidentified = Json({"list", "unidentified"});
    const auto fileID = unidentified[0]["id"].get<std::uint32_t>();
    SYAppFile file;
    file.SetDatabase(&database);
    ASSERT_EQ(file.LoadData(fileID, 0), 1);
    const json verdict = Json({"file", std::to_string(fileID)});
    EXPECT_EQ(verdict["name"], file.FileName());
    EXPECT_EQ(verdict["size"].get<std::uint64_t>(), file.FileSize());
    EXPECT_EQ(verdict["state"], "unidentified");
}

TEST_F(CommandLineTest, AppShowsTheDetailViewsRows) {
    SYDatabase database;
    database.Open(db);
    SYWnd host;
    host.Create(SYControlKind::Static, 1, "host", {0, 0, 800, 600}, nullptr);
    SYAppTabWnd tabs;
    ASSERT_NE(tabs.Initialize(100, &host), 0);
    tabs.SetDatabase(&database);
    std::uint32_t most = 0;
    int mostTotal = 0;
    for (const json& node : Json({"tree", "--platform", "pc"})) {
        if (node["kind"] != "application")
            continue;
        const auto id = node["id"].get<std::uint32_t>();
        tabs.LoadAppData(id, 0);
        if (tabs.InstallationTotal() > mostTotal) {
            most = id;
            mostTotal = tabs.InstallationTotal();
        }
    }
    ASSERT_EQ(tabs.LoadAppData(most, 0), 1);
    ASSERT_GT(tabs.InstallationTotal(), tabs.MachineTotal() / 2);

    // The view's rows in the view's order: ids from the items, names as the items hold them.
    json clients = json::array();
    auto& machines = *dynamic_cast<SYAppViewMachinesPage*>(tabs.GetPage(1));
    for (int row = 0; row < tabs.MachineList()->GetItemCount(); ++row) {
        const auto* m = static_cast<const SYAppMachineItem*>(
            machines.MachineData()->GetAt(static_cast<int>(tabs.MachineList()->GetItemData(row))));
        clients.push_back({m->MachineID(), m->MachineName(), m->InstallationID(), m->Location()});
    }
    json files = json::array();
    auto& general = *dynamic_cast<SYAppViewGeneralPage*>(tabs.GetPage(0));
    for (int row = 0; row < tabs.AppFileList().GetItemCount(); ++row) {
        const auto* f = static_cast<const SYAppFileItem*>(
            general.AppFileData()->GetAt(static_cast<int>(tabs.AppFileList().GetItemData(row))));
        files.push_back({f->FileID(), f->FileName()});
    }

    const json app = Json({"app", std::to_string(most)});
    std::string name, version, company;
    tabs.AppInfo(name, version, company);
    EXPECT_EQ(app["name"], name);
    EXPECT_EQ(app["version"], version);
    EXPECT_EQ(app["company"], company);
    EXPECT_EQ(app["total_clients"], tabs.MachineTotal());
    EXPECT_EQ(app["total_installations"], tabs.InstallationTotal());
    json shownClients = json::array();
    for (const json& c : app["clients"])
        shownClients.push_back({c["client_id"], c["client"], c["installation_id"], c["location"]});
    EXPECT_EQ(shownClients, clients);
    json shownFiles = json::array();
    for (const json& f : app["files"])
        shownFiles.push_back({f["id"], f["name"]});
    EXPECT_EQ(shownFiles, files);

    // A handheld's installation is the application on the device: the ids of a row of the
    // application lead to it.
    for (const char* platform : {"palm", "rim"}) {
        const json listed = Json({"list", platform});
        ASSERT_FALSE(listed.empty());
        const std::string id = std::to_string(listed[0]["id"].get<int>());
        const json handheld = Json({"app", id, "--platform", platform});
        ASSERT_FALSE(handheld["clients"].empty()) << platform;
        const json& device = handheld["clients"].back();
        const json details =
            Json({"installation", std::to_string(device["client_id"].get<int>()),
                  std::to_string(device["installation_id"].get<int>()), "--platform", platform});
        EXPECT_EQ(details["client"], device["client"]) << platform;
        EXPECT_EQ(details["application"].get<std::string>().rfind(handheld["name"], 0), 0u);
        if (std::string(platform) == "palm") {
            EXPECT_EQ(details["details"][0]["name"], "Where");
            EXPECT_EQ(details["details"][0]["value"], device["where"]);
        }
    }
}

TEST_F(CommandLineTest, IdentifyingAnUnidentifiedFileFromPreviewToWrite) {
    const json before = Json({"list", "unidentified"});
    const std::string name = before[0]["file"];
    std::size_t ofName = 0;
    for (const json& row : before)
        ofName += row["file"] == name ? 1 : 0;
    const Words identify{"rules",     "identify", name,        "--app",     "Road Tool",
                         "--version", "2.0",      "--company", "Road Works"};

    const std::string bytes = Bytes();
    Words preview = identify;
    preview.push_back("--dry-run");
    const json wouldBe = Json(preview);
    EXPECT_EQ(Bytes(), bytes);
    EXPECT_EQ(Json({"list", "unidentified"}), before);
    EXPECT_FALSE(wouldBe.contains("id"));

    const json done = Json(identify);
    EXPECT_GT(done["id"].get<int>(), 0);
    for (const char* key : {"files", "clients", "applications"})
        EXPECT_EQ(done[key], wouldBe[key]) << key;
    EXPECT_GE(done["files"].get<std::size_t>(), ofName);
    ASSERT_EQ(done["applications"].size(), 1u);
    EXPECT_EQ(done["applications"][0]["name"], "Road Tool");
    EXPECT_GT(done["applications"][0]["gained"].get<int>(), 0);

    const json after = Json({"list", "unidentified"});
    EXPECT_EQ(after.size(), before.size() - ofName);
    const json apps = Json({"list", "apps", "--company", "Road Works"});
    ASSERT_EQ(apps.size(), 1u);
    EXPECT_EQ(apps[0]["name"], "Road Tool");
    // The new application holds exactly what the report said it gained.
    const json app = Json({"app", std::to_string(apps[0]["id"].get<int>())});
    EXPECT_EQ(app["total_clients"], done["clients"]);
    EXPECT_EQ(app["total_installations"], done["applications"][0]["gained"]);
    EXPECT_EQ(app["files"].size(), done["files"].get<std::size_t>());
    const json& first = app["clients"][0];
    const json installation = Json({"installation", std::to_string(first["client_id"].get<int>()),
                                    std::to_string(first["installation_id"].get<int>())});
    EXPECT_EQ(installation["location"], first["location"]);
    EXPECT_EQ(installation["application"], "Road Tool  [ 2.0 ]");
    EXPECT_FALSE(installation["files"].empty());
    const json verdict = Json({"file", std::to_string(before[0]["id"].get<int>())});
    EXPECT_EQ(verdict["state"], "user_identified");
    EXPECT_EQ(verdict["rule_id"], done["id"]);

    // Removing the rule puts the files back, and says so with the same counts.
    const json removed = Json({"rules", "remove", std::to_string(done["id"].get<int>())});
    EXPECT_EQ(removed["files"], done["files"]);
    EXPECT_EQ(Json({"list", "unidentified"}), before);
}

TEST_F(CommandLineTest, RulesRoundTripThroughExportAndImportAllOrNothing) {
    const std::string first = dir.File("rules.csv");
    ASSERT_EQ(Run({"rules", "export", first}).code, 0);
    const std::string exported = readFile(first);
    ASSERT_NE(exported.find("\"Documentation, not software\""), std::string::npos);
    const json rules = Json({"rules", "list"});

    // Every row meets its own rule: without --replace nothing is written.
    const std::string bytes = Bytes();
    EXPECT_EQ(Run({"rules", "import", first}).code, 3);
    EXPECT_EQ(Bytes(), bytes);
    ASSERT_EQ(Run({"rules", "import", first, "--replace"}).code, 0);
    const std::string second = dir.File("again.csv");
    ASSERT_EQ(Run({"rules", "export", second}).code, 0);
    EXPECT_EQ(readFile(second), exported);

    // A refused row at the end takes back the rows before it.
    std::ofstream(dir.File("bad.csv")) << "type,file_name,size,time,app,version,company,comment\r\n"
                                       << "ignore,fresh.dll,,,,,,\"line one\nline two\"\r\n"
                                       << "identify,app*.exe,,,Tool,1,Maker,\r\n";
    const std::string kept = Bytes();
    const CommandResult refused = Run({"rules", "import", dir.File("bad.csv")});
    EXPECT_EQ(refused.code, 3);
    EXPECT_NE(refused.err.find("Wildcard"), std::string::npos);
    EXPECT_EQ(Bytes(), kept);
    EXPECT_EQ(Json({"rules", "list"}).size(), rules.size());
}

TEST_F(CommandLineTest, ExportedPdfReadsBackAsTheList) {
    const json rows = Json({"list", "ignored"});
    ASSERT_FALSE(rows.empty());
    const std::string pdf = dir.File("ignored.pdf");
    const CommandResult result = Run({"export", "pdf", "list", "ignored", "--out", pdf});
    ASSERT_EQ(result.code, 0) << result.err;
    const std::string read = dir.File("ignored.txt");
    ASSERT_EQ(std::system(("pdftotext -layout '" + pdf + "' '" + read + "'").c_str()), 0);
    const std::string printed = readFile(read);
    EXPECT_NE(printed.find("Software Inventory Ignored Files"), std::string::npos);
    for (const json& row : rows)
        EXPECT_NE(printed.find(row["file"].get<std::string>()), std::string::npos);
}

TEST_F(CommandLineTest, EachErrorHasItsExitCodeAndLeavesTheFileAlone) {
    const std::string name = Json({"rules", "list", "--type", "ignore"})[0]["file_name"];
    std::ofstream(dir.File("notes.db")) << "not an inventory";
    struct Case {
        Words words;
        int code;
        const char* says;
    };
    const std::vector<Case> cases = {
        {{"list", "everything"}, 2, "everything"},
        {{"list", "unidentified", "--colour"}, 2, "--colour"},
        {{"rules", "ignore", "x.dll", "--time", "yesterday"}, 2, "yesterday"},
        {{"file", "999999"}, 1, "999999"},
        {{"app", "999999", "--platform", "palm"}, 1, "999999"},
        {{"rules", "remove", "999999"}, 1, "999999"},
        {{"rules", "ignore", "*.tmp"}, 3, "Wildcard"},
        {{"rules", "ignore", "  "}, 3, "file name"},
        {{"rules", "identify", "y.dll", "--app", " "}, 3, "application"},
        {{"rules", "ignore", name}, 3, "--replace"},
        {{"rules", "ignore", name, "--dry-run"}, 3, "--replace"},
    };
    const std::string bytes = Bytes();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.words[0] + " " + c.words[1]);
        const CommandResult result = Run(c.words);
        EXPECT_EQ(result.code, c.code);
        const std::string first = result.err.substr(0, result.err.find('\n'));
        EXPECT_NE(first.find(c.says), std::string::npos) << result.err;
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(Bytes(), bytes);
    }
    const std::string notes = dir.File("notes.db");
    const CommandResult refused = runCommand(dir.Path(), {"summary", "--db", notes});
    EXPECT_EQ(refused.code, 1);
    EXPECT_NE(refused.err.find("notes.db"), std::string::npos);
    EXPECT_EQ(readFile(notes), "not an inventory");
    EXPECT_EQ(runCommand(dir.Path(), {"--version"}).code, 0);
}

} // namespace
