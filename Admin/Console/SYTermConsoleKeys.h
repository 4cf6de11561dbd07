#pragma once

// The key codes the console's front end reacts to, with the values ncurses gives them, so
// that the front end needs no curses header (whose macros clash with ordinary names).
namespace SYTermConsoleKeys {

inline constexpr int Esc = 27;
inline constexpr int Tab = '\t';
inline constexpr int Newline = '\n';
inline constexpr int Return = '\r';
inline constexpr int Delete = 127;
inline constexpr int Down = 0402;
inline constexpr int Up = 0403;
inline constexpr int Left = 0404;
inline constexpr int Right = 0405;
inline constexpr int Home = 0406;
inline constexpr int Backspace = 0407;
inline constexpr int NextPage = 0522;
inline constexpr int PreviousPage = 0523;
inline constexpr int Enter = 0527;
inline constexpr int BackTab = 0541;
inline constexpr int End = 0550;
inline constexpr int Resize = 0632;
constexpr int F(int n) {
    return 0410 + n;
}

} // namespace SYTermConsoleKeys
