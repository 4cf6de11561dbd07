#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "outside/store/SYAppFileSet.h"
#include "support/ToolInventory.h"

namespace {

using Installations = ToolInventory;

std::set<std::string> filesOf(SYDatabase& db, unsigned long machine, unsigned long installation) {
    SYAppFileSet files(db);
    files.JoinLocations();
    if (machine != 0)
        files.FilterForMachineID(machine);
    files.FilterForInstallationID(installation);
    files.Open();
    std::set<std::string> names;
    for (; !files.IsEOF(); files.MoveNext()) {
        EXPECT_EQ(files.InstallationID(), installation);
        names.insert(files.FileName());
    }
    return names;
}

unsigned long highest(const std::map<std::string, unsigned long>& installations) {
    unsigned long id = 0;
    for (const auto& [place, installation] : installations)
        id = std::max(id, installation);
    return id;
}

TEST_F(Installations, OnePerFolderWhateverTheCompanySpelling) {
    EXPECT_EQ(AppOf(helperID), toolApp);
    EXPECT_EQ(Places(toolApp),
              (std::vector<std::string>{"pc-1 C:\\Tool", "pc-2 C:\\Tool", "pc-2 D:\\Other"}));
}

TEST_F(Installations, ClientAndIdFindTheFilesOfOneInstallation) {
    const auto installs = InstallationsOf(toolApp);
    const unsigned long onPc2 = installs.at("pc-2 C:\\Tool");
    const std::set<std::string> both = {"tool.exe", "toolhelp.dll"};
    const struct {
        const char* what;
        unsigned long machine;
        unsigned long installation;
        std::set<std::string> files;
    } cases[] = {
        {"pc-1's installation", pc1, installs.at("pc-1 C:\\Tool"), both},
        {"by id alone", 0, onPc2, both},
        {"the other folder", pc2, installs.at("pc-2 D:\\Other"), {"tool.exe"}},
        {"an installation of another client", pc1, onPc2, {}},
        {"an id no installation has", 0, highest(installs) + 1, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(filesOf(db, c.machine, c.installation), c.files) << c.what;
}

// tool.exe is Tool's first file everywhere; rules that take it and then toolhelp.dll away
// must leave each remaining installation its id and never hand out an ended one again.
TEST_F(Installations, KeepTheirIdsWhileTheApplicationKeepsAFileThere) {
    const auto before = InstallationsOf(toolApp);
    Apply(0, "tool.exe", "Other", "Beta", "2.0");
    const auto other = AppOf(toolID);
    auto kept = before;
    kept.erase("pc-2 D:\\Other");
    EXPECT_EQ(InstallationsOf(toolApp), kept);
    EXPECT_EQ(filesOf(db, 0, before.at("pc-1 C:\\Tool")), std::set<std::string>{"toolhelp.dll"});
    EXPECT_TRUE(filesOf(db, 0, before.at("pc-2 D:\\Other")).empty());
    const auto others = InstallationsOf(other);
    EXPECT_EQ(Places(other),
              (std::vector<std::string>{"pc-1 C:\\Tool", "pc-2 C:\\Tool", "pc-2 D:\\Other"}));
    for (const auto& [place, id] : others) {
        EXPECT_GT(id, highest(before)) << place;
        EXPECT_EQ(filesOf(db, 0, id), std::set<std::string>{"tool.exe"}) << place;
    }

    Apply(1, "tool.exe");
    EXPECT_TRUE(InstallationsOf(other).empty());
    EXPECT_EQ(Installed(other), 0);
    EXPECT_EQ(InstallationsOf(toolApp), kept);

    Apply(0, "toolhelp.dll", "Third", "Gamma", "1.0");
    EXPECT_TRUE(InstallationsOf(toolApp).empty());
    EXPECT_EQ(Installed(toolApp), 0);
    const auto third = InstallationsOf(AppOf(helperID));
    EXPECT_EQ(third.size(), 2U);
    for (const auto& [place, id] : third)
        EXPECT_GT(id, highest(others)) << place;
}

TEST_F(Installations, JoinedRowsTellPlaceApplicationAndInstallationOfTheirInventory) {
    const auto rows = [this](unsigned char inventory, unsigned long client, bool unidentified) {
        SYAppFileSet files(db);
        files.InvDataType = inventory;
        if (unidentified)
            files.FilterForUnidFiles();
        files.FilterForMachineID(client);
        files.SortByID();
        std::vector<std::string> found;
        for (files.Open(); !files.IsEOF(); files.MoveNext())
            found.push_back(files.FileName() + " " + files.FileLocation() + " " + files.AppName() +
                            files.AppCompany() + " " + std::to_string(files.InstallationID()));
        return found;
    };
    const std::string tool =
        " C:\\Tool ToolAcme " + std::to_string(InstallationsOf(toolApp).at("pc-1 C:\\Tool"));
    EXPECT_EQ(rows(0, pc1, false),
              (std::vector<std::string>{"tool.exe" + tool, "readme.txt C:\\Tool  0",
                                        "toolhelp.dll" + tool}));
    EXPECT_EQ(rows(0, pc1, true), std::vector<std::string>{"readme.txt C:\\Tool  0"});
    EXPECT_EQ(rows(1, ce, true), std::vector<std::string>{"readme.txt \\Windows  0"});
}

// Installations are read by application or id through their own indexes; active
// rules are found past retired ones.
TEST(SYInventorySchema, ReadsUseTheirIndexes) {
    SYDatabase db;
    db.OpenMemory();
    const std::pair<const char*, std::vector<const char*>> reads[] = {
        {"SELECT i.InstallationID, m.MachineName, i.Location FROM Installations i JOIN Machines "
         "m ON m.MachineID = i.MachineID WHERE i.InvDataType = 0 AND i.AppID = 1",
         {"InstallationsByApp (InvDataType=? AND AppID=?)"}},
        {"SELECT COUNT(*) FROM Installations WHERE InvDataType = 0 AND AppID = 1",
         {"InstallationsByApp (InvDataType=? AND AppID=?)"}},
        {"SELECT * FROM Installations WHERE InstallationID = 3", {"(rowid=?)"}},
        {"SELECT RuleID FROM SWRules WHERE InvDataType = 0 AND FileName = 'a.dll' AND "
         "RuleState <> 3",
         {"SWRulesActiveByName (InvDataType=? AND FileName=?)"}},
    };
    for (const auto& [read, searches] : reads) {
        SYStatement plan(db, std::string("EXPLAIN QUERY PLAN ") + read);
        std::string steps;
        while (plan.Step())
            steps += plan.Text(3) + "\n";
        for (const char* scan : {"SCAN f", "SCAN l", "SCAN i", "SCAN Installations"})
            EXPECT_EQ(steps.find(scan), std::string::npos) << read << "\n" << steps;
        for (const char* search : searches)
            EXPECT_NE(steps.find(search), std::string::npos) << read << "\n" << steps;
    }
}

} // namespace
