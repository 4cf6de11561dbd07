#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "editing/SYIgnoreAppDlg.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "resources/SYResourceIds.h"
#include "support/FaultSweep.h"
#include "support/RuleDialogFixture.h"
#include "support/StoreDump.h"

namespace {

class TestIgnoreAppDlg : public SYIgnoreAppDlg {
public:
    using SYIgnoreAppDlg::LoadData;
    using SYIgnoreAppDlg::SaveData;
};

class IgnoreApp : public RuleDialogTest {
protected:
    std::uint32_t ToolAppID() {
        return static_cast<std::uint32_t>(
            Count("SELECT AppID FROM Files WHERE FileName = 'tool.exe' AND InvDataType = 1"));
    }
    // An older identification rule for exactly tool.dll, which the ignore rule replaces.
    void AddToolDllRule() {
        SYIdRuleItem rule;
        rule.SetFileName("tool.dll");
        rule.SetFileSize(300);
        rule.SetModTime(FileTime);
        rule.SetAppName("Old");
        ASSERT_NE(engine.AddIdRule(rule, 0), 0);
    }
};

TEST_F(IgnoreApp, EveryFileGetsOneExactRuleWithTheCommentAndOlderRulesGo) {
    AddToolDllRule();
    const std::uint32_t appID = ToolAppID();
    std::vector<std::string> rows;
    {
        SYScriptedModalHost host;
        host.ExpectDialog(IDD_IGNORE_APP)
            .Inspect([&](CDialog& d) {
                auto& list = *dynamic_cast<SYListCtrlEx*>(d.FindControl(IDC_IGNORE_APP_FILE_LIST));
                for (int row = 0; row < list.GetItemCount(); ++row)
                    rows.push_back(list.GetItemText(row, 0) + "|" + list.GetItemText(row, 1));
            })
            .Type(IDC_IGNORE_APP_COMMENT, "  retired tool\n")
            .PressOK();
        SYIgnoreAppDlg dialog;
        dialog.SetDatabase(&db);
        dialog.SetSWRule(&engine);
        dialog.SetAppID(appID);
        ASSERT_EQ(dialog.DoModal(), IDOK);
    }
    EXPECT_EQ(rows, (std::vector<std::string>{"tool.dll|300", "tool.exe|500"}))
        << "a file in two folders stands once";
    EXPECT_EQ(ActiveRules(), "1|junk.tmp|-|-||||scratch\n"
                             "1|tool.dll|300|1614862923||||retired tool\n"
                             "1|tool.exe|500|1614862923||||retired tool\n");
    engine.UpdateSamData();
    EXPECT_EQ(Count("SELECT COUNT(*) FROM Files WHERE FileState = 4 AND FileName LIKE 'tool.%'"),
              2);
    EXPECT_EQ(Count("SELECT COUNT(*) FROM [PPC Applications] WHERE AppID = " +
                    std::to_string(appID) + " AND AppInstalled <> 0"),
              0);
}

TEST_F(IgnoreApp, MissingSetupOrUnreadableFilesShowNothing) {
    TestIgnoreAppDlg dialog;
    dialog.SetDatabase(&db);
    dialog.SetAppID(ToolAppID());
    EXPECT_EQ(dialog.DoModal(), IDCANCEL) << "no engine";
    dialog.SetSWRule(&engine);
    db.FailStatement();
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(reports.Size(), 1u);
}

// A failure at any statement of the save keeps the rules written before it, and only them:
// files are taken in order, each rule added and then its older rules removed.
TEST_F(IgnoreApp, AFaultAtEveryStatementKeepsTheRulesBeforeIt) {
    const std::string junk = "1|junk.tmp|-|-||||scratch\n";
    const std::string oldDll = "0|tool.dll|300|1614862923|Old|||\n";
    const std::string dll = "1|tool.dll|300|1614862923||||\n";
    const std::string exe = "1|tool.exe|500|1614862923||||\n";
    // A removal that fails inside RemoveMatchingRules is reported and the save goes on.
    const std::vector<std::string> failed = {junk + oldDll, junk + oldDll + dll, junk + dll,
                                             junk + dll + exe};
    const std::vector<std::string> saved = {junk + dll + exe, junk + oldDll + dll + exe};
    const auto among = [](const std::vector<std::string>& states, const std::string& state) {
        return std::find(states.begin(), states.end(), state) != states.end();
    };
    FaultSweep sweep(db);
    while (sweep.Next()) {
        SCOPED_TRACE(sweep.Nth());
        Rebuild();
        AddToolDllRule();
        TestIgnoreAppDlg dialog;
        dialog.SetDatabase(&db);
        dialog.SetSWRule(&engine);
        dialog.SetAppID(ToolAppID());
        ASSERT_EQ(dialog.LoadData(), 1);
        sweep.Arm();
        const int result = dialog.SaveData();
        ASSERT_EQ(reports.Size(), sweep.Fired() ? 1U : 0U);
        if (!sweep.Fired()) {
            EXPECT_EQ(result, 1);
            EXPECT_EQ(ActiveRules(), saved[0]);
            continue;
        }
        EXPECT_TRUE(among(result == 0 ? failed : saved, ActiveRules())) << ActiveRules();
    }
    EXPECT_GE(sweep.Faults(), 3);
}

} // namespace
