#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "outside/framework/CException.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYSamData.h"
#include "outside/store/SYSystemRulesWriter.h"
#include "support/StoreDump.h"
#include "support/StoreQueries.h"
#include "support/TempDir.h"

namespace {

TEST(SYInventoryWriter, RefusesScansItCannotPlace) {
    SYDatabase db;
    db.OpenMemory(false);
    SYInventoryWriter writer(db);
    const auto pc = writer.AddMachine("pc", "", CTime(0));
    const auto palm = writer.AddDevice(2, "palm", "", CTime(0));
    const SYScanFile file{"a.dll", 1, 60, "", "", ""};
    EXPECT_THROW(writer.AddFile(0, pc + 100, "C:\\", file), CInvalidArgException);
    EXPECT_THROW(writer.AddFile(1, palm, "\\", file), CInvalidArgException);
    EXPECT_THROW(writer.AddFile(2, palm, "\\", file), CInvalidArgException);
    EXPECT_THROW(writer.AddFile(0, pc, "C:\\", {"", 1, 60, "", "", ""}), CInvalidArgException);
    EXPECT_THROW(writer.AddDevice(0, "pc?", "", CTime(0)), CInvalidArgException);
    EXPECT_THROW(writer.AddRIMApplication("Mail", "1"), CDBException);
}

TEST(SYInventoryWriter, NothingStaysWithoutCommitAndAFileIsOneRowWherever) {
    SYDatabase db;
    db.OpenMemory();
    const std::string empty = DumpStore(db);
    {
        SYInventoryWriter dropped(db);
        dropped.AddMachine("pc", "", CTime(100));
    }
    EXPECT_EQ(DumpStore(db), empty);

    SYInventoryWriter writer(db);
    const auto pc = writer.AddMachine("pc", "", CTime(100));
    const auto other = writer.AddMachine("pc-2", "", CTime(0));
    const SYScanFile file{"Tool.exe", 5, 60, "Tool", "1", "Maker"};
    const auto id = writer.AddFile(0, pc, "C:\\Tool", file);
    EXPECT_EQ(writer.AddFile(0, pc, "C:\\Tool", {"TOOL.EXE", 5, 60, "Tool", "1", "Maker"}), id);
    EXPECT_EQ(writer.AddFile(0, other, "D:\\Tool", file), id);
    EXPECT_NE(writer.AddFile(0, pc, "C:\\Tool", {"tool.exe", 6, 60, "Tool", "1", "Maker"}), id);
    writer.Commit();
    EXPECT_THROW(writer.Commit(), CDBException);
    EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM FileLocations WHERE FileID = " + std::to_string(id)),
              2);
    EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM Installations"), 2);
    EXPECT_EQ(Scalar(db, "SELECT CreationTime FROM MachineData WHERE ResourceID = 1"), 100);
    EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM MachineData"), 1);
}

// However the installation folder is spelled (odd characters, backslashes, a trailing
// separator), its system rules take part; a file that is no rules database is refused.
TEST(SYInventoryWriter, SystemRulesDecideNewFilesWhereverTheInstallationIs) {
    TempDir dir;
    const std::string folder = dir.File("odd name's %rules#?");
    std::filesystem::create_directory(folder);
    {
        SYSystemRulesWriter rules(folder + "/" + SYSamData::SystemRulesFileName);
        SYRuleRow ignore;
        ignore.ruleType = 1;
        ignore.fileName = "pagefile.sys";
        rules.AddRule(ignore);
        rules.Commit();
    }
    std::string backslashed = folder;
    std::replace(backslashed.begin(), backslashed.end(), '/', '\\');
    SYDatabase db;
    db.OpenMemory();
    SYInventoryWriter writer(db, backslashed + "\\");
    const auto pc = writer.AddMachine("pc", "", CTime(0));
    writer.AddFile(0, pc, "C:\\", {"PAGEFILE.SYS", 5ULL << 32, 60, "", "", ""});
    writer.Commit();
    EXPECT_EQ(Scalar(db, "SELECT FileState FROM Files"), 3);
    SYSamData sam(db);
    EXPECT_EQ(sam.EstablishSystemRulesDb(backslashed), 1);
    EXPECT_EQ(sam.EstablishSystemRulesDb(dir.File("nowhere")), 0);
    EXPECT_EQ(sam.EstablishSystemRulesDb(""), 0);
    std::ofstream(dir.File(SYSamData::SystemRulesFileName)) << "not a database, not at all, no";
    EXPECT_THROW(sam.EstablishSystemRulesDb(dir.Path()), CDBException);
    EXPECT_FALSE(db.HaveSystemRules());
}

} // namespace
