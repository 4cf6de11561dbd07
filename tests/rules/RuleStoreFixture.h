#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYSWRuleSet.h"
#include "rules/SYSWRule.h"

// 2021-03-04 13:02:03 UTC, and the same minute's start and end.
constexpr std::int32_t RuleTime = 1614862923;
constexpr std::int32_t RuleMinuteStart = RuleTime - 3;
constexpr std::int32_t RuleMinuteEnd = RuleTime + 56;

using ChangeList = std::vector<std::vector<std::uint32_t>>;

// A rule row as stored, read without regard to its state.
struct StoredRule {
    unsigned char state = 0;
    unsigned char type = 0;
    std::string fileName;
    bool haveSize = false;
    bool haveTime = false;
    std::string appName, comment;
};

// An in-memory inventory with an engine on its Windows CE rules.
class RuleStoreTest : public testing::Test {
protected:
    void SetUp() override {
        db.OpenMemory();
        engine.Database = &db;
        engine.InvDataType = 1;
        SYGetApp().ClearReports();
    }
    void TearDown() override {
        db.ClearFault();
        SYGetApp().ClearReports();
    }
    void Reset() {
        db.Close();
        SetUp();
        engine.ClearChangedRules();
    }

    // An identification rule for "App" or, with a comment, an ignore rule.
    template <class Rule = SYIdRuleItem>
    static Rule Make(const std::string& name, std::optional<std::uint64_t> size = {},
                     std::int32_t time = 0, const std::string& text = "App") {
        Rule rule;
        rule.SetFileName(name);
        if (size)
            rule.SetFileSize(*size);
        rule.SetModTime(time);
        if constexpr (std::is_same_v<Rule, SYIdRuleItem>)
            rule.SetAppName(text);
        else
            rule.SetComment(text);
        return rule;
    }
    // Stores a rule through the engine without noting it; gives its identifier.
    template <class Rule = SYIdRuleItem>
    std::uint32_t Store(const std::string& name, std::optional<std::uint64_t> size = {},
                        std::int32_t time = 0) {
        Rule rule = Make<Rule>(name, size, time);
        if constexpr (std::is_same_v<Rule, SYIdRuleItem>)
            EXPECT_EQ(engine.AddIdRule(rule, 0), 1);
        else
            EXPECT_EQ(engine.AddExcludeRule(rule, 0), 1);
        return rule.FileID();
    }

    std::optional<StoredRule> Row(std::uint32_t ruleID) {
        SYSWRuleSet set(db);
        set.InvDataType = engine.InvDataType;
        set.FilterForRuleID(ruleID);
        set.Open();
        if (set.IsEOF())
            return std::nullopt;
        return StoredRule{
            set.RuleState(),         set.RuleType(), set.FileName(), set.HaveFileSize() != 0,
            set.HaveFileTime() != 0, set.AppName(),  set.Comment()};
    }
    unsigned char State(std::uint32_t ruleID) { return Row(ruleID)->state; }
    std::vector<std::uint32_t> ActiveIDs() {
        std::vector<std::uint32_t> ids;
        SYSWRuleSet set(db);
        set.InvDataType = engine.InvDataType;
        set.FilterForActiveRules();
        set.Open();
        for (; !set.IsEOF(); set.MoveNext())
            ids.push_back(set.RuleID());
        return ids;
    }
    ChangeList Changes() const {
        ChangeList list;
        for (int i = 0; i < engine.NumChangedRules(); ++i) {
            const _SYSWRULE_INFO info = engine.GetChangedRule(i);
            list.push_back({info.RuleID, info.ReplacedRuleID, info.ChangeKind});
        }
        return list;
    }
    static std::size_t NumReports() { return SYGetApp().Reports().size(); }

    SYDatabase db;
    SYSWRule engine;
};
