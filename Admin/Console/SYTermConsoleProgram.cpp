#include "SYTermConsoleProgram.h"

#include <clocale>
#include <cstdio>
#include <filesystem>
#include <memory>

// curses defines function-like macros with ordinary names; this file uses only its calls.
#include <curses.h>

#include "SYTermConsole.h"
#include "SYTermConsoleKeys.h"
#include "SYTermConsoleWindow.h"
#include "SYTermScreen.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/widgets/SYMessageBox.h"
#include "outside/widgets/SYModalHost.h"

static_assert(SYTermConsoleKeys::Down == KEY_DOWN && SYTermConsoleKeys::End == KEY_END &&
              SYTermConsoleKeys::Resize == KEY_RESIZE && SYTermConsoleKeys::F(10) == KEY_F(10));

namespace {

// The terminal through curses, as small as the main screen needs it.
class CursesScreen : public SYTermScreen {
public:
    CursesScreen() {
        std::setlocale(LC_ALL, "");
        initscr();
        cbreak();
        noecho();
        keypad(stdscr, TRUE);
        set_escdelay(25);
        curs_set(0);
    }
    ~CursesScreen() override { endwin(); }
    CursesScreen(const CursesScreen&) = delete;
    CursesScreen& operator=(const CursesScreen&) = delete;

    int Rows() const override { return LINES; }
    int Cols() const override { return COLS; }
    void Put(int row, int col, std::string_view text, SYTermAttr attr) override {
        if (row < 0 || row >= LINES || col >= COLS)
            return;
        attrset(toCurses(attr));
        int cells = 0;
        std::size_t bytes = 0;
        for (; bytes < text.size(); ++bytes) {
            if ((static_cast<unsigned char>(text[bytes]) & 0xC0) == 0x80)
                continue;
            if (col + cells >= COLS)
                break;
            ++cells;
        }
        mvaddnstr(row, col, text.data(), static_cast<int>(bytes));
        attrset(A_NORMAL);
    }
    void Fill(int row, int col, int rows, int cols, SYTermAttr attr) override {
        attrset(toCurses(attr));
        for (int r = row; r < row + rows && r < LINES; ++r)
            mvhline(r, col, ' ', cols);
        attrset(A_NORMAL);
    }
    void SetCursor(int row, int col, bool visible) override {
        move(row, col);
        curs_set(visible ? 1 : 0);
    }
    void Refresh() override { refresh(); }
    int ReadKey() override { return getch(); }

private:
    static int toCurses(SYTermAttr attr) {
        switch (attr) {
        case SYTermAttr::Reverse:
            return A_REVERSE;
        case SYTermAttr::Bold:
            return A_BOLD;
        case SYTermAttr::Dim:
            return A_DIM;
        case SYTermAttr::Underline:
            return A_UNDERLINE;
        case SYTermAttr::Normal:
            break;
        }
        return A_NORMAL;
    }
};

// The one place where the terminal's modal host is made: dialogs, sheets and message boxes
// run through it. Until a host is made here, DoModal answers Cancel without showing.
std::unique_ptr<SYModalHost> makeModalHost(SYTermScreen& /*screen*/) {
    return nullptr;
}

} // namespace

int SYTermConsoleProgram::Run(SYDatabase& database, const std::string& installPath) {
    SYGetApp().SetInstallPath(installPath);
    CursesScreen screen;
    const std::unique_ptr<SYModalHost> host = makeModalHost(screen);
    const SYModalHostScope hostScope(host.get());
    SYGetApp().SetReporter([](const SYFailureReport& report) {
        SYMessageBox::Show(report.parent, report.message, "", MB_OK | MB_ICONSTOP);
    });
    SYTermConsole console(database);
    console.SetPrintFolder(std::filesystem::current_path().string());
    if (console.Start() == 0)
        return 1;
    SYTermConsoleWindow window(console, screen);
    window.Run();
    return 0;
}
