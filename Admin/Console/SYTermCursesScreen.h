#pragma once

#include <deque>

#include "SYTermScreen.h"

// The real terminal through ncurses, for the life of the object: raw keys with the keypad
// decoded, Esc without delay, the mouse and colours where the terminal has them, and
// KEY_RESIZE when the window changes size. Esc with a character at once reads as one Alt
// key (SYTermKeys), Ctrl-PgUp/PgDn and mouse clicks as theirs. Only one may exist at a time.
class SYTermCursesScreen : public SYTermScreen {
public:
    SYTermCursesScreen();
    SYTermCursesScreen(const SYTermCursesScreen&) = delete;
    SYTermCursesScreen& operator=(const SYTermCursesScreen&) = delete;
    ~SYTermCursesScreen() override;

    int Rows() const override;
    int Cols() const override;
    void Put(int row, int col, std::string_view text, SYTermAttr attr) override;
    void Fill(int row, int col, int rows, int cols, SYTermAttr attr) override;
    void SetCursor(int row, int col, bool visible) override;
    void Refresh() override;
    int ReadKey() override;
    // Read now, an Esc and the next key typed a moment later stay two keys, and the terminal
    // driver's wait for input no longer holds back the redraw of the progress.
    void TakeTypeahead() override;

    bool HaveColours() const { return m_colours; }

private:
    int Attributes(SYTermAttr attr) const;
    int Translate(int key) const;
    // The key that curses' code stands for, reading what came with it.
    int Decode(int key);
    // The click or wheel turn that KEY_MOUSE stands for, or KEY_MOUSE for any other event.
    int Mouse() const;

    bool m_colours = false;
    bool m_unicode = false;
    int m_ctrlPageUp = -1;
    int m_ctrlPageDown = -1;
    std::deque<int> m_typeahead;
};
