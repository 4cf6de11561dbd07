#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "SYTermLineEdit.h"
#include "outside/widgets/SYTreeCtrlEx.h"

class CPropertySheet;
class SYTermCanvas;
class SYTermScreen;
class SYWnd;

// How a dialog's controls look on a terminal: what each draws in its cells and where its
// caret stands. The dialog view keeps the state that keys change (the edits' carets, the
// date fields being typed, the trees' first rows) and lends it to the painter.
class SYTermDialogPainter {
public:
    // A visible control and its place in the dialog, in cells.
    struct Placed {
        SYWnd* wnd = nullptr;
        int row = 0;
        int col = 0;
        int rows = 1;
        int cols = 1;
    };
    // The date editor's field being typed into and the digits typed so far.
    struct DateEntry {
        int segment = 0;
        std::string digits;
    };
    struct TreeLine {
        HTREEITEM node;
        int depth;
    };

    SYTermDialogPainter(CPropertySheet* sheet, std::map<unsigned, SYTermLineEdit>& edits,
                        std::map<unsigned, DateEntry>& dates, std::map<unsigned, int>& treeTops);

    void DrawControl(SYTermCanvas& canvas, const Placed& placed, bool focused);
    // Marks on the frame where rows lie above or below the screen.
    void DrawScrollMarks(SYTermScreen& screen, const SYTermCanvas& box, int scrollRow, int rows);
    // The cells that must be in sight for the focused control: its caret or its selection.
    void CaretOf(const Placed& placed, int& row, int& col);
    // Where each tab of a sheet's strip begins and how wide it is.
    std::vector<std::pair<int, int>> TabSpans() const;

    static int CellsAcross(int pixels);
    static int CellsDown(int pixels);
    // A tree's nodes as they stand on its lines, the open ones' children below them.
    static std::vector<TreeLine> ShownNodes(const SYTreeCtrlEx& tree);
    static int IndexOfNode(const std::vector<TreeLine>& lines, HTREEITEM node);

private:
    void DrawLabel(SYTermCanvas& canvas, const Placed& placed);
    void DrawButton(SYTermCanvas& canvas, const Placed& placed, bool focused);
    void DrawEdit(SYTermCanvas& canvas, const Placed& placed, bool focused);
    void DrawDate(SYTermCanvas& canvas, const Placed& placed, bool focused);
    void DrawList(SYTermCanvas& canvas, const Placed& placed, bool focused);
    void DrawTree(SYTermCanvas& canvas, const Placed& placed, bool focused);
    void DrawTabs(SYTermCanvas& canvas, const Placed& placed, bool focused);

    CPropertySheet* m_sheet;
    std::map<unsigned, SYTermLineEdit>& m_edits;
    std::map<unsigned, DateEntry>& m_dates;
    std::map<unsigned, int>& m_treeTops;
};
