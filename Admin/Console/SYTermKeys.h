#pragma once

// Keys that ncurses has no fixed code for. They lie far above its own codes (which end
// below 01000, and the ones a terminal defines at run time follow just after), so both
// vocabularies travel through SYTermScreen::ReadKey together.
struct SYTermKeys {
    static constexpr int Esc = 27;
    static constexpr int CtrlPageUp = 0x10001;
    static constexpr int CtrlPageDown = 0x10002;

    // Alt with a printable character: what a terminal sends as Esc and the character at once.
    static constexpr int Alt(int character) { return AltBase | (character & 0xFF); }
    static constexpr bool IsAlt(int key) { return (key & ~0xFF) == AltBase; }
    static constexpr int AltCharacter(int key) { return key & 0xFF; }

private:
    static constexpr int AltBase = 0x20000;
};
