#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryGenerator.h"
#include "outside/store/SYInventorySummary.h"
#include "outside/store/SYSamData.h"
#include "support/StoreDump.h"
#include "support/TempDir.h"

namespace {

std::string generatedDump(std::uint32_t seed, int clients, const std::string& install,
                          bool withRIM = true) {
    SYDatabase db;
    db.OpenMemory(withRIM);
    SYInventoryGenerator::Options options;
    options.seed = seed;
    options.clients = clients;
    options.withRIMTables = withRIM;
    SYInventoryGenerator(options).Generate(db, install);
    return DumpStore(db);
}

TEST(SYInventoryGenerator, SameSeedSameInventoryOtherSeedAnother) {
    TempDir install;
    const std::string first = generatedDump(7, 60, install.Path());
    EXPECT_EQ(generatedDump(7, 60, install.Path()), first);
    EXPECT_NE(generatedDump(8, 60, install.Path()), first);
}

TEST(SYInventoryGenerator, CoversEveryPlatformAndKindOfVerdict) {
    TempDir install;
    SYDatabase db;
    db.OpenMemory();
    SYInventoryGenerator::Options options;
    options.clients = 80;
    SYInventoryGenerator(options).Generate(db, install.Path());
    SYInventorySummary summary;
    summary.Load(db);
    for (unsigned char type = 0; type < 4; ++type) {
        EXPECT_GT(summary.Of(type).clients, 0) << int(type);
        EXPECT_GT(summary.Of(type).applications, 0) << int(type);
    }
    for (unsigned char type = 0; type < 2; ++type) {
        EXPECT_GT(summary.Of(type).unidentified, 0) << int(type);
        EXPECT_GT(summary.Of(type).ignored, 0) << int(type);
    }
    const auto scalar = [&db](const std::string& sql) {
        SYStatement statement(db, sql);
        statement.Step();
        return statement.Int64(0);
    };
    EXPECT_GT(scalar("SELECT COUNT(*) FROM Files WHERE FileSize >= 4294967296"), 0);
    EXPECT_GT(scalar("SELECT COUNT(*) FROM Files WHERE FileState = 2"), 0);
    EXPECT_GT(scalar("SELECT COUNT(*) FROM Files WHERE FileState = 3"), 0);
    EXPECT_GT(scalar("SELECT COUNT(*) FROM Files WHERE FileState = 4"), 0);
    EXPECT_GT(scalar("SELECT COUNT(*) FROM Files WHERE RuleSource = 1 AND FileState = 1"), 0);
    EXPECT_EQ(scalar("SELECT COUNT(*) FROM SWRules WHERE RuleState = 3"), 1);
    EXPECT_GT(scalar("SELECT COUNT(*) FROM [Palm Applications] WHERE IconName = ''"), 0);
    EXPECT_GT(scalar("SELECT COUNT(*) FROM [Palm Applications] WHERE IconName <> ''"), 0);
    EXPECT_GT(scalar("SELECT MAX(n) FROM (SELECT COUNT(DISTINCT AppCompany) AS n FROM "
                     "Applications GROUP BY AppCompanyInternal)"),
              1);
    EXPECT_GT(scalar("SELECT MAX(n) FROM (SELECT COUNT(*) AS n FROM Applications GROUP BY "
                     "AppCompanyInternal, AppNameInternal)"),
              1);
    EXPECT_GT(scalar("SELECT MAX(n) FROM (SELECT COUNT(*) AS n FROM FileLocations GROUP BY "
                     "FileID, MachineID)"),
              1);
    EXPECT_GT(scalar("SELECT MAX(n) FROM (SELECT COUNT(DISTINCT MachineID) AS n FROM "
                     "FileLocations GROUP BY FileID)"),
              20);
    // The flags are exactly what the files say, in both inventories, after the rules
    // written last have moved files between applications.
    for (const char* table : {"[Applications]", "[PPC Applications]"}) {
        const std::string type = std::string(table) == "[Applications]" ? "0" : "1";
        EXPECT_EQ(scalar(std::string("SELECT COUNT(*) FROM ") + table +
                         " a WHERE AppInstalled <> EXISTS (SELECT 1 FROM Files f JOIN "
                         "FileLocations l ON l.FileID = f.FileID WHERE f.InvDataType = " +
                         type + " AND f.AppID = a.AppID)"),
                  0)
            << table;
        EXPECT_GT(scalar(std::string("SELECT COUNT(*) FROM ") + table + " WHERE AppInstalled = 1"),
                  0)
            << table;
    }
}

TEST(SYInventoryGenerator, StoredVerdictsAgreeWithTheRuleService) {
    TempDir install;
    SYDatabase db;
    db.OpenMemory();
    SYInventoryGenerator::Options options;
    options.clients = 60;
    SYInventoryGenerator(options).Generate(db, install.Path());
    for (unsigned char type = 0; type < 2; ++type) {
        SYSamData sam(db);
        sam.InvDataType = type;
        ASSERT_EQ(sam.EstablishSystemRulesDb(install.Path()), 1);
        SYAppFileSet files(db);
        files.InvDataType = type;
        files.Open();
        int checked = 0;
        for (; !files.IsEOF(); files.MoveNext(), ++checked) {
            _SYSAM_RULE_DATA data;
            auto source = SYSamData::RuleSourceUser;
            const int found = sam.FindEffectiveRule(files.FileID(), data, source);
            EXPECT_EQ(files.RuleSource(), found != 0 ? static_cast<int>(source) : -1)
                << files.FileName();
            EXPECT_EQ(files.RuleID(), found != 0 ? data.RuleID : 0U) << files.FileName();
            if (found != 0 && data.RuleType == 0) {
                EXPECT_EQ(files.AppName(), data.AppName) << files.FileName();
            }
        }
        EXPECT_GT(checked, 10);
    }
}

TEST(SYInventoryGenerator, StoreWithoutBlackBerryTablesAndDemoFiles) {
    TempDir dir;
    const std::string dump = generatedDump(3, 40, "", false);
    EXPECT_EQ(dump.find("[RIM Applications]"), std::string::npos);
    SYInventoryGenerator::Options options;
    options.clients = 20;
    const std::string path = dir.File("demo/inventory.db");
    EXPECT_EQ(SYInventoryGenerator::CreateIfAbsent(path, dir.File("demo/installation"), options),
              1);
    EXPECT_TRUE(std::filesystem::exists(dir.File("demo/installation/SystemRules.db")));
    EXPECT_EQ(SYInventoryGenerator::CreateIfAbsent(path, dir.File("demo/installation"), options),
              0);
    SYDatabase db;
    EXPECT_NE(db.Open(path), 0);
}

} // namespace
