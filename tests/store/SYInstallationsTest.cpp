#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYSamData.h"
#include "store/StoreQueries.h"

namespace {

// Two PCs with one application, Tool, in several folders, and a file of no application
// among its files; a Windows CE device holds a file of that name too.
class InstallationsTest : public testing::Test {
protected:
    void SetUp() override {
        db.OpenMemory();
        SYInventoryWriter writer(db);
        pc1 = writer.AddMachine("pc-1", "", CTime(0));
        pc2 = writer.AddMachine("pc-2", "", CTime(0));
        const SYScanFile tool{"tool.exe", 10, 600, "Tool", "1.0", "Acme"};
        const SYScanFile helper{"toolhelp.dll", 20, 600, "Tool", "1.0", "Acme"};
        const SYScanFile readme{"readme.txt", 30, 600, "", "", ""};
        writer.AddFile(0, pc1, "C:\\Tool", tool);
        writer.AddFile(0, pc1, "C:\\Tool", readme);
        writer.AddFile(0, pc1, "C:\\Tool", helper);
        writer.AddFile(0, pc2, "C:\\Tool", helper);
        writer.AddFile(0, pc2, "C:\\Tool", tool);
        writer.AddFile(0, pc2, "D:\\Other", tool);
        ce = writer.AddDevice(1, "ce-1", "", CTime(0));
        writer.AddFile(1, ce, "\\Windows", readme);
        writer.Commit();
        SYStatement app(db, "SELECT AppID FROM Files WHERE FileName = 'tool.exe'");
        app.Step();
        toolApp = static_cast<unsigned long>(app.Int64(0));
    }

    unsigned long Location(unsigned long machine, const std::string& folder,
                           const std::string& name) {
        SYStatement find(db, "SELECT l.LocationID FROM FileLocations l JOIN Files f ON "
                             "f.FileID = l.FileID WHERE l.MachineID = ?1 AND l.Location = ?2 "
                             "AND f.FileName = ?3");
        find.Bind(1, static_cast<std::int64_t>(machine)).Bind(2, folder).Bind(3, name);
        return find.Step() ? static_cast<unsigned long>(find.Int64(0)) : 0;
    }

    // Installation id by "client folder" of every installation of Tool.
    std::map<std::string, unsigned long> ToolInstallations() {
        SYStatement rows(db, "SELECT m.MachineName || ' ' || i.Location, i.InstallationID FROM "
                             "Installations i JOIN Machines m ON m.MachineID = i.MachineID "
                             "WHERE i.InvDataType = 0 AND i.AppID = ?1");
        rows.Bind(1, static_cast<std::int64_t>(toolApp));
        std::map<std::string, unsigned long> found;
        while (rows.Step())
            found[rows.Text(0)] = static_cast<unsigned long>(rows.Int64(1));
        return found;
    }

