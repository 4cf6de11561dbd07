#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <vector>

#include "outside/framework/CException.h"
#include "outside/framework/SYStatus.h"
#include "outside/framework/SYString.h"
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

SYScanFile scanned(const std::string& name, std::uint64_t size, const std::string& app = "") {
    SYScanFile file;
    file.name = name;
    file.size = size;
    file.time = ScanTime;
    file.appName = app;
    if (!app.empty()) {
        file.appVersion = "3.0";
        file.appCompany = "Suite Makers";
    }
    return file;
}

// Three PCs: "mystery.exe" lies on the first two (twice on the second), "other.exe" on the
// third, and the two files of "Suite" on all three.
class SYSWRuleInventoryTest : public testing::Test {
protected:
    void SetUp() override {
        SYGetApp().ClearReports();
        db.OpenMemory();
        SYInventoryWriter writer(db);
        for (const char* name : {"alpha", "beta", "gamma"})
            pcs.push_back(writer.AddMachine(name, "user", ScanTime));
        mystery = writer.AddFile(0, pcs[0], "C:\\Tools", scanned("mystery.exe", 2048));
        writer.AddFile(0, pcs[1], "D:\\Bin", scanned("mystery.exe", 2048));
        writer.AddFile(0, pcs[1], "D:\\Old", scanned("mystery.exe", 2048));
        other = writer.AddFile(0, pcs[2], "C:\\Other", scanned("other.exe", 99));
        for (unsigned long pc : pcs) {
            suite.insert(writer.AddFile(0, pc, "C:\\Suite", scanned("suite.exe", 5000, "Suite")));
            suite.insert(writer.AddFile(0, pc, "C:\\Suite", scanned("suite.dll", 6000, "Suite")));
        }
        writer.Commit();
        engine.Database = &db;
        engine.InvDataType = 0;
    }

