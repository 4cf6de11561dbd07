#include "SYTermBufferScreen.h"

#include <curses.h>

#include "SYTermText.h"

SYTermBufferScreen::SYTermBufferScreen(int rows, int cols)
    : m_rows(rows), m_cols(cols), m_cells(static_cast<std::size_t>(rows * cols)) {}

void SYTermBufferScreen::Put(int row, int col, std::string_view text, SYTermAttr attr) {
    const int width = SYTermText::Width(text);
    for (int i = 0; i < width; ++i) {
        if (Inside(row, col + i))
            At(row, col + i) = {SYTermText::Slice(text, i, 1), attr};
    }
}

void SYTermBufferScreen::Fill(int row, int col, int rows, int cols, SYTermAttr attr) {
    for (int r = row; r < row + rows; ++r) {
        for (int c = col; c < col + cols; ++c) {
            if (Inside(r, c))
                At(r, c) = {" ", attr};
        }
    }
}

void SYTermBufferScreen::SetCursor(int row, int col, bool visible) {
    m_cursorRow = row;
    m_cursorCol = col;
    m_cursorVisible = visible;
}

int SYTermBufferScreen::ReadKey() {
    while (!m_input.empty()) {
        auto next = std::move(m_input.front());
        m_input.pop_front();
        if (const int* key = std::get_if<int>(&next))
            return *key;
        std::get<std::function<void()>>(next)();
    }
    return -1;
}

SYTermBufferScreen& SYTermBufferScreen::Keys(std::initializer_list<int> keys) {
    for (int key : keys)
        m_input.emplace_back(key);
    return *this;
}

SYTermBufferScreen& SYTermBufferScreen::Type(std::string_view text) {
    for (char c : text)
        m_input.emplace_back(static_cast<int>(static_cast<unsigned char>(c)));
    return *this;
}

SYTermBufferScreen& SYTermBufferScreen::Then(std::function<void()> step) {
    m_input.emplace_back(std::move(step));
    return *this;
}

int SYTermBufferScreen::PendingKeys() const {
    int keys = 0;
    for (const auto& entry : m_input)
        keys += std::holds_alternative<int>(entry) ? 1 : 0;
    return keys;
}

SYTermBufferScreen& SYTermBufferScreen::Resize(int rows, int cols) {
    Then([this, rows, cols] {
        m_rows = rows;
        m_cols = cols;
        m_cells.assign(static_cast<std::size_t>(rows * cols), Cell{});
    });
    return Keys({KEY_RESIZE});
}

std::string SYTermBufferScreen::Line(int row) const {
    std::string line = Text(row, 0, m_cols);
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

std::string SYTermBufferScreen::Dump() const {
    std::string dump;
    for (int row = 0; row < m_rows; ++row)
        dump += Line(row) + "\n";
    return dump;
}

std::string SYTermBufferScreen::Text(int row, int col, int count) const {
    std::string text;
    for (int c = col; c < col + count; ++c) {
        if (Inside(row, c))
            text += At(row, c).text;
    }
    return text;
}

SYTermAttr SYTermBufferScreen::AttrAt(int row, int col) const {
    return Inside(row, col) ? At(row, col).attr : SYTermAttr::Normal;
}

bool SYTermBufferScreen::Find(std::string_view text, int& row, int& col) const {
    for (row = 0; row < m_rows; ++row) {
        const std::string line = Text(row, 0, m_cols);
        const std::size_t at = line.find(text);
        if (at != std::string::npos) {
            col = SYTermText::Width(std::string_view(line).substr(0, at));
            return true;
        }
    }
    return false;
}
