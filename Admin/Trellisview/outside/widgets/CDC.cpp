#include "outside/widgets/CDC.h"

int CDC::charWidthFor(int fontSize) {
    // A fixed-pitch face advances six tenths of its size; round up so text never overruns.
    return (fontSize * 6 + 9) / 10;
}

int CDC::lineHeightFor(int fontSize) {
    return (fontSize * 12 + 9) / 10;
}

bool CDC::fits(int width, int height, int left, int top, int right, int bottom, int fontSize) {
    if (fontSize < 1 || left < 0 || top < 0 || right < 0 || bottom < 0)
        return false;
    return width - left - right >= charWidthFor(fontSize) &&
           height - top - bottom >= lineHeightFor(fontSize);
}

int CDC::SetPageSize(int width, int height) {
    if (!fits(width, height, m_left, m_top, m_right, m_bottom, m_fontSize))
        return 0;
    m_width = width;
    m_height = height;
    return 1;
}

int CDC::SetMargins(int left, int top, int right, int bottom) {
    if (!fits(m_width, m_height, left, top, right, bottom, m_fontSize))
        return 0;
    m_left = left;
    m_top = top;
    m_right = right;
    m_bottom = bottom;
    return 1;
}

int CDC::SetFontSize(int points) {
    if (!fits(m_width, m_height, m_left, m_top, m_right, m_bottom, points))
        return 0;
    m_fontSize = points;
    return 1;
}

int CDC::CharWidth() const {
    return charWidthFor(m_fontSize);
}

int CDC::LineHeight() const {
    return lineHeightFor(m_fontSize);
}

int CDC::GetTextExtent(const std::string& text) const {
    int count = 0;
    for (const char c : text) {
        if ((static_cast<unsigned char>(c) & 0xC0) != 0x80)
            ++count;
    }
    return count * CharWidth();
}

int CDC::CharsPerLine() const {
    return (m_width - m_left - m_right) / CharWidth();
}

int CDC::LinesPerPage() const {
    return (m_height - m_top - m_bottom) / LineHeight();
}
