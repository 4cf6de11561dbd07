#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "outside/store/SYAppFileSet.h"
#include "store/ToolInventory.h"

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

TEST_F(Installations, OnePerFolderNamedByItsLowestLocationWhateverTheCompanySpelling) {
    EXPECT_EQ(AppOf(helperID), toolApp);
    const std::map<std::string, unsigned long> expected = {
        {"pc-1 C:\\Tool", Location(pc1, "C:\\Tool", "tool.exe")},
        {"pc-2 C:\\Tool", Location(pc2, "C:\\Tool", "toolhelp.dll")},
        {"pc-2 D:\\Other", Location(pc2, "D:\\Other", "tool.exe")},
    };
    EXPECT_EQ(InstallationsOf(toolApp), expected);
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
        {"a later location of the installation", pc2, Location(pc2, "C:\\Tool", "tool.exe"), {}},
        {"a file of no application", pc1, Location(pc1, "C:\\Tool", "readme.txt"), {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(filesOf(db, c.machine, c.installation), c.files) << c.what;
}

TEST_F(Installations, IdsMoveOnlyWhereTheApplicationsFilesChange) {
    const auto before = InstallationsOf(toolApp);
    // readme.txt lies above tool.exe on pc-1: joining Tool leaves the id as it was.
    Apply(0, "readme.txt", "tool", "acme corporation", "1.0");
    EXPECT_EQ(AppOf(readmeID), toolApp);
    EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM Applications"), 1);
    EXPECT_EQ(InstallationsOf(toolApp), before);
    EXPECT_EQ(filesOf(db, pc1, before.at("pc-1 C:\\Tool")),
              (std::set<std::string>{"readme.txt", "tool.exe", "toolhelp.dll"}));
    // On pc-2 toolhelp.dll named the installation; ignoring it hands the name on.
    Apply(1, "toolhelp.dll");
    auto after = before;
    after["pc-2 C:\\Tool"] = Location(pc2, "C:\\Tool", "tool.exe");
    EXPECT_EQ(InstallationsOf(toolApp), after);
    EXPECT_TRUE(filesOf(db, pc2, before.at("pc-2 C:\\Tool")).empty());
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

// Reads through the view must reach Files and FileLocations by index, never scan them;
// active rules are found past retired ones.
TEST(SYInventorySchema, ReadsUseTheirIndexes) {
    SYDatabase db;
    db.OpenMemory();
    const std::pair<const char*, std::vector<const char*>> reads[] = {
        {"SELECT i.InstallationID, m.MachineName, i.Location FROM Installations i JOIN Machines "
         "m ON m.MachineID = i.MachineID WHERE i.InvDataType = 0 AND i.AppID = 1",
         {"(InvDataType=? AND AppID=?)", "(FileID=?)"}},
        {"SELECT * FROM Installations WHERE MachineID = 2 AND InstallationID = 3",
         {"(MachineID=?)"}},
        {"SELECT RuleID FROM SWRules WHERE InvDataType = 0 AND FileName = 'a.dll' AND "
         "RuleState <> 3",
         {"SWRulesActiveByName (InvDataType=? AND FileName=?)"}},
    };
    for (const auto& [read, searches] : reads) {
        SYStatement plan(db, std::string("EXPLAIN QUERY PLAN ") + read);
        std::string steps;
        while (plan.Step())
            steps += plan.Text(3) + "\n";
        for (const char* scan : {"SCAN f\n", "SCAN l\n", "SCAN f ", "SCAN l "})
            EXPECT_EQ(steps.find(scan), std::string::npos) << read << "\n" << steps;
        for (const char* search : searches)
            EXPECT_NE(steps.find(search), std::string::npos) << read << "\n" << steps;
    }
}

} // namespace
