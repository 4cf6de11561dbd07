#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "SYTermBufferScreen.h"
#include "SYTermConsole.h"
#include "SYTermConsoleWindow.h"
#include "SYTermKeys.h"
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

    ReportCapture reports;
    SYDatabase db;
    SYTermConsole console{db};
    SYTermBufferScreen screen{24, 80};
    std::optional<SYTermConsoleWindow> window;
};

TEST_F(TermConsoleTest, IgnoringAnApplicationFromTheTreeTakesItsNodeAway) {
    SYScriptedModalHost host;
    host.ExpectDialog(IDD_EDIT_ID_RULE)
        .Check(IDC_RULE_ALL_VERSIONS)
        .Type(IDC_RULE_APP_NAME, "Setup Wizard")
        .Type(IDC_RULE_APP_COMPANY, "Acme Installers")
        .PressOK();
    // To the Windows CE files, to setup.exe in the list, Identify File from its actions.
    for (int i = 0; i < 6; ++i)
        screen.Keys({Keys::Down});
    screen.Keys({Keys::Tab, Keys::Down, Keys::F(9), Keys::Newline, '/'});
    screen.Type("wizard");
    screen.Keys({Keys::Newline, Keys::Tab});
    Play();
    ASSERT_EQ(window->Focus(), SYTermConsole::Pane::Tree);
    ASSERT_EQ(console.Shown(), SYTermConsole::View::App);
    host.ExpectDialog(IDD_IGNORE_APP).PressOK();
    screen.Keys({Keys::F(9), Keys::Newline});
    const std::string shown = Play();
    EXPECT_TRUE(host.ScriptDone());
    EXPECT_EQ(shown.find("Setup Wizard"), std::string::npos) << shown;
    EXPECT_NE(shown.find("Acme Installers"), std::string::npos) << "the company node stays";
}

} // namespace
