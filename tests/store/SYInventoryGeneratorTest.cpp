#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "outside/store/SYInventoryGenerator.h"
#include "outside/store/SYInventorySummary.h"
#include "support/StoreDump.h"
#include "support/StoreQueries.h"
#include "support/TempDir.h"

namespace {

SYInventoryGenerator::Options optionsOf(std::uint32_t seed, int clients, int tailVendors = 0) {
    SYInventoryGenerator::Options options;
    options.seed = seed;
    options.clients = clients;
    options.tailVendors = tailVendors;
    return options;
}

std::string generatedDump(const SYInventoryGenerator::Options& options) {
    SYDatabase db;
    db.OpenMemory(options.withRIMTables);
    SYInventoryGenerator(options).Generate(db, "");
    return DumpStore(db);
}

// What the rule service and the writer keep must be what the files say.
const char* const kStaleInstallations =
    "SELECT COUNT(*) FROM (SELECT * FROM (SELECT DISTINCT f.InvDataType, f.AppID, l.MachineID, "
    "l.Location FROM Files f JOIN FileLocations l ON l.FileID = f.FileID WHERE f.AppID <> 0 "
    "EXCEPT SELECT InvDataType, AppID, MachineID, Location FROM Installations) UNION ALL "
    "SELECT * FROM (SELECT InvDataType, AppID, MachineID, Location FROM Installations EXCEPT "
    "SELECT f.InvDataType, f.AppID, l.MachineID, l.Location FROM Files f JOIN FileLocations l "
    "ON l.FileID = f.FileID))";

TEST(SYInventoryGenerator, SameOptionsSameInventoryOtherSeedAnother) {
    const std::string first = generatedDump(optionsOf(7, 60));
    EXPECT_EQ(generatedDump(optionsOf(7, 60)), first);
    EXPECT_NE(generatedDump(optionsOf(8, 60)), first);
    auto withoutRIM = optionsOf(3, 40);
    withoutRIM.withRIMTables = false;
    EXPECT_EQ(generatedDump(withoutRIM).find("[RIM Applications]"), std::string::npos);
}

TEST(SYInventoryGenerator, CoversEveryPlatformAndKindOfVerdict) {
    TempDir install;
    SYDatabase db;
    db.OpenMemory();
    SYInventoryGenerator(optionsOf(1, 80, 4)).Generate(db, install.Path());
    SYInventorySummary summary;
    summary.Load(db);
    for (unsigned char type = 0; type < 4; ++type) {
        SCOPED_TRACE(int(type));
        EXPECT_GT(summary.Of(type).clients, 0);
        EXPECT_GT(summary.Of(type).applications, 0);
        if (type < 2) {
            EXPECT_GT(summary.Of(type).unidentified, 0);
            EXPECT_GT(summary.Of(type).ignored, 0);
        }
    }
    const char* const present[] = {
        "SELECT COUNT(*) FROM Files WHERE FileSize >= 4294967296",
        "SELECT COUNT(*) FROM Files WHERE FileState = 2",
        "SELECT COUNT(*) FROM Files WHERE FileState = 3",
        "SELECT COUNT(*) FROM Files WHERE FileState = 4",
        "SELECT COUNT(*) FROM Files WHERE RuleSource = 1 AND FileState = 1",
        "SELECT COUNT(*) FROM [Palm Applications] WHERE IconName = ''",
        "SELECT COUNT(*) FROM [Palm Applications] WHERE IconName <> ''",
        "SELECT COUNT(*) FROM [PPC Applications] WHERE AppCompany LIKE 'Longtail%'",
        // companies in several spellings, applications in several versions
        "SELECT MAX(n) - 1 FROM (SELECT COUNT(DISTINCT AppCompany) AS n FROM Applications "
        "GROUP BY AppCompanyInternal)",
        "SELECT MAX(n) - 1 FROM (SELECT COUNT(*) AS n FROM Applications GROUP BY "
        "AppCompanyInternal, AppNameInternal)",
        // files in several folders of one client, and on many clients
        "SELECT MAX(n) - 1 FROM (SELECT COUNT(*) AS n FROM FileLocations GROUP BY FileID, "
        "MachineID)",
        "SELECT MAX(n) - 20 FROM (SELECT COUNT(DISTINCT MachineID) AS n FROM FileLocations "
        "GROUP BY FileID)",
        // the flags are what the files say, after the rules written last moved files
        "SELECT 1 - COUNT(*) FROM Applications a WHERE AppInstalled <> EXISTS (SELECT 1 FROM "
        "Files f JOIN FileLocations l ON l.FileID = f.FileID WHERE f.InvDataType = 0 AND "
        "f.AppID = a.AppID)",
        "SELECT 1 - COUNT(*) FROM [PPC Applications] a WHERE AppInstalled <> EXISTS (SELECT 1 "
        "FROM Files f JOIN FileLocations l ON l.FileID = f.FileID WHERE f.InvDataType = 1 AND "
        "f.AppID = a.AppID)",
    };
    for (const char* sql : present)
        EXPECT_GT(Scalar(db, sql), 0) << sql;
    EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM SWRules WHERE RuleState = 3"), 1);
    EXPECT_EQ(Scalar(db, kStaleInstallations), 0);
    EXPECT_EQ(Scalar(db, "SELECT COUNT(DISTINCT AppCompanyInternal) BETWEEN 1 AND 4 FROM "
                         "Applications WHERE AppCompany LIKE 'Longtail%'"),
              1);
}

TEST(SYInventoryGenerator, RealisticEstateHasTheMakeUpOfARealOne) {
    TempDir install;
    SYDatabase db;
    db.OpenMemory();
    SYInventoryGenerator(SYInventoryGenerator::RealisticOptions(60, 5))
        .Generate(db, install.Path());
    const struct {
        const char* what;
        const char* sql;
        long long low;
        long long high;
    } figures[] = {
        {"files a PC",
         "SELECT COUNT(*) / (SELECT COUNT(*) FROM Machines) FROM FileLocations l "
         "JOIN Machines m ON m.MachineID = l.MachineID",
         250, 400},
        {"companies", "SELECT COUNT(DISTINCT AppCompanyInternal) FROM Applications", 60, 400},
        {"retired user rules", "SELECT COUNT(*) FROM SWRules WHERE RuleState = 3", 100, 200},
        {"active user rules", "SELECT COUNT(*) FROM SWRules WHERE RuleState = 1", 1500, 2000},
        {"files decided by system rules", "SELECT COUNT(*) FROM Files WHERE RuleSource = 1", 50,
         100000},
        {"stale installations", kStaleInstallations, 0, 0},
    };
    for (const auto& f : figures) {
        const auto value = Scalar(db, f.sql);
        EXPECT_GE(value, f.low) << f.what;
        EXPECT_LE(value, f.high) << f.what;
    }
    EXPECT_GT(Scalar(db, "SELECT COUNT(*) FROM sysrules.SystemRules"), 2000);
}

TEST(SYInventoryGenerator, CreatesADemoInventoryOnlyWhereNoneIs) {
    TempDir dir;
    const std::string path = dir.File("demo/inventory.db");
    const auto options = optionsOf(1, 20);
    EXPECT_EQ(SYInventoryGenerator::CreateIfAbsent(path, dir.File("demo/installation"), options),
              1);
    EXPECT_TRUE(std::filesystem::exists(dir.File("demo/installation/SystemRules.db")));
    EXPECT_EQ(SYInventoryGenerator::CreateIfAbsent(path, dir.File("demo/installation"), options),
              0);
    SYDatabase db;
    EXPECT_NE(db.Open(path), 0);
}

} // namespace
