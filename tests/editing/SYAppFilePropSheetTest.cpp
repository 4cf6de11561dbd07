#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "editing/SYAppFilePropSheet.h"
#include "outside/services/SYStringTable.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYPrintEngine.h"
#include "outside/widgets/SYTextWnd.h"
#include "resources/SYResourceIds.h"
#include "support/RuleDialogFixture.h"
#include "support/TempDir.h"

namespace {

std::string textOf(CDialog& d, unsigned id) {
    return d.FindControl(id)->GetWindowText();
}
bool shown(CDialog& d, unsigned id) {
    return d.FindControl(id)->IsWindowVisible();
}
bool enabled(CDialog& d, unsigned id) {
    return d.FindControl(id)->IsWindowEnabled();
}
SYListCtrlEx& listOf(CDialog& d, unsigned id) {
    return *dynamic_cast<SYListCtrlEx*>(d.FindControl(id));
}
std::vector<std::string> rowsOf(CDialog& d, unsigned id) {
    std::vector<std::string> rows;
    for (int row = 0; row < listOf(d, id).GetItemCount(); ++row)
        rows.push_back(listOf(d, id).GetItemString(row));
    return rows;
}

class FileProperties : public RuleDialogTest {
protected:
    int Run(std::uint32_t fileID) {
        SYAppFilePropSheet sheet;
        sheet.SetDatabase(&db);
        sheet.SetFileID(fileID, 1);
        const int result = sheet.DoModal();
        rulesChanged = sheet.RulesChanged();
        return result;
    }
    std::string Title(const std::string& name) { return name + " - File Properties"; }

