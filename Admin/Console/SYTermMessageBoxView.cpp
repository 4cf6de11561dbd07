#include "SYTermMessageBoxView.h"

#include <algorithm>
#include <cctype>

#include "SYTermCanvas.h"
#include "SYTermKeys.h"
#include "SYTermText.h"

#include <curses.h>

namespace {

constexpr int MaxTextWidth = 60;

std::string buttonText(int answer) {
    switch (answer) {
    case IDOK:
        return "OK";
    case IDCANCEL:
        return "Cancel";
    case IDYES:
        return "Yes";
    default:
        return "No";
    }
}

std::string iconMark(unsigned icon) {
    switch (icon) {
    case MB_ICONSTOP:
        return "(x) ";
    case MB_ICONQUESTION:
        return "(?) ";
    case MB_ICONEXCLAMATION:
        return "(!) ";
    case MB_ICONINFORMATION:
        return "(i) ";
    default:
        return "";
    }
}

std::vector<int> buttonsOf(unsigned buttons) {
    switch (buttons) {
    case MB_OKCANCEL:
        return {IDOK, IDCANCEL};
    case MB_YESNO:
        return {IDYES, IDNO};
    default:
        return {IDOK};
    }
}

} // namespace

SYTermMessageBoxView::SYTermMessageBoxView(const SYMessageBoxRequest& request,
                                           std::string defaultCaption)
    : m_request(request),
      m_caption(request.caption.empty() ? std::move(defaultCaption) : request.caption),
      m_buttons(buttonsOf(request.Buttons())) {
    const auto at = std::find(m_buttons.begin(), m_buttons.end(), request.DefaultResult());
    m_focus = at == m_buttons.end() ? 0 : static_cast<int>(at - m_buttons.begin());
}

int SYTermMessageBoxView::EscapeAnswer() const {
    for (int answer : {IDCANCEL, IDNO, IDOK}) {
        if (m_request.Offers(answer))
            return answer;
    }
    return IDOK;
}

void SYTermMessageBoxView::HandleKey(int key) {
    const int count = static_cast<int>(m_buttons.size());
    if (SYTermKeys::IsClick(key)) {
        for (std::size_t i = 0; i < m_spans.size(); ++i) {
            const Span& span = m_spans[i];
            const int col = SYTermKeys::ClickCol(key);
            if (SYTermKeys::ClickRow(key) == span.row && col >= span.col &&
                col < span.col + span.width)
                m_answer = m_buttons[i];
        }
    } else if (key == SYTermKeys::Esc) {
        m_answer = EscapeAnswer();
    } else if (key == '\n' || key == '\r' || key == KEY_ENTER || key == ' ') {
        m_answer = m_buttons[static_cast<std::size_t>(m_focus)];
    } else if (key == '\t' || key == KEY_RIGHT || key == KEY_DOWN) {
        m_focus = (m_focus + 1) % count;
    } else if (key == KEY_BTAB || key == KEY_LEFT || key == KEY_UP) {
        m_focus = (m_focus + count - 1) % count;
    } else {
        const int letter = SYTermKeys::IsAlt(key) ? SYTermKeys::AltCharacter(key) : key;
        for (int answer : m_buttons) {
            if (letter > 0 && letter < 0x80 &&
                std::tolower(letter) == std::tolower(buttonText(answer)[0]))
                m_answer = answer;
        }
    }
}

void SYTermMessageBoxView::Draw(SYTermScreen& screen, bool top) {
    const std::string mark = iconMark(m_request.Icon());
    const int markWidth = SYTermText::Width(mark);
    const int room = std::max(10, std::min(MaxTextWidth, screen.Cols() - 6 - markWidth));
    const std::vector<std::string> lines = SYTermText::Wrap(m_request.text, room);
    int textWidth = 0;
    for (const std::string& line : lines)
        textWidth = std::max(textWidth, SYTermText::Width(line));
    std::string buttons;
    std::vector<int> starts;
    for (int answer : m_buttons) {
        buttons += buttons.empty() ? "" : "  ";
        starts.push_back(SYTermText::Width(buttons));
        buttons += "[ " + buttonText(answer) + " ]";
    }
    const int inner = std::max({markWidth + textWidth, SYTermText::Width(buttons),
                                SYTermText::Width(m_caption) + 2}) +
                      2;
    SYTermCanvas canvas =
        SYTermCanvas::Box(screen, static_cast<int>(lines.size()) + 4, inner + 2, m_caption);
    canvas.Put(0, 1, mark, SYTermAttr::Bold);
    for (std::size_t i = 0; i < lines.size(); ++i)
        canvas.Put(static_cast<int>(i), 1 + markWidth, lines[i], SYTermAttr::Normal);
    const int buttonRow = static_cast<int>(lines.size()) + 1;
    const int left = (inner - SYTermText::Width(buttons)) / 2;
    m_spans.clear();
    for (std::size_t i = 0; i < m_buttons.size(); ++i) {
        const bool focused = static_cast<int>(i) == m_focus;
        int row = 0;
        int col = 0;
        canvas.ToScreen(buttonRow, left + starts[i], row, col);
        m_spans.push_back({row, col, SYTermText::Width(buttonText(m_buttons[i])) + 4});
        canvas.Put(buttonRow, left + starts[i], "[ " + buttonText(m_buttons[i]) + " ]",
                   focused ? SYTermAttr::Reverse : SYTermAttr::Normal);
        canvas.Put(buttonRow, left + starts[i] + 2, buttonText(m_buttons[i]).substr(0, 1),
                   focused ? SYTermAttr::Reverse : SYTermAttr::Underline);
    }
    if (top)
        screen.SetCursor(0, 0, false);
}
