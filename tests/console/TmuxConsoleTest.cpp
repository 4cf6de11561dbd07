#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include "support/CommandRunner.h"
#include "support/TempDir.h"

namespace {

// The real program in a detached tmux session of 100x30 on a small generated inventory.
class TmuxConsoleTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (std::system("tmux -V >/dev/null 2>&1") != 0)
            GTEST_SKIP() << "tmux is not installed";
        ASSERT_EQ(runCommand(dir.Path(), {"generate", "--clients", "12", "--profile", "demo",
                                          "--seed", "5", "--out", dir.File("inv.db")})
                      .code,
                  0);
        // A server of its own, so that the test neither sees nor disturbs the user's.
        tmux = "tmux -S '" + dir.File("tmux.sock") + "' ";
        const std::string start = tmux + "new-session -d -x 100 -y 30 -s tv \"cd '" + dir.Path() +
                                  "' && TERM=xterm '" + TV_BINARY + "' --db inv.db\"";
        ASSERT_EQ(std::system(start.c_str()), 0);
    }
    void TearDown() override {
        if (!tmux.empty())
            Tmux("kill-server 2>/dev/null");
    }

    int Tmux(const std::string& words) { return std::system((tmux + words).c_str()); }
    std::string Pane() {
        Tmux("capture-pane -p -t tv > '" + dir.File("pane.txt") + "' 2>/dev/null");
        return readFile(dir.File("pane.txt"));
    }
    // The pane once it shows the text, or as it stands after half a minute (a loaded machine
    // and the sanitizers make the program slow to start).
    std::string WaitFor(const std::string& text) {
        std::string pane;
        for (int i = 0; i < 300; ++i) {
            pane = Pane();
            if (pane.find(text) != std::string::npos)
                break;
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
        return pane;
    }
    bool SessionGone() {
        for (int i = 0; i < 300; ++i) {
            if (Tmux("has-session -t tv 2>/dev/null") != 0)
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
        }
        return false;
    }

    TempDir dir;
    std::string tmux;
};

TEST_F(TmuxConsoleTest, ShowsTheTreeAndListAndQuitsOnQ) {
    std::string pane = WaitFor("Software Inventory Company List");
    EXPECT_NE(pane.find("Windows Applications  ("), std::string::npos) << pane;
    EXPECT_NE(pane.find("Unidentified Windows CE Files"), std::string::npos) << pane;
    EXPECT_NE(pane.find("F1 Help"), std::string::npos) << pane;

    Tmux("send-keys -t tv Down");
    pane = WaitFor("Software Inventory Unidentified Files");
    EXPECT_NE(pane.find("Mod Time"), std::string::npos) << pane;

    Tmux("send-keys -t tv q");
    EXPECT_TRUE(SessionGone()) << Pane();
}

} // namespace
