#include "SYTermConsoleWindow.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "SYTermKeys.h"
#include "SYTermMenu.h"
#include "SYTermScreen.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/widgets/SYFontMetrics.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYTabWnd.h"

using Keys = SYTermKeys;
using Pane = SYTermConsole::Pane;

namespace {

constexpr const char* kHints = "F1 Help  F10 Menu  F9 Actions  Tab Pane  / Search  q Quit";
constexpr const char* kBusy = "Working...";
// Redraws of the progress a second, at most.
constexpr auto kProgressEvery = std::chrono::milliseconds(100);
constexpr int kProgressBar = 30;
// The panes' titles stand on this row, their lines below it.
constexpr int kPaneTop = 1;
// Rows a turn of the mouse wheel scrolls.
constexpr int kWheelRows = 3;

// The keys F1 lists, in the order a newcomer needs them.
constexpr std::array<const char*, 16> kHelp{
    "Up, Down         move in the tree or the list",
    "PgUp, PgDn       move a page",
    "Home, End        first or last line",
    "Left, Right      tree: close or open a node; list: scroll the columns;",
    "                 views: previous or next tab",
    "Enter            tree: open or close a node; right: open the row",
    "Tab, Shift-Tab   switch between the tree and the right half",
    "/                search the tree",
    "F3               search again (asks the first time)",
    "F9, Shift-F10    actions for the selection (context menu)",
    "F10              menu bar",
    "F5               refresh the tree and the lists",
    "F1               this help",
    "Esc              close a menu, prompt or dialog",
    "q                quit (asks first while a sheet is open)",
    "Mouse            click selects, double click opens, the wheel scrolls",
};

std::string fitted(std::string text, int width) {
    if (width <= 0)
        return {};
    // Cells count code points, not bytes.
    int cells = 0;
    std::size_t cut = 0;
    for (; cut < text.size(); ++cut) {
        if ((static_cast<unsigned char>(text[cut]) & 0xC0) == 0x80)
            continue;
        if (cells == width)
            break;
        ++cells;
    }
    text.resize(cut);
    return text + std::string(static_cast<std::size_t>(width - cells), ' ');
}

struct BarMenu {
    const char* title;
    int col;
};
constexpr std::array<BarMenu, 4> kBar{{{"File", 1}, {"Actions", 7}, {"View", 16}, {"Help", 22}}};

std::string tabLabel(SYTabWnd& view, int page) {
    return " " + view.GetPageTitle(page) + " ";
}

int columnCells(const SYListCtrlEx& list, int column) {
    return std::max(3, list.GetColWidth(column) / SYFontMetrics::CharWidth);
}

// How many cells the list's columns take from this one on.
int cellsFrom(const SYListCtrlEx& list, int firstColumn) {
    int cells = 0;
    for (int column = firstColumn; column < list.GetColumnCount(); ++column)
        cells += columnCells(list, column);
    return cells;
}

bool isEnter(int key) {
    return key == Keys::Newline || key == Keys::Return || key == Keys::Enter;
}

// Where a move key takes the selection from row at among rows 0 to last; -1 for any other
// key.
int movedTo(int key, int at, int page, int last) {
    int to = at;
    switch (key) {
    case Keys::Up:
        to = at - 1;
        break;
    case Keys::Down:
        to = at + 1;
        break;
    case Keys::PreviousPage:
        to = at - page;
        break;
    case Keys::NextPage:
        to = at + page;
        break;
    case Keys::Home:
        to = 0;
        break;
    case Keys::End:
        to = last;
        break;
    default:
        return -1;
    }
    return std::clamp(to, 0, last);
}

} // namespace

SYTermConsoleWindow::SYTermConsoleWindow(SYTermConsole& console, SYTermScreen& screen)
    : m_console(console), m_screen(screen), m_reportsSeen(SYGetApp().Reports().size()) {
    Layout();
    SYGetApp().SetProgressSink(
        [this](const std::string& task, int percent) { ShowProgress(task, percent); });
}

