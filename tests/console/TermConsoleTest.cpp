#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "SYTermBufferScreen.h"
#include "SYTermConsole.h"
#include "SYTermConsoleWindow.h"
#include "SYTermKeys.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "resources/SYResourceIds.h"
#include "support/InventoryFixture.h"
#include "support/ReportCapture.h"
#include "support/SYScriptedModalHost.h"

namespace {

using Keys = SYTermKeys;

// Two Windows CE devices with setup.exe (one of them also an older copy elsewhere) and a
// junk file, nothing identified yet; the console on it on an 80x24 screen, fed with keys.
// The road through a real terminal is TmuxConsoleTest's; this covers what it does not walk.
class TermConsoleTest : public ::testing::Test {
protected:
    void SetUp() override {
        db.OpenMemory(true);
        WritePocketInventory(db);
        ASSERT_EQ(console.Start(), 1);
        window.emplace(console, screen);
    }
    void TearDown() override { EXPECT_TRUE(reports.Empty()); }

    // Plays the queued keys and draws the screen as the user would see it afterwards.
    std::string Play() {
        window->Run();
        window->Draw();
        return screen.Dump();
    }
    // Moves down the tree by keys to the node whose text begins so.
    void BrowseTo(const std::string& text) {
        for (int i = 0; i < 20 && SelectedNode().rfind(text, 0) != 0; ++i)
            window->HandleKey(Keys::Down);
        ASSERT_EQ(SelectedNode().rfind(text, 0), 0u) << SelectedNode();
    }
    std::string SelectedNode() {
        return console.TreeCtrl().GetItemText(console.TreeCtrl().GetSelectedItem());
    }
    // The right half's rows, from its list as drawn.
    std::vector<std::string> RightColumn() {
        std::vector<std::string> cells;
        const SYListCtrlEx* list = console.RightList();
        for (int row = 0; list != nullptr && row < list->GetItemCount(); ++row)
            cells.push_back(list->GetItemText(row, 0));
        return cells;
    }
    void IdentifySetup(SYScriptedModalHost& host) {
        BrowseTo("Unidentified Windows CE Files");
        ASSERT_EQ(RightColumn(), (std::vector<std::string>{"junk.tmp", "setup.exe", "setup.exe"}));
        host.ExpectDialog(IDD_EDIT_ID_RULE)
            .Check(IDC_RULE_ALL_VERSIONS)
            .Type(IDC_RULE_APP_NAME, "Setup Wizard")
            .Type(IDC_RULE_APP_COMPANY, "Acme Installers")
            .PressOK();
        // To the list, down to setup.exe, its context menu, the first entry.
        screen.Keys({Keys::Tab, Keys::Down, Keys::F(9), Keys::Newline});
        Play();
    }

    ReportCapture reports;
    SYDatabase db;
    SYTermConsole console{db};
    SYTermBufferScreen screen{24, 80};
    std::optional<SYTermConsoleWindow> window;
};

TEST_F(TermConsoleTest, ApplyingARuleShowsItsProgressOnTheStatusLine) {
    std::vector<std::string> statusLines;
    const auto drawn = SYGetApp().GetProgressSink();
    SYGetApp().SetProgressSink([&](const std::string& task, int percent) {
        drawn(task, percent);
        statusLines.push_back(screen.Line(23));
    });
    SYScriptedModalHost host;
    IdentifySetup(host);
    ASSERT_TRUE(host.ScriptDone());
    EXPECT_NE(std::find_if(statusLines.begin(), statusLines.end(),
                           [](const std::string& line) {
                               return line.rfind("Applying rules… 0%  [....", 0) == 0;
                           }),
              statusLines.end());
    EXPECT_NE(screen.Line(23).find("F1 Help"), std::string::npos) << "the hints are back after";
}

TEST_F(TermConsoleTest, IgnoringAnApplicationFromTheTreeTakesItsNodeAway) {
    SYScriptedModalHost host;
    IdentifySetup(host);
    screen.Keys({'/'});
    screen.Type("wizard");
    screen.Keys({Keys::Newline, Keys::Tab});
    Play();
    ASSERT_EQ(window->Focus(), SYTermConsole::Pane::Tree);
    host.ExpectDialog(IDD_IGNORE_APP).PressOK();
    screen.Keys({Keys::F(9), Keys::Newline});
    const std::string shown = Play();
    EXPECT_TRUE(host.ScriptDone());
    EXPECT_EQ(shown.find("Setup Wizard"), std::string::npos) << shown;
    EXPECT_NE(shown.find("Acme Installers"), std::string::npos) << "the company node stays";
}

TEST_F(TermConsoleTest, ClicksSelectInBothPanesAndADoubleClickOpens) {
    Play();
    auto click = [&](const std::string& text, bool twice) {
        int row = -1;
        int col = -1;
        ASSERT_TRUE(screen.Find(text, row, col)) << text << "\n" << screen.Dump();
        window->HandleKey(Keys::Click(row, col, twice));
        window->Draw();
    };
    click("Unidentified Windows CE Files", false);
    EXPECT_EQ(SelectedNode().rfind("Unidentified Windows CE Files", 0), 0u);
    EXPECT_EQ(window->Focus(), SYTermConsole::Pane::Tree);
    click("junk.tmp", false);
    EXPECT_EQ(window->Focus(), SYTermConsole::Pane::Right);
    EXPECT_EQ(console.List().GetItemText(console.List().GetSelectedItem(), 0), "junk.tmp");
    click("Unidentified Windows CE Files", true);
    EXPECT_EQ(window->Focus(), SYTermConsole::Pane::Right) << "a leaf opens into the list";
    // A header click sorts; the second, the other way round.
    click("Size", false);
    click("Size", false);
    EXPECT_EQ(RightColumn(), (std::vector<std::string>{"setup.exe", "setup.exe", "junk.tmp"}));
}

TEST_F(TermConsoleTest, TheListScrollsSidewaysToItsLastColumnWithMarksAtTheEdges) {
    screen.Resize(24, 60);
    Play();
    BrowseTo("Unidentified Windows CE Files");
    window->HandleKey(Keys::Tab);
    // The header, right of the tree, after pressing these keys in the list.
    const auto header = [&](std::initializer_list<int> keys) {
        for (const int key : keys)
            window->HandleKey(key);
        window->Draw();
        return screen.Line(2).substr(24);
    };
    EXPECT_EQ(header({}), "|File               Size Mod Time  >");
    EXPECT_EQ(header({Keys::Right, Keys::Right}), "|<    Size Mod Time") << "stops at the last";
    EXPECT_EQ(screen.Line(3).substr(24), "|        7 3/4/2021 1:02:03 PM");
    EXPECT_EQ(header({Keys::Left}), "|File               Size Mod Time  >");
}

} // namespace
