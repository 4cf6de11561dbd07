#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "outside/framework/CException.h"
#include "outside/framework/SYStatus.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryGenerator.h"
#include "outside/store/SYInventoryWriter.h"
#include "rules/SYAppFile.h"
#include "rules/SYSWRule.h"
#include "support/StoreDump.h"
#include "support/TempDir.h"

namespace {

constexpr std::int32_t ScanTime = 1614862923;
using Ids = std::set<unsigned long>;

SYIdRuleItem identify(const std::string& name) {
    SYIdRuleItem rule;
    rule.SetFileName(name);
    rule.SetAppName("Mystery Tool");
    rule.SetAppVersion("1.0");
    rule.SetAppCompany("Puzzles Inc");
    return rule;
}

// The store as the console reads it after the rule service has applied the noted changes.
class InventoryTest : public testing::Test {
protected:
    void SetUp() override {
        SYGetApp().ClearReports();
        db.OpenMemory();
        engine.Database = &db;
        engine.InvDataType = 0;
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
    unsigned long AppOf(unsigned long fileID) {
        SYAppFileSet set(db);
        set.InvDataType = 0;
        set.FilterForFileID(fileID);
        set.Open();
        return set.IsEOF() ? 0 : set.AppID();
    }
    Ids Query(const std::string& sql, const std::string& key) {
        auto statement = db.Cached(sql);
        statement->Bind(1, key);
        Ids ids;
        while (statement->Step())
            ids.insert(static_cast<unsigned long>(statement->Int64(0)));
        return ids;
    }
    Ids ClientsWith(unsigned long appID) {
        return Query("SELECT MachineID FROM Installations WHERE InvDataType = 0 AND AppID = ?1",
                     std::to_string(appID));
    }
    AppFileState StateOf(unsigned long fileID) {
        SYAppFile record;
        record.SetDatabase(&db);
        EXPECT_EQ(record.LoadData(fileID, 0), 1);
        return record.State();
    }

    SYDatabase db;
    SYSWRule engine;
};

// Three PCs: "mystery.exe" lies on the first two (twice on the second), "other.exe" on the
// third, and the two files of "Suite" on all three.
class WrittenInventoryTest : public InventoryTest {
protected:
    void SetUp() override {
        InventoryTest::SetUp();
        SYInventoryWriter writer(db);
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

    std::vector<unsigned long> pcs;
    unsigned long mystery = 0, other = 0;
    Ids suite;
};

TEST_F(WrittenInventoryTest, IdentifyingInstallsTheApplicationWhereTheFileLiesAndRemovingUndoes) {
    SYIdRuleItem rule = identify("MYSTERY.EXE");
    ASSERT_EQ(engine.AddIdRule(rule, 1), 1);
    // The list stays after applying; applying it again changes nothing.
    engine.UpdateSamData();
    const std::string once = DumpStore(db);
    Apply();
    EXPECT_EQ(DumpStore(db), once);
    EXPECT_FALSE(Files(false).count(mystery));
    EXPECT_TRUE(Files(false).count(other));
    const unsigned long app = AppOf(mystery);
    EXPECT_EQ(ClientsWith(app), (Ids{pcs[0], pcs[1]}));
    EXPECT_EQ(StateOf(mystery), AppFileUserIdentified);

    ASSERT_EQ(engine.RemoveRule(&rule), 1);
    Apply();
    EXPECT_TRUE(Files(false).count(mystery));
    EXPECT_TRUE(ClientsWith(app).empty());
}

TEST_F(WrittenInventoryTest, RetypingToIgnoreMovesTheFileToIgnoredAndRemovingBringsItBack) {
    SYIdRuleItem rule = identify("mystery.exe");
    rule.SetFileSize(std::uint64_t{2048});
    ASSERT_EQ(engine.AddIdRule(rule, 1), 1);
    Apply();
    const unsigned long app = AppOf(mystery);
    SYIgnoreRuleItem ignore;
    static_cast<SYAppFileItem&>(ignore) = rule;
    ASSERT_EQ(engine.ModifyExcludeRule(ignore), 1);
    Apply();
    EXPECT_TRUE(Files(true).count(mystery));
    EXPECT_FALSE(Files(false).count(mystery));
    EXPECT_TRUE(ClientsWith(app).empty());
    EXPECT_EQ(StateOf(mystery), AppFileUserIgnored);

    ASSERT_EQ(engine.RemoveRule(ignore.FileID(), 1), 1);
    Apply();
    EXPECT_FALSE(Files(true).count(mystery));
    EXPECT_TRUE(Files(false).count(mystery));
    EXPECT_EQ(StateOf(mystery), AppFileNoRule);
}

TEST_F(WrittenInventoryTest, ANameChangeReplacesTheRuleAndTheInventoryFollows) {
    SYIdRuleItem rule = identify("mystery.exe");
    ASSERT_EQ(engine.AddIdRule(rule, 1), 1);
    Apply();
    const unsigned long app = AppOf(mystery);
    rule.SetFileName("other.exe");
    ASSERT_EQ(engine.ModifyIdRule(rule), 1);
    Apply();
    EXPECT_TRUE(Files(false).count(mystery));
    EXPECT_FALSE(Files(false).count(other));
    EXPECT_EQ(AppOf(other), app);
    EXPECT_EQ(ClientsWith(app), Ids{pcs[2]});
}

TEST_F(WrittenInventoryTest, IgnoringAnApplicationLeavesOneRulePerFileInformation) {
    // An older identification for one of the files, with the same file information.
    SYIdRuleItem older = identify("suite.dll");
    older.SetFileSize(std::uint64_t{6000});
    older.SetModTime(ScanTime);
    ASSERT_EQ(engine.AddIdRule(older, 0), 1);
    const unsigned long app = AppOf(*suite.begin());
    ASSERT_FALSE(ClientsWith(app).empty());
    // One scratch item for every file of the application.
    SYIgnoreRuleItem scratch;
    scratch.SetModTime(ScanTime);
    for (const auto& [name, size] : {std::pair{"suite.exe", 5000}, std::pair{"suite.dll", 6000}}) {
        scratch.SetFileName(name);
        scratch.SetFileSize(static_cast<std::uint64_t>(size));
        ASSERT_EQ(engine.AddExcludeRule(scratch, 1), 1);
        ASSERT_EQ(engine.RemoveMatchingRules(scratch), 1);
        // Besides the new rule, no active rule has this file information.
        unsigned char type = 9;
        EXPECT_EQ(engine.FindMatchingRule(scratch, type), 0U) << name;
    }
    EXPECT_EQ(engine.NumChangedRules(), 3);
    Apply();
    for (unsigned long id : suite)
        EXPECT_TRUE(Files(true).count(id)) << id;
    EXPECT_TRUE(ClientsWith(app).empty());
}

TEST_F(WrittenInventoryTest, AFailingApplicationLeavesStoreAndChangeListAsTheyWere) {
    bool failedOnce = false;
    for (int nth = 1; nth < 300; ++nth) {
        SCOPED_TRACE(testing::Message() << "failing statement " << nth);
        db.Close();
        SetUp();
        // A renamed identification concerns both names.
        SYIdRuleItem rule = identify("mystery.exe");
        ASSERT_EQ(engine.AddIdRule(rule, 1), 1);
        Apply();
        const std::uint32_t oldID = rule.FileID();
        rule.SetFileName("other.exe");
        ASSERT_EQ(engine.ModifyIdRule(rule), 1);
        const std::string before = DumpStore(db);
        db.FailStatement(nth);
        bool threw = false;
        try {
            engine.UpdateSamData();
        } catch (const CException&) {
            threw = true;
        } catch (const SYStatus&) {
            threw = true;
        }
        db.ClearFault();
        ASSERT_EQ(engine.NumChangedRules(), 1);
        EXPECT_EQ(engine.GetChangedRule(0).RuleID, rule.FileID());
        EXPECT_EQ(engine.GetChangedRule(0).ReplacedRuleID, oldID);
        if (threw) {
            failedOnce = true;
            EXPECT_EQ(DumpStore(db), before);
            engine.UpdateSamData();
        }
        EXPECT_TRUE(Files(false).count(mystery));
        EXPECT_FALSE(Files(false).count(other));
        if (!threw)
            break;
    }
    EXPECT_TRUE(failedOnce);
    EXPECT_TRUE(SYGetApp().Reports().empty());
}

// On a generated estate with system rules, a rule for a name alone governs every file of that
// name on every client.
TEST_F(InventoryTest, OnAGeneratedEstateIdentifyingANameInstallsItWhereverItLies) {
    TempDir install;
    SYGetApp().SetInstallPath(install.Path());
    engine.SetInstallPath(install.Path());
    SYInventoryGenerator::Options options;
    options.seed = 11;
    options.clients = 60;
    SYInventoryGenerator(options).Generate(db, install.Path());
    const Ids before = Files(false);
    // An unidentified name that no rule governs in any of its versions.
    std::string name;
    for (unsigned long id : before) {
        SYAppFileSet set(db);
        set.InvDataType = 0;
        set.FilterForFileID(id);
        set.Open();
        name = set.FileName();
        if (Query("SELECT FileID FROM Files WHERE InvDataType = 0 AND FileName = ?1 COLLATE NOCASE "
                  "AND FileState <> 0",
                  name)
                .empty())
            break;
    }
    const Ids named = Query(
        "SELECT FileID FROM Files WHERE InvDataType = 0 AND FileName = ?1 COLLATE NOCASE", name);
    const Ids holders =
        Query("SELECT l.MachineID FROM FileLocations l JOIN Files f ON "
              "f.FileID = l.FileID WHERE f.InvDataType = 0 AND f.FileName = ?1 COLLATE NOCASE",
              name);
    ASSERT_GT(holders.size(), 1U);

    SYIdRuleItem rule = identify(name);
    ASSERT_EQ(engine.AddIdRule(rule, 1), 1);
    Apply();
    Ids expected;
    std::set_difference(before.begin(), before.end(), named.begin(), named.end(),
                        std::inserter(expected, expected.end()));
    EXPECT_EQ(Files(false), expected);
    EXPECT_EQ(ClientsWith(AppOf(*named.begin())), holders);

    ASSERT_EQ(engine.RemoveRule(&rule), 1);
    Apply();
    EXPECT_EQ(Files(false), before);
    EXPECT_TRUE(SYGetApp().Reports().empty());
    SYGetApp().SetInstallPath("");
}

} // namespace
