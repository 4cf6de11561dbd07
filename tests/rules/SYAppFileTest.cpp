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
#include "support/FaultSweep.h"
#include "support/ReportCapture.h"
#include "support/TempDir.h"

namespace {

constexpr std::int32_t ScanTime = 1614862923;

// A rule that carries both an application and a comment, whatever its type.
SYRuleRow rule(unsigned char invDataType, unsigned char type, const std::string& name,
               std::optional<std::uint64_t> size = {}) {
    return {invDataType, type, name, size, CTime(), "App of " + name, "2.1", "Maker", "on " + name};
}

SYScanFile scanned(const std::string& name, std::uint64_t size = 1000,
                   std::int32_t time = ScanTime) {
    return {name, size, time, "", "", ""};
}

std::string verdict(const SYAppFile& record) {
    return record.RuleComment() + "|" + record.UserAppName() + "|" + record.UserAppVersion() + "|" +
           record.UserAppCompany();
}

std::string rowText(const SYIdRuleItem& rule) {
    std::string text;
    rule.MakeString(text);
    return text;
}

// An inventory in memory beside an installation folder with a system rules database.
class SYAppFileTest : public testing::Test {
protected:
    void SetUp() override {
        SYGetApp().SetInstallPath(install.Path());
        db.OpenMemory();
        record.SetDatabase(&db);
    }
    void TearDown() override { SYGetApp().SetInstallPath(""); }

    // A fresh inventory holding one file, the given user rules and system rules.
    unsigned long Inventory(unsigned char invDataType, const SYScanFile& file,
                            const std::vector<SYRuleRow>& userRules,
                            const std::vector<SYRuleRow>& systemRules = {}) {
        db.Close();
        db.OpenMemory();
        const std::string path = install.File(SYSamData::SystemRulesFileName);
        std::filesystem::remove(path);
        SYSystemRulesWriter system(path);
        for (const SYRuleRow& row : systemRules)
            system.AddRule(row);
        system.Commit();
        SYInventoryWriter writer(db, install.Path());
        const unsigned long client = invDataType == 0 ? writer.AddMachine("pc", "ann", ScanTime)
                                                      : writer.AddDevice(1, "ce", "bob", ScanTime);
        for (const SYRuleRow& row : userRules)
            lastUserRule = writer.AddUserRule(row);
        const unsigned long fileID = writer.AddFile(invDataType, client, "C:\\Apps", file);
        writer.Commit();
        return fileID;
    }

