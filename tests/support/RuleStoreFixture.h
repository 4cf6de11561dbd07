#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "outside/store/SYDatabase.h"
#include "rules/SYSWRule.h"
#include "support/ReportCapture.h"

// 2021-03-04 13:02:03 UTC, and the same minute's start and end.
constexpr std::int32_t RuleTime = 1614862923;
constexpr std::int32_t RuleMinuteStart = RuleTime - 3;
constexpr std::int32_t RuleMinuteEnd = RuleTime + 56;

using ChangeList = std::vector<std::vector<std::uint32_t>>;

// An in-memory inventory with an engine on its Windows CE rules.
class RuleStoreTest : public testing::Test {
protected:
    void SetUp() override {
        db.OpenMemory();
        engine.Database = &db;
        engine.InvDataType = 1;
    }
    void Reset() {
        db.Close();
        reports.Clear();
        SetUp();
        engine.ClearChangedRules();
    }

    // An identification rule for the application or an ignore rule with the comment.
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

    // "state|type|name|size|time|application|comment" as stored, "-" for a null.
    std::string Row(std::uint32_t ruleID) {
        auto row = db.Cached("SELECT RuleState || '|' || RuleType || '|' || FileName || '|' || "
                             "IFNULL(FileSize, '-') || '|' || IFNULL(FileTime, '-') || '|' || "
                             "AppName || '|' || Comment FROM SWRules WHERE RuleID = ?1");
        row->Bind(1, std::int64_t{ruleID});
        return row->Step() ? row->Text(0) : "";
    }
    int State(std::uint32_t ruleID) { return Row(ruleID).at(0) - '0'; }
    std::int64_t NumActive() {
        auto count = db.Cached("SELECT COUNT(*) FROM SWRules WHERE RuleState <> 3");
        return count->Step() ? count->Int64(0) : -1;
    }
    ChangeList Changes() const {
        ChangeList list;
        for (int i = 0; i < engine.NumChangedRules(); ++i) {
            const _SYSWRULE_INFO info = engine.GetChangedRule(i);
            list.push_back({info.RuleID, info.ReplacedRuleID, info.ChangeKind});
        }
        return list;
    }

    ReportCapture reports;
    SYDatabase db;
    SYSWRule engine;
};
