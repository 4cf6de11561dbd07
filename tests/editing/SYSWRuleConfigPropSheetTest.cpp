#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "editing/SYSWRuleConfigPropSheet.h"
#include "outside/services/SYStringTable.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "resources/SYResourceIds.h"
#include "support/FaultSweep.h"
#include "support/RuleDialogFixture.h"
#include "support/StoreDump.h"

namespace {

const std::string Title = "Software Inventory Rules - Windows CE Devices";
const std::string Junk = "1|junk.tmp|-|-||||scratch\n";
const std::string SetupRule = "0|setup.exe|-|-|Setup Wizard|3||\n";
const std::string SetupRuleEdited = "0|setup.exe|-|-|Setup Wizard|4||\n";
const std::string Added = "0|new.exe|-|-|New|||\n";

std::vector<std::string> firstColumn(CDialog& d) {
    auto& list = *dynamic_cast<SYListCtrlEx*>(d.FindControl(IDC_CONFIG_RULE_LIST));
    std::vector<std::string> names;
    for (int row = 0; row < list.GetItemCount(); ++row)
        names.push_back(list.GetItemText(row, 0));
    return names;
}

// The journal of one visit: a new identification rule, setup.exe's rule edited, junk.tmp's
// ignore rule deleted.
void journal(Script& s, SYScriptedModalHost& host) {
    s.Click(IDC_CONFIG_RULE_ADD);
    host.ExpectDialog(IDD_EDIT_ID_RULE)
        .Type(IDC_RULE_FILE_NAME, "new.exe")
        .Type(IDC_RULE_APP_NAME, "New")
        .PressOK();
    s.DoubleClickRow(IDC_CONFIG_RULE_LIST, 0);
    host.ExpectDialog(IDD_EDIT_ID_RULE).Type(IDC_RULE_APP_VERSION, "4").PressOK();
    s.Inspect([](CDialog& d) {
        EXPECT_EQ(firstColumn(d), (std::vector<std::string>{"setup.exe", "new.exe"}));
    });
    s.SelectPage(1).SelectRow(IDC_CONFIG_RULE_LIST, 0).Click(IDC_CONFIG_RULE_DELETE);
    s.Inspect([](CDialog& d) { EXPECT_TRUE(firstColumn(d).empty()); });
}

class RuleConfiguration : public RuleDialogTest {
protected:
    void SetUp() override {
        RuleDialogTest::SetUp();
        SYIdRuleItem rule;
        rule.SetFileName("setup.exe");
        rule.SetAppName("Setup Wizard");
        rule.SetAppVersion("3");
        ASSERT_NE(engine.AddIdRule(rule, 1), 0);
        engine.UpdateSamData();
        engine.ClearChangedRules();
    }
    // Plays the script in the sheet; gives DoModal's result and keeps RulesChanged.
    int Run(const std::function<void(Script&, SYScriptedModalHost&)>& play, int readOnly = 0) {
        SYScriptedModalHost host;
        play(host.ExpectDialog(Title), host);
        SYSWRuleConfigPropSheet sheet;
        sheet.InvDataType = 1;
        sheet.SetDatabase(&db);
        sheet.SetReadOnly(readOnly);
        const int result = sheet.DoModal();
        rulesChanged = sheet.RulesChanged();
        return result;
    }
    std::int64_t FileState(const char* name) {
        return Count(std::string("SELECT FileState FROM Files WHERE FileName = '") + name + "'");
    }

