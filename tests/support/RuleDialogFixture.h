#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYStatement.h"
#include "rules/SYSWRule.h"
#include "support/ReportCapture.h"
#include "support/SYScriptedModalHost.h"

using Script = SYScriptedModalHost::DialogScript;

// 2021-03-04 13:02:03 UTC.
constexpr std::int32_t FileTime = 1614862923;

// Two Windows CE devices: "setup.exe" unidentified on both, "tool.exe" (in two folders of
// one device) and "tool.dll" of the application "Tool", "junk.tmp" ignored by a user rule
// with a comment. An engine of the console's on the same inventory.
class RuleDialogTest : public testing::Test {
protected:
    void SetUp() override {
        db.OpenMemory();
        SYInventoryWriter writer(db);
        const CTime time(FileTime);
        const auto first = writer.AddDevice(1, "pocket1", "ann", time);
        const auto second = writer.AddDevice(1, "pocket2", "bob", time);
        for (const auto device : {first, second})
            setupID = writer.AddFile(1, device, "\\Windows",
                                     {"setup.exe", 100, time, "Setup", "1.0", "Setup Makers"});
        toolID = writer.AddFile(1, first, "\\Tool", {"tool.exe", 500, time, "Tool", "2.0", "Tm"});
        writer.AddFile(1, first, "\\Backup", {"tool.exe", 500, time, "Tool", "2.0", "Tm"});
        writer.AddFile(1, first, "\\Tool", {"tool.dll", 300, time, "Tool", "2.0", "Tm"});
        junkID = writer.AddFile(1, second, "\\Temp", {"junk.tmp", 7, time, "", "", ""});
        junkRuleID = writer.AddUserRule({1, 1, "junk.tmp", {}, CTime(), "", "", "", "scratch"});
        writer.Commit();
        engine.Database = &db;
        engine.InvDataType = 1;
    }
    void Rebuild() {
        db.Close();
        reports.Clear();
        engine.ClearChangedRules();
        SetUp();
    }
    void TearDown() override { SYGetApp().SetCanEditRules(1); }

    // Active rules as "type|name|size|time|application|version|company|comment" lines in
    // id order, "-" for a null.
    std::string ActiveRules() {
        SYStatement rows(db, "SELECT RuleType || '|' || FileName || '|' || IFNULL(FileSize, '-') "
                             "|| '|' || IFNULL(FileTime, '-') || '|' || AppName || '|' || "
                             "AppVersion || '|' || AppCompany || '|' || Comment FROM SWRules "
                             "WHERE RuleState <> 3 ORDER BY RuleID");
        std::string text;
        while (rows.Step())
            text += rows.Text(0) + "\n";
        return text;
    }
    std::int64_t Count(const std::string& sql) {
        SYStatement count(db, sql);
        return count.Step() ? count.Int64(0) : -1;
    }

    ReportCapture reports;
    SYDatabase db;
    SYSWRule engine;
    std::uint32_t setupID = 0;
    std::uint32_t toolID = 0;
    std::uint32_t junkID = 0;
    std::uint32_t junkRuleID = 0;
};
