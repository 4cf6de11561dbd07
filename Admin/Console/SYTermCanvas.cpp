#include "SYTermCanvas.h"

#include <algorithm>
#include <string>

#include "SYTermText.h"

namespace {

std::string repeated(std::string_view piece, int count) {
    std::string out;
    for (int i = 0; i < count; ++i)
        out += piece;
    return out;
}

} // namespace

SYTermCanvas::SYTermCanvas(SYTermScreen& screen, int top, int left, int rows, int cols,
                           int scrollRow, int scrollCol)
    : m_screen(screen), m_top(top), m_left(left), m_rows(rows), m_cols(cols),
      m_scrollRow(scrollRow), m_scrollCol(scrollCol) {}

bool SYTermCanvas::ToScreen(int row, int col, int& screenRow, int& screenCol) const {
    screenRow = m_top + row - m_scrollRow;
    screenCol = m_left + col - m_scrollCol;
    return screenRow >= m_top && screenRow < m_top + m_rows && screenCol >= m_left &&
           screenCol < m_left + m_cols;
}

void SYTermCanvas::Put(int row, int col, std::string_view text, SYTermAttr attr) {
    const int screenRow = m_top + row - m_scrollRow;
    if (screenRow < m_top || screenRow >= m_top + m_rows)
        return;
    const int screenCol = m_left + col - m_scrollCol;
    const int skip = std::max(0, m_left - screenCol);
    const int room = m_left + m_cols - (screenCol + skip);
    const int count = std::min(SYTermText::Width(text) - skip, room);
    if (count > 0)
        m_screen.Put(screenRow, screenCol + skip, SYTermText::Slice(text, skip, count), attr);
}

void SYTermCanvas::Fill(int row, int col, int rows, int cols, SYTermAttr attr) {
    const std::string blank(static_cast<std::size_t>(std::max(0, cols)), ' ');
    for (int r = row; r < row + rows; ++r)
        Put(r, col, blank, attr);
}

void SYTermCanvas::Frame(int row, int col, int rows, int cols, std::string_view title,
                         SYTermAttr titleAttr) {
    if (rows < 2 || cols < 2)
        return;
    const int inner = cols - 2;
    Put(row, col, "┌" + repeated("─", inner) + "┐", SYTermAttr::Normal);
    for (int r = row + 1; r < row + rows - 1; ++r) {
        Put(r, col, "│", SYTermAttr::Normal);
        Put(r, col + cols - 1, "│", SYTermAttr::Normal);
    }
    Put(row + rows - 1, col, "└" + repeated("─", inner) + "┘", SYTermAttr::Normal);
    if (title.empty() || inner < 3)
        return;
    const std::string shown = SYTermText::Slice(title, 0, inner - 2);
    Put(row, col + 1, " " + shown + " ", titleAttr);
}

SYTermCanvas SYTermCanvas::Box(SYTermScreen& screen, int rows, int cols, std::string_view title) {
    rows = std::clamp(rows, 2, std::max(2, screen.Rows()));
    cols = std::clamp(cols, 2, std::max(2, screen.Cols()));
    const int top = std::max(0, (screen.Rows() - rows) / 2);
    const int left = std::max(0, (screen.Cols() - cols) / 2);
    SYTermCanvas whole(screen, top, left, rows, cols);
    whole.Fill(0, 0, rows, cols, SYTermAttr::Normal);
    whole.Frame(0, 0, rows, cols);
    const int room = cols - 4;
    if (!title.empty() && room > 0) {
        const std::string shown = " " + SYTermText::Slice(title, 0, room) + " ";
        whole.Put(0, (cols - SYTermText::Width(shown)) / 2, shown, SYTermAttr::Bold);
    }
    return SYTermCanvas(screen, top + 1, left + 1, rows - 2, cols - 2);
}
