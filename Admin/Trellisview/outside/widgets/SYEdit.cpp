#include "outside/widgets/SYEdit.h"

namespace {

// Cuts a UTF-8 text to a number of code points.
std::string firstCharacters(const std::string& text, int characters) {
    int seen = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if ((c & 0xC0) != 0x80 && seen++ == characters)
            return text.substr(0, i);
    }
    return text;
}

} // namespace

void SYEdit::SetWindowText(const std::string& text) {
    if (text == GetWindowText())
        return;
    SYWnd::SetWindowText(text);
    SendCommandToParent(EN_CHANGE);
}

int SYEdit::TypeText(const std::string& text) {
    if (!IsWindow() || !IsWindowEnabled() || IsReadOnly() || !IsWindowVisible())
        return 0;
    SetWindowText(m_limit > 0 ? firstCharacters(text, m_limit) : text);
    return 1;
}
