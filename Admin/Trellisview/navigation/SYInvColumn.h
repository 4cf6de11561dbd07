#pragma once

#include <string>

// One column of a list mode: its header text (at most 19 characters), alignment (0 left,
// 1 right, 2 centre) and width in pixels, which the list keeps while another mode shows.
struct SYInvColumn {
    static constexpr std::size_t MaxNameLength = 19;

    std::string Name;
    int Format = 0;
    int Width = 0;
};