SYTermConsoleWindow::~SYTermConsoleWindow() {
    SYGetApp().SetProgressSink({});
}

void SYTermConsoleWindow::Layout() {
    const int rows = std::max(m_screen.Rows(), 6);
    const int cols = std::max(m_screen.Cols(), 20);
    if (rows == m_rows && cols == m_cols)
        return;
    m_rows = rows;
    m_cols = cols;
    m_treeCols = std::clamp(m_cols * 2 / 5, 10, 48);
    m_console.Resize(m_cols, m_rows, m_treeCols);
}

void SYTermConsoleWindow::Run() {
    Draw();
    while (!m_quit) {
        const int key = m_screen.ReadKey();
        if (key < 0 || !HandleKey(key))
            return;
        Draw();
    }
}

bool SYTermConsoleWindow::HandleKey(int key) {
    m_message.clear();
    m_console.ClearNote();
    if (Keys::IsClick(key) || Keys::IsWheel(key)) {
        HandleMouse(key);
        return !m_quit;
    }
    m_treeScrolled = false;
    switch (key) {
    case 'q':
        m_quit = true;
        break;
    case Keys::Resize:
        // Draw lays the windows out for the screen's new size.
        break;
    case Keys::Tab:
    case Keys::BackTab:
        SetFocus(m_focus == Pane::Tree ? Pane::Right : Pane::Tree);
        break;
    case '/':
        Execute(SYTermConsole::CmdSearch);
        break;
    case Keys::F(3):
        Execute(SYTermConsole::CmdSearchNext);
        break;
    case Keys::F(1):
        Help();
        break;
    case Keys::F(5):
        Execute(SYTermConsole::CmdRefresh);
        break;
    case Keys::F(9):
    case Keys::F(22):
        ContextMenu();
        break;
    case Keys::F(10):
        MenuBar();
        break;
    default:
        if (m_focus == Pane::Tree)
            HandleTreeKey(key);
        else
            HandleRightKey(key);
    }
    return !m_quit;
}

void SYTermConsoleWindow::SetFocus(Pane pane) {
    m_focus = pane;
    if (pane == Pane::Right)
        m_console.FocusRight();
}

void SYTermConsoleWindow::ShowBusy() {
    m_screen.Put(m_rows - 1, 0, fitted(kBusy, m_cols), SYTermAttr::Reverse);
    m_screen.Refresh();
}

// The start of a piece of work always shows; later figures as often as a person can read
// them, so that drawing does not slow the work down.
void SYTermConsoleWindow::ShowProgress(const std::string& task, int percent) {
    const auto now = std::chrono::steady_clock::now();
    if (percent > 0 && now - m_progressDrawn < kProgressEvery)
        return;
    m_progressDrawn = now;
    // Keys typed meanwhile wait their turn; taken in now, none merges with the next.
    m_screen.TakeTypeahead();
    std::string text = task + "… " + std::to_string(percent) + "%  ";
    const int bar = std::min(kProgressBar, m_cols - static_cast<int>(text.size()) - 2);
    if (bar > 0) {
        const auto filled = static_cast<std::size_t>(percent * bar / 100);
        text += "[" + std::string(filled, '#') +
                std::string(static_cast<std::size_t>(bar) - filled, '.') + "]";
    }
    m_screen.Put(m_rows - 1, 0, fitted(text, m_cols), SYTermAttr::Reverse);
    m_screen.Refresh();
}

std::vector<SYTermConsoleWindow::TreeLine> SYTermConsoleWindow::VisibleNodes() {
    SYTreeCtrlEx& tree = m_console.TreeCtrl();
    std::vector<TreeLine> lines;
    auto add = [&](auto& self, HTREEITEM first, int depth) -> void {
        for (HTREEITEM node = first; node != nullptr; node = tree.GetNextSiblingItem(node)) {
            lines.push_back({node, depth});
            if (tree.ItemExpanded(node))
                self(self, tree.GetChildItem(node), depth + 1);
        }
    };
    add(add, tree.GetRootItem(), 0);
    return lines;
}

