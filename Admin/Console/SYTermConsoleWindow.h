#pragma once

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

#include "SYTermConsole.h"
#include "outside/widgets/SYMenu.h"

class SYTermScreen;

// The console's main screen on a terminal: a menu bar, the tree on the left, the list or an
// application view on the right, and a status line with key hints, the busy mark and the
// last note. It draws what the console's windows hold and turns keys into console calls.
class SYTermConsoleWindow {
public:
    // Shows the library's progress on long work on the status line while it lives.
    SYTermConsoleWindow(SYTermConsole& console, SYTermScreen& screen);
    ~SYTermConsoleWindow();
    SYTermConsoleWindow(const SYTermConsoleWindow&) = delete;
    SYTermConsoleWindow& operator=(const SYTermConsoleWindow&) = delete;

    // Draws and answers keys until the user quits or the screen runs out of keys.
    void Run();
    // Answers one key; false once the user quit.
    bool HandleKey(int key);
    void Draw();
    // Ends the run once the key at hand is answered.
    void Quit() { m_quit = true; }
    SYTermConsole::Pane Focus() const { return m_focus; }

private:
    struct TreeLine {
        HTREEITEM node;
        int depth;
    };
    // Where a list was drawn last, for the mouse: its header on the first row, from its
    // column firstColumn on.
    struct DrawnList {
        SYListCtrlEx* list;
        int top;
        int left;
        int width;
        int height;
        int firstColumn;
    };

    void Layout();
    std::vector<TreeLine> VisibleNodes();
    void DrawMenuBar();
    void DrawTree(int top, int height);
    void DrawRight(int top, int height);
    void DrawList(SYListCtrlEx& list, int top, int left, int width, int height,
                  int firstColumn = 0);
    // The inventory list's first column shown, back at the first when the list shows other
    // columns than when it was scrolled.
    int ListShift();
    void DrawTabWnd(SYTabWnd& view, int top, int height);
    void DrawStatus();
    void ShowBusy();
    void ShowProgress(const std::string& task, int percent);
    void HandleTreeKey(int key);
    void HandleRightKey(int key);
    void SideStep(int step);
    void HandleMouse(int key);
    void TreeMouse(int key);
    void RightMouse(int key);
    void ListMouse(const DrawnList& drawn, int key);
    void MoveInList(SYListCtrlEx& list, int key);
    void SetFocus(SYTermConsole::Pane pane);
    void Execute(int command);
    void MenuBar(int open = 0);
    void ContextMenu();
    std::vector<SYMenuItem> ActionItems();
    // Reads a line on the status line; empty when cancelled.
    std::string Prompt(const std::string& label);
    void Help();

    SYTermConsole& m_console;
    SYTermScreen& m_screen;
    SYTermConsole::Pane m_focus = SYTermConsole::Pane::Tree;
    int m_rows = 0;
    int m_cols = 0;
    int m_treeCols = 0;
    int m_treeTop = 0;
    // The wheel scrolled the tree away from its selection.
    bool m_treeScrolled = false;
    int m_listShift = 0;
    std::string m_listShiftHeader;
    std::vector<DrawnList> m_drawnLists;
    std::size_t m_reportsSeen = 0;
    std::string m_message;
    bool m_quit = false;
    std::chrono::steady_clock::time_point m_progressDrawn;
};
