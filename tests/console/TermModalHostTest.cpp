#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "SYTermBufferScreen.h"
#include "SYTermKeys.h"
#include "SYTermLineEdit.h"
#include "SYTermModalHost.h"
#include "editing/SYAppFilePropSheet.h"
#include "editing/SYEditIdRuleDlg.h"
#include "editing/SYSWRuleConfigPropSheet.h"
#include "outside/widgets/SYFileDialog.h"
#include "outside/widgets/SYMessageBox.h"
#include "resources/SYResourceIds.h"
#include "support/RuleDialogFixture.h"
#include "support/TempDir.h"

#include <curses.h>

namespace {

constexpr int Esc = SYTermKeys::Esc;
constexpr int Tab = '\t';
constexpr int Enter = '\r';

// The Identify File dialog and the rule sheet run through the terminal host on an
// in-memory screen of 24 x 80, fed with keys.
class TermHost : public RuleDialogTest {
protected:
    const std::string junkRule = "1|junk.tmp|-|-||||scratch\n";
    int Identify(std::uint32_t fileID) {
        SYEditIdRuleDlg dialog;
        dialog.InvDataType = 1;
        dialog.SetDatabase(&db);
        dialog.SetSWRule(&engine);
        dialog.SetFileID(fileID);
        const int result = dialog.DoModal();
        engine.UpdateSamData();
        return result;
    }
    void Tabs(int count) {
        for (int i = 0; i < count; ++i)
            screen.Keys({Tab});
    }
    unsigned FocusedId() const {
        return SYWnd::GetFocus() != nullptr ? SYWnd::GetFocus()->GetDlgCtrlID() : 0;
    }

    SYTermBufferScreen screen;
    SYTermModalHost host{screen};
    SYModalHostScope scope{&host};
};

TEST_F(TermHost, IdentifyingAFileByKeysWritesItsRuleAfterTheOverwriteQuestion) {
    std::string question;
    // "All versions" makes a rule on the name alone, as the ignore rule of junk.tmp is.
    screen.Keys({Tab, Tab, ' ', Tab, Tab}).Type("Scratch Pad");
    Tabs(2);
    screen.Type("2.1").Keys({Tab}).Type("Pad Co").Keys({Enter});
    screen.Then([&] { question = screen.Dump(); }).Keys({'y'});

    ASSERT_EQ(Identify(junkID), IDOK);
    EXPECT_NE(question.find("An ignore rule with the same file information"), std::string::npos)
        << question;
    EXPECT_NE(question.find("[ Yes ]  [ No ]"), std::string::npos);
    EXPECT_EQ(ActiveRules(), "0|junk.tmp|-|-|Scratch Pad|2.1|Pad Co|scratch\n");
    EXPECT_EQ(screen.PendingKeys(), 0);
}

TEST_F(TermHost, EscCancelsAtOnceAndWritesNothing) {
    const std::string before = ActiveRules();
    Tabs(9);
    screen.Type("Nothing").Keys({Esc, 'x', Enter});
    EXPECT_EQ(Identify(setupID), IDCANCEL);
    EXPECT_EQ(ActiveRules(), before);
    EXPECT_EQ(screen.PendingKeys(), 2) << "keys after Esc stay unread";
}

TEST_F(TermHost, FocusFollowsTheTemplateOrderOverEnabledControls) {
    const int space = ' ';
    const struct {
        std::vector<int> keys;
        unsigned focused;
        int allVersions;
    } cases[] = {
        {{}, IDC_RULE_FILE_NAME, 0},
        {{Tab}, IDC_RULE_BROWSE_FILE, 0},
        {{KEY_BTAB}, IDCANCEL, 0},
        {{KEY_BTAB, KEY_BTAB, KEY_BTAB}, IDC_RULE_BROWSE_COMPANY, 0},
        // Space picks "all versions", which disables the size and time fields that follow.
        {{Tab, Tab, space, Tab, Tab}, IDC_RULE_APP_NAME, 1},
        {{Tab, Tab, Tab, KEY_UP}, IDC_RULE_ALL_VERSIONS, 1},
        {{Tab, Tab, space, KEY_DOWN}, IDC_RULE_SOME_VERSIONS, 0},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.keys));
        unsigned focused = 0;
        int allVersions = -1;
        for (int key : c.keys)
            screen.Keys({key});
        screen.Then([&] {
            focused = FocusedId();
            allVersions = static_cast<SYButton*>(
                              SYWnd::GetFocus()->GetParent()->GetDlgItem(IDC_RULE_ALL_VERSIONS))
                              ->GetCheck();
        });
        screen.Keys({Esc});
        EXPECT_EQ(Identify(setupID), IDCANCEL);
        EXPECT_EQ(focused, c.focused);
        EXPECT_EQ(allVersions, c.allVersions);
    }
}

