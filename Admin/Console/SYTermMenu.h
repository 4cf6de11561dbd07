#pragma once

#include <vector>

#include "outside/widgets/SYMenu.h"

class SYTermScreen;

// A drop-down menu drawn over the screen and driven by keys: arrows move, Enter or an
// item's letter chooses, Esc closes at once. In the menu bar, Left and Right leave the menu
// so that the bar can open its neighbour.
class SYTermMenu {
public:
    static constexpr int ToLeft = -1;
    static constexpr int ToRight = -2;

    SYTermMenu(SYTermScreen& screen, std::vector<SYMenuItem> items)
        : m_screen(screen), m_items(std::move(items)) {}

    // Gives the chosen command, 0 when closed, or ToLeft / ToRight.
    int Run(int row, int col);

private:
    void Draw(int row, int col, int width, int current) const;
    int Step(int current, int by) const;

    SYTermScreen& m_screen;
    std::vector<SYMenuItem> m_items;
};