    std::set<std::string> FilesOf(unsigned long machine, unsigned long installation) {
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

    void ApplyRule(unsigned char type, const std::string& name) {
        SYSamData sam(db);
        sam.InvDataType = 0;
        sam.AddRule(AddUserRule(db, type, name, "Tool", "Acme", "1.0"));
    }

    SYDatabase db;
    unsigned long pc1 = 0;
    unsigned long pc2 = 0;
    unsigned long ce = 0;
    unsigned long toolApp = 0;
};

TEST_F(InstallationsTest, OnePerFolderNamedByItsLowestLocation) {
    const std::map<std::string, unsigned long> expected = {
        {"pc-1 C:\\Tool", Location(pc1, "C:\\Tool", "tool.exe")},
        {"pc-2 C:\\Tool", Location(pc2, "C:\\Tool", "toolhelp.dll")},
        {"pc-2 D:\\Other", Location(pc2, "D:\\Other", "tool.exe")},
    };
    EXPECT_EQ(ToolInstallations(), expected);
}

TEST_F(InstallationsTest, ClientAndIdFindTheFilesOfOneInstallation) {
    const auto installs = ToolInstallations();
    const unsigned long onPc1 = installs.at("pc-1 C:\\Tool");
    const unsigned long onPc2 = installs.at("pc-2 C:\\Tool");
    const std::set<std::string> both = {"tool.exe", "toolhelp.dll"};
    const struct {
        const char* what;
        unsigned long machine;
        unsigned long installation;
        std::set<std::string> files;
    } cases[] = {
        {"pc-1's installation", pc1, onPc1, both},
        {"pc-2's installation", pc2, onPc2, both},
        {"by id alone", 0, onPc2, both},
        {"the other folder", pc2, installs.at("pc-2 D:\\Other"), {"tool.exe"}},
        {"an installation of another client", pc1, onPc2, {}},
        {"a later location of the installation", pc2, Location(pc2, "C:\\Tool", "tool.exe"), {}},
        {"the location of a file of no application",
         pc1,
         Location(pc1, "C:\\Tool", "readme.txt"),
         {}},
        {"no location", pc1, 999999, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(FilesOf(c.machine, c.installation), c.files) << c.what;
}

TEST_F(InstallationsTest, IdsMoveOnlyWhereTheApplicationsFilesChange) {
    const auto before = ToolInstallations();
    // readme.txt lies above tool.exe on pc-1: joining Tool leaves the id as it was.
    ApplyRule(0, "readme.txt");
    EXPECT_EQ(ToolInstallations(), before);
    EXPECT_EQ(FilesOf(pc1, before.at("pc-1 C:\\Tool")),
              (std::set<std::string>{"readme.txt", "tool.exe", "toolhelp.dll"}));
    // On pc-2 toolhelp.dll named the installation; ignoring it hands the name on.
    ApplyRule(1, "toolhelp.dll");
    auto after = before;
    after["pc-2 C:\\Tool"] = Location(pc2, "C:\\Tool", "tool.exe");
    EXPECT_EQ(ToolInstallations(), after);
    EXPECT_TRUE(FilesOf(pc2, before.at("pc-2 C:\\Tool")).empty());
    EXPECT_EQ(FilesOf(pc2, after.at("pc-2 C:\\Tool")), std::set<std::string>{"tool.exe"});
}

TEST_F(InstallationsTest, JoinedRowsTellTheirPlaceApplicationAndInstallation) {
    const auto installs = ToolInstallations();
    std::map<unsigned long, std::string> machineNames = {{pc1, "pc-1"}, {pc2, "pc-2"}};
    SYAppFileSet files(db);
    files.JoinLocations();
    files.Open();
    int rows = 0;
    for (; !files.IsEOF(); files.MoveNext(), ++rows) {
        const std::string place = machineNames[files.MachineID()] + " " + files.FileLocation();
        SCOPED_TRACE(files.FileName() + " in " + place);
        const bool ofTool = files.AppID() != 0;
        EXPECT_EQ(files.InstallationID(), ofTool ? installs.at(place) : 0);
        EXPECT_EQ(files.AppName() + files.AppCompany(), ofTool ? "ToolAcme" : "");
    }
    EXPECT_EQ(rows, 6);
    SYAppFileSet pcFiles(db);
    pcFiles.FilterForUnidFiles();
    EXPECT_EQ(FileNames(pcFiles), std::vector<std::string>{"readme.txt"});
    SYAppFileSet ceFiles(db);
    ceFiles.InvDataType = 1;
    ceFiles.FilterForUnidFiles();
    ceFiles.FilterForMachineID(ce);
    ceFiles.Open();
    ASSERT_FALSE(ceFiles.IsEOF());
    EXPECT_EQ(ceFiles.FileLocation(), "\\Windows");
    ceFiles.MoveNext();
    EXPECT_TRUE(ceFiles.IsEOF());
}

// Reads through the view must reach the indexes of Files and FileLocations by the columns
// they filter on, never scan either; active rules are found past retired ones.
TEST(SYInventorySchema, ReadsUseTheirIndexes) {
    SYDatabase db;
    db.OpenMemory();
    const struct {
        const char* read;
        std::vector<const char*> searches;
    } reads[] = {
        {"SELECT i.InstallationID, m.MachineName, i.Location FROM Installations i JOIN Machines "
         "m ON m.MachineID = i.MachineID WHERE i.InvDataType = 0 AND i.AppID = 1 ORDER BY "
         "i.MachineID",
         {"(InvDataType=? AND AppID=?)", "(FileID=?)"}},
        {"SELECT InstallationID FROM Installations WHERE InvDataType = 0 AND AppID = 1 AND "
         "MachineID = 2 AND Location = 'C:\\'",
         {"MachineID=? AND Location=?)"}},
        {"SELECT * FROM Installations WHERE MachineID = 2 AND InstallationID = 3",
         {"(MachineID=?)"}},
        {"SELECT RuleID FROM SWRules WHERE InvDataType = 0 AND FileName = 'a.dll' AND "
         "RuleState <> 3",
         {"SWRulesActiveByName (InvDataType=? AND FileName=?)"}},
    };
    for (const auto& r : reads) {
        SYStatement plan(db, std::string("EXPLAIN QUERY PLAN ") + r.read);
        std::string steps;
        while (plan.Step()) {
            const std::string step = plan.Text(3);
            steps += step + "\n";
            for (const char* table : {"SCAN f", "SCAN l"}) {
                const bool scans =
                    step.rfind(table, 0) == 0 && (step.size() == 6 || step[6] == ' ');
                EXPECT_FALSE(scans) << r.read << ": " << step;
            }
        }
        for (const char* search : r.searches)
            EXPECT_NE(steps.find(search), std::string::npos) << r.read << "\n" << steps;
    }
}

} // namespace
