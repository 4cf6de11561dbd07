#pragma once

#include <string>
#include <vector>

#include "outside/widgets/SYWnd.h"

// A read-only window of running text, wrapped at its width. Text is added in pieces and
// laid out on demand.
class SYTextWnd : public SYWnd {
public:
    // Takes the place of a dialog's control, as a text window in a proportional or fixed
    // font. Gives 0 if the parent has no such control.
    int CreateFromControl(unsigned controlId, SYWnd* parent, int proportional);
    bool IsProportional() const { return m_proportional; }

    void Empty();
    void AddText(const std::string& text);
    const std::string& GetText() const { return m_text; }
    // Wraps the text into lines as wide as the window; a window without width keeps one
    // line per paragraph.
    void LayoutText();
    const std::vector<std::string>& Lines() const { return m_lines; }

private:
    bool m_proportional = false;
    std::string m_text;
    std::vector<std::string> m_lines;
};
