#include <gtest/gtest.h>

#include "outside/store/SYRuleChangeReport.h"
#include "support/ToolInventory.h"

namespace {

using RuleChangeReportTest = ToolInventory;

struct AppCounts {
    int gained;
    int lost;
    bool operator==(const AppCounts&) const = default;
};

std::map<std::string, AppCounts> byName(const SYRuleChangeReport& report) {
    std::map<std::string, AppCounts> apps;
    for (const auto& app : report.Apps())
        apps[app.AppName] = {app.Gained, app.Lost};
    return apps;
}

TEST_F(RuleChangeReportTest, CountsWhatTheApplyChangesAndAPreviewKeepsNothing) {
    struct Case {
        const char* what;
        unsigned char type;
        const char* name;
        const char* app;
        int files;
        int clients;
        std::map<std::string, AppCounts> apps;
    };
    // tool.exe lies in C:\Tool on both PCs, where toolhelp.dll keeps Tool installed, and
    // alone in D:\Other on pc-2.
    const std::vector<Case> cases = {
        {"ignoring tool.exe ends one installation", 1, "TOOL.EXE", "", 1, 2, {{"Tool", {0, 1}}}},
        {"identifying readme.txt starts one", 0, "readme.txt", "Docs", 1, 1, {{"Docs", {1, 0}}}},
        {"a name no file has", 1, "nothing.dll", "", 0, 0, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const std::string before = DumpStore(db);
        for (const bool commit : {false, true}) {
            SYRuleChangeReport report;
            report.AddName(c.name);
            ASSERT_TRUE(report.Run(db, 0, commit, [&] {
                Apply(c.type, c.name, c.app);
                return true;
            }));
            EXPECT_EQ(report.Files(), c.files);
            EXPECT_EQ(report.Clients(), c.clients);
            EXPECT_EQ(byName(report), c.apps);
            EXPECT_FALSE(db.InTransaction());
            if (!commit) {
                EXPECT_EQ(DumpStore(db), before);
            }
        }
        EXPECT_NE(DumpStore(db), before);
    }
}

// Ignoring tool.exe ends Tool's installation in D:\Other, where readme.txt, identified as
// Tool by the same write, makes one anew: the place keeps Tool, so Tool neither gains nor
// loses.
TEST_F(RuleChangeReportTest, AnInstallationEndedAndMadeAgainInOneWriteIsNoChange) {
    SYInventoryWriter writer(db);
    writer.AddFile(0, pc2, "D:\\Other", {"readme.txt", 30, 600, "", "", ""});
    writer.Commit();
    for (const bool commit : {false, true}) {
        SYRuleChangeReport report;
        report.AddName("tool.exe");
        report.AddName("readme.txt");
        ASSERT_TRUE(report.Run(db, 0, commit, [&] {
            Apply(1, "tool.exe");
            Apply(0, "readme.txt", "Tool", "Acme", "1.0");
            return true;
        }));
        EXPECT_EQ(report.Files(), 2);
        EXPECT_EQ(report.Clients(), 2);
        EXPECT_EQ(byName(report), (std::map<std::string, AppCounts>{}));
    }
}

TEST_F(RuleChangeReportTest, AFailedWriteOrApplyLeavesTheStoreAsItWas) {
    const std::string before = DumpStore(db);
    SYRuleChangeReport report;
    report.AddName("tool.exe");
    EXPECT_FALSE(report.Run(db, 0, true, [&] {
        AddUserRule(db, 1, "tool.exe");
        return false;
    }));
    EXPECT_EQ(DumpStore(db), before);
    EXPECT_THROW(report.Run(db, 0, true,
                            [&] {
                                Apply(1, "tool.exe");
                                db.FailStatement();
                                Scalar(db, "SELECT 1");
                                return true;
                            }),
                 CDBException);
    EXPECT_EQ(DumpStore(db), before);
    EXPECT_FALSE(db.InTransaction());
}

} // namespace
