#include "SYTermCursesScreen.h"

#include <cerrno>
#include <clocale>
#include <cstring>
#include <langinfo.h>
#include <string>

#include <curses.h>

#include "SYTermKeys.h"
#include "SYTermText.h"

static_assert(SYTermKeys::Down == KEY_DOWN && SYTermKeys::End == KEY_END &&
              SYTermKeys::Resize == KEY_RESIZE && SYTermKeys::F(10) == KEY_F(10) &&
              SYTermKeys::BackTab == KEY_BTAB && SYTermKeys::Enter == KEY_ENTER);

namespace {

constexpr short SelectionPair = 1;
constexpr int EscDelayMs = 25;
constexpr mmask_t WheelUp = BUTTON4_PRESSED;
#ifdef BUTTON5_PRESSED
constexpr mmask_t WheelDown = BUTTON5_PRESSED;
#else
constexpr mmask_t WheelDown = 0;
#endif

// Frame lines in terminals whose locale cannot show them.
std::string asciiFrames(std::string_view text) {
    static constexpr std::pair<std::string_view, char> frames[] = {
        {"─", '-'}, {"│", '|'}, {"┌", '+'}, {"┐", '+'}, {"└", '+'},
        {"┘", '+'}, {"▲", '^'}, {"▼", 'v'}, {"…", '~'}};
    std::string out;
    for (int i = 0; i < SYTermText::Width(text); ++i) {
        std::string point = SYTermText::Slice(text, i, 1);
        for (const auto& [frame, ascii] : frames) {
            if (point == frame)
                point = std::string(1, ascii);
        }
        out += point.size() == 1 ? point : "?";
    }
    return out;
}

} // namespace

SYTermCursesScreen::SYTermCursesScreen() {
    std::setlocale(LC_ALL, "");
    m_unicode = std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0;
    initscr();
    raw();
    noecho();
    nonl();
    keypad(stdscr, TRUE);
    set_escdelay(EscDelayMs);
    mousemask(BUTTON1_CLICKED | BUTTON1_DOUBLE_CLICKED | WheelUp | WheelDown, nullptr);
    m_colours = has_colors();
    if (m_colours) {
        start_color();
        use_default_colors();
        // Only the selection is coloured; everything else keeps the terminal's own colours.
        init_pair(SelectionPair, COLOR_BLACK, COLOR_CYAN);
    }
    m_ctrlPageUp = key_defined("\033[5;5~");
    m_ctrlPageDown = key_defined("\033[6;5~");
}

SYTermCursesScreen::~SYTermCursesScreen() {
    endwin();
}

int SYTermCursesScreen::Rows() const {
    return LINES;
}

int SYTermCursesScreen::Cols() const {
    return COLS;
}

int SYTermCursesScreen::Attributes(SYTermAttr attr) const {
    switch (attr) {
    case SYTermAttr::Normal:
        return A_NORMAL;
    case SYTermAttr::Reverse:
        return m_colours ? static_cast<int>(COLOR_PAIR(SelectionPair)) : A_REVERSE;
    case SYTermAttr::Bold:
        return A_BOLD;
    case SYTermAttr::Dim:
        return A_DIM;
    case SYTermAttr::Underline:
        return A_UNDERLINE;
    }
    return A_NORMAL;
}

void SYTermCursesScreen::Put(int row, int col, std::string_view text, SYTermAttr attr) {
    if (row < 0 || row >= LINES)
        return;
    int skip = col < 0 ? -col : 0;
    const int room = COLS - (col + skip);
    const std::string shown = SYTermText::Slice(text, skip, room);
    if (shown.empty())
        return;
    attrset(Attributes(attr));
    const std::string out = m_unicode ? shown : asciiFrames(shown);
    mvaddnstr(row, col + skip, out.c_str(), static_cast<int>(out.size()));
    attrset(A_NORMAL);
}

void SYTermCursesScreen::Fill(int row, int col, int rows, int cols, SYTermAttr attr) {
    const std::string blank(static_cast<std::size_t>(cols > 0 ? cols : 0), ' ');
    for (int r = row; r < row + rows; ++r)
        Put(r, col, blank, attr);
}

void SYTermCursesScreen::SetCursor(int row, int col, bool visible) {
    curs_set(visible ? 1 : 0);
    if (row >= 0 && row < LINES && col >= 0 && col < COLS)
        move(row, col);
}

void SYTermCursesScreen::Refresh() {
    refresh();
}

int SYTermCursesScreen::Translate(int key) const {
    if (key == m_ctrlPageUp && key > 0)
        return SYTermKeys::CtrlPageUp;
    if (key == m_ctrlPageDown && key > 0)
        return SYTermKeys::CtrlPageDown;
    return key;
}

int SYTermCursesScreen::Mouse() const {
    MEVENT event;
    if (getmouse(&event) != OK)
        return KEY_MOUSE;
    if ((event.bstate & (WheelUp | WheelDown)) != 0)
        return SYTermKeys::Wheel(event.y, event.x, (event.bstate & WheelDown) != 0);
    if ((event.bstate & (BUTTON1_CLICKED | BUTTON1_DOUBLE_CLICKED)) == 0)
        return KEY_MOUSE;
    return SYTermKeys::Click(event.y, event.x, (event.bstate & BUTTON1_DOUBLE_CLICKED) != 0);
}

int SYTermCursesScreen::ReadKey() {
    if (!m_typeahead.empty()) {
        const int key = m_typeahead.front();
        m_typeahead.pop_front();
        return key;
    }
    int key = ERR;
    do {
        errno = 0;
        key = getch();
    } while (key == ERR && errno == EINTR);
    return Decode(key);
}

void SYTermCursesScreen::TakeTypeahead() {
    nodelay(stdscr, TRUE);
    for (int key = getch(); key != ERR; key = getch()) {
        const int decoded = Decode(key);
        nodelay(stdscr, TRUE);
        m_typeahead.push_back(decoded);
    }
    nodelay(stdscr, FALSE);
}

int SYTermCursesScreen::Decode(int key) {
    if (key == KEY_MOUSE)
        return Mouse();
    if (key != SYTermKeys::Esc)
        return Translate(key);
    // A character already waiting after Esc came with it: the terminal's Alt.
    nodelay(stdscr, TRUE);
    const int next = getch();
    nodelay(stdscr, FALSE);
    if (next >= ' ' && next < 0x7F)
        return SYTermKeys::Alt(next);
    if (next != ERR)
        ungetch(next);
    return SYTermKeys::Esc;
}