void SYTermConsoleWindow::HandleTreeKey(int key) {
    SYTreeCtrlEx& tree = m_console.TreeCtrl();
    const std::vector<TreeLine> lines = VisibleNodes();
    if (lines.empty())
        return;
    const HTREEITEM selected = tree.GetSelectedItem();
    int at = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].node == selected)
            at = static_cast<int>(i);
    }
    const int page = std::max(1, m_rows - 4);
    const int last = static_cast<int>(lines.size()) - 1;
    const int to = movedTo(key, at, page, last);
    if (to >= 0) {
        if (to != at) {
            ShowBusy();
            tree.SelectItem(lines[static_cast<std::size_t>(to)].node);
        }
        return;
    }
    switch (key) {
    case Keys::Right:
        if (tree.ItemHasChildren(selected) && !tree.ItemExpanded(selected)) {
            ShowBusy();
            m_console.Expand(selected);
        }
        return;
    case Keys::Left:
        if (tree.ItemExpanded(selected))
            tree.Expand(selected, TVE_COLLAPSE, 1);
        else if (HTREEITEM parent = tree.GetParentItem(selected)) {
            ShowBusy();
            tree.SelectItem(parent);
        }
        return;
    default:
        if (!isEnter(key))
            return;
        ShowBusy();
        if (tree.ItemHasChildren(selected))
            m_console.Toggle(selected);
        else
            SetFocus(Pane::Right);
        return;
    }
}

// A view turns to its previous or next page; the list scrolls by a column, to the right only
// while columns lie beyond the pane's edge.
void SYTermConsoleWindow::SideStep(int step) {
    if (SYTabWnd* view = m_console.ShownTabWnd()) {
        const int count = view->GetPageCount();
        view->ClickTab((view->GetActiveIndex() + step + count) % count);
        m_console.FocusRight();
        return;
    }
    const int shift = ListShift();
    if (step < 0)
        m_listShift = std::max(0, shift - 1);
    else if (cellsFrom(m_console.List(), shift) > m_cols - m_treeCols - 1)
        m_listShift = shift + 1;
}

void SYTermConsoleWindow::MoveInList(SYListCtrlEx& list, int key) {
    const int count = list.GetItemCount();
    if (count == 0)
        return;
    const int at = list.GetSelectedItem();
    const int page = list.GetCountPerPage();
    const int to = movedTo(key, at, page, count - 1);
    if (to < 0)
        return;
    list.SelectItem(to);
    list.EnsureVisible(to);
}

void SYTermConsoleWindow::HandleRightKey(int key) {
    if (key == Keys::Left || key == Keys::Right) {
        SideStep(key == Keys::Left ? -1 : 1);
        return;
    }
    if (isEnter(key)) {
        ShowBusy();
        m_console.OpenRight();
        // What opened may be another list: the focus goes to it.
        m_console.FocusRight();
        return;
    }
    if (SYListCtrlEx* list = m_console.RightList())
        MoveInList(*list, key);
}

// A click selects what lies under it and a double click opens it as Enter would; the wheel
// scrolls the pane under it.
void SYTermConsoleWindow::HandleMouse(int key) {
    const int row = Keys::ClickRow(key);
    const int col = Keys::ClickCol(key);
    if (row == 0 && Keys::IsClick(key)) {
        for (std::size_t i = 0; i < kBar.size(); ++i) {
            const int width = static_cast<int>(std::string_view(kBar[i].title).size()) + 2;
            if (col >= kBar[i].col && col < kBar[i].col + width)
                MenuBar(static_cast<int>(i));
        }
        return;
    }
    if (row < kPaneTop || row >= m_rows - 1)
        return;
    if (col < m_treeCols)
        TreeMouse(key);
    else if (col > m_treeCols)
        RightMouse(key);
}

