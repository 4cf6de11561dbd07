#pragma once

#include <string>

// The one font every window measures with: a fixed pixel width per character and a fixed
// row height, so that widths come out the same on every machine and in every test. The
// terminal front end divides pixels by these to get cells.
class SYFontMetrics {
public:
    static constexpr int CharWidth = 8;
    static constexpr int RowHeight = 16;
    static constexpr int HeaderHeight = RowHeight;
    static constexpr int ScrollBarWidth = 16;
    // Four horizontal and eight vertical dialog units make one character cell.
    static constexpr int DialogUnitX = CharWidth / 4;
    static constexpr int DialogUnitY = RowHeight / 8;
    // What a column adds to the width of its widest sample.
    static constexpr int ColumnPadding = 12;

    // Width in pixels of a UTF-8 text: one character width per code point.
    static int TextWidth(const std::string& text);
};
