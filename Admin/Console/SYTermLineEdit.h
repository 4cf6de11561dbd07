#pragma once

#include <string>

// The caret of a one-line text entry and what editing keys do to the text: insert
// (UTF-8 arrives a byte a key), Backspace, Delete, Left/Right, Home/End. The text itself
// belongs to the caller, so that a control keeps its own.
class SYTermLineEdit {
public:
    // Gives true if the key was an editing key (even one that changed nothing). A
    // read-only entry only moves; a limit above 0 refuses characters past it.
    bool HandleKey(int key, std::string& text, bool readOnly = false, int limit = 0);
    // The caret in code points, kept inside the text.
    int Caret(const std::string& text) const;
    // Places the caret, dropping a selection.
    void SetCaret(int caret) {
        m_caret = caret;
        m_allSelected = false;
    }
    void MoveToEnd(const std::string& text);
    // Selects the whole text, as a field does when the focus comes to it: the next
    // character replaces it and Backspace or Delete clears it; a move drops the selection.
    void SelectAll(const std::string& text);
    bool AllSelected() const { return m_allSelected; }
    // The first code point shown in a field of this width, moving just enough to keep the
    // caret in sight.
    int FirstShown(const std::string& text, int width);

private:
    bool Insert(int byte, std::string& text, int limit);

    int m_caret = 0;
    int m_first = 0;
    bool m_allSelected = false;
    std::string m_pending;
};
