#include <gtest/gtest.h>

#include "rules/RuleStoreFixture.h"

namespace {

using ChangeList = std::vector<std::vector<std::uint32_t>>;
using SYSWRuleWrite = RuleStoreTest;

TEST_F(SYSWRuleWrite, AddWritesOnlyItsTypesColumnsAndNotesOnRequest) {
    SYIdRuleItem id = IdRule("Tool.EXE", std::uint64_t{5'000'000'000}, RuleTime);
    id.SetItemStatus(ItemStatusNew);
    id.SetFileID(77);
    ASSERT_EQ(engine.AddIdRule(id, 1), 1);
    EXPECT_NE(id.FileID(), 77U);
    EXPECT_EQ(id.ItemStatus(), ItemStatusStored);
    EXPECT_EQ(id.ItemType(), ItemTypeRule);
    const auto idRow = Row(id.FileID());
    ASSERT_TRUE(idRow);
    EXPECT_EQ(idRow->state, RuleStateAdded);
    EXPECT_EQ(idRow->type, RuleTypeId);
    EXPECT_EQ(idRow->fileName, "Tool.EXE");
    EXPECT_EQ(idRow->size, 5'000'000'000U);
    EXPECT_EQ(idRow->time, RuleTime);
    EXPECT_EQ(idRow->appName + "|" + idRow->appVersion + "|" + idRow->appCompany, "App|1.0|Maker");
    EXPECT_EQ(idRow->comment, "");

    // A file item handed in becomes a rule item; absent size and time are stored as null.
    SYIgnoreRuleItem ignore = IgnoreRule("it's 100%_*.dll", {}, 0, "noise");
    ignore.SetItemType(ItemTypeFile);
    ASSERT_EQ(engine.AddExcludeRule(ignore, 0), 1);
    EXPECT_EQ(ignore.ItemType(), ItemTypeRule);
    const auto ignoreRow = Row(ignore.FileID());
    ASSERT_TRUE(ignoreRow);
    EXPECT_EQ(ignoreRow->type, RuleTypeIgnore);
    EXPECT_EQ(ignoreRow->fileName, "it's 100%_*.dll");
    EXPECT_FALSE(ignoreRow->haveSize);
    EXPECT_FALSE(ignoreRow->haveTime);
    EXPECT_EQ(ignoreRow->comment, "noise");
    EXPECT_EQ(ignoreRow->appName, "");

    EXPECT_EQ(Changes(), (ChangeList{{id.FileID(), 0, RuleChangeAdd}}));
    EXPECT_EQ(NumReports(), 0U);
}

TEST_F(SYSWRuleWrite, SizesWithAMarkedHalfAndNegativeTimesRoundTrip) {
    // One half at all ones marks the size absent: the row gets no size.
    SYIdRuleItem half = IdRule("a.dll");
    half.SetFileSize(0xFFFFFFFF, 0);
    ASSERT_EQ(engine.AddIdRule(half, 0), 1);
    EXPECT_FALSE(Row(half.FileID())->haveSize);

    SYIdRuleItem big = IdRule("a.dll", std::uint64_t{0xFFFFFFFE'FFFFFFFEULL}, -86400);
    ASSERT_EQ(engine.AddIdRule(big, 0), 1);
    SYIdRuleItem read;
    ASSERT_EQ(engine.LookupIdRule(big.FileID(), read), 1);
    EXPECT_TRUE(read == big);
}

TEST_F(SYSWRuleWrite, ModifyEditsInPlaceOrReplaces) {
    struct Case {
        const char* what;
        bool stored;         // the item's row exists
        const char* newName; // name the item carries into the modify
        bool sameIdentifier; // the item keeps its identifier
    };
    const Case cases[] = {
        {"same name, other case: edit in place", true, "SETUP.exe", true},
        {"other name: replace", true, "install.exe", false},
        {"row gone: add a new one", false, "setup.exe", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        engine.ClearChangedRules();
        std::uint32_t oldID = StoreId("setup.exe", std::uint64_t{10}, RuleTime);
        if (!c.stored) {
            ASSERT_EQ(engine.RemoveRule(oldID, 0), 1);
            oldID += 1000;
        }
        SYIdRuleItem rule = IdRule(c.newName, {}, 0, "Other");
        rule.SetFileID(oldID);
        rule.SetItemStatus(ItemStatusChanged);
        ASSERT_EQ(engine.ModifyIdRule(rule), 1);
        EXPECT_EQ(rule.ItemStatus(), ItemStatusStored);
        EXPECT_EQ(rule.FileID() == oldID, c.sameIdentifier);
        const auto row = Row(rule.FileID());
        ASSERT_TRUE(row);
        EXPECT_EQ(row->fileName, c.newName);
        EXPECT_EQ(row->appName, "Other");
        EXPECT_FALSE(row->haveSize);
        EXPECT_FALSE(row->haveTime);
        if (c.sameIdentifier) {
            EXPECT_EQ(row->state, RuleStateModified);
            EXPECT_EQ(Changes(), (ChangeList{{oldID, 0, RuleChangeModify}}));
        } else {
            EXPECT_EQ(row->state, RuleStateAdded);
            EXPECT_EQ(Changes(), (ChangeList{{rule.FileID(), oldID, RuleChangeModify}}));
            if (c.stored) {
                EXPECT_EQ(Row(oldID)->state, RuleStateRemoved);
            }
        }
    }
}

TEST_F(SYSWRuleWrite, ModifyWithoutIdentifierIsAnAdd) {
    SYIgnoreRuleItem rule = IgnoreRule("new.dll");
    ASSERT_EQ(engine.ModifyExcludeRule(rule), 1);
    EXPECT_NE(rule.FileID(), 0U);
    EXPECT_EQ(Changes(), (ChangeList{{rule.FileID(), 0, RuleChangeAdd}}));
}

TEST_F(SYSWRuleWrite, ModifyTurnsARuleIntoTheOtherTypeInPlace) {
    const std::uint32_t id = StoreId("x.dll");
    SYIgnoreRuleItem ignore = IgnoreRule("x.dll", {}, 0, "unwanted");
    ignore.SetFileID(id);
    ASSERT_EQ(engine.ModifyExcludeRule(ignore), 1);
    auto row = Row(id);
    EXPECT_EQ(row->type, RuleTypeIgnore);
    EXPECT_EQ(row->comment, "unwanted");
    // The identification columns stay as they were.
    EXPECT_EQ(row->appName, "App");

    SYIdRuleItem back = IdRule("X.DLL", {}, 0, "Again");
    back.SetFileID(id);
    ASSERT_EQ(engine.ModifyIdRule(back), 1);
    row = Row(id);
    EXPECT_EQ(row->type, RuleTypeId);
    EXPECT_EQ(row->appName, "Again");
    EXPECT_EQ(row->comment, "unwanted");
}

TEST_F(SYSWRuleWrite, RemoveMarksTheRowAndNotesEvenWithoutOne) {
    const std::uint32_t id = StoreIgnore("gone.dll", std::uint64_t{3}, RuleTime);
    ASSERT_EQ(engine.RemoveRule(id, 1), 1);
    const auto row = Row(id);
    EXPECT_EQ(row->state, RuleStateRemoved);
    EXPECT_EQ(row->fileName, "gone.dll");
    EXPECT_TRUE(row->haveSize);
    EXPECT_EQ(engine.RemoveRule(4242, 1), 1);
    EXPECT_EQ(engine.RemoveRule(4243, 0), 1);
    EXPECT_EQ(Changes(), (ChangeList{{id, 0, RuleChangeDelete}, {4242, 0, RuleChangeDelete}}));
    EXPECT_TRUE(ActiveIDs().empty());
}

TEST_F(SYSWRuleWrite, RemoveByItemEmptiesTheItem) {
    SYIdRuleItem rule = IdRule("a.exe", std::uint64_t{1}, RuleTime);
    ASSERT_EQ(engine.AddIdRule(rule, 0), 1);
    const std::uint32_t id = rule.FileID();
    rule.SetItemStatus(ItemStatusRemoved);
    ASSERT_EQ(engine.RemoveRule(&rule), 1);
    EXPECT_EQ(rule.FileID(), 0U);
    EXPECT_EQ(rule.FileName(), "");
    EXPECT_FALSE(rule.HaveFileSize());
    EXPECT_FALSE(rule.HaveModTime());
    EXPECT_EQ(rule.ItemStatus(), ItemStatusStored);
    EXPECT_EQ(rule.ItemType(), ItemTypeRule);
    EXPECT_EQ(rule.AppName(), "App");
    EXPECT_EQ(Row(id)->state, RuleStateRemoved);
    EXPECT_EQ(engine.RemoveRule(nullptr), 0);
}

TEST_F(SYSWRuleWrite, RemoveMatchingRulesKeepsFileInformationUnique) {
    struct Stored {
        const char* name;
        std::optional<std::uint64_t> size;
        std::int32_t time;
        bool ignore;
    };
    struct Case {
        const char* what;
        std::optional<std::uint64_t> size;
        std::int32_t time;
        std::vector<bool> removed; // per stored row below
    };
    const Stored stored[] = {
        {"LIB.dll", {}, 0, false},                // all versions
        {"lib.dll", {}, 0, true},                 // all versions, the other type
        {"lib.dll", std::uint64_t{10}, 0, false}, // one size
        {"lib.dll", {}, RuleMinuteEnd, true},     // one time, same minute
        {"lib.dll", std::uint64_t{10}, RuleTime, false},
        {"lib.dll", std::uint64_t{10}, RuleTime + 60, false},
        {"other.dll", {}, 0, false},
    };
    const Case cases[] = {
        {"no size, no time", {}, 0, {true, true, false, false, false, false, false}},
        {"size only", std::uint64_t{10}, 0, {false, false, true, false, false, false, false}},
        {"time only", {}, RuleMinuteStart, {false, false, false, true, false, false, false}},
        {"size and time",
         std::uint64_t{10},
         RuleTime,
         {false, false, false, false, true, false, false}},
        {"unknown size", std::uint64_t{11}, 0, {false, false, false, false, false, false, false}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        db.Close();
        SetUp();
        engine.ClearChangedRules();
        std::vector<std::uint32_t> ids;
        for (const Stored& s : stored)
            ids.push_back(s.ignore ? StoreIgnore(s.name, s.size, s.time)
                                   : StoreId(s.name, s.size, s.time));
        SYIgnoreRuleItem rule = IgnoreRule("Lib.DLL", c.size, c.time);
        ASSERT_EQ(engine.AddExcludeRule(rule, 1), 1);
        ASSERT_EQ(engine.RemoveMatchingRules(rule), 1);
        ChangeList expected{{rule.FileID(), 0, RuleChangeAdd}};
        for (std::size_t i = 0; i < ids.size(); ++i) {
            EXPECT_EQ(Row(ids[i])->state == RuleStateRemoved, c.removed[i]) << i;
            if (c.removed[i])
                expected.push_back({ids[i], 0, RuleChangeDelete});
        }
        // The rule itself is spared, and the add stands before the deletes.
        EXPECT_EQ(Row(rule.FileID())->state, RuleStateAdded);
        EXPECT_EQ(Changes(), expected);
        EXPECT_EQ(SYGetApp().WaitCursorCount(), 0);
    }
}

TEST_F(SYSWRuleWrite, RemoveMatchingRulesRefusesFilesAndSparesNothingWithoutIdentifier) {
    const std::uint32_t id = StoreId("a.dll");
    SYAppFileItem file;
    file.SetFileName("a.dll");
    file.SetFileID(id);
    // A file is no rule: nothing is read, nothing removed.
    db.FailStatement(1);
    EXPECT_EQ(engine.RemoveMatchingRules(file), 0);
    db.ClearFault();
    EXPECT_EQ(NumReports(), 0U);
    EXPECT_EQ(Row(id)->state, RuleStateAdded);

    SYIdRuleItem unsaved = IdRule("A.DLL");
    ASSERT_EQ(unsaved.FileID(), 0U);
    EXPECT_EQ(engine.RemoveMatchingRules(unsaved), 1);
    EXPECT_EQ(Row(id)->state, RuleStateRemoved);
}

TEST_F(SYSWRuleWrite, AnEngineWithoutDatabaseOrOnAHandheldInventoryReportsAndWritesNothing) {
    SYSWRule palm;
    palm.Database = &db;
    palm.InvDataType = 2;
    SYSWRule unset;
    for (SYSWRule* bad : {&palm, &unset}) {
        SYGetApp().ClearReports();
        SYIdRuleItem rule = IdRule("a.dll");
        EXPECT_EQ(bad->AddIdRule(rule, 1), 0);
        EXPECT_EQ(bad->RemoveMatchingRules(rule), 0);
        EXPECT_EQ(bad->NumChangedRules(), 0);
        ASSERT_EQ(NumReports(), 2U);
        EXPECT_EQ(SYGetApp().Reports().front().kind, "CInvalidArgException");
    }
    EXPECT_TRUE(ActiveIDs().empty());
}

TEST_F(SYSWRuleWrite, ChangedRuleListBounds) {
    SYIdRuleItem rule = IdRule("a");
    engine.AddIdRule(rule, 1);
    engine.RemoveRule(rule.FileID(), 1);
    EXPECT_EQ(engine.NumChangedRules(), 2);
    for (int index : {-1, 2, 1000}) {
        const _SYSWRULE_INFO info = engine.GetChangedRule(index);
        EXPECT_EQ(info.RuleID + info.ReplacedRuleID + info.ChangeKind, 0U) << index;
    }
    engine.ClearChangedRules();
    EXPECT_EQ(engine.NumChangedRules(), 0);
}

} // namespace