TEST_F(TermHost, ANestedDialogOpensOverItsOwnerAndEnterTakesTheListRow) {
    std::string nested;
    std::string application;
    unsigned focusedAfter = 0;
    screen.Resize(40, 100);
    Tabs(10);
    screen.Keys({Enter}).Then([&] { nested = screen.Dump(); });
    screen.Keys({KEY_END, KEY_UP, KEY_NPAGE, Enter}).Then([&] {
        application =
            SYWnd::GetFocus()->GetParent()->GetDlgItem(IDC_RULE_APP_NAME)->GetWindowText();
        focusedAfter = FocusedId();
    });
    screen.Keys({Esc});
    EXPECT_EQ(Identify(setupID), IDCANCEL);

    EXPECT_NE(nested.find("Select Application"), std::string::npos) << nested;
    EXPECT_NE(nested.find("Identify File"), std::string::npos) << "the owner stays below\n"
                                                               << nested;
    EXPECT_EQ(application, "Tool");
    EXPECT_EQ(focusedAfter, static_cast<unsigned>(IDC_RULE_BROWSE_APP));
}

TEST_F(TermHost, DigitsSetTheDateSpaceClearsTheSizeAndTypingReplacesAField) {
    Tabs(5);
    screen.Type("12252020");
    Tabs(2);
    screen.Keys({' ', Tab}).Type("Pad").Keys({Tab, Tab, KEY_END, KEY_BACKSPACE}).Type("2");
    screen.Keys({Enter});
    ASSERT_EQ(Identify(setupID), IDOK);
    EXPECT_EQ(ActiveRules(), junkRule + "0|setup.exe|-|1608901323|Pad|1.2|Setup Makers|\n");
}

TEST_F(TermHost, TheDialogIsCentredScrolledToTheFocusAndRedrawnOnResize) {
    std::string small;
    screen.Keys({KEY_BTAB, KEY_BTAB}).Then([&] { small = screen.Dump(); });
    screen.Resize(40, 100);
    int titleRow = -1;
    int titleCol = -1;
    int nameRow = -1;
    int nameCol = -1;
    screen.Then([&] {
        screen.Find(" Identify File ", titleRow, titleCol);
        screen.Find("Name:", nameRow, nameCol);
    });
    screen.Keys({Esc});
    EXPECT_EQ(Identify(setupID), IDCANCEL);

    EXPECT_NE(small.find("[ OK ]"), std::string::npos) << small;
    EXPECT_EQ(small.find("Name:"), std::string::npos) << "scrolled past the top\n" << small;
    EXPECT_NE(small.find("▲"), std::string::npos);
    // 300 x 250 dialog units are 75 x 31 cells; framed and centred on 100 x 40.
    EXPECT_EQ(titleRow, 3);
    EXPECT_EQ(titleCol, 11 + (77 - 15) / 2);
    EXPECT_EQ(nameRow, 4 + (21 + 4 - 1) / 8) << "the row of the label's middle";
    EXPECT_EQ(nameCol, 12 + 14 / 4);
}

TEST_F(TermHost, LabelsAndTheirFieldsShareARowOnASheetPage) {
    std::string page;
    screen.Resize(40, 100).Then([&] { page = screen.Dump(); }).Keys({Esc});
    SYAppFilePropSheet sheet;
    sheet.SetDatabase(&db);
    sheet.SetFileID(toolID, 1);
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    for (const auto& [label, field] : {std::pair{"File name:", "tool.exe"},
                                       {"Size:", "500 bytes"},
                                       {"Version:", "2.0"},
                                       {"Company:", "Tm"}}) {
        const std::size_t at = page.find(label);
        ASSERT_NE(at, std::string::npos) << label;
        EXPECT_LT(page.find(field, at), page.find('\n', at)) << label << "\n" << page;
    }
}

TEST_F(TermHost, SheetPagesSwitchByKeysAndAHotkeyActsOnTheFrontPage) {
    const std::string sheetTitle = "Software Inventory Rules - Windows CE Devices";
    std::string ignorePage;
    std::string idPage;
    screen.Keys({SYTermKeys::CtrlPageDown, KEY_HOME}).Then([&] { ignorePage = screen.Dump(); });
    screen.Keys({'d', SYTermKeys::Alt('1')}).Then([&] { idPage = screen.Dump(); });
    screen.Keys({KEY_BTAB, KEY_BTAB, Enter});
    SYSWRuleConfigPropSheet sheet;
    sheet.InvDataType = 1;
    sheet.SetDatabase(&db);
    ASSERT_EQ(sheet.DoModal(), IDOK);

    EXPECT_NE(ignorePage.find(sheetTitle), std::string::npos) << ignorePage;
    EXPECT_NE(ignorePage.find("[Ignore Rules]"), std::string::npos) << ignorePage;
    EXPECT_NE(ignorePage.find("junk.tmp"), std::string::npos) << ignorePage;
    EXPECT_NE(idPage.find("[Identification Rules]"), std::string::npos) << idPage;
    EXPECT_EQ(ActiveRules(), "") << "the deleted ignore rule is gone from the store";
    EXPECT_EQ(sheet.RulesChanged(), 1);
}

