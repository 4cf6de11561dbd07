#include "outside/widgets/SYPrintEngineText.h"

namespace printtext {

namespace {

bool isContinuation(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// Byte offset of the character at `index`, or the text's size past its end.
std::size_t offsetOf(const std::string& text, int index) {
    std::size_t pos = 0;
    for (int seen = 0; pos < text.size(); ++pos) {
        if (isContinuation(text[pos]))
            continue;
        if (seen == index)
            return pos;
        ++seen;
    }
    return text.size();
}

} // namespace

int Width(const std::string& text) {
    int count = 0;
    for (const char c : text) {
        if (!isContinuation(c))
            ++count;
    }
    return count;
}

std::string Head(const std::string& text, int count) {
    return text.substr(0, offsetOf(text, count < 0 ? 0 : count));
}

std::string Fit(const std::string& text, int width, int justification) {
    const int length = Width(text);
    if (length > width)
        return width >= 4 ? Head(text, width - 3) + "..." : Head(text, width);
    const int room = width - length;
    switch (justification) {
    case 1:
        return std::string(static_cast<std::size_t>(room), ' ') + text;
    case 2: {
        const int before = room / 2;
        return std::string(static_cast<std::size_t>(before), ' ') + text +
               std::string(static_cast<std::size_t>(room - before), ' ');
    }
    default:
        return text + std::string(static_cast<std::size_t>(room), ' ');
    }
}

std::vector<std::string> Wrap(const std::string& text, int width) {
    std::vector<std::string> pieces;
    std::string rest = text;
    while (width > 0 && Width(rest) > width) {
        std::size_t cut = offsetOf(rest, width);
        const std::size_t blank = rest.rfind(' ', cut);
        if (blank != std::string::npos && blank > 0)
            cut = blank;
        pieces.push_back(TrimRight(rest.substr(0, cut)));
        rest = rest.substr(cut);
        rest.erase(0, rest.find_first_not_of(' '));
    }
    pieces.push_back(rest);
    return pieces;
}

std::string TrimRight(std::string text) {
    const std::size_t end = text.find_last_not_of(' ');
    text.erase(end == std::string::npos ? 0 : end + 1);
    return text;
}

} // namespace printtext
