#include "SYTermLineEdit.h"

#include <algorithm>
#include <utility>

#include <curses.h>

#include "SYTermText.h"

namespace {

// Bytes of the UTF-8 sequence a lead byte opens.
std::size_t sequenceLength(unsigned char lead) {
    if (lead >= 0xF0)
        return 4;
    if (lead >= 0xE0)
        return 3;
    return lead >= 0xC0 ? 2 : 1;
}

bool isBackspace(int key) {
    return key == KEY_BACKSPACE || key == 127 || key == 8;
}

} // namespace

int SYTermLineEdit::Caret(const std::string& text) const {
    return std::clamp(m_caret, 0, SYTermText::Width(text));
}

void SYTermLineEdit::MoveToEnd(const std::string& text) {
    m_caret = SYTermText::Width(text);
    m_allSelected = false;
}

void SYTermLineEdit::SelectAll(const std::string& text) {
    MoveToEnd(text);
    m_allSelected = !text.empty();
}

int SYTermLineEdit::FirstShown(const std::string& text, int width) {
    const int caret = Caret(text);
    if (width <= 0)
        return caret;
    m_first = std::clamp(m_first, std::max(0, caret - width + 1), caret);
    return m_first;
}

bool SYTermLineEdit::Insert(int byte, std::string& text, int limit) {
    m_pending += static_cast<char>(byte);
    if (m_pending.size() < sequenceLength(static_cast<unsigned char>(m_pending[0])))
        return true;
    const std::string point = std::move(m_pending);
    m_pending.clear();
    if (limit > 0 && SYTermText::Width(text) >= limit)
        return true;
    const int caret = Caret(text);
    text = SYTermText::Slice(text, 0, caret) + point +
           SYTermText::Slice(text, caret, SYTermText::Width(text));
    m_caret = caret + 1;
    return true;
}

bool SYTermLineEdit::HandleKey(int key, std::string& text, bool readOnly, int limit) {
    const bool replace = std::exchange(m_allSelected, false);
    if (replace && !readOnly && (isBackspace(key) || key == KEY_DC)) {
        text.clear();
        return true;
    }
    if (replace && !readOnly && ((key >= ' ' && key < 0x7F) || (key >= 0x80 && key <= 0xFF)))
        text.clear();
    const int caret = Caret(text);
    const int length = SYTermText::Width(text);
    if (key == KEY_LEFT)
        m_caret = std::max(0, caret - 1);
    else if (key == KEY_RIGHT)
        m_caret = std::min(length, caret + 1);
    else if (key == KEY_HOME)
        m_caret = 0;
    else if (key == KEY_END)
        m_caret = length;
    else if (readOnly)
        return false;
    else if (isBackspace(key)) {
        if (caret > 0)
            text = SYTermText::Slice(text, 0, caret - 1) + SYTermText::Slice(text, caret, length);
        m_caret = std::max(0, caret - 1);
    } else if (key == KEY_DC)
        text = SYTermText::Slice(text, 0, caret) + SYTermText::Slice(text, caret + 1, length);
    else if ((key >= ' ' && key < 0x7F) || (key >= 0x80 && key <= 0xFF))
        return Insert(key, text, limit);
    else
        return false;
    return true;
}
