#pragma once

#include <string>

// A printer's device context: the page, its margins and the one fixed-pitch font that
// print-outs are set in. All lengths are points (1/72 inch); text is measured by
// characters, so a line holds a fixed number of them.
class CDC {
public:
    // Sizes of a US Letter and an A4 page.
    static constexpr int LetterWidth = 612;
    static constexpr int LetterHeight = 792;
    static constexpr int A4Width = 595;
    static constexpr int A4Height = 842;

    CDC() = default;

    // Gives 0 and keeps the old values if the page would leave no room for one line of
    // one character.
    int SetPageSize(int width, int height);
    int SetMargins(int left, int top, int right, int bottom);
    int SetFontSize(int points);

    int PageWidth() const { return m_width; }
    int PageHeight() const { return m_height; }
    int LeftMargin() const { return m_left; }
    int TopMargin() const { return m_top; }
    int RightMargin() const { return m_right; }
    int BottomMargin() const { return m_bottom; }
    int FontSize() const { return m_fontSize; }

    // The advance of one character, and the distance between two baselines.
    int CharWidth() const;
    int LineHeight() const;
    // Width of a UTF-8 text, one character width per code point.
    int GetTextExtent(const std::string& text) const;
    int CharsPerLine() const;
    int LinesPerPage() const;

private:
    static int charWidthFor(int fontSize);
    static int lineHeightFor(int fontSize);
    static bool fits(int width, int height, int left, int top, int right, int bottom, int fontSize);

    int m_width = LetterWidth;
    int m_height = LetterHeight;
    int m_left = 36;
    int m_top = 36;
    int m_right = 36;
    int m_bottom = 36;
    int m_fontSize = 10;
};
