#include "SYTermText.h"

namespace {

bool startsPoint(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
}

// Byte offset of the code point with this index, or the size when it lies past the end.
std::size_t offsetOf(std::string_view text, int index) {
    int seen = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (startsPoint(text[i]) && seen++ == index)
            return i;
    }
    return text.size();
}

void wrapParagraph(std::string_view paragraph, int width, std::vector<std::string>& lines) {
    std::string line;
    std::size_t start = 0;
    while (start <= paragraph.size()) {
        std::size_t end = paragraph.find(' ', start);
        if (end == std::string_view::npos)
            end = paragraph.size();
        std::string word(paragraph.substr(start, end - start));
        start = end + 1;
        while (SYTermText::Width(word) > width) {
            if (!line.empty())
                lines.push_back(std::move(line));
            line.clear();
            lines.push_back(SYTermText::Slice(word, 0, width));
            word = SYTermText::Slice(word, width, SYTermText::Width(word));
        }
        const int needed =
            SYTermText::Width(line) + (line.empty() ? 0 : 1) + SYTermText::Width(word);
        if (!line.empty() && needed > width) {
            lines.push_back(std::move(line));
            line.clear();
        }
        line += (line.empty() ? "" : " ") + word;
    }
    lines.push_back(std::move(line));
}

} // namespace

int SYTermText::Width(std::string_view text) {
    int points = 0;
    for (char c : text)
        points += startsPoint(c) ? 1 : 0;
    return points;
}

std::string SYTermText::Slice(std::string_view text, int from, int count) {
    if (count <= 0 || from < 0)
        return {};
    const std::size_t begin = offsetOf(text, from);
    const std::size_t end = offsetOf(text, from + count);
    return std::string(text.substr(begin, end - begin));
}

std::string SYTermText::Fit(std::string_view text, int width, bool right) {
    if (width <= 0)
        return {};
    const int length = Width(text);
    if (length >= width)
        return Slice(text, 0, width);
    const std::string padding(static_cast<std::size_t>(width - length), ' ');
    return right ? padding + std::string(text) : std::string(text) + padding;
}

std::vector<std::string> SYTermText::Wrap(std::string_view text, int width) {
    std::vector<std::string> lines;
    if (width <= 0)
        return lines;
    std::size_t start = 0;
    while (true) {
        const std::size_t end = text.find('\n', start);
        std::string_view paragraph =
            text.substr(start, end == std::string_view::npos ? end : end - start);
        if (!paragraph.empty() && paragraph.back() == '\r')
            paragraph.remove_suffix(1);
        wrapParagraph(paragraph, width, lines);
        if (end == std::string_view::npos)
            return lines;
        start = end + 1;
    }
}

std::string SYTermText::StripHotkey(std::string_view label, int* hotkey, char* letter) {
    std::string plain;
    int found = -1;
    char marked = 0;
    for (std::size_t i = 0; i < label.size(); ++i) {
        if (label[i] != '&' || i + 1 == label.size()) {
            plain += label[i];
            continue;
        }
        ++i;
        if (label[i] != '&' && found < 0) {
            found = Width(plain);
            marked = label[i];
        }
        plain += label[i];
    }
    if (hotkey != nullptr)
        *hotkey = found;
    if (letter != nullptr)
        *letter = marked;
    return plain;
}
