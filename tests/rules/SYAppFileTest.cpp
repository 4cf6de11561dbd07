#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYSamData.h"
#include "outside/store/SYSystemRulesWriter.h"
#include "rules/SYAppFile.h"
#include "rules/SYSWRule.h"
#include "support/TempDir.h"

namespace {

constexpr std::int32_t ScanTime = 1614862923;

SYRuleRow rule(unsigned char invDataType, unsigned char type, const std::string& name,
               std::optional<std::uint64_t> size = {}, std::int32_t time = 0) {
    SYRuleRow row;
    row.invDataType = invDataType;
    row.ruleType = type;
    row.fileName = name;
    row.size = size;
    row.time = time;
    if (type == 0) {
        row.appName = "App of " + name;
        row.appVersion = "2.1";
        row.appCompany = "Maker";
    } else {
        row.comment = "comment on " + name;
    }
    return row;
}

SYScanFile scanned(const std::string& name, std::uint64_t size = 1000,
                   std::int32_t time = ScanTime) {
    SYScanFile file;
    file.name = name;
    file.size = size;
    file.time = time;
    return file;
}

// An inventory in memory beside an installation folder with a system rules database.
class SYAppFileTest : public testing::Test {
protected:
    void SetUp() override {
        SYGetApp().SetInstallPath(install.Path());
        SYGetApp().ClearReports();
        db.OpenMemory();
        record.SetDatabase(&db);
    }
    void TearDown() override {
        db.ClearFault();
        SYGetApp().SetInstallPath("");
        SYGetApp().ClearReports();
    }

    void WriteSystemRules(const std::vector<SYRuleRow>& rules) {
        const std::string path = install.File(SYSamData::SystemRulesFileName);
        std::filesystem::remove(path);
        SYSystemRulesWriter writer(path);
        for (const SYRuleRow& row : rules)
            writer.AddRule(row);
        writer.Commit();
    }