void SYTermConsoleWindow::TreeMouse(int key) {
    if (Keys::IsWheel(key)) {
        m_treeTop = std::max(0, m_treeTop + (Keys::IsWheelDown(key) ? kWheelRows : -kWheelRows));
        m_treeScrolled = true;
        return;
    }
    // What is clicked is in sight: following the selection from here keeps the lines still.
    m_treeScrolled = false;
    SetFocus(Pane::Tree);
    const std::vector<TreeLine> lines = VisibleNodes();
    const int index = m_treeTop + Keys::ClickRow(key) - kPaneTop - 1;
    if (Keys::ClickRow(key) <= kPaneTop || index >= static_cast<int>(lines.size()))
        return;
    const TreeLine& line = lines[static_cast<std::size_t>(index)];
    SYTreeCtrlEx& tree = m_console.TreeCtrl();
    if (line.node != tree.GetSelectedItem()) {
        ShowBusy();
        tree.SelectItem(line.node);
    }
    // The node's +/- mark opens or closes it.
    const int mark = Keys::ClickCol(key) - 2 * line.depth;
    if (Keys::IsDoubleClick(key))
        HandleTreeKey(Keys::Enter);
    else if (mark >= 0 && mark < 2 && tree.ItemHasChildren(line.node)) {
        ShowBusy();
        m_console.Toggle(line.node);
    }
}

void SYTermConsoleWindow::RightMouse(int key) {
    const int row = Keys::ClickRow(key);
    const int col = Keys::ClickCol(key);
    for (const DrawnList& drawn : m_drawnLists) {
        if (row >= drawn.top && row < drawn.top + drawn.height && col >= drawn.left &&
            col < drawn.left + drawn.width) {
            ListMouse(drawn, key);
            return;
        }
    }
    SYTabWnd* view = m_console.ShownTabWnd();
    if (view == nullptr || !Keys::IsClick(key) || row != kPaneTop + 1)
        return;
    for (int page = 0, left = m_treeCols + 1; page < view->GetPageCount(); ++page) {
        const int width = static_cast<int>(tabLabel(*view, page).size());
        if (col >= left && col < left + width) {
            view->ClickTab(page);
            SetFocus(Pane::Right);
            return;
        }
        left += width + 1;
    }
}

void SYTermConsoleWindow::ListMouse(const DrawnList& drawn, int key) {
    SYListCtrlEx& list = *drawn.list;
    if (Keys::IsWheel(key)) {
        list.Scroll(0,
                    (Keys::IsWheelDown(key) ? kWheelRows : -kWheelRows) * SYFontMetrics::RowHeight);
        return;
    }
    SetFocus(Pane::Right);
    const int row = Keys::ClickRow(key) - drawn.top;
    if (row == 0) {
        int right = drawn.left;
        for (int column = drawn.firstColumn; column < list.GetColumnCount(); ++column) {
            right += columnCells(list, column);
            if (Keys::ClickCol(key) < right) {
                list.ClickHeader(column);
                return;
            }
        }
        return;
    }
    if (list.ClickRow(list.GetTopIndex() + row - 1) != 0 && Keys::IsDoubleClick(key))
        HandleRightKey(Keys::Enter);
}

std::vector<SYMenuItem> SYTermConsoleWindow::ActionItems() {
    std::vector<SYMenuItem> items;
    SYMenu menu;
    if (const int id = m_console.ContextMenu(m_focus); id != 0 && menu.LoadMenu(id) != 0) {
        items = menu.Items();
        items.push_back(SYMenuItem::Separator());
    }
    items.push_back(
        SYMenuItem::Command(SYTermConsole::CmdRuleConfiguration, "Rule &Configuration..."));
    return items;
}

void SYTermConsoleWindow::ContextMenu() {
    SYMenu menu;
    const int id = m_console.ContextMenu(m_focus);
    if (id == 0 || menu.LoadMenu(id) == 0) {
        m_message = "No actions here";
        return;
    }
    const int row = m_focus == Pane::Tree ? 2 : 3;
    const int col = m_focus == Pane::Tree ? 2 : m_treeCols + 3;
    Draw();
    if (const int command = SYTermMenu(m_screen, menu.Items()).Run(row, col); command > 0)
        Execute(command);
}

