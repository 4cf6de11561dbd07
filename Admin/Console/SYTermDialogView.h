#pragma once

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "SYTermDialogPainter.h"
#include "SYTermLayer.h"
#include "SYTermLineEdit.h"

class CDialog;
class CPropertySheet;
class SYWnd;

// A dialog or property sheet as the terminal shows it while it runs modal: its controls
// drawn at the cells of their rectangles (a cell is 4 by 8 dialog units), centred on the
// screen and scrolled when the screen is smaller, and the keys a user presses turned into
// the widget layer's own actions (clicks, typing, row and page choices), so that the
// dialog's logic runs exactly as it does for any other host.
//
// Keys: Tab and Shift-Tab move among the enabled controls in template order; Enter presses
// the focused push button, opens the selected row of a list whose dialog answers a double
// click, else presses the default button; Esc is Cancel; Alt+letter (and the plain letter
// outside an edit) is the "&" hotkey of a label or button; space clicks a button, check box
// or radio button; arrows, PgUp/PgDn and Home/End move in lists and trees (Left/Right
// collapse and expand) and between the radio buttons of a group; an edit takes typing with
// Backspace, Delete, Left/Right and Home/End, its text selected when the focus comes to it;
// a date/time editor takes digits field by field, Left/Right choose the field and Up/Down
// step it. In a sheet Ctrl-PgUp/PgDn and Alt+1..9 bring a page to the front, and Left/Right
// do on the focused tab strip. A click focuses and acts on the control under it. The
// controls themselves are drawn by SYTermDialogPainter.
class SYTermDialogView : public SYTermLayer {
public:
    explicit SYTermDialogView(CDialog& dialog);

    void Draw(SYTermScreen& screen, bool top) override;
    void HandleKey(int key) override;
    bool Done() const override;
    void Abandon() override;
    // What q asks for on a property sheet when no control takes it.
    void SetQuitRequest(std::function<void()> request) { m_quitRequest = std::move(request); }

    // A visible control and its place in the dialog, in cells.
    using Placed = SYTermDialogPainter::Placed;
    // The visible controls in template order, the active page's before the sheet's own.
    std::vector<Placed> Controls() const;
    // The control with the keyboard focus, settling it first if the dialog lost it.
    SYWnd* Focused();

private:
    using DateEntry = SYTermDialogPainter::DateEntry;

    static bool Focusable(const SYWnd& wnd);
    void Click(int key);
    void ClickOn(const Placed& placed, int row, int col, bool twice);
    void Place(const SYWnd& parent, int row, int col, std::vector<Placed>& out) const;
    void SetFocusTo(SYWnd* wnd);
    void MoveFocus(int step);
    bool Hotkey(char letter);
    void PressDefault();
    void Command(int id);
    void SwitchPage(int step);
    void ShowPage(int index);
    bool ListKey(SYWnd& wnd, int key);
    bool OpenListRow(SYWnd& wnd);
    bool TreeKey(SYWnd& wnd, int key);
    bool EditKey(SYWnd& wnd, int key);
    bool DateKey(SYWnd& wnd, int key);
    bool RadioKey(SYWnd& wnd, int key);
    bool ButtonKey(SYWnd& wnd, int key);

    void ScrollToShow(int row, int col, int viewRows, int viewCols);

    CDialog& m_dialog;
    CPropertySheet* m_sheet;
    std::function<void()> m_quitRequest;
    unsigned m_focusId = 0;
    bool m_haveFocusId = false;
    std::map<unsigned, SYTermLineEdit> m_edits;
    std::map<unsigned, DateEntry> m_dates;
    std::map<unsigned, int> m_treeTops;
    // Declared after the state it lends.
    SYTermDialogPainter m_painter;
    int m_scrollRow = 0;
    int m_scrollCol = 0;
    // Where the dialog's cell (0, 0) and its visible interior lay on the screen last drawn.
    int m_originRow = 0;
    int m_originCol = 0;
    int m_viewTop = 0;
    int m_viewLeft = 0;
    int m_viewRows = 0;
    int m_viewCols = 0;
    int m_caretRow = -1;
    int m_caretCol = -1;
};
