#pragma once

#include <string_view>

// What the terminal front end draws on and reads keys from: ncurses in the program, an
// in-memory grid with a queue of keys in tests. Keys are ncurses' codes (printable
// characters as themselves, KEY_UP, KEY_F(1), KEY_RESIZE, 27 for Esc, ...), so the
// front end has one vocabulary whichever screen it runs on.
enum class SYTermAttr {
    Normal,
    Reverse,   // selection, focused control, menu bar
    Bold,      // titles, default button
    Dim,       // disabled controls
    Underline, // hotkey letters
};

class SYTermScreen {
public:
    virtual ~SYTermScreen() = default;

    virtual int Rows() const = 0;
    virtual int Cols() const = 0;
    // Text is UTF-8; what falls outside the screen is cut off.
    virtual void Put(int row, int col, std::string_view text, SYTermAttr attr) = 0;
    virtual void Fill(int row, int col, int rows, int cols, SYTermAttr attr) = 0;
    virtual void SetCursor(int row, int col, bool visible) = 0;
    virtual void Refresh() = 0;
    // Blocks until a key comes; an in-memory screen gives -1 once its queue is empty.
    virtual int ReadKey() = 0;
    // Takes in, without waiting, the keys typed while long work runs, for ReadKey to give
    // in order afterwards; a screen whose keys already wait in a queue has nothing to do.
    virtual void TakeTypeahead() {}
};