void SYTermConsoleWindow::MenuBar(int open) {
    for (;;) {
        std::vector<SYMenuItem> items;
        switch (open) {
        case 0:
            items = {SYMenuItem::Command(SYTermConsole::CmdPrint, "&Print to PDF"),
                     SYMenuItem::Separator(), SYMenuItem::Command(SYTermConsole::CmdQuit, "&Quit")};
            break;
        case 1:
            items = ActionItems();
            break;
        case 2:
            items = {SYMenuItem::Command(SYTermConsole::CmdSearch, "&Search..."),
                     SYMenuItem::Command(SYTermConsole::CmdSearchNext, "Search &Next"),
                     SYMenuItem::Command(SYTermConsole::CmdRefresh, "&Refresh")};
            break;
        default:
            items = {SYMenuItem::Command(SYTermConsole::CmdHelp, "&Keys")};
        }
        Draw();
        const auto& menu = kBar[static_cast<std::size_t>(open)];
        m_screen.Put(0, menu.col, std::string(" ") + menu.title + " ", SYTermAttr::Bold);
        const int result = SYTermMenu(m_screen, std::move(items)).Run(1, menu.col);
        const int count = static_cast<int>(kBar.size());
        if (result == SYTermMenu::ToLeft)
            open = (open + count - 1) % count;
        else if (result == SYTermMenu::ToRight)
            open = (open + 1) % count;
        else {
            if (result > 0)
                Execute(result);
            return;
        }
    }
}

void SYTermConsoleWindow::Execute(int command) {
    switch (command) {
    case SYTermConsole::CmdQuit:
        m_quit = true;
        return;
    case SYTermConsole::CmdHelp:
        Help();
        return;
    case SYTermConsole::CmdSearchNext:
        if (!m_console.LastSearch().empty()) {
            ShowBusy();
            m_console.Search(m_console.LastSearch());
            return;
        }
        [[fallthrough]];
    case SYTermConsole::CmdSearch:
        if (const std::string text = Prompt("Search: "); !text.empty()) {
            ShowBusy();
            m_console.Search(text);
        }
        return;
    default:
        ShowBusy();
        m_console.Run(command, m_focus);
        m_console.DrainPosted(m_focus);
        if (m_focus == Pane::Right)
            m_console.FocusRight();
    }
}

std::string SYTermConsoleWindow::Prompt(const std::string& label) {
    std::string text;
    for (;;) {
        m_screen.Put(m_rows - 1, 0, fitted(label + text, m_cols), SYTermAttr::Reverse);
        m_screen.SetCursor(
            m_rows - 1, std::min(m_cols - 1, static_cast<int>(label.size() + text.size())), true);
        m_screen.Refresh();
        const int key = m_screen.ReadKey();
        if (key < 0 || key == Keys::Esc) {
            text.clear();
            break;
        }
        if (isEnter(key))
            break;
        if (key == Keys::Backspace || key == Keys::Delete || key == 8) {
            if (!text.empty())
                text.pop_back();
        } else if (key >= ' ' && key < Keys::Delete) {
            text += static_cast<char>(key);
        }
    }
    m_screen.SetCursor(0, 0, false);
    return text;
}

void SYTermConsoleWindow::Help() {
    const int width = std::min(m_cols - 2, 76);
    const int height = std::min(m_rows - 2, static_cast<int>(kHelp.size()) + 2);
    const int top = (m_rows - height) / 2;
    const int left = (m_cols - width) / 2;
    m_screen.Fill(top, left, height, width, SYTermAttr::Normal);
    m_screen.Put(top, left, fitted(" Keys - press any key to go back", width), SYTermAttr::Reverse);
    for (int i = 0; i + 2 < height; ++i)
        m_screen.Put(top + 1 + i, left,
                     fitted(std::string(" ") + kHelp[static_cast<std::size_t>(i)], width),
                     SYTermAttr::Normal);
    m_screen.Put(top + height - 1, left, std::string(static_cast<std::size_t>(width), '-'),
                 SYTermAttr::Normal);
    m_screen.Refresh();
    m_screen.ReadKey();
}