    std::set<unsigned long> FileSet(bool excluded) {
        SYAppFileSet set(db);
        set.InvDataType = 0;
        if (excluded)
            set.FilterForExcludedFiles();
        else
            set.FilterForUnidFiles();
        set.Open();
        std::set<unsigned long> ids;
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
    std::set<unsigned long> ClientsWith(unsigned long appID) {
        auto statement = db.Cached("SELECT DISTINCT MachineID FROM Installations "
                                   "WHERE InvDataType = 0 AND AppID = ?1");
        statement->Bind(1, static_cast<std::int64_t>(appID));
        std::set<unsigned long> clients;
        while (statement->Step())
            clients.insert(static_cast<unsigned long>(statement->Int64(0)));
        return clients;
    }
    int AppInstalled(unsigned long appID) {
        auto statement = db.Cached("SELECT AppInstalled FROM [Applications] WHERE AppID = ?1");
        statement->Bind(1, static_cast<std::int64_t>(appID));
        return statement->Step() ? static_cast<int>(statement->Int64(0)) : -1;
    }
    AppFileState StateOf(unsigned long fileID) {
        SYAppFile record;
        record.SetDatabase(&db);
        EXPECT_EQ(record.LoadData(fileID, 0), 1);
        return record.State();
    }

    SYDatabase db;
    SYSWRule engine;
    std::vector<unsigned long> pcs;
    unsigned long mystery = 0;
    unsigned long other = 0;
    std::set<unsigned long> suite;
};

SYIdRuleItem identify(const std::string& name) {
    SYIdRuleItem rule;
    rule.SetFileName(name);
    rule.SetAppName("Mystery Tool");
    rule.SetAppVersion("1.0");
    rule.SetAppCompany("Puzzles Inc");
    return rule;
}

TEST_F(SYSWRuleInventoryTest, IdentifyingAFileInstallsItsApplicationWhereTheFileLies) {
    ASSERT_TRUE(FileSet(false).count(mystery));
    SYIdRuleItem rule = identify("MYSTERY.EXE");
    ASSERT_EQ(engine.AddIdRule(rule, 1), 1);
    engine.UpdateSamData();

    EXPECT_FALSE(FileSet(false).count(mystery));
    EXPECT_TRUE(FileSet(false).count(other));
    const unsigned long app = AppOf(mystery);
    ASSERT_NE(app, 0U);
    EXPECT_EQ(ClientsWith(app), (std::set<unsigned long>{pcs[0], pcs[1]}));
    EXPECT_EQ(AppInstalled(app), 1);
    EXPECT_EQ(StateOf(mystery), AppFileUserIdentified);

    // Removing the rule brings the file back and the application leaves the clients.
    SYSWRule removal;
    removal.Database = &db;
    removal.InvDataType = 0;
    ASSERT_EQ(removal.RemoveRule(&rule), 1);
    removal.UpdateSamData();
    EXPECT_TRUE(FileSet(false).count(mystery));
    EXPECT_TRUE(ClientsWith(app).empty());
    EXPECT_EQ(AppInstalled(app), 0);
}

TEST_F(SYSWRuleInventoryTest, IgnoreAndRemoveMoveTheFileBetweenTheLists) {
    SYIgnoreRuleItem rule;
    rule.SetFileName("mystery.exe");
    rule.SetFileSize(std::uint64_t{2048});
    ASSERT_EQ(engine.AddExcludeRule(rule, 1), 1);
    engine.UpdateSamData();
    EXPECT_TRUE(FileSet(true).count(mystery));
    EXPECT_FALSE(FileSet(false).count(mystery));
    EXPECT_EQ(StateOf(mystery), AppFileUserIgnored);

    SYSWRule removal;
    removal.Database = &db;
    removal.InvDataType = 0;
    ASSERT_EQ(removal.RemoveRule(rule.FileID(), 1), 1);
    removal.UpdateSamData();
    EXPECT_FALSE(FileSet(true).count(mystery));
    EXPECT_TRUE(FileSet(false).count(mystery));
    EXPECT_EQ(StateOf(mystery), AppFileNoRule);
}

TEST_F(SYSWRuleInventoryTest, ANameChangeReplacesTheRuleAndTheInventoryFollows) {
    SYIdRuleItem rule = identify("mystery.exe");
    ASSERT_EQ(engine.AddIdRule(rule, 1), 1);
    engine.UpdateSamData();
    const unsigned long app = AppOf(mystery);
    const std::uint32_t oldID = rule.FileID();

    SYSWRule rename;
    rename.Database = &db;
    rename.InvDataType = 0;
    rule.SetFileName("other.exe");
    ASSERT_EQ(rename.ModifyIdRule(rule), 1);
    ASSERT_NE(rule.FileID(), oldID);
    rename.UpdateSamData();

    EXPECT_TRUE(FileSet(false).count(mystery));
    EXPECT_FALSE(FileSet(false).count(other));
    EXPECT_EQ(AppOf(other), app);
    EXPECT_EQ(ClientsWith(app), (std::set<unsigned long>{pcs[2]}));
    EXPECT_EQ(StateOf(other), AppFileUserIdentified);
}

TEST_F(SYSWRuleInventoryTest, IgnoringAnApplicationLeavesOneRulePerFileInformation) {
    // An older identification for one of the files, with the same file information.
    SYIdRuleItem older = identify("suite.dll");
    older.SetFileSize(std::uint64_t{6000});
    older.SetModTime(ScanTime);
    ASSERT_EQ(engine.AddIdRule(older, 0), 1);
    const unsigned long app = AppOf(*suite.begin());
    ASSERT_NE(app, 0U);
    ASSERT_EQ(AppInstalled(app), 1);

    // The application's files, one scratch item for all of them.
    std::set<std::pair<std::string, std::uint64_t>> files;
    for (unsigned long id : suite) {
        SYAppFileSet set(db);
        set.InvDataType = 0;
        set.FilterForFileID(id);
        set.Open();
        files.insert({set.FileName(), set.FileSize()});
    }
    ASSERT_EQ(files.size(), 2U);
    SYIgnoreRuleItem scratch;
    for (const auto& [name, size] : files) {
        scratch.SetFileName(name);
        scratch.SetFileSize(size);
        scratch.SetModTime(ScanTime);
        scratch.SetComment("whole application ignored");
        ASSERT_EQ(engine.AddExcludeRule(scratch, 1), 1);
        ASSERT_EQ(engine.RemoveMatchingRules(scratch), 1);
    }
    engine.UpdateSamData();

    for (const auto& [name, size] : files) {
        SCOPED_TRACE(name);
        SYAppFileItem file;
        file.SetFileName(name);
        file.SetFileSize(size);
        file.SetModTime(ScanTime + 30);
        SYIgnoreRuleItem probe;
        probe.SetFileName(name);
        probe.SetFileSize(size);
        probe.SetModTime(ScanTime);
        unsigned char type = 9;
        const std::uint32_t found = engine.FindMatchingRule(file, type);
        EXPECT_EQ(type, RuleTypeIgnore);
        // Besides the one found, no other active rule has this file information.
        probe.SetFileID(found);
        EXPECT_EQ(engine.FindMatchingRule(probe, type), 0U);
    }
    for (unsigned long id : suite)
        EXPECT_TRUE(FileSet(true).count(id)) << id;
    EXPECT_EQ(AppInstalled(app), 0);
    EXPECT_TRUE(ClientsWith(app).empty());
}

TEST_F(SYSWRuleInventoryTest, AFailingApplicationLeavesInventoryAndChangeListAsTheyWere) {
    bool failedOnce = false;
    bool succeeded = false;
    for (int nth = 1; nth < 300 && !succeeded; ++nth) {
        SCOPED_TRACE(testing::Message() << "failing statement " << nth);
        db.Close();
        SetUp();
        // An applied identification, then renamed: the replacement concerns both names.
        SYIdRuleItem rule = identify("mystery.exe");
        ASSERT_EQ(engine.AddIdRule(rule, 1), 1);
        engine.UpdateSamData();
        engine.ClearChangedRules();
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
        if (!threw) {
            succeeded = true;
            EXPECT_TRUE(FileSet(false).count(mystery));
            EXPECT_FALSE(FileSet(false).count(other));
            continue;
        }
        failedOnce = true;
        EXPECT_EQ(DumpStore(db), before);
        // The noted change is still there to apply once the store works again.
        engine.UpdateSamData();
        EXPECT_TRUE(FileSet(false).count(mystery));
        EXPECT_FALSE(FileSet(false).count(other));
    }
    EXPECT_TRUE(failedOnce);
    EXPECT_TRUE(succeeded);
    EXPECT_TRUE(SYGetApp().Reports().empty());
}

// On a generated inventory with system rules: an unidentified file is identified, then
// turned into an ignored one by changing the rule's type, then let go again.
TEST(SYSWRuleGeneratedInventory, AFileGoesFromUnidentifiedToIdentifiedToIgnoredAndBack) {
    TempDir install;
    SYGetApp().SetInstallPath(install.Path());
    SYGetApp().ClearReports();
    SYDatabase db;
    db.OpenMemory();
    SYInventoryGenerator::Options options;
    options.seed = 11;
    options.clients = 60;
    SYInventoryGenerator(options).Generate(db, install.Path());

    const auto unidentified = [&] {
        std::map<unsigned long, std::string> files;
        SYAppFileSet set(db);
        set.InvDataType = 0;
        set.FilterForUnidFiles();
        set.Open();
        for (; !set.IsEOF(); set.MoveNext())
            files[set.FileID()] = set.FileName();
        return files;
    };
    const auto before = unidentified();
    // A name no rule governs in any of its versions, so the new rule decides them all.
    unsigned long fileID = 0;
    std::string name;
    for (const auto& [id, candidate] : before) {
        auto governed = db.Cached("SELECT COUNT(*) FROM Files WHERE InvDataType = 0 "
                                  "AND FileName = ?1 AND FileState <> 0");
        governed->Bind(1, candidate);
        if (governed->Step() && governed->Int64(0) == 0) {
            fileID = id;
            name = candidate;
            break;
        }
    }
    ASSERT_NE(fileID, 0U);
    // A rule for the name alone covers every file of that name, wherever it lies.
    std::set<unsigned long> holders;
    {
        auto statement = db.Cached("SELECT DISTINCT l.MachineID FROM FileLocations l JOIN Files f "
                                   "ON f.FileID = l.FileID WHERE f.InvDataType = 0 "
                                   "AND f.FileName = ?1");
        statement->Bind(1, name);
        while (statement->Step())
            holders.insert(static_cast<unsigned long>(statement->Int64(0)));
    }
    ASSERT_GT(holders.size(), 1U);

    SYSWRule engine;
    engine.Database = &db;
    engine.InvDataType = 0;
    engine.SetInstallPath(install.Path());
    SYIdRuleItem rule;
    rule.SetFileName(name);
    rule.SetAppName("Found By Hand");
    rule.SetAppVersion("9");
    rule.SetAppCompany("Test Bench");
    ASSERT_EQ(engine.AddIdRule(rule, 1), 1);
    engine.UpdateSamData();

    auto after = unidentified();
    EXPECT_FALSE(after.count(fileID));
    for (const auto& [id, other] : before)
        EXPECT_EQ(after.count(id), SYStrICmp(other, name) == 0 ? 0U : 1U) << other;
    SYAppFileSet file(db);
    file.InvDataType = 0;
    file.FilterForFileID(fileID);
    file.Open();
    const unsigned long app = file.AppID();
    EXPECT_EQ(file.AppName(), "Found By Hand");
    file.Close();
    std::set<unsigned long> installedOn;
    {
        auto statement = db.Cached("SELECT DISTINCT MachineID FROM Installations "
                                   "WHERE InvDataType = 0 AND AppID = ?1");
        statement->Bind(1, static_cast<std::int64_t>(app));
        while (statement->Step())
            installedOn.insert(static_cast<unsigned long>(statement->Int64(0)));
    }
    EXPECT_EQ(installedOn, holders);

    SYIgnoreRuleItem ignore;
    static_cast<SYAppFileItem&>(ignore) = rule;
    ignore.SetComment("not ours");
    SYSWRule retype;
    retype.Database = &db;
    retype.InvDataType = 0;
    retype.SetInstallPath(install.Path());
    ASSERT_EQ(retype.ModifyExcludeRule(ignore), 1);
    EXPECT_EQ(ignore.FileID(), rule.FileID());
    retype.UpdateSamData();
    SYAppFile record;
    record.SetDatabase(&db);
    ASSERT_EQ(record.LoadData(fileID, 0), 1);
    EXPECT_EQ(record.State(), AppFileUserIgnored);
    EXPECT_EQ(record.RuleComment(), "not ours");
    EXPECT_EQ(record.EffectiveRuleID(), rule.FileID());

    SYSWRule removal;
    removal.Database = &db;
    removal.InvDataType = 0;
    removal.SetInstallPath(install.Path());
    ASSERT_EQ(removal.RemoveRule(&ignore), 1);
    removal.UpdateSamData();
    EXPECT_EQ(unidentified(), before);
    EXPECT_TRUE(SYGetApp().Reports().empty());
    SYGetApp().SetInstallPath("");
}

} // namespace
