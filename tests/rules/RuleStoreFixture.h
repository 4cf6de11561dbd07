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

// A rule row as stored, read without regard to its state.
struct StoredRule {
    unsigned char state = 0;
    unsigned char type = 0;
    std::string fileName;
    bool haveSize = false;
    std::uint64_t size = 0;
    bool haveTime = false;
    std::int32_t time = 0;
    std::string appName, appVersion, appCompany, comment;
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

    static SYIdRuleItem IdRule(const std::string& name, std::optional<std::uint64_t> size = {},
                               std::int32_t time = 0, const std::string& app = "App") {
        SYIdRuleItem rule;
        SetFileInfo(rule, name, size, time);
        rule.SetAppName(app);
        rule.SetAppVersion("1.0");
        rule.SetAppCompany("Maker");
        return rule;
    }
    static SYIgnoreRuleItem IgnoreRule(const std::string& name,
                                       std::optional<std::uint64_t> size = {},
                                       std::int32_t time = 0, const std::string& comment = "") {
        SYIgnoreRuleItem rule;
        SetFileInfo(rule, name, size, time);
        rule.SetComment(comment);
        return rule;
    }
    static void SetFileInfo(SYAppFileItem& item, const std::string& name,
                            std::optional<std::uint64_t> size, std::int32_t time) {
        item.SetFileName(name);
        if (size)
            item.SetFileSize(*size);
        item.SetModTime(time);
    }

    // Stores a rule through the engine without noting it; gives its identifier.
    std::uint32_t StoreId(const std::string& name, std::optional<std::uint64_t> size = {},
                          std::int32_t time = 0, const std::string& app = "App") {
        SYIdRuleItem rule = IdRule(name, size, time, app);
        EXPECT_NE(engine.AddIdRule(rule, 0), 0);
        return rule.FileID();
    }
    std::uint32_t StoreIgnore(const std::string& name, std::optional<std::uint64_t> size = {},
                              std::int32_t time = 0) {
        SYIgnoreRuleItem rule = IgnoreRule(name, size, time);
        EXPECT_NE(engine.AddExcludeRule(rule, 0), 0);
        return rule.FileID();
    }

    std::optional<StoredRule> Row(std::uint32_t ruleID) {
        SYSWRuleSet set(db);
        set.InvDataType = engine.InvDataType;
        set.FilterForRuleID(ruleID);
        set.Open();
        if (set.IsEOF())
            return std::nullopt;
        StoredRule row{set.RuleState(),          set.RuleType(), set.FileName(),
                       set.HaveFileSize() != 0,  set.FileSize(), set.HaveFileTime() != 0,
                       set.FileTime().GetTime(), set.AppName(),  set.AppVersion(),
                       set.AppCompany(),         set.Comment()};
        return row;
    }
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
    std::vector<std::vector<std::uint32_t>> Changes() const {
        std::vector<std::vector<std::uint32_t>> list;
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
