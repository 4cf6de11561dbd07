#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "outside/framework/CException.h"
#include "outside/framework/SYStatus.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryWriter.h"
#include "rules/SYSWRule.h"
#include "support/FaultSweep.h"
#include "support/ReportCapture.h"
#include "support/StoreDump.h"

namespace {

constexpr std::int32_t ScanTime = 1614862923;
using Ids = std::set<unsigned long>;

// Three PCs: "mystery.exe" lies on the first two (twice on the second), "other.exe" on the
// third, and the two files of "Suite" on all three. Rules are applied as the console does.
class SYSWRuleInventoryTest : public testing::Test {
protected:
    void SetUp() override {
        db.OpenMemory();
        engine.Database = &db;
        engine.InvDataType = 0;
        SYInventoryWriter writer(db);
        pcs.clear();
        suite.clear();
        for (const char* name : {"alpha", "beta", "gamma"})
            pcs.push_back(writer.AddMachine(name, "user", ScanTime));
        mystery = writer.AddFile(0, pcs[0], "C:\\Tools", File("mystery.exe", 2048));
        writer.AddFile(0, pcs[1], "D:\\Bin", File("mystery.exe", 2048));
        writer.AddFile(0, pcs[1], "D:\\Old", File("mystery.exe", 2048));
        other = writer.AddFile(0, pcs[2], "C:\\Other", File("other.exe", 99));
        for (unsigned long pc : pcs) {
            suite.insert(writer.AddFile(0, pc, "C:\\Suite", File("suite.exe", 5000, "Suite")));
            suite.insert(writer.AddFile(0, pc, "C:\\Suite", File("suite.dll", 6000, "Suite")));
        }
        writer.Commit();
    }
    static SYScanFile File(const std::string& name, std::uint64_t size,
                           const std::string& app = "") {
        return {name, size, ScanTime, app, app.empty() ? "" : "3.0", app};
    }
    static SYIdRuleItem Identify(const std::string& name) {
        SYIdRuleItem rule;
        rule.SetFileName(name);
        rule.SetAppName("Mystery Tool");
        return rule;
    }
    void Apply() {
        engine.UpdateSamData();
        engine.ClearChangedRules();
    }
    Ids Files(bool ignored) {
        SYAppFileSet set(db);
        set.InvDataType = 0;
        if (ignored)
            set.FilterForExcludedFiles();
        else
            set.FilterForUnidFiles();
        set.Open();
        Ids ids;
        for (; !set.IsEOF(); set.MoveNext())
            ids.insert(set.FileID());
        return ids;
    }
    Ids Query(const char* sql, unsigned long key) {
        auto statement = db.Cached(sql);
        statement->Bind(1, static_cast<std::int64_t>(key));
        Ids ids;
        while (statement->Step())
            ids.insert(static_cast<unsigned long>(statement->Int64(0)));
        return ids;
    }
    unsigned long AppOf(unsigned long fileID) {
        const Ids app = Query("SELECT AppID FROM Files WHERE FileID = ?1", fileID);
        return app.empty() ? 0 : *app.begin();
    }
    Ids ClientsWith(unsigned long appID) {
        return Query("SELECT MachineID FROM Installations WHERE InvDataType = 0 AND AppID = ?1",
                     appID);
    }

    ReportCapture reports;
    SYDatabase db;
    SYSWRule engine;
    std::vector<unsigned long> pcs;
    unsigned long mystery = 0, other = 0;
    Ids suite;
};

TEST_F(SYSWRuleInventoryTest, IdentifyThenIgnoreThenRemove) {
    SYIdRuleItem rule = Identify("MYSTERY.EXE");
    ASSERT_EQ(engine.AddIdRule(rule, 1), 1);
    // The list stays after applying; applying it again changes nothing.
    engine.UpdateSamData();
    const std::string once = DumpStore(db);
    Apply();
    EXPECT_EQ(DumpStore(db), once);
    EXPECT_EQ(Files(false).count(mystery) + Files(false).count(other), 1U);
    const unsigned long app = AppOf(mystery);
    EXPECT_EQ(ClientsWith(app), (Ids{pcs[0], pcs[1]}));

    SYIgnoreRuleItem ignore;
    static_cast<SYAppFileItem&>(ignore) = rule;
    ASSERT_EQ(engine.ModifyExcludeRule(ignore), 1);
    Apply();
    EXPECT_TRUE(Files(true).count(mystery));
    EXPECT_FALSE(Files(false).count(mystery));
    EXPECT_TRUE(ClientsWith(app).empty());

    ASSERT_EQ(engine.RemoveRule(&ignore), 1);
    Apply();
    EXPECT_FALSE(Files(true).count(mystery));
    EXPECT_TRUE(Files(false).count(mystery));
}

TEST_F(SYSWRuleInventoryTest, ARenameFollowsInTheInventoryAndAFailedApplicationChangesNothing) {
    FaultSweep sweep(db);
    while (sweep.Next()) {
        SCOPED_TRACE(testing::Message() << "failing statement " << sweep.Nth());
        db.Close();
        SetUp();
        // A renamed identification concerns both names.
        SYIdRuleItem rule = Identify("mystery.exe");
        ASSERT_EQ(engine.AddIdRule(rule, 1), 1);
        Apply();
        const unsigned long app = AppOf(mystery);
        const std::uint32_t oldID = rule.FileID();
        rule.SetFileName("other.exe");
        ASSERT_EQ(engine.ModifyIdRule(rule), 1);
        const std::string before = DumpStore(db);
        sweep.Arm();
        bool threw = false;
        try {
            engine.UpdateSamData();
        } catch (const CException&) {
            threw = true;
        } catch (const SYStatus&) {
            threw = true;
        }
        ASSERT_EQ(threw, sweep.Fired());
        ASSERT_EQ(engine.NumChangedRules(), 1);
        EXPECT_EQ(engine.GetChangedRule(0).RuleID, rule.FileID());
        EXPECT_EQ(engine.GetChangedRule(0).ReplacedRuleID, oldID);
        if (threw) {
            EXPECT_EQ(DumpStore(db), before);
            engine.UpdateSamData();
        }
        EXPECT_TRUE(Files(false).count(mystery));
        EXPECT_FALSE(Files(false).count(other));
        EXPECT_EQ(AppOf(other), app);
        EXPECT_EQ(ClientsWith(app), Ids{pcs[2]});
    }
    EXPECT_GT(sweep.Faults(), 0);
    EXPECT_TRUE(reports.Empty());
}

} // namespace