void SYTermConsoleWindow::Draw() {
    // A resize while a dialog was up went to the dialog: the screen's size tells.
    Layout();
    m_screen.Fill(0, 0, m_rows, m_cols, SYTermAttr::Normal);
    m_drawnLists.clear();
    DrawMenuBar();
    const int top = kPaneTop;
    const int height = m_rows - 2;
    m_screen.Put(top, 0, fitted(" " + m_console.Tree().GetHeaderText(), m_treeCols),
                 m_focus == Pane::Tree ? SYTermAttr::Reverse : SYTermAttr::Bold);
    m_screen.Put(top, m_treeCols + 1, fitted(" " + m_console.RightTitle(), m_cols - m_treeCols - 1),
                 m_focus == Pane::Right ? SYTermAttr::Reverse : SYTermAttr::Bold);
    for (int row = top; row < top + height; ++row)
        m_screen.Put(row, m_treeCols, "|", SYTermAttr::Normal);
    DrawTree(top + 1, height - 1);
    DrawRight(top + 1, height - 1);
    DrawStatus();
    m_screen.Refresh();
}

void SYTermConsoleWindow::DrawMenuBar() {
    m_screen.Put(0, 0, fitted("", m_cols), SYTermAttr::Reverse);
    for (const BarMenu& menu : kBar)
        m_screen.Put(0, menu.col, std::string(" ") + menu.title + " ", SYTermAttr::Reverse);
}

void SYTermConsoleWindow::DrawTree(int top, int height) {
    SYTreeCtrlEx& tree = m_console.TreeCtrl();
    const std::vector<TreeLine> lines = VisibleNodes();
    int at = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i].node == tree.GetSelectedItem())
            at = static_cast<int>(i);
    }
    if (!m_treeScrolled)
        m_treeTop = std::clamp(m_treeTop, std::max(0, at - height + 1), at);
    m_treeTop = std::clamp(m_treeTop, 0, std::max(0, static_cast<int>(lines.size()) - height));
    for (int i = 0; i < height; ++i) {
        const auto index = static_cast<std::size_t>(m_treeTop + i);
        if (index >= lines.size())
            break;
        const TreeLine& line = lines[index];
        const char* mark = !tree.ItemHasChildren(line.node) ? "  "
                           : tree.ItemExpanded(line.node)   ? "- "
                                                            : "+ ";
        const std::string text = std::string(static_cast<std::size_t>(line.depth) * 2, ' ') + mark +
                                 tree.GetItemText(line.node);
        const bool selected = line.node == tree.GetSelectedItem();
        m_screen.Put(top + i, 0, fitted(text, m_treeCols),
                     !selected               ? SYTermAttr::Normal
                     : m_focus == Pane::Tree ? SYTermAttr::Reverse
                                             : SYTermAttr::Underline);
    }
}

void SYTermConsoleWindow::DrawRight(int top, int height) {
    if (SYTabWnd* view = m_console.ShownTabWnd()) {
        DrawTabWnd(*view, top, height);
        return;
    }
    DrawList(m_console.List(), top, m_treeCols + 1, m_cols - m_treeCols - 1, height, ListShift());
}

int SYTermConsoleWindow::ListShift() {
    const SYListCtrlEx& list = m_console.List();
    std::string header;
    for (int column = 0; column < list.GetColumnCount(); ++column)
        header += list.GetColumnTitle(column) + '\t';
    if (header != m_listShiftHeader) {
        m_listShiftHeader = header;
        m_listShift = 0;
    }
    m_listShift = std::clamp(m_listShift, 0, std::max(0, list.GetColumnCount() - 1));
    return m_listShift;
}

