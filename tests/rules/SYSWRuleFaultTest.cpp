#include <gtest/gtest.h>

#include <functional>

#include "rules/RuleStoreFixture.h"

namespace {

using ChangeList = std::vector<std::vector<std::uint32_t>>;

// Runs a scenario once for every statement it makes, with that statement failing, until a
// run gets through without a failure. The check sees whether the fault fired.
class SYSWRuleFault : public RuleStoreTest {
protected:
    void Sweep(const std::function<void()>& prepare, const std::function<int()>& act,
               const std::function<void(int result, bool failed)>& check) {
        for (int nth = 1; nth < 40; ++nth) {
            SCOPED_TRACE(testing::Message() << "failing statement " << nth);
            db.Close();
            SetUp();
            engine.ClearChangedRules();
            prepare();
            db.FailStatement(nth);
            const int result = act();
            db.ClearFault();
            const bool failed = NumReports() != 0;
            if (failed) {
                EXPECT_EQ(SYGetApp().Reports().front().kind, "CDBException");
            }
            check(result, failed);
            if (!failed)
                return;
        }
        ADD_FAILURE() << "the scenario never got through";
    }
};

TEST_F(SYSWRuleFault, FailedAddKeepsTheItemAndNotesNothing) {
    SYIdRuleItem rule;
    Sweep([&] { rule = IdRule("a.dll"), rule.SetFileID(55); },
          [&] { return engine.AddIdRule(rule, 1); },
          [&](int result, bool failed) {
              EXPECT_EQ(result, failed ? 0 : 1);
              if (!failed)
                  return;
              EXPECT_EQ(rule.FileID(), 55U);
              EXPECT_EQ(engine.NumChangedRules(), 0);
              EXPECT_TRUE(ActiveIDs().empty());
          });
}

TEST_F(SYSWRuleFault, FailedReplacementLeavesTheOldRowRemovedAndTheOldIdentifier) {
    SYIgnoreRuleItem rule;
    std::uint32_t oldID = 0;
    bool sawRemovedOldRow = false;
    Sweep(
        [&] {
            oldID = StoreIgnore("old.dll");
            rule = IgnoreRule("new.dll", {}, 0, "renamed");
            rule.SetFileID(oldID);
        },
        [&] { return engine.ModifyExcludeRule(rule); },
        [&](int result, bool failed) {
            EXPECT_EQ(result, failed ? 0 : 1);
            if (!failed) {
                EXPECT_EQ(Changes(), (ChangeList{{rule.FileID(), oldID, RuleChangeModify}}));
                return;
            }
            EXPECT_EQ(rule.FileID(), oldID);
            EXPECT_EQ(engine.NumChangedRules(), 0);
            const unsigned char state = Row(oldID)->state;
            sawRemovedOldRow |= state == RuleStateRemoved;
            // Either nothing happened, or the old row went and no new one came.
            EXPECT_EQ(ActiveIDs(), state == RuleStateRemoved ? std::vector<std::uint32_t>{}
                                                             : std::vector{oldID});
        });
    EXPECT_TRUE(sawRemovedOldRow);
}

TEST_F(SYSWRuleFault, FailedEditInPlaceChangesNothing) {
    SYIdRuleItem rule;
    std::uint32_t id = 0;
    Sweep(
        [&] {
            id = StoreId("a.dll");
            rule = IdRule("A.dll", {}, 0, "Renamed");
            rule.SetFileID(id);
            rule.SetItemStatus(ItemStatusChanged);
        },
        [&] { return engine.ModifyIdRule(rule); },
        [&](int result, bool failed) {
            EXPECT_EQ(result, failed ? 0 : 1);
            const auto row = Row(id);
            EXPECT_EQ(row->appName, failed ? "App" : "Renamed");
            EXPECT_EQ(rule.ItemStatus(), failed ? ItemStatusChanged : ItemStatusStored);
            EXPECT_EQ(engine.NumChangedRules(), failed ? 0 : 1);
        });
}

TEST_F(SYSWRuleFault, FailedRemoveNotesNothing) {
    std::uint32_t id = 0;
    Sweep([&] { id = StoreId("a.dll"); }, [&] { return engine.RemoveRule(id, 1); },
          [&](int result, bool failed) {
              EXPECT_EQ(result, failed ? 0 : 1);
              EXPECT_EQ(engine.NumChangedRules(), failed ? 0 : 1);
              EXPECT_EQ(Row(id)->state, failed ? RuleStateAdded : RuleStateRemoved);
          });
}

TEST_F(SYSWRuleFault, RemoveMatchingRulesKeepsWhatItRemovedAndEndsTheWaitCursor) {
    SYIdRuleItem rule;
    std::vector<std::uint32_t> others;
    std::vector<int> cursorAtReport;
    SYGetApp().SetReporter(
        [&](const SYFailureReport&) { cursorAtReport.push_back(SYGetApp().WaitCursorCount()); });
    Sweep(
        [&] {
            others = {StoreId("a.dll"), StoreIgnore("a.dll"), StoreId("a.dll")};
            rule = IdRule("a.dll");
            ASSERT_EQ(engine.AddIdRule(rule, 0), 1);
        },
        [&] { return engine.RemoveMatchingRules(rule); },
        [&](int result, bool failed) {
            EXPECT_EQ(SYGetApp().WaitCursorCount(), 0);
            // Every noted delete stands removed in the table, and nothing else is removed.
            std::vector<std::uint32_t> removed;
            for (std::uint32_t id : others) {
                if (Row(id)->state == RuleStateRemoved)
                    removed.push_back(id);
            }
            std::vector<std::uint32_t> noted;
            for (const auto& change : Changes()) {
                EXPECT_EQ(change[2], RuleChangeDelete);
                noted.push_back(change[0]);
            }
            EXPECT_EQ(noted, removed);
            EXPECT_EQ(Row(rule.FileID())->state, RuleStateAdded);
            if (!failed) {
                EXPECT_EQ(removed, others);
            }
            // A failing read ends the sweep with 0; a failing removal is borne.
            if (result == 0) {
                EXPECT_TRUE(removed.empty());
            }
        });
    SYGetApp().SetReporter({});
    ASSERT_FALSE(cursorAtReport.empty());
    for (int count : cursorAtReport)
        EXPECT_EQ(count, 1);
}

TEST_F(SYSWRuleFault, FailedSearchesGiveNothingAndLeaveTheItem) {
    std::uint32_t id = 0;
    SYIdRuleItem found;
    Sweep([&] { id = StoreId("a.dll"), found = IdRule("before"); },
          [&] { return engine.LookupIdRule(id, found); },
          [&](int result, bool failed) {
              EXPECT_EQ(result, failed ? 0 : 1);
              EXPECT_EQ(found.FileName(), failed ? "before" : "a.dll");
          });
    unsigned char type = 7;
    Sweep([&] { id = StoreIgnore("b.dll"), type = 7; },
          [&] {
              SYAppFileItem file;
              file.SetFileName("b.dll");
              return static_cast<int>(engine.FindMatchingRule(file, type));
          },
          [&](int result, bool failed) {
              EXPECT_EQ(static_cast<std::uint32_t>(result), failed ? 0 : id);
              EXPECT_EQ(type, failed ? 7 : RuleTypeIgnore);
          });
}

} // namespace
