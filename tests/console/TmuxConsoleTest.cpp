#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "support/CommandRunner.h"
#include "support/TempDir.h"

namespace {

using nlohmann::json;
using Lines = std::vector<std::string>;

bool has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

Lines linesOf(const std::string& text) {
    Lines lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

// The real program in a detached tmux session of 100x30 on a small generated inventory:
// keys go in, the pane is read back, and the numbers are checked against the store through
// the command line while the program holds it open.
class TmuxConsoleTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (std::system("tmux -V >/dev/null 2>&1") != 0)
            GTEST_SKIP() << "tmux is not installed";
        ASSERT_EQ(runCommand(dir.Path(), {"generate", "--clients", "12", "--profile", "demo",
                                          "--seed", "5", "--out", dir.File("inv.db")})
                      .code,
                  0);
        // A server of its own without any configuration, so that the test neither sees nor
        // disturbs the user's. The huge ESCDELAY is what curses would wait after Esc if the
        // program did not set its own delay: a lone Esc then would not act within the waits.
        tmux = "tmux -f /dev/null -S '" + dir.File("tmux.sock") + "' ";
        ASSERT_EQ(Tmux("new-session -d -x 100 -y 30 -s tv \"cd '" + dir.Path() +
                       "' && ESCDELAY=600000 LC_ALL=C.UTF-8 '" + TV_BINARY +
                       "' --db inv.db 2>console.err; echo \\$? >status.txt\""),
                  0);
    }
    void TearDown() override {
        if (!tmux.empty())
            Tmux("kill-server 2>/dev/null");
    }

    int Tmux(const std::string& words) { return std::system((tmux + words).c_str()); }
    void Keys(const std::string& names) { Tmux("send-keys -t tv " + names); }
    // Text as typed; a tab in it moves to the next field.
    void Type(const std::string& text) { Tmux("send-keys -t tv -l '" + text + "'"); }

