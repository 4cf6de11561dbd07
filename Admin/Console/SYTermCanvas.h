#pragma once

#include <string_view>

#include "SYTermScreen.h"

// A window onto the screen: the area of rows x cols cells at (top, left), showing content
// scrolled by (scrollRow, scrollCol). Content is drawn in its own cells and cut at the edges.
class SYTermCanvas {
public:
    SYTermCanvas(SYTermScreen& screen, int top, int left, int rows, int cols, int scrollRow = 0,
                 int scrollCol = 0);

    void Put(int row, int col, std::string_view text, SYTermAttr attr);
    void Fill(int row, int col, int rows, int cols, SYTermAttr attr);
    // A frame of lines around the area of rows x cols at (row, col), titled on its top line.
    void Frame(int row, int col, int rows, int cols, std::string_view title = {},
               SYTermAttr titleAttr = SYTermAttr::Normal);
    // The same area showing its content scrolled to (scrollRow, scrollCol).
    SYTermCanvas Scrolled(int scrollRow, int scrollCol) const {
        return {m_screen, m_top, m_left, m_rows, m_cols, scrollRow, scrollCol};
    }
    int Rows() const { return m_rows; }
    int Cols() const { return m_cols; }
    // Where a content cell lies on the screen; false when it is cut off.
    bool ToScreen(int row, int col, int& screenRow, int& screenCol) const;

    // A framed box of rows x cols cells (frame included) centred on the screen and kept on
    // it, with its title on the top line; gives the canvas of its interior.
    static SYTermCanvas Box(SYTermScreen& screen, int rows, int cols, std::string_view title);

private:
    SYTermScreen& m_screen;
    int m_top;
    int m_left;
    int m_rows;
    int m_cols;
    int m_scrollRow;
    int m_scrollCol;
};
