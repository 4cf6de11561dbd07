#include "SYTermMenu.h"

#include <algorithm>
#include <cctype>
#include <string>

#include "SYTermKeys.h"
#include "SYTermScreen.h"

using Keys = SYTermKeys;

int SYTermMenu::Step(int current, int by) const {
    const int count = static_cast<int>(m_items.size());
    for (int i = 1; i <= count; ++i) {
        const int next = ((current + by * i) % count + count) % count;
        if (!m_items[static_cast<std::size_t>(next)].IsSeparator())
            return next;
    }
    return current;
}

void SYTermMenu::Draw(int row, int col, int width, int current) const {
    const std::string edge = "+" + std::string(static_cast<std::size_t>(width), '-') + "+";
    m_screen.Put(row, col, edge, SYTermAttr::Normal);
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        const SYMenuItem& item = m_items[i];
        const int line = row + 1 + static_cast<int>(i);
        std::string text = item.IsSeparator() ? std::string(static_cast<std::size_t>(width), '-')
                                              : " " + item.PlainText();
        text.resize(static_cast<std::size_t>(width), ' ');
        m_screen.Put(line, col, "|", SYTermAttr::Normal);
        m_screen.Put(line, col + 1, text,
                     static_cast<int>(i) == current ? SYTermAttr::Reverse : SYTermAttr::Normal);
        m_screen.Put(line, col + 1 + width, "|", SYTermAttr::Normal);
    }
    m_screen.Put(row + 1 + static_cast<int>(m_items.size()), col, edge, SYTermAttr::Normal);
    const SYMenuItem& chosen = m_items[static_cast<std::size_t>(current)];
    std::string prompt = SYMenu::Prompt(chosen.id);
    prompt.resize(static_cast<std::size_t>(std::max(0, m_screen.Cols())), ' ');
    m_screen.Put(m_screen.Rows() - 1, 0, prompt, SYTermAttr::Reverse);
    m_screen.Refresh();
}

int SYTermMenu::Run(int row, int col) {
    if (m_items.empty())
        return 0;
    int width = 0;
    for (const SYMenuItem& item : m_items)
        width = std::max(width, static_cast<int>(item.PlainText().size()) + 2);
    col = std::max(0, std::min(col, m_screen.Cols() - width - 2));
    int current = Step(-1, 1);
    for (;;) {
        Draw(row, col, width, current);
        const int key = m_screen.ReadKey();
        switch (key) {
        case -1:
        case Keys::Esc:
            return 0;
        case Keys::Up:
            current = Step(current, -1);
            break;
        case Keys::Down:
            current = Step(current, 1);
            break;
        case Keys::Left:
            return ToLeft;
        case Keys::Right:
            return ToRight;
        case Keys::Newline:
        case Keys::Return:
        case Keys::Enter:
            return m_items[static_cast<std::size_t>(current)].id;
        default:
            for (const SYMenuItem& item : m_items) {
                if (key > 0 && key < 128 && item.Accelerator() != 0 &&
                    item.Accelerator() == std::tolower(key))
                    return item.id;
            }
        }
    }
}