    ReportCapture reports;
    TempDir install;
    SYDatabase db;
    SYAppFile record;
    unsigned long lastUserRule = 0;
};

TEST_F(SYAppFileTest, VerdictStates) {
    // Rule types of the user and the system rule for the file, -1 for none.
    struct Case {
        const char* what;
        unsigned char inventory;
        int user, system;
        std::optional<std::uint64_t> userSize;
        AppFileState state;
        const char* verdict;
    };
    const char* const byUserRule = "on F.EXE|App of F.EXE|2.1|Maker";
    const Case cases[] = {
        {"no rule", 0, -1, -1, {}, AppFileNoRule, "|||"},
        {"system identification", 1, -1, 0, {}, AppFileSystemIdentified, "on f.exe|||"},
        {"user identification", 1, 0, -1, {}, AppFileUserIdentified, byUserRule},
        {"system ignore", 0, -1, 1, {}, AppFileSystemIgnored, "on f.exe|||"},
        {"user ignore", 1, 1, -1, 1000, AppFileUserIgnored, "on F.EXE|||"},
        {"user before system", 0, 0, 1, {}, AppFileUserIdentified, byUserRule},
        {"unknown user type", 0, 2, -1, {}, AppFileSystemIdentified, "on F.EXE|||"},
        {"rule of another size", 1, 1, -1, 5, AppFileNoRule, "|||"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        std::vector<SYRuleRow> user, system;
        if (c.user >= 0)
            user.push_back(rule(c.inventory, c.user, "F.EXE", c.userSize));
        if (c.system >= 0)
            system.push_back(rule(c.inventory, c.system, "f.exe"));
        const unsigned long fileID = Inventory(c.inventory, scanned("f.exe"), user, system);
        const bool byUser =
            c.state == AppFileUserIdentified || c.state == AppFileUserIgnored || c.user == 2;
        ASSERT_EQ(record.LoadData(fileID, c.inventory), 1);
        EXPECT_EQ(record.FileID(), fileID);
        EXPECT_EQ(record.InvDataType(), c.inventory);
        EXPECT_EQ(record.State(), c.state);
        EXPECT_EQ(record.EffectiveRuleID(), byUser ? lastUserRule : 0UL);
        EXPECT_EQ(verdict(record), c.verdict);
        EXPECT_TRUE(reports.Empty());
    }
}

TEST_F(SYAppFileTest, AwkwardNamesSizesAndTimesRoundTrip) {
    struct Case {
        std::string name;
        std::uint64_t size;
        std::int32_t time;
    };
    const Case cases[] = {
        {"O'Brien \"quoted\".doc", 0, ScanTime},
        {"100%_done*.txt", 0xFFFFFFFFULL, 0},
        {"r\xC3\xA9sum\xC3\xA9 \xE6\x97\xA5\xE6\x9C\xAC.pdf", 0x1'00000000ULL, -1},
        {"huge.vhd", 0xFFFFFFFE'00000001ULL, -2'000'000'000},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const unsigned long fileID =
            Inventory(0, scanned(c.name, c.size, c.time), {rule(0, 1, c.name, c.size)});
        ASSERT_EQ(record.LoadData(fileID, 0), 1);
        EXPECT_EQ(record.FileName(), c.name);
        EXPECT_EQ(record.FileSize(), c.size);
        EXPECT_EQ(record.FileTime().GetTime(), c.time);
        EXPECT_EQ(record.State(), AppFileUserIgnored);
        ASSERT_EQ(record.NumIgnoreRules(), 1);
        EXPECT_EQ(record.GetIgnoreRule(0)->FileSize(), c.size);
    }
}

TEST_F(SYAppFileTest, ActiveRulesOfTheNameAreLoadedWhateverTheirSizeAndTimeSortedAndOnce) {
    SYRuleRow zed = rule(0, 0, "LIB_1.DLL", 5);
    zed.time = ScanTime + 3600;
    zed.appName = "Zed";
    SYRuleRow alpha = rule(0, 0, "lib_1.dll");
    alpha.appName = "alpha";
    // Neither a pattern nor another inventory's rule nor a removed one belongs to the file.
    const unsigned long fileID =
        Inventory(0, scanned("Lib_1.dll"),
                  {zed, alpha, rule(0, 1, "lib_1.dll", 6), rule(0, 0, "libx1.dll"),
                   rule(1, 1, "lib_1.dll"), rule(0, 1, "lib_1.dll")});
    SYSWRule engine;
    engine.Database = &db;
    ASSERT_EQ(engine.RemoveRule(lastUserRule, 0), 1);

    ASSERT_EQ(record.LoadData(fileID, 0), 1);
    for (int pass = 0; pass < 2; ++pass) {
        SCOPED_TRACE(pass);
        ASSERT_EQ(record.NumIdRules(), 2);
        ASSERT_EQ(record.NumIgnoreRules(), 1);
        EXPECT_EQ(rowText(*record.GetIdRule(0)), "lib_1.dll\tAny\tAny\talpha\t2.1\tMaker");
        EXPECT_EQ(rowText(*record.GetIdRule(1)),
                  "LIB_1.DLL\t5\t3/4/2021 2:02:03 PM\tZed\t2.1\tMaker");
        EXPECT_EQ(record.GetIgnoreRule(0)->Comment(), "on lib_1.dll");
        EXPECT_EQ(record.LoadRules(), 1);
    }
    EXPECT_EQ(record.GetIdRule(2), nullptr);
}

TEST_F(SYAppFileTest, NothingToLoadLeavesTheRecordAsItWas) {
    const unsigned long fileID = Inventory(0, scanned("kept.exe"), {});
    SYAppFile unconnected;
    EXPECT_EQ(unconnected.LoadData(fileID, 0), 0);
    EXPECT_EQ(unconnected.FileID(), 0U);

    ASSERT_EQ(record.LoadData(fileID, 0), 1);
    // No file, a gone one, or one of the other inventory.
    EXPECT_EQ(record.LoadData(0, 0), 0);
    EXPECT_EQ(record.LoadData(fileID + 1, 0), 0);
    EXPECT_EQ(record.LoadData(fileID, 1), 0);
    EXPECT_EQ(record.FileID(), fileID);
    EXPECT_EQ(record.InvDataType(), 0);
    EXPECT_EQ(record.FileName(), "kept.exe");
    EXPECT_TRUE(reports.Empty());
}

TEST_F(SYAppFileTest, StoreFailuresAreReportedAndLeaveWhatWasRead) {
    const unsigned long fileID =
        Inventory(1, scanned("app.exe"), {rule(1, 1, "app.exe", 3), rule(1, 0, "app.exe")});
    bool sawRead = false, sawRules = false, sawVerdict = false;
    for (FaultSweep sweep(db); sweep.Next();) {
        SCOPED_TRACE(testing::Message() << "failing statement " << sweep.Nth());
        reports.Clear();
        SYAppFile fresh;
        fresh.SetDatabase(&db);
        sweep.Arm();
        const int result = fresh.LoadData(fileID, 1);
        ASSERT_EQ(reports.Size(), sweep.Fired() ? 1U : 0U);
        if (!sweep.Fired()) {
            EXPECT_EQ(result, 1);
            EXPECT_EQ(fresh.State(), AppFileUserIdentified);
            break;
        }
        EXPECT_EQ(reports.All().front().kind, "CDBException");
        if (fresh.FileID() == 0) {
            // The file's own row failed: no verdict was asked for.
            sawRead = true;
            EXPECT_EQ(result, 0);
            EXPECT_EQ(fresh.State(), AppFileNoRule);
        } else if (result == 1) {
            // The rules failed; the verdict still came.
            sawRules = true;
            EXPECT_EQ(fresh.NumIdRules() + fresh.NumIgnoreRules(), 0);
            EXPECT_EQ(fresh.State(), AppFileUserIdentified);
        } else {
            sawVerdict = true;
            EXPECT_EQ(fresh.NumIdRules(), 1);
            EXPECT_EQ(fresh.State(), AppFileSystemIdentified);
            EXPECT_EQ(verdict(fresh), "|||");
            EXPECT_EQ(fresh.EffectiveRuleID(), 0U);
        }
    }
    EXPECT_TRUE(sawRead && sawRules && sawVerdict);
}

} // namespace
