#pragma once

#include <string>
#include <vector>

// Fixed-pitch text setting for print-outs: widths count UTF-8 code points, and no cut ever
// splits a character.
namespace printtext {

int Width(const std::string& text);
// The first `count` characters.
std::string Head(const std::string& text, int count);
// The text in a field of `width` characters: 0 left, 1 right, 2 centred. A longer text is
// cut and ends in "..." (or is simply cut when the field is narrower than four).
std::string Fit(const std::string& text, int width, int justification);
// The text broken into pieces of at most `width` characters, at blanks where it can.
std::vector<std::string> Wrap(const std::string& text, int width);
std::string TrimRight(std::string text);

} // namespace printtext
