#pragma once

#include <string>
#include <string_view>
#include <vector>

// UTF-8 text measured in terminal cells, one cell per code point, as the font metrics of
// the widgets count it.
class SYTermText {
public:
    static int Width(std::string_view text);
    // The code points [from, from + count) of the text.
    static std::string Slice(std::string_view text, int from, int count);
    // Cut or padded with spaces to exactly width cells; right-aligned when asked.
    static std::string Fit(std::string_view text, int width, bool right = false);
    // Word-wrapped lines no wider than width; line breaks in the text are kept and a word
    // longer than a line is cut.
    static std::vector<std::string> Wrap(std::string_view text, int width);
    // A label without its hotkey marks ("&&" stays one "&"); hotkey gets the cell of the
    // marked letter and letter the letter itself, -1 and 0 when there is none.
    static std::string StripHotkey(std::string_view label, int* hotkey = nullptr,
                                   char* letter = nullptr);
};
