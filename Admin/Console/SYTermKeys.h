#pragma once

// The keys of the terminal front end. The named ones carry the values ncurses gives them, so
// that code drawing on SYTermScreen needs no curses header (whose macros clash with ordinary
// names); the curses screen checks them against its own. Keys that ncurses has no fixed code
// for, and mouse clicks, lie far above its codes (which end below 01000, and the ones a
// terminal defines at run time follow just after), so both travel through
// SYTermScreen::ReadKey together.
struct SYTermKeys {
    static constexpr int Esc = 27;
    static constexpr int Tab = '\t';
    static constexpr int Newline = '\n';
    static constexpr int Return = '\r';
    static constexpr int Delete = 127;
    static constexpr int Down = 0402;
    static constexpr int Up = 0403;
    static constexpr int Left = 0404;
    static constexpr int Right = 0405;
    static constexpr int Home = 0406;
    static constexpr int Backspace = 0407;
    static constexpr int NextPage = 0522;
    static constexpr int PreviousPage = 0523;
    static constexpr int Enter = 0527;
    static constexpr int BackTab = 0541;
    static constexpr int End = 0550;
    static constexpr int Resize = 0632;
    static constexpr int F(int n) { return 0410 + n; }
    static constexpr int CtrlPageUp = 0x10001;
    static constexpr int CtrlPageDown = 0x10002;

    // Alt with a printable character: what a terminal sends as Esc and the character at once.
    static constexpr int Alt(int character) { return AltBase | (character & 0xFF); }
    static constexpr bool IsAlt(int key) { return (key & ~0xFF) == AltBase; }
    static constexpr int AltCharacter(int key) { return key & 0xFF; }

    // A click of the first mouse button on a screen cell; a double click opens.
    static constexpr int Click(int row, int col, bool twice = false) {
        return MouseBase | (twice ? DoubleBit : 0) | ((row & 0xFFF) << 12) | (col & 0xFFF);
    }
    static constexpr bool IsClick(int key) { return (key & (MouseBase | WheelBit)) == MouseBase; }
    static constexpr bool IsDoubleClick(int key) { return (key & DoubleBit) != 0; }
    static constexpr int ClickRow(int key) { return (key >> 12) & 0xFFF; }
    static constexpr int ClickCol(int key) { return key & 0xFFF; }
    // The wheel turned over a screen cell, down towards the end of what is shown or up; its
    // cell reads as a click's.
    static constexpr int Wheel(int row, int col, bool down) {
        return MouseBase | WheelBit | (down ? DownBit : 0) | ((row & 0xFFF) << 12) | (col & 0xFFF);
    }
    static constexpr bool IsWheel(int key) {
        return (key & (MouseBase | WheelBit)) == (MouseBase | WheelBit);
    }
    static constexpr bool IsWheelDown(int key) { return IsWheel(key) && (key & DownBit) != 0; }

private:
    static constexpr int AltBase = 0x20000;
    static constexpr int MouseBase = 0x40000000;
    static constexpr int DoubleBit = 0x20000000;
    static constexpr int WheelBit = 0x10000000;
    static constexpr int DownBit = 0x08000000;
};
