#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "support/FaultSweep.h"
#include "support/RuleStoreFixture.h"

namespace {

using SYSWRuleTest = RuleStoreTest;

TEST_F(SYSWRuleTest, AddStoresTheFileInformationAndNotesOnRequest) {
    // Sizes past 4 GB with halves near all ones, and times before 1970, come back as given.
    SYIdRuleItem id = Make("Tool.EXE", 0xFFFFFFFE'FFFFFFFEULL, -86400);
    id.SetAppCompany("Maker");
    id.SetItemStatus(ItemStatusNew);
    ASSERT_EQ(engine.AddIdRule(id, 1), 1);
    EXPECT_EQ(id.ItemStatus(), ItemStatusStored);
    SYIdRuleItem read;
    ASSERT_EQ(engine.LookupIdRule(id.FileID(), read), 1);
    EXPECT_TRUE(read == id);
    // A file item becomes a rule; a size with one half marked and time 0 are stored as null.
    SYIgnoreRuleItem ignore = Make<SYIgnoreRuleItem>("it's 100%_*.dll", {}, 0, "noise");
    ignore.SetFileSize(0xFFFFFFFF, 0);
    ignore.SetItemType(ItemTypeFile);
    ASSERT_EQ(engine.AddExcludeRule(ignore, 0), 1);
    EXPECT_EQ(ignore.ItemType(), ItemTypeRule);
    EXPECT_EQ(Row(ignore.FileID()), "1|1|it's 100%_*.dll|-|-||noise");
    EXPECT_EQ(Changes(), (ChangeList{{id.FileID(), 0, RuleChangeAdd}}));
}

TEST_F(SYSWRuleTest, ModifyEditsInPlaceOrReplacesTheRow) {
    struct Case {
        const char* what;
        bool stored;
        const char* newName;
        bool inPlace;
    };
    const Case cases[] = {
        {"other case: edit in place", true, "SETUP.exe", true},
        {"other name: replace", true, "install.exe", false},
        {"row gone: add a new one", false, "setup.exe", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        engine.ClearChangedRules();
        const std::uint32_t oldID = Store("setup.exe", 10, RuleTime) + (c.stored ? 0 : 1000);
        SYIdRuleItem rule = Make(c.newName, {}, 0, "Other");
        rule.SetFileID(oldID);
        rule.SetItemStatus(ItemStatusChanged);
        ASSERT_EQ(engine.ModifyIdRule(rule), 1);
        EXPECT_EQ(rule.ItemStatus(), ItemStatusStored);
        EXPECT_EQ(rule.FileID() == oldID, c.inPlace);
        EXPECT_EQ(Row(rule.FileID()),
                  (c.inPlace ? "2|0|" : "1|0|") + std::string(c.newName) + "|-|-|Other|");
        const std::uint32_t replaced = c.inPlace ? 0 : oldID;
        EXPECT_EQ(Changes(), (ChangeList{{rule.FileID(), replaced, RuleChangeModify}}));
        if (c.stored && !c.inPlace) {
            EXPECT_EQ(State(oldID), RuleStateRemoved);
        }
    }
}

TEST_F(SYSWRuleTest, ModifySwitchesTheTypeInPlaceAndWithoutIdentifierAdds) {
    const std::uint32_t id = Store("x.dll");
    SYIgnoreRuleItem ignore = Make<SYIgnoreRuleItem>("x.dll", {}, 0, "unwanted");
    ignore.SetFileID(id);
    ASSERT_EQ(engine.ModifyExcludeRule(ignore), 1);
    // The other type's columns stay as they were.
    EXPECT_EQ(Row(id), "2|1|x.dll|-|-|App|unwanted");
    SYIdRuleItem back = Make("X.DLL", {}, 0, "Again");
    back.SetFileID(id);
    ASSERT_EQ(engine.ModifyIdRule(back), 1);
    EXPECT_EQ(Row(id), "2|0|X.DLL|-|-|Again|unwanted");

    engine.ClearChangedRules();
    SYIgnoreRuleItem unsaved = Make<SYIgnoreRuleItem>("new.dll");
    ASSERT_EQ(engine.ModifyExcludeRule(unsaved), 1);
    EXPECT_EQ(State(unsaved.FileID()), RuleStateAdded);
    EXPECT_EQ(Changes(), (ChangeList{{unsaved.FileID(), 0, RuleChangeAdd}}));
}

TEST_F(SYSWRuleTest, RemoveMarksTheRowAndNotesEvenAMissingOne) {
    SYIdRuleItem rule = Make("a.exe", 1, RuleTime);
    ASSERT_EQ(engine.AddIdRule(rule, 0), 1);
    const std::uint32_t id = rule.FileID();
    rule.SetItemStatus(ItemStatusRemoved);
    ASSERT_EQ(engine.RemoveRule(&rule), 1);
    EXPECT_EQ(Row(id), "3|0|a.exe|1|1614862923|App|");
    // The item is emptied of its file information and identifier.
    EXPECT_TRUE(rule == Make(""));
    EXPECT_EQ(rule.FileID() + rule.ItemStatus(), 0U);
    EXPECT_EQ(engine.RemoveRule(nullptr), 0);
    EXPECT_EQ(engine.RemoveRule(4242, 1), 1);
    EXPECT_EQ(engine.RemoveRule(4243, 0), 1);
    EXPECT_EQ(Changes(), (ChangeList{{id, 0, RuleChangeDelete}, {4242, 0, RuleChangeDelete}}));
    EXPECT_EQ(engine.GetChangedRule(2).RuleID + engine.GetChangedRule(-1).ChangeKind, 0U);
    EXPECT_EQ(NumActive(), 0);
}

TEST_F(SYSWRuleTest, RemoveMatchingRulesRemovesOthersWithTheSameFileInformation) {
    struct Stored {
        std::optional<std::uint64_t> size;
        std::int32_t time;
        bool ignore;
    };
    // All of the name, of either type; one size; one time in the same minute; size and time;
    // the next minute.
    const Stored stored[] = {{{}, 0, false},        {{}, 0, true},
                             {10, 0, false},        {{}, RuleMinuteEnd, true},
                             {10, RuleTime, false}, {10, RuleTime + 60, false}};
    struct Case {
        const char* what;
        std::optional<std::uint64_t> size;
        std::int32_t time;
        std::string removed;
    };
    const Case cases[] = {
        {"no size, no time", {}, 0, "110000"},
        {"size only", 10, 0, "001000"},
        {"time only", {}, RuleMinuteStart, "000100"},
        {"size and time", 10, RuleTime, "000010"},
        {"unknown size", 11, 0, "000000"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Reset();
        std::vector<std::uint32_t> ids;
        for (const Stored& s : stored)
            ids.push_back(s.ignore ? Store<SYIgnoreRuleItem>("LIB.dll", s.size, s.time)
                                   : Store("lib.DLL", s.size, s.time));
        Store("other.dll");
        SYIgnoreRuleItem rule = Make<SYIgnoreRuleItem>("Lib.DLL", c.size, c.time);
        ASSERT_EQ(engine.AddExcludeRule(rule, 1), 1);
        ASSERT_EQ(engine.RemoveMatchingRules(rule), 1);
        std::string removed;
        ChangeList expected{{rule.FileID(), 0, RuleChangeAdd}};
        for (std::uint32_t id : ids) {
            removed += State(id) == RuleStateRemoved ? '1' : '0';
            if (State(id) == RuleStateRemoved)
                expected.push_back({id, 0, RuleChangeDelete});
        }
        EXPECT_EQ(removed, c.removed);
        // The rule itself and the other name stay; the add is noted before the deletes.
        EXPECT_EQ(NumActive(), 8 - std::count(removed.begin(), removed.end(), '1'));
        EXPECT_EQ(Changes(), expected);
        EXPECT_EQ(SYGetApp().WaitCursorCount(), 0);
    }
    // A file item is no rule: nothing is read or removed.
    SYAppFileItem file = Make("Lib.DLL");
    file.SetItemType(ItemTypeFile);
    db.FailStatement(1);
    EXPECT_EQ(engine.RemoveMatchingRules(file), 0);
    db.ClearFault();
    EXPECT_TRUE(reports.Empty());
}

TEST_F(SYSWRuleTest, FindMatchingRuleComparesWholeNamesSizesAndTimesToTheMinute) {
    const std::uint32_t allVersions = Store("Viewer.exe");
    const std::uint32_t sized = Store<SYIgnoreRuleItem>("viewer.exe", 0x1'00000000);
    const std::uint32_t timed = Store("VIEWER.EXE", 0x1'00000000, RuleTime);
    ASSERT_EQ(engine.RemoveRule(Store<SYIgnoreRuleItem>("viewer.exe", 7), 0), 1);
    const std::uint32_t star = Store("*.exe");
    Store("v_ewer%.exe");
    struct Case {
        const char* name;
        std::optional<std::uint64_t> size;
        std::int32_t time;
        std::uint32_t expected;
        unsigned char type;
    };
    // An absent size or time finds only rows without one; patterns are plain text.
    const Case cases[] = {
        {"viewer.EXE", {}, 0, allVersions, RuleTypeId},
        {"viewer.EXE", 0x1'00000000, 0, sized, RuleTypeIgnore},
        {"viewer.EXE", 0x1'00000000, RuleMinuteEnd, timed, RuleTypeId},
        {"viewer.EXE", 0x1'00000000, RuleTime + 60, 0, 9},
        {"viewer.EXE", {}, RuleTime, 0, 9},
        {"viewer.EXE", 7, 0, 0, 9},
        {"*.EXE", {}, 0, star, RuleTypeId},
        {"x.exe", {}, 0, 0, 9},
        {"viewer%.exe", {}, 0, 0, 9},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.name << " " << c.size.value_or(0) << " " << c.time);
        SYAppFileItem file = Make(c.name, c.size, c.time);
        file.SetItemType(ItemTypeFile);
        unsigned char type = 9;
        EXPECT_EQ(engine.FindMatchingRule(file, type), c.expected);
        EXPECT_EQ(type, c.type);
    }
    // A rule passes over its own row, a file item with that number does not; the last wins.
    SYIdRuleItem rule = Make("viewer.exe");
    rule.SetFileID(allVersions);
    unsigned char type = 9;
    EXPECT_EQ(engine.FindMatchingRule(rule, type), 0U);
    const std::uint32_t later = Store("VIEWER.exe");
    EXPECT_EQ(engine.FindMatchingRule(rule, type), later);
    rule.SetItemType(ItemTypeFile);
    rule.SetFileID(later);
    EXPECT_EQ(engine.FindMatchingRule(rule, type), later);
    // Rules of the other inventory stay apart.
    engine.InvDataType = 0;
    EXPECT_EQ(engine.FindMatchingRule(rule, type), 0U);
}

TEST_F(SYSWRuleTest, LookupFillsOnlyFromAnActiveRuleOfItsType) {
    const std::uint32_t id = Store("a.exe", 12, RuleTime);
    const std::uint32_t removed = Store<SYIgnoreRuleItem>("b.exe", 3);
    SYIgnoreRuleItem ignore = Make<SYIgnoreRuleItem>("untouched");
    ASSERT_EQ(engine.LookupExcludeRule(removed, ignore), 1);
    EXPECT_TRUE(ignore == Make<SYIgnoreRuleItem>("b.exe", 3));
    ASSERT_EQ(engine.RemoveRule(removed, 0), 1);
    ignore = Make<SYIgnoreRuleItem>("untouched");
    EXPECT_EQ(engine.LookupExcludeRule(id, ignore) + engine.LookupExcludeRule(removed, ignore), 0);
    EXPECT_EQ(ignore.FileName(), "untouched");
    SYIdRuleItem rule = Make("untouched");
    rule.SetItemStatus(ItemStatusChanged);
    ASSERT_EQ(engine.LookupIdRule(id, rule), 1);
    EXPECT_TRUE(rule == Make("a.exe", 12, RuleTime));
    EXPECT_EQ(rule.FileID(), id);
    EXPECT_EQ(rule.ItemStatus(), ItemStatusChanged);
}

// Each run reports its fault once; unless the scenario bears failures, a failed run answers 0.
class SYSWRuleFault : public RuleStoreTest {
protected:
    void Sweep(const std::function<void()>& prepare, const std::function<int()>& act,
               const std::function<void(bool failed)>& check, bool bears = false) {
        for (FaultSweep sweep(db); sweep.Next();) {
            SCOPED_TRACE(testing::Message() << "failing statement " << sweep.Nth());
            Reset();
            prepare();
            sweep.Arm();
            const int result = act();
            const bool failed = sweep.Fired();
            ASSERT_EQ(reports.Size(), failed ? 1U : 0U);
            if (failed) {
                EXPECT_EQ(reports.All().front().kind, "CDBException");
            }
            if (!bears) {
                EXPECT_EQ(result != 0, !failed);
            }
            check(failed);
        }
    }
};

TEST_F(SYSWRuleFault, FailedWritesKeepTheItemAndNoteNothing) {
    SYIdRuleItem rule;
    Sweep([&] { rule = Make("a.dll"), rule.SetFileID(55); },
          [&] { return engine.AddIdRule(rule, 1); },
          [&](bool failed) {
              EXPECT_EQ(rule.FileID() == 55, failed);
              EXPECT_EQ(NumActive(), failed ? 0 : 1);
              EXPECT_EQ(engine.NumChangedRules(), failed ? 0 : 1);
          });
    std::uint32_t id = 0;
    bool sawOldRowRemoved = false;
    Sweep(
        [&] {
            id = Store("old.dll");
            rule = Make("new.dll", {}, 0, "Renamed");
            rule.SetFileID(id);
        },
        [&] { return engine.ModifyIdRule(rule); },
        [&](bool failed) {
            if (!failed)
                return;
            EXPECT_EQ(rule.FileID(), id);
            EXPECT_EQ(engine.NumChangedRules(), 0);
            // Either nothing happened, or the old row went and no new one came.
            const bool removed = State(id) == RuleStateRemoved;
            sawOldRowRemoved |= removed;
            EXPECT_EQ(NumActive(), removed ? 0 : 1);
        });
    EXPECT_TRUE(sawOldRowRemoved);
}

TEST_F(SYSWRuleFault, RemoveMatchingRulesNotesWhatItRemovedAndEndsTheWaitCursor) {
    SYIdRuleItem rule;
    std::vector<std::uint32_t> others;
    int result = 0;
    Sweep(
        [&] {
            others = {Store("a.dll"), Store<SYIgnoreRuleItem>("a.dll"), Store("a.dll")};
            rule = Make("a.dll");
            ASSERT_EQ(engine.AddIdRule(rule, 0), 1);
        },
        [&] { return result = engine.RemoveMatchingRules(rule); },
        [&](bool failed) {
            EXPECT_EQ(SYGetApp().WaitCursorCount(), 0);
            // Every noted delete stands removed, and nothing else is removed.
            ChangeList removed;
            for (std::uint32_t id : others) {
                if (State(id) == RuleStateRemoved)
                    removed.push_back({id, 0, RuleChangeDelete});
            }
            EXPECT_EQ(Changes(), removed);
            EXPECT_EQ(State(rule.FileID()), RuleStateAdded);
            // A failing read ends the sweep with 0; a failing removal is borne.
            EXPECT_EQ(removed.size(), failed ? (result == 0 ? 0U : removed.size()) : 3U);
        },
        true);
}

TEST_F(SYSWRuleFault, FailedSearchesFindNothingAndLeaveTheItem) {
    std::uint32_t id = 0;
    SYIdRuleItem found;
    Sweep([&] { id = Store("a.dll"), found = Make("before"); },
          [&] { return engine.LookupIdRule(id, found); },
          [&](bool failed) { EXPECT_EQ(found.FileName(), failed ? "before" : "a.dll"); });
    unsigned char type = 7;
    Sweep([&] { id = Store<SYIgnoreRuleItem>("b.dll"), type = 7; },
          [&] { return static_cast<int>(engine.FindMatchingRule(Make("b.dll"), type)); },
          [&](bool failed) { EXPECT_EQ(type, failed ? 7 : RuleTypeIgnore); });
}

} // namespace