    int rulesChanged = -1;
};

TEST_F(RuleConfiguration, TheJournalIsAppliedOnOKAndDroppedOnCancel) {
    const std::string before = DumpStore(db);
    EXPECT_EQ(Run([](Script& s, SYScriptedModalHost& host) {
                  journal(s, host);
                  s.PressCancel();
              }),
              IDCANCEL);
    EXPECT_EQ(rulesChanged, 0);
    EXPECT_EQ(DumpStore(db), before);

    EXPECT_EQ(Run([](Script& s, SYScriptedModalHost& host) {
                  journal(s, host);
                  s.PressOK();
              }),
              IDOK);
    EXPECT_NE(rulesChanged, 0);
    EXPECT_EQ(ActiveRules(), SetupRuleEdited + Added);
    EXPECT_EQ(FileState("junk.tmp"), 0) << "no rule ignores it any more";
    EXPECT_TRUE(reports.Empty());
}

TEST_F(RuleConfiguration, AnAddOverARuleOfTheOtherKindTakesItsPlaceAndItsId) {
    const std::int64_t junkRule = junkRuleID;
    EXPECT_EQ(
        Run([](Script& s, SYScriptedModalHost& host) {
            s.SelectPage(1).SelectPage(0).Click(IDC_CONFIG_RULE_ADD);
            host.ExpectDialog(IDD_EDIT_ID_RULE)
                .Type(IDC_RULE_FILE_NAME, "JUNK.TMP")
                .Type(IDC_RULE_APP_NAME, "Junk")
                .PressOK();
            host.ExpectMessageBox(IDYES, SYStringTable::Get(IDS_OVERWRITE_IGNORE_RULE));
            s.Inspect([](CDialog& d) {
                EXPECT_EQ(firstColumn(d), (std::vector<std::string>{"setup.exe", "JUNK.TMP"}));
            });
            s.SelectPage(1).Inspect([](CDialog& d) { EXPECT_TRUE(firstColumn(d).empty()); });
            s.PressOK();
        }),
        IDOK);
    EXPECT_EQ(ActiveRules(), "0|JUNK.TMP|-|-|Junk|||scratch\n" + SetupRule);
    EXPECT_EQ(Count("SELECT RuleID FROM SWRules WHERE RuleState <> 3 AND RuleType = 0 AND "
                    "FileName = 'JUNK.TMP'"),
              junkRule);
    EXPECT_EQ(FileState("junk.tmp"), 2);
}

TEST_F(RuleConfiguration, AddThenDeleteLeavesNoTraceAndAReadOnlySheetSavesNothing) {
    const std::string before = DumpStore(db);
    EXPECT_EQ(Run([](Script& s, SYScriptedModalHost& host) {
                  s.Click(IDC_CONFIG_RULE_ADD);
                  host.ExpectDialog(IDD_EDIT_ID_RULE)
                      .Type(IDC_RULE_FILE_NAME, "new.exe")
                      .Type(IDC_RULE_APP_NAME, "New")
                      .PressOK();
                  s.SelectRow(IDC_CONFIG_RULE_LIST, 1).Click(IDC_CONFIG_RULE_DELETE).PressOK();
              }),
              IDOK);
    EXPECT_EQ(rulesChanged, 0);
    EXPECT_EQ(Run(
                  [](Script& s, SYScriptedModalHost&) {
                      s.SelectRow(IDC_CONFIG_RULE_LIST, 0).Inspect([](CDialog& d) {
                          EXPECT_FALSE(d.FindControl(IDC_CONFIG_RULE_EDIT)->IsWindowEnabled());
                          EXPECT_FALSE(d.FindControl(IDC_CONFIG_RULE_DELETE)->IsWindowEnabled());
                      });
                      s.PressOK();
                  },
                  1),
              IDCANCEL);
    EXPECT_EQ(rulesChanged, 0);
    EXPECT_EQ(DumpStore(db), before);
}

// A fault at any statement of OK leaves the writes before it (removals do not stop the
// save) and keeps the sheet open; without a fault everything is applied.
TEST_F(RuleConfiguration, AFaultAtEveryStatementOfTheSaveKeepsOnlyWhatWasWrittenBeforeIt) {
    const std::vector<std::string> survivors = {
        Junk + SetupRule,       SetupRule,
        SetupRuleEdited,        SetupRuleEdited + Added,
        Junk + SetupRuleEdited, Junk + SetupRuleEdited + Added,
    };
    FaultSweep sweep(db);
    while (sweep.Next()) {
        SCOPED_TRACE(sweep.Nth());
        Rebuild();
        bool stayedOpen = false;
        Run([&](Script& s, SYScriptedModalHost& host) {
            journal(s, host);
            s.Inspect([&](CDialog& d) {
                sweep.Arm();
                d.OnCommand(SYMakeCommand(IDOK, BN_CLICKED), 0);
                EXPECT_EQ(reports.Size(), sweep.Fired() ? 1U : 0U);
                stayedOpen = !d.IsModalEnded();
                if (stayedOpen)
                    d.EndDialog(IDCANCEL);
            });
        });
        if (!sweep.Fired()) {
            EXPECT_FALSE(stayedOpen);
            EXPECT_EQ(ActiveRules(), SetupRuleEdited + Added);
            continue;
        }
        EXPECT_NE(std::find(survivors.begin(), survivors.end(), ActiveRules()), survivors.end())
            << ActiveRules();
    }
    EXPECT_GE(sweep.Faults(), 5);
}

} // namespace
