#pragma once

#include <string>

#include "outside/widgets/SYWnd.h"

// A text edit, single- or multi-line. Every change of its text tells the parent (EN_CHANGE),
// whether the user typed it or the program set it.
class SYEdit : public SYWnd {
public:
    void SetWindowText(const std::string& text) override;
    // Limits what the user can type, in characters; 0 means no limit of the edit's own.
    void LimitText(int characters) { m_limit = characters < 0 ? 0 : characters; }
    int GetLimitText() const { return m_limit; }
    bool IsMultiLine() const { return Kind() == SYControlKind::MultiLineEdit; }

    // What a user's typing does: replaces the text, cut to the limit. Gives 0 when the user
    // could not type here (no window, disabled, read-only or hidden).
    int TypeText(const std::string& text);

private:
    int m_limit = 0;
};