void SYTermConsoleWindow::DrawList(SYListCtrlEx& list, int top, int left, int width, int height,
                                   int firstColumn) {
    if (height <= 0 || width <= 0)
        return;
    m_drawnLists.push_back({&list, top, left, width, height, firstColumn});
    auto line = [&](auto cellOf) {
        std::string text;
        for (int column = firstColumn; column < list.GetColumnCount(); ++column) {
            const std::string cell = cellOf(column);
            const int w = columnCells(list, column) - 1;
            const bool right = list.GetColFormat(column) == SYAlignRight;
            const std::string fit = fitted(cell, w);
            text += right && static_cast<int>(cell.size()) < w
                        ? std::string(static_cast<std::size_t>(w) - cell.size(), ' ') + cell
                        : fit;
            text += ' ';
        }
        return fitted(text, width);
    };
    m_screen.Put(top, left, line([&](int column) { return list.GetColumnTitle(column); }),
                 SYTermAttr::Bold);
    // Marks at the header's ends where columns lie beyond the pane.
    if (firstColumn > 0)
        m_screen.Put(top, left, "<", SYTermAttr::Reverse);
    if (cellsFrom(list, firstColumn) > width)
        m_screen.Put(top, left + width - 1, ">", SYTermAttr::Reverse);
    const int selected = list.GetSelectedItem();
    for (int i = 0; i + 1 < height; ++i) {
        const int row = list.GetTopIndex() + i;
        if (row >= list.GetItemCount())
            break;
        const SYTermAttr attr = row != selected          ? SYTermAttr::Normal
                                : m_focus == Pane::Right ? SYTermAttr::Reverse
                                                         : SYTermAttr::Underline;
        m_screen.Put(top + 1 + i, left,
                     line([&](int column) { return list.GetItemText(row, column); }), attr);
    }
}

// The tab strip, then the active page's controls at their places, lists filling theirs.
void SYTermConsoleWindow::DrawTabWnd(SYTabWnd& view, int top, int height) {
    const int left = m_treeCols + 1;
    int col = left;
    for (int page = 0; page < view.GetPageCount(); ++page) {
        const std::string title = tabLabel(view, page);
        m_screen.Put(top, col, title,
                     page == view.GetActiveIndex() ? SYTermAttr::Reverse : SYTermAttr::Normal);
        col += static_cast<int>(title.size()) + 1;
    }
    SYTabWndPage* page = view.GetActivePage();
    if (page == nullptr)
        return;
    const int pageTop = top + 1;
    const int bottom = top + height;
    for (SYWnd* child : page->Children()) {
        if (!child->IsWindowVisible())
            continue;
        const SYRect& rect = child->GetWindowRect();
        const int row = pageTop + rect.top / SYFontMetrics::RowHeight;
        const int at = left + 1 + rect.left / SYFontMetrics::CharWidth;
        if (row >= bottom || at >= m_cols)
            continue;
        if (auto* list = dynamic_cast<SYListCtrlEx*>(child)) {
            DrawList(*list, row, at, std::min(rect.Width() / SYFontMetrics::CharWidth, m_cols - at),
                     bottom - row);
            continue;
        }
        if (child->Kind() == SYControlKind::Static || child->Kind() == SYControlKind::GroupBox)
            m_screen.Put(row, at,
                         fitted(child->GetWindowText(),
                                std::min(rect.Width() / SYFontMetrics::CharWidth, m_cols - at)),
                         SYTermAttr::Normal);
    }
}

void SYTermConsoleWindow::DrawStatus() {
    const auto& reports = SYGetApp().Reports();
    if (reports.size() > m_reportsSeen) {
        m_message = reports.back().message;
        m_reportsSeen = reports.size();
    }
    std::string text = kHints;
    if (SYGetApp().WaitCursorCount() > 0)
        text = kBusy;
    else if (!m_console.Note().empty())
        text = m_console.Note();
    else if (!m_message.empty())
        text = m_message;
    m_screen.Put(m_rows - 1, 0, fitted(text, m_cols), SYTermAttr::Reverse);
}