    int rulesChanged = -1;
};

// The General page by verdict: the rule box, what it holds, and which buttons work.
TEST_F(FileProperties, GeneralPageShowsTheVerdictAndFollowsTheRightToEdit) {
    {
        SYIdRuleItem rule;
        rule.SetFileName("setup.exe");
        rule.SetAppName("Setup Wizard");
        rule.SetAppVersion("3");
        ASSERT_NE(engine.AddIdRule(rule, 1), 0);
        engine.UpdateSamData();
    }
    struct Case {
        const char* what;
        std::uint32_t* fileID;
        const char* name;
        int canEdit;
        std::string box; // "hidden", or its title and content
        bool identify;
        bool ignore;
    };
    const std::string userInfo = SYStringTable::Get(IDS_USER_VERSION_INFO);
    const std::string comments = SYStringTable::Get(IDS_IGNORED_COMMENTS);
    const std::vector<Case> cases = {
        {"identified by its version information", &toolID, "tool.exe", 1, "hidden", true, true},
        {"identified by a user rule", &setupID, "setup.exe", 1, userInfo + ": Setup Wizard 3", true,
         true},
        {"ignored by a user rule with a comment", &junkID, "junk.tmp", 1, comments + ": scratch",
         true, false},
        {"without the right to edit rules", &setupID, "setup.exe", 0, userInfo + ": Setup Wizard 3",
         false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        SYGetApp().SetCanEditRules(c.canEdit);
        SYScriptedModalHost host;
        host.ExpectDialog(Title(c.name))
            .Inspect([&](CDialog& d) {
                std::string box = "hidden";
                if (shown(d, IDC_FILE_RULE_GROUP)) {
                    const auto& text = *dynamic_cast<SYTextWnd*>(d.FindControl(IDC_FILE_RULE_TEXT));
                    box = textOf(d, IDC_FILE_RULE_GROUP) + ": " +
                          (shown(d, IDC_FILE_USER_APP) ? textOf(d, IDC_FILE_USER_APP) + " " +
                                                             textOf(d, IDC_FILE_USER_VERSION)
                                                       : "") +
                          (text.IsWindowVisible() ? text.GetText() : "");
                }
                EXPECT_EQ(box, c.box);
                EXPECT_EQ(enabled(d, IDC_FILE_IDENTIFY), c.identify);
                EXPECT_EQ(enabled(d, IDC_FILE_IGNORE), c.ignore);
                EXPECT_EQ(textOf(d, IDCANCEL), "Close");
            })
            .SelectPage(2)
            .Inspect(
                [&](CDialog& d) { EXPECT_EQ(enabled(d, IDC_FILE_ID_RULE_ADD), c.canEdit != 0); })
            .PressCancel();
        EXPECT_EQ(Run(*c.fileID), IDCANCEL);
        EXPECT_EQ(rulesChanged, 0);
    }
}

TEST_F(FileProperties, ClientsPageCountsAClientOnceAndPrintsTheFileWithIt) {
    TempDir dir;
    const std::string out = dir.Path() + "/clients.txt";
    SYPrintEngine::SetDestinationChooser([&](const SYPrintEngine&) { return out; });
    SYScriptedModalHost host;
    host.ExpectDialog(Title("tool.exe"))
        .SelectPage(1)
        .Inspect([](CDialog& d) {
            EXPECT_EQ(
                rowsOf(d, IDC_FILE_CLIENT_LIST),
                (std::vector<std::string>{"pocket1 (ann)\t\\Backup", "pocket1 (ann)\t\\Tool"}));
            EXPECT_EQ(textOf(d, IDC_FILE_TOTAL_CLIENTS), "1");
        })
        .Click(IDC_FILE_PRINT)
        .PressCancel();
    EXPECT_EQ(Run(toolID), IDCANCEL);
    SYPrintEngine::SetDestinationChooser(nullptr);
    std::ostringstream printed;
    printed << std::ifstream(out).rdbuf();
    for (const char* expected :
         {"Application File Client List", "File name:", "tool.exe", "Total clients:", "\\Backup"})
        EXPECT_NE(printed.str().find(expected), std::string::npos) << expected;
}

TEST_F(FileProperties, IdentifyingAnIgnoredFileOverwritesItsRuleAndShowsTheNewVerdict) {
    SYScriptedModalHost host;
    host.ExpectDialog(Title("junk.tmp"))
        .Click(IDC_FILE_IDENTIFY)
        .Inspect([](CDialog& d) {
            EXPECT_EQ(textOf(d, IDC_FILE_USER_APP), "Junk Tool");
            EXPECT_TRUE(enabled(d, IDC_FILE_IGNORE)) << "a user-identified file can be ignored";
            EXPECT_FALSE(shown(d, IDC_FILE_RULE_TEXT));
        })
        .PressCancel();
    host.ExpectDialog(IDD_EDIT_ID_RULE)
        .Inspect([](CDialog& d) {
            EXPECT_TRUE(d.FindControl(IDC_RULE_FILE_NAME)->IsReadOnly());
            EXPECT_FALSE(enabled(d, IDC_RULE_BROWSE_FILE));
        })
        .Check(IDC_RULE_ALL_VERSIONS)
        .Type(IDC_RULE_APP_NAME, "Junk Tool")
        .PressOK();
    host.ExpectMessageBox(IDYES, SYStringTable::Get(IDS_OVERWRITE_IGNORE_RULE));
    EXPECT_EQ(Run(junkID), IDCANCEL);
    EXPECT_NE(rulesChanged, 0) << "Close still reports the change";
    EXPECT_EQ(ActiveRules(), "0|junk.tmp|-|-|Junk Tool|||scratch\n");
    EXPECT_EQ(Count("SELECT FileState FROM Files WHERE FileID = " + std::to_string(junkID)), 2);
}

TEST_F(FileProperties, RemovingTheOnlyRuleLeavesNoSelectionAndNoRule) {
    SYScriptedModalHost host;
    host.ExpectDialog(Title("junk.tmp"))
        .SelectPage(2)
        .SelectRow(IDC_FILE_IGNORE_RULE_LIST, 0)
        .Click(IDC_FILE_IGNORE_RULE_REMOVE)
        .Inspect([](CDialog& d) {
            EXPECT_TRUE(rowsOf(d, IDC_FILE_IGNORE_RULE_LIST).empty());
            EXPECT_FALSE(enabled(d, IDC_FILE_IGNORE_RULE_REMOVE));
        })
        .SelectPage(0)
        .Inspect([](CDialog& d) { EXPECT_FALSE(shown(d, IDC_FILE_RULE_GROUP)); })
        .PressCancel();
    host.ExpectMessageBox(IDYES, SYStringTable::Get(IDS_CONFIRM_REMOVE_RULE));
    EXPECT_EQ(Run(junkID), IDCANCEL);
    EXPECT_NE(rulesChanged, 0);
    EXPECT_EQ(ActiveRules(), "");
    EXPECT_EQ(Count("SELECT FileState FROM Files WHERE FileID = " + std::to_string(junkID)), 0);
}

} // namespace