TEST_F(TermHost, QOnASheetAsksWhetherToQuitAndClosesTheSheetOnYes) {
    int quits = 0;
    host.SetQuit([&] { ++quits; });
    std::string question;
    screen.Keys({'q'}).Then([&] { question = screen.Dump(); }).Keys({'n', 'q', 'y', Esc});
    SYSWRuleConfigPropSheet sheet;
    sheet.InvDataType = 1;
    sheet.SetDatabase(&db);
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_NE(question.find("Quit Trellisview?"), std::string::npos) << question;
    EXPECT_EQ(quits, 1);
    EXPECT_EQ(screen.PendingKeys(), 1) << "No keeps the sheet open, Yes closes it at once";
}

TEST_F(TermHost, ClicksActOnTheControlUnderThem) {
    // Queues a click on where the text stands now; the reader is at the end of the queue.
    auto clickOn = [&](const std::string& text) {
        int row = -1;
        int col = -1;
        EXPECT_TRUE(screen.Find(text, row, col)) << text;
        screen.Keys({SYTermKeys::Click(row, col)});
    };
    int allVersions = -1;
    screen.Resize(40, 100).Then([&] {
        clickOn("Identify all versions");
        screen.Then([&] {
            allVersions = static_cast<SYButton*>(SYWnd::GetFocus())->GetCheck();
            clickOn("[ Cancel ]");
        });
    });
    EXPECT_EQ(Identify(setupID), IDCANCEL);
    EXPECT_EQ(allVersions, 1);
    EXPECT_EQ(FocusedId(), 0u);

    screen.Then([&] { clickOn("[ No ]"); });
    EXPECT_EQ(SYMessageBox::Show(nullptr, "Sure?", "", MB_YESNO), IDNO);
}

TEST_F(TermHost, MessageBoxesAnswerByKeys) {
    const int no = 'n';
    const struct {
        unsigned type;
        std::vector<int> keys;
        int answer;
    } cases[] = {
        {MB_YESNO, {Enter}, IDYES},
        {MB_YESNO | MB_DEFBUTTON2, {Enter}, IDNO},
        {MB_YESNO | MB_DEFBUTTON2, {KEY_LEFT, Enter}, IDYES},
        {MB_YESNO, {no}, IDNO},
        {MB_YESNO, {Esc}, IDNO},
        {MB_OKCANCEL, {Tab, ' '}, IDCANCEL},
        {MB_OKCANCEL, {Esc}, IDCANCEL},
        {MB_OKCANCEL, {}, IDCANCEL},
        {MB_OK, {Esc}, IDOK},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::PrintToString(c.keys));
        for (int key : c.keys)
            screen.Keys({key});
        EXPECT_EQ(SYMessageBox::Show(nullptr, "Proceed?", "", c.type), c.answer);
    }
    std::string shown;
    screen.Then([&] { shown = screen.Dump(); }).Keys({Enter});
    SYMessageBox::Show(nullptr, std::string(150, 'w'), "", MB_OK | MB_ICONEXCLAMATION);
    EXPECT_NE(shown.find(" Trellisview "), std::string::npos) << shown;
    EXPECT_NE(shown.find("(!) " + std::string(60, 'w') + " │"), std::string::npos) << shown;
    EXPECT_NE(shown.find("    " + std::string(30, 'w') + " "), std::string::npos) << shown;
}

TEST(TermLineEdit, KeysEditTheTextAtTheCaret) {
    const struct {
        std::string text;
        std::vector<int> keys;
        bool readOnly;
        int limit;
        std::string after;
        int caret;
    } cases[] = {
        {"abc", {KEY_LEFT, KEY_BACKSPACE}, false, 0, "ac", 1},
        {"abc", {KEY_HOME, KEY_DC, KEY_RIGHT}, false, 0, "bc", 1},
        {"abc", {KEY_HOME, 'x', KEY_END, 'y'}, false, 0, "xabcy", 5},
        {"abc", {'d', KEY_HOME, 'e'}, false, 3, "abc", 0},
        {"abc", {KEY_BACKSPACE, 'x', KEY_LEFT}, true, 0, "abc", 2},
        {"ab", {KEY_LEFT, 0xC3, 0xA9, KEY_RIGHT, 127}, false, 0, "aé", 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.after);
        SYTermLineEdit line;
        std::string text = c.text;
        line.MoveToEnd(text);
        for (int key : c.keys)
            line.HandleKey(key, text, c.readOnly, c.limit);
        EXPECT_EQ(text, c.after);
        EXPECT_EQ(line.Caret(text), c.caret);
    }
}

TEST_F(TermHost, TheFileDialogCompletesAPathAndWantsAnExistingFile) {
    TempDir dir;
    std::ofstream(dir.Path() + "/setup.exe") << "x";
    std::ofstream(dir.Path() + "/settings.ini") << "x";
    SYFileDialog dialog(1, "", "", OFN_FILEMUSTEXIST);
    screen.Type(dir.Path() + "/setu").Keys({Tab, Enter});
    ASSERT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.GetPathName(), dir.Path() + "/setup.exe");

    std::string refused;
    screen.Type(dir.Path() + "/se").Keys({Tab, Enter}).Then([&] { refused = screen.Dump(); });
    screen.Keys({Esc});
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_NE(refused.find("No such file: " + dir.Path() + "/set "), std::string::npos) << refused;
}

} // namespace