    // Polls until the check passes, for half a minute at most (a loaded machine and the
    // sanitizers make the program slow).
    static bool Poll(const std::function<bool()>& check) {
        for (int i = 0; i < 600; ++i) {
            if (check())
                return true;
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        return false;
    }
    // Polls the pane until it passes the check and stands as it stood at the last look, so
    // that a screen half written is never read; pane keeps the last capture.
    bool Until(const std::function<bool()>& check) {
        return Poll([&] {
            const std::string last = pane;
            Tmux("capture-pane -p -t tv > '" + dir.File("pane.txt") + "' 2>/dev/null");
            pane = readFile(dir.File("pane.txt"));
            return pane == last && check();
        });
    }
    bool Shows(const std::string& text) {
        return Until([&] { return has(pane, text); });
    }
    bool Hides(const std::string& text) {
        return Until([&] { return !has(pane, text); });
    }
    // q ends the program cleanly: status 0, and no sanitizer's report on its stderr.
    void Quit() {
        Keys("q");
        ASSERT_TRUE(Poll([&] { return Tmux("has-session -t tv 2>/dev/null") != 0; })) << pane;
        EXPECT_EQ(readFile(dir.File("status.txt")), "0\n") << readFile(dir.File("console.err"));
    }
    // What stands after the label on its line in the pane, up to a wide gap or a frame.
    std::string Field(const std::string& label) const {
        for (const std::string& line : linesOf(pane)) {
            const std::size_t at = line.rfind(label);
            if (at == std::string::npos)
                continue;
            const std::size_t start = line.find_first_not_of(' ', at + label.size());
            if (start == std::string::npos)
                return {};
            const std::string value = line.substr(start);
            return value.substr(0, std::min(value.find("  "), value.find("│")));
        }
        return "<no " + label + ">";
    }

    // A view of the command line on the inventory, in JSON.
    json Store(std::vector<std::string> words) {
        words.insert(words.end(), {"--format", "json", "--db", dir.File("inv.db")});
        const CommandResult result = runCommand(dir.Path(), words);
        EXPECT_EQ(result.code, 0) << result.err;
        return json::parse(result.out, nullptr, false);
    }
    json WindowsCounts() { return Store({"summary"})[0]; }
    json App(const std::string& company, const std::string& version) {
        for (const json& app : Store({"list", "apps", "--company", company})) {
            if (app["version"] == version)
                return Store({"app", std::to_string(app["id"].get<int>())});
        }
        return json::object();
    }

    TempDir dir;
    std::string tmux;
    std::string pane;
};

// From an unidentified file through the Identify File dialog to the tree, the application
// view and an installation's details, and back through the rule configuration sheet.
TEST_F(TmuxConsoleTest, IdentifyingAFileShowsItsApplicationEverywhereAndTheRuleSheetUndoesIt) {
    const json before = WindowsCounts();
    const std::string apps = "Windows Applications  (";
    ASSERT_TRUE(Shows("Software Inventory Company List")) << pane;
    EXPECT_TRUE(has(pane, apps + to_string(before["applications"]) + ")")) << pane;
    EXPECT_TRUE(has(pane, "F1 Help")) << pane;

    // Two versions of pcziphlp.dll on five clients, the sixth and seventh rows.
    Keys("Down");
    ASSERT_TRUE(Shows("Software Inventory Unidentified Files")) << pane;
    Keys("Tab Down Down Down Down Down F9 Enter");
    ASSERT_TRUE(Shows("Identify all versions")) << pane;
    EXPECT_EQ(Field("Name:"), "pcziphlp.dll");
    // All versions, then the application's fields.
    Keys("Tab Tab Space Tab Tab");
    Type("Zip Helper\t\t1.0\tAcme Tools");
    ASSERT_TRUE(Shows("Acme Tools")) << pane;
    Keys("Enter");
    const int more = before["applications"].get<int>() + 1;
    ASSERT_TRUE(Shows(apps + std::to_string(more) + ")")) << pane;
    EXPECT_FALSE(has(pane, "pcziphlp.dll")) << pane;
    const json identified = WindowsCounts();
    EXPECT_EQ(identified["applications"], more);
    EXPECT_EQ(identified["unidentified"], before["unidentified"].get<int>() - 2);

    // The new company comes first in the tree; its application opens the view.
    Keys("BTab Home Right Down Right Down");
    ASSERT_TRUE(Shows("Zip Helper  [ 1.0 ]")) << pane;
    ASSERT_TRUE(Shows("Software Inventory Application")) << pane;
    const json app = App("Acme Tools", "1.0");
    ASSERT_EQ(app["clients"].size(), 6u) << app;
    EXPECT_EQ(Field("Company:"), "Acme Tools");
    EXPECT_EQ(Field("Total clients:"), to_string(app["total_clients"]));
    EXPECT_EQ(Field("Total installations:"), to_string(app["total_installations"]));
    for (const json& file : app["files"])
        EXPECT_TRUE(has(pane, file["name"].get<std::string>())) << pane;

    // Enter on the Clients page opens the first installation's details; Esc closes them.
    Keys("Tab Right");
    ASSERT_TRUE(Shows("Last Scan")) << pane;
    Keys("Enter");
    ASSERT_TRUE(Shows("View Installation Details")) << pane;
    EXPECT_EQ(Field("Client:"), app["clients"][0]["client"]);
    EXPECT_EQ(Field("Location:"), app["clients"][0]["location"]);
    Keys("Escape");
    ASSERT_TRUE(Hides("View Installation Details")) << pane;

    // The rule sheet from the Actions menu: delete the new rule's row, then OK.
    Keys("F10 Right c");
    ASSERT_TRUE(Shows("Software Inventory Rules - Windows PCs")) << pane;
    const Lines lines = linesOf(pane);
    const auto lineOf = [&](const std::string& text) {
        return std::find_if(lines.begin(), lines.end(),
                            [&](const std::string& line) { return has(line, text); }) -
               lines.begin();
    };
    const auto row = lineOf("pcziphlp.dll") - lineOf("Mod Time") - 1;
    ASSERT_TRUE(row >= 0 && has(pane, "pcziphlp.dll")) << pane;
    std::string keys = "Home";
    for (auto i = 0; i < row; ++i)
        keys += " Down";
    Keys(keys + " d");
    ASSERT_TRUE(Hides("pcziphlp.dll")) << pane;
    // From Delete past the page tabs to OK.
    Keys("Tab Tab Enter");
    ASSERT_TRUE(Shows(apps + to_string(before["applications"]) + ")")) << pane;
    EXPECT_EQ(WindowsCounts(), before);
    EXPECT_FALSE(has(pane, "Acme Tools")) << pane;
    EXPECT_FALSE(has(to_string(Store({"rules", "list"})), "pcziphlp.dll"));
    Keys("BTab Left Down");
    ASSERT_TRUE(Shows("pcziphlp.dll")) << pane;

    Quit();
}

// Search, search again and a miss; printing the application view and reading the PDF back;
// a resize under a sheet and Esc closing it.
TEST_F(TmuxConsoleTest, SearchesPrintsAViewAndLaysTheScreenOutAfterAResizeUnderASheet) {
    ASSERT_TRUE(Shows("Software Inventory Company List")) << pane;
    Keys("/");
    ASSERT_TRUE(Shows("Search:")) << pane;
    Type("BLUEFIN mail");
    Keys("Enter");
    ASSERT_TRUE(Shows("Software Inventory Application")) << pane;
    EXPECT_EQ(Field("Name:"), "Bluefin Mail");
    EXPECT_EQ(Field("Version:"), "3.0");
    Keys("F3");
    ASSERT_TRUE(Until([&] { return Field("Version:") == "3.1"; })) << pane;
    Keys("/");
    Type("no such thing");
    Keys("Enter");
    ASSERT_TRUE(Shows("Not found: no such thing")) << pane;

    Keys("F10 Enter");
#ifdef TV_HAVE_CAIRO
    ASSERT_TRUE(Shows("Printed to ")) << pane;
    const std::string pdf = Field("Printed to ");
    EXPECT_EQ(readFile(pdf).rfind("%PDF", 0), 0u) << pdf;
    if (std::system("pdftotext -v >/dev/null 2>&1") != 0) {
        std::cout << "[ SKIPPED  ] reading the PDF back: pdftotext (poppler-utils) is absent\n";
    } else {
        const std::string text = dir.File("print.txt");
        ASSERT_EQ(std::system(("pdftotext -layout '" + pdf + "' '" + text + "'").c_str()), 0);
        const std::string printed = readFile(text);
        const json app = App("Bluefin Labs", "3.1");
        EXPECT_TRUE(has(printed, "Software Inventory Application")) << printed;
        EXPECT_TRUE(has(printed, "Bluefin Mail")) << printed;
        for (const json& file : app["files"])
            EXPECT_TRUE(has(printed, file["name"].get<std::string>())) << printed;
        for (const json& client : app["clients"])
            EXPECT_TRUE(has(printed, client["client"].get<std::string>())) << printed;
    }
#else
    ASSERT_TRUE(Shows("Could not print")) << pane;
#endif

    // Enter on an application file opens its properties. A resize to 80x24 reaches the sheet;
    // Esc closes it at once, onto the main screen laid out anew: the tree takes two fifths of
    // the width, the status line the last row.
    Keys("Tab Enter");
    ASSERT_TRUE(Shows("File Properties")) << pane;
    Tmux("resize-window -t tv -x 80 -y 24");
    ASSERT_TRUE(Until([&] {
        const Lines lines = linesOf(pane);
        return lines.size() == 24 && lines[0].ends_with("┐");
    })) << pane;
    Keys("Escape");
    ASSERT_TRUE(Hides("File Properties")) << pane;
    const Lines lines = linesOf(pane);
    ASSERT_EQ(lines.size(), 24u) << pane;
    EXPECT_EQ(lines[1].find('|'), 32u) << pane;
    EXPECT_TRUE(has(lines[23], "F1 Help")) << pane;
    Quit();
}

} // namespace
