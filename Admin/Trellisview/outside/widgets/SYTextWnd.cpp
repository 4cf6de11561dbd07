#include "outside/widgets/SYTextWnd.h"

#include <sstream>

#include "outside/widgets/SYFontMetrics.h"

namespace {

std::vector<std::string> wrapParagraph(const std::string& paragraph, int width) {
    std::vector<std::string> lines;
    std::istringstream words(paragraph);
    std::string word;
    std::string line;
    while (words >> word) {
        const std::string candidate = line.empty() ? word : line + " " + word;
        if (!line.empty() && width > 0 && SYFontMetrics::TextWidth(candidate) > width) {
            lines.push_back(line);
            line = word;
        } else {
            line = candidate;
        }
    }
    lines.push_back(line);
    return lines;
}

} // namespace

int SYTextWnd::CreateFromControl(unsigned controlId, SYWnd* parent, int proportional) {
    if (!SubclassDlgItem(controlId, parent))
        return 0;
    m_proportional = proportional != 0;
    return 1;
}

void SYTextWnd::Empty() {
    m_text.clear();
    m_lines.clear();
    NoteChange();
}

void SYTextWnd::AddText(const std::string& text) {
    m_text += text;
}

void SYTextWnd::LayoutText() {
    m_lines.clear();
    std::istringstream paragraphs(m_text);
    std::string paragraph;
    while (std::getline(paragraphs, paragraph)) {
        for (std::string& line : wrapParagraph(paragraph, GetClientRect().Width()))
            m_lines.push_back(std::move(line));
    }
    NoteChange();
}
