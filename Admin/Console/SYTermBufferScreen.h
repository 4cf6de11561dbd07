#pragma once

#include <deque>
#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "SYTermScreen.h"

// A screen in memory: a grid of cells with their attributes and a queue of keys, for
// driving the terminal front end in tests. Between keys the queue can hold steps that run
// when the reader reaches them, so a test can look at the screen in the middle of a run.
class SYTermBufferScreen : public SYTermScreen {
public:
    SYTermBufferScreen(int rows = 24, int cols = 80);

    int Rows() const override { return m_rows; }
    int Cols() const override { return m_cols; }
    void Put(int row, int col, std::string_view text, SYTermAttr attr) override;
    void Fill(int row, int col, int rows, int cols, SYTermAttr attr) override;
    void SetCursor(int row, int col, bool visible) override;
    void Refresh() override { ++m_refreshes; }
    int ReadKey() override;

    // Keys in the order they are read; text is queued one byte a key.
    SYTermBufferScreen& Keys(std::initializer_list<int> keys);
    SYTermBufferScreen& Type(std::string_view text);
    SYTermBufferScreen& Then(std::function<void()> step);
    int PendingKeys() const;
    // The terminal takes a new size when the reader comes here, and sends its resize key.
    SYTermBufferScreen& Resize(int rows, int cols);

    // The grid as lines without trailing blanks.
    std::string Dump() const;
    std::string Line(int row) const;
    // The text of count cells from (row, col).
    std::string Text(int row, int col, int count) const;
    SYTermAttr AttrAt(int row, int col) const;
    // Where the text first stands on the screen; false if nowhere.
    bool Find(std::string_view text, int& row, int& col) const;
    int CursorRow() const { return m_cursorRow; }
    int CursorCol() const { return m_cursorCol; }
    bool CursorVisible() const { return m_cursorVisible; }
    int Refreshes() const { return m_refreshes; }

private:
    struct Cell {
        std::string text = " ";
        SYTermAttr attr = SYTermAttr::Normal;
    };
    bool Inside(int row, int col) const {
        return row >= 0 && row < m_rows && col >= 0 && col < m_cols;
    }
    Cell& At(int row, int col) { return m_cells[static_cast<std::size_t>(row * m_cols + col)]; }
    const Cell& At(int row, int col) const {
        return m_cells[static_cast<std::size_t>(row * m_cols + col)];
    }

    int m_rows;
    int m_cols;
    std::vector<Cell> m_cells;
    std::deque<std::variant<int, std::function<void()>>> m_input;
    int m_cursorRow = 0;
    int m_cursorCol = 0;
    bool m_cursorVisible = false;
    int m_refreshes = 0;
};