    TempDir install;
    SYDatabase db;
    SYAppFile record;
};

TEST_F(SYAppFileTest, VerdictStates) {
    struct Case {
        const char* what;
        unsigned char inventory;
        std::vector<SYRuleRow> userRules;
        std::vector<SYRuleRow> systemRules;
        SYScanFile file;
        AppFileState state;
        bool userRuleGoverns;
        const char* comment;
        const char* userApp;
    };
    const std::vector<Case> cases = {
        {"no rule", 0, {}, {}, scanned("none.exe"), AppFileNoRule, false, "", ""},
        {"system identification",
         1,
         {},
         {rule(1, 0, "sys.exe")},
         scanned("sys.exe"),
         AppFileSystemIdentified,
         false,
         "",
         ""},
        {"version information",
         0,
         {},
         {},
         [] {
             SYScanFile f = scanned("ver.exe");
             f.appName = "Ver";
             f.appVersion = "1";
             f.appCompany = "VerCo";
             return f;
         }(),
         AppFileSystemIdentified,
         false,
         "",
         ""},
        {"user identification",
         1,
         {rule(1, 0, "USER.exe")},
         {},
         scanned("user.exe"),
         AppFileUserIdentified,
         true,
         "",
         "App of USER.exe|2.1|Maker"},
        {"system ignore",
         0,
         {},
         {rule(0, 1, "noise.log")},
         scanned("noise.log"),
         AppFileSystemIgnored,
         false,
         "comment on noise.log",
         ""},
        {"user ignore",
         1,
         {rule(1, 1, "junk.tmp", std::uint64_t{1000})},
         {},
         scanned("junk.tmp"),
         AppFileUserIgnored,
         true,
         "comment on junk.tmp",
         ""},
        {"user rule before system rule",
         0,
         {rule(0, 0, "both.dll")},
         {rule(0, 1, "both.dll")},
         scanned("both.dll"),
         AppFileUserIdentified,
         true,
         "",
         "App of both.dll|2.1|Maker"},
        {"user rule of an unknown type",
         0,
         {rule(0, 2, "odd.exe")},
         {},
         scanned("odd.exe"),
         AppFileSystemIdentified,
         true,
         "comment on odd.exe",
         ""},
        {"rule of another size does not govern",
         1,
         {rule(1, 1, "sized.dll", std::uint64_t{5})},
         {},
         scanned("sized.dll"),
         AppFileNoRule,
         false,
         "",
         ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        db.Close();
        db.OpenMemory();
        WriteSystemRules(c.systemRules);
        unsigned long userRuleID = 0;
        unsigned long fileID = 0;
        {
            SYInventoryWriter writer(db, install.Path());
            const unsigned long client = c.inventory == 0
                                             ? writer.AddMachine("pc", "ann", ScanTime)
                                             : writer.AddDevice(1, "ce", "bob", ScanTime);
            for (const SYRuleRow& row : c.userRules)
                userRuleID = writer.AddUserRule(row);
            fileID = writer.AddFile(c.inventory, client, "C:\\Apps", c.file);
            writer.Commit();
        }
        ASSERT_EQ(record.LoadData(fileID, c.inventory), 1);
        EXPECT_EQ(record.FileID(), fileID);
        EXPECT_EQ(record.InvDataType(), c.inventory);
        EXPECT_EQ(record.State(), c.state);
        EXPECT_EQ(record.EffectiveRuleID(), c.userRuleGoverns ? userRuleID : 0UL);
        EXPECT_EQ(record.RuleComment(), c.comment);
        const std::string userApp = record.UserAppName().empty()
                                        ? ""
                                        : record.UserAppName() + "|" + record.UserAppVersion() +
                                              "|" + record.UserAppCompany();
        EXPECT_EQ(userApp, c.userApp);
        EXPECT_TRUE(SYGetApp().Reports().empty());
    }
}

TEST_F(SYAppFileTest, ScannedFieldsRoundTripAwkwardValues) {
    struct Case {
        std::string name;
        std::uint64_t size;
        std::int32_t time;
    };
    const Case cases[] = {
        {"O'Brien \"quoted\".doc", 0, ScanTime},
        {"100%_done*.txt", 4'294'967'295ULL, 0},
        {"r\xC3\xA9sum\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC.pdf", 4'294'967'296ULL, -1},
        {"huge.vhd", 0xFFFFFFFE'00000001ULL, -2'000'000'000},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        unsigned long fileID = 0;
        {
            SYInventoryWriter writer(db);
            const unsigned long pc = writer.AddMachine("pc-" + c.name, "", ScanTime);
            fileID = writer.AddFile(0, pc, "D:\\", scanned(c.name, c.size, c.time));
            writer.AddUserRule(rule(0, 1, c.name, c.size));
            writer.Commit();
        }
        ASSERT_EQ(record.LoadData(fileID, 0), 1);
        EXPECT_EQ(record.FileName(), c.name);
        EXPECT_EQ(record.FileSize(), c.size);
        EXPECT_EQ(record.FileTime().GetTime(), c.time);
        EXPECT_EQ(record.State(), AppFileUserIgnored);
        ASSERT_EQ(record.NumIgnoreRules(), 1);
        EXPECT_EQ(record.GetIgnoreRule(0)->FileSize(), c.size);
    }
}

TEST_F(SYAppFileTest, RulesOfEveryVersionOfTheNameAreLoadedSortedAndOnce) {
    unsigned long fileID = 0;
    unsigned long removedRule = 0;
    {
        SYInventoryWriter writer(db);
        const unsigned long pc = writer.AddMachine("pc", "", ScanTime);
        fileID = writer.AddFile(0, pc, "C:\\", scanned("Lib_1.dll"));
        SYRuleRow zed = rule(0, 0, "LIB_1.DLL", std::uint64_t{5}, ScanTime + 3600);
        zed.appName = "Zed";
        writer.AddUserRule(zed);
        SYRuleRow alpha = rule(0, 0, "lib_1.dll");
        alpha.appName = "alpha";
        writer.AddUserRule(alpha);
        writer.AddUserRule(rule(0, 1, "lib_1.dll", std::uint64_t{6}));
        // Neither a pattern nor another inventory's rule belongs to the file.
        writer.AddUserRule(rule(0, 0, "libx1.dll"));
        writer.AddUserRule(rule(1, 1, "lib_1.dll"));
        removedRule = writer.AddUserRule(rule(0, 1, "lib_1.dll"));
        writer.Commit();
    }
    SYSWRule engine;
    engine.Database = &db;
    ASSERT_EQ(engine.RemoveRule(removedRule, 0), 1);

    ASSERT_EQ(record.LoadData(fileID, 0), 1);
    for (int pass = 0; pass < 2; ++pass) {
        ASSERT_EQ(record.NumIdRules(), 2);
        ASSERT_EQ(record.NumIgnoreRules(), 1);
        // Same name: the application decides.
        EXPECT_EQ(record.GetIdRule(0)->AppName(), "alpha");
        EXPECT_FALSE(record.GetIdRule(0)->HaveModTime());
        EXPECT_EQ(record.GetIdRule(1)->FileName(), "LIB_1.DLL");
        EXPECT_EQ(record.GetIdRule(1)->FileSize(), 5U);
        EXPECT_EQ(record.GetIdRule(1)->ItemType(), ItemTypeRule);
        EXPECT_EQ(record.GetIgnoreRule(0)->Comment(), "comment on lib_1.dll");
        EXPECT_EQ(record.LoadRules(), 1);
    }
    EXPECT_EQ(record.GetIdRule(-1), nullptr);
    EXPECT_EQ(record.GetIdRule(2), nullptr);
    EXPECT_EQ(record.GetIgnoreRule(1), nullptr);
}

TEST_F(SYAppFileTest, NothingToLoadLeavesTheRecordAsItWas) {
    unsigned long fileID = 0;
    {
        SYInventoryWriter writer(db);
        fileID =
            writer.AddFile(0, writer.AddMachine("pc", "", ScanTime), "C:\\", scanned("kept.exe"));
        writer.Commit();
    }
    SYAppFile empty;
    EXPECT_EQ(empty.LoadData(fileID, 0), 0);
    EXPECT_EQ(empty.FileID(), 0U);
    EXPECT_EQ(empty.IdentifyFile(), 0);

    ASSERT_EQ(record.LoadData(fileID, 0), 1);
    record.SetRulesChanged(1);
    EXPECT_EQ(record.LoadData(0, 0), 0);
    // Gone, or in the other inventory: the file is not there.
    EXPECT_EQ(record.LoadData(fileID + 1, 0), 0);
    EXPECT_EQ(record.LoadData(fileID, 1), 0);
    EXPECT_EQ(record.FileID(), fileID);
    EXPECT_EQ(record.InvDataType(), 0);
    EXPECT_EQ(record.FileName(), "kept.exe");
    EXPECT_EQ(record.RulesChanged(), 1);
    EXPECT_TRUE(SYGetApp().Reports().empty());
}

TEST_F(SYAppFileTest, StoreFailuresAreReportedAndLeaveTheDocumentedRemains) {
    unsigned long fileID = 0;
    {
        SYInventoryWriter writer(db);
        fileID = writer.AddFile(1, writer.AddDevice(1, "ce", "", ScanTime), "\\Windows",
                                scanned("app.exe"));
        writer.AddUserRule(rule(1, 0, "app.exe"));
        writer.AddUserRule(rule(1, 1, "app.exe", std::uint64_t{3}));
        writer.Commit();
    }
    bool sawReadFailure = false, sawRulesFailure = false, sawVerdictFailure = false;
    for (int nth = 1; nth < 30; ++nth) {
        SCOPED_TRACE(testing::Message() << "failing statement " << nth);
        SYGetApp().ClearReports();
        SYAppFile fresh;
        fresh.SetDatabase(&db);
        db.FailStatement(nth);
        const int result = fresh.LoadData(fileID, 1);
        db.ClearFault();
        if (SYGetApp().Reports().empty()) {
            EXPECT_EQ(result, 1);
            EXPECT_EQ(fresh.State(), AppFileUserIdentified);
            break;
        }
        ASSERT_EQ(SYGetApp().Reports().size(), 1U);
        EXPECT_EQ(SYGetApp().Reports().front().kind, "CDBException");
        if (fresh.FileID() == 0) {
            // The file's own row failed: no verdict was asked for.
            sawReadFailure = true;
            EXPECT_EQ(result, 0);
            EXPECT_EQ(fresh.FileName(), "");
            EXPECT_EQ(fresh.State(), AppFileNoRule);
        } else if (result == 1) {
            // The rules failed; the verdict still came.
            sawRulesFailure = true;
            EXPECT_EQ(fresh.NumIdRules() + fresh.NumIgnoreRules(), 0);
            EXPECT_EQ(fresh.State(), AppFileUserIdentified);
        } else {
            sawVerdictFailure = true;
            EXPECT_EQ(fresh.NumIdRules(), 1);
            EXPECT_EQ(fresh.State(), AppFileSystemIdentified);
            EXPECT_EQ(fresh.EffectiveRuleID(), 0U);
            EXPECT_EQ(fresh.UserAppName(), "");
        }
    }
    EXPECT_TRUE(sawReadFailure);
    EXPECT_TRUE(sawRulesFailure);
    EXPECT_TRUE(sawVerdictFailure);
}

} // namespace
