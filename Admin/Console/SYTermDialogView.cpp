#include "SYTermDialogView.h"

#include <algorithm>
#include <cctype>

#include "SYTermCanvas.h"
#include "SYTermKeys.h"
#include "SYTermText.h"
#include "outside/widgets/CPropertySheet.h"
#include "outside/widgets/SYButton.h"
#include "outside/widgets/SYDateTimeEdit.h"
#include "outside/widgets/SYEdit.h"
#include "outside/widgets/SYFontMetrics.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYRadioButton.h"
#include "outside/widgets/SYTreeCtrlEx.h"

#include <curses.h>

namespace {

using Painter = SYTermDialogPainter;

// Controls up to this tall (a push button) take one row.
constexpr int ShortHeight = 14 * SYFontMetrics::DialogUnitY;

bool isEnter(int key) {
    return key == '\n' || key == '\r' || key == KEY_ENTER;
}

bool isPushButton(SYControlKind kind) {
    return kind == SYControlKind::Button || kind == SYControlKind::DefaultButton;
}

bool takesText(SYControlKind kind) {
    return kind == SYControlKind::Edit || kind == SYControlKind::MultiLineEdit;
}

char hotkeyOf(const SYWnd& wnd) {
    char letter = 0;
    SYTermText::StripHotkey(wnd.GetWindowText(), nullptr, &letter);
    return static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
}

// The date editor's fields in the order it shows them (month/day/year, hour:minute:second)
// and the largest number of digits each takes.
struct DateField {
    int value;
    int digits;
};

std::vector<DateField> dateFields(const SYDateTimeEdit& editor) {
    if (editor.ShowsTime())
        return {{editor.Hour(), 2}, {editor.Minute(), 2}, {editor.Second(), 2}};
    return {{editor.Month(), 2}, {editor.Day(), 2}, {editor.Year(), 4}};
}

int pickField(SYDateTimeEdit& editor, int segment, int value) {
    int fields[] = {editor.Year(), editor.Month(),  editor.Day(),
                    editor.Hour(), editor.Minute(), editor.Second()};
    static constexpr int dateOrder[] = {1, 2, 0};
    fields[editor.ShowsTime() ? 3 + segment : dateOrder[segment]] = value;
    return editor.PickDateTime(fields[0], fields[1], fields[2], fields[3], fields[4], fields[5]);
}

// The row a list or tree moves to for a key, or -1 when the key is not one of its moves.
int movedRow(int key, int current, int count, int page) {
    switch (key) {
    case KEY_UP:
        return current - 1;
    case KEY_DOWN:
        return current + 1;
    case KEY_PPAGE:
        return current - page;
    case KEY_NPAGE:
        return current + page;
    case KEY_HOME:
        return 0;
    case KEY_END:
        return count - 1;
    default:
        return -2;
    }
}

} // namespace

SYTermDialogView::SYTermDialogView(CDialog& dialog)
    : m_dialog(dialog), m_sheet(dynamic_cast<CPropertySheet*>(&dialog)),
      m_painter(m_sheet, m_edits, m_dates, m_treeTops) {}

bool SYTermDialogView::Done() const {
    return m_dialog.IsModalEnded();
}

void SYTermDialogView::Abandon() {
    m_dialog.EndDialog(IDCANCEL);
}

bool SYTermDialogView::Focusable(const SYWnd& wnd) {
    if (!wnd.IsWindowEnabled() || !wnd.IsWindowVisible())
        return false;
    switch (wnd.Kind()) {
    case SYControlKind::Edit:
    case SYControlKind::MultiLineEdit:
        return !wnd.IsReadOnly();
    case SYControlKind::Button:
    case SYControlKind::DefaultButton:
    case SYControlKind::CheckBox:
    case SYControlKind::RadioButton:
    case SYControlKind::DateTimeEdit:
    case SYControlKind::ListCtrl:
    case SYControlKind::TreeCtrl:
    case SYControlKind::TabCtrl:
        return true;
    default:
        return false;
    }
}

void SYTermDialogView::Place(const SYWnd& parent, int row, int col,
                             std::vector<Placed>& out) const {
    // Cells count from each page's own corner, as its template was laid out.
    for (const SYWnd* child : parent.Children()) {
        const SYRect& rect = child->GetWindowRect();
        if (child->IsDialogWindow() && child->IsWindowVisible())
            Place(*child, row + rect.top / SYFontMetrics::RowHeight,
                  col + rect.left / SYFontMetrics::CharWidth, out);
    }
    for (SYWnd* child : parent.Children()) {
        if (child->IsDialogWindow() || !child->IsWindowVisible())
            continue;
        const SYRect& rect = child->GetWindowRect();
        // A control's first line goes to the row that holds its middle, so that a label and
        // the slightly taller edit beside it share a row; a tall control ends on the row
        // of its last line's middle.
        const int lineMiddle =
            std::min(rect.Height(), ShortHeight) / 2 - SYFontMetrics::DialogUnitY;
        const int top = (rect.top + lineMiddle) / SYFontMetrics::RowHeight;
        const int bottom =
            rect.Height() > ShortHeight
                ? (rect.bottom - SYFontMetrics::RowHeight / 2) / SYFontMetrics::RowHeight
                : top;
        const int left = rect.left / SYFontMetrics::CharWidth;
        const int right = rect.right / SYFontMetrics::CharWidth;
        out.push_back({child, row + top, col + left, bottom - top + 1, std::max(1, right - left)});
    }
}

std::vector<SYTermDialogView::Placed> SYTermDialogView::Controls() const {
    std::vector<Placed> placed;
    Place(m_dialog, 0, 0, placed);
    return placed;
}

SYWnd* SYTermDialogView::Focused() {
    const std::vector<Placed> controls = Controls();
    SYWnd* first = nullptr;
    SYWnd* remembered = nullptr;
    for (const Placed& placed : controls) {
        if (!Focusable(*placed.wnd))
            continue;
        // The widgets' own focus wins, as after a failed exchange.
        if (placed.wnd == SYWnd::GetFocus()) {
            m_focusId = placed.wnd->GetDlgCtrlID();
            m_haveFocusId = true;
            return placed.wnd;
        }
        if (first == nullptr)
            first = placed.wnd;
        if (remembered == nullptr && m_haveFocusId && placed.wnd->GetDlgCtrlID() == m_focusId)
            remembered = placed.wnd;
    }
    SYWnd* settled = remembered != nullptr ? remembered : first;
    SetFocusTo(settled);
    return settled;
}

void SYTermDialogView::SetFocusTo(SYWnd* wnd) {
    if (wnd == nullptr)
        return;
    const bool moved = !m_haveFocusId || m_focusId != wnd->GetDlgCtrlID() || !wnd->HasFocus();
    wnd->SetFocus();
    m_focusId = wnd->GetDlgCtrlID();
    m_haveFocusId = true;
    if (moved && takesText(wnd->Kind()))
        m_edits[m_focusId].SelectAll(wnd->GetWindowText());
    if (moved && wnd->Kind() == SYControlKind::DateTimeEdit)
        m_dates[m_focusId] = {};
}

void SYTermDialogView::MoveFocus(int step) {
    SYWnd* focus = Focused();
    std::vector<SYWnd*> order;
    for (const Placed& placed : Controls()) {
        if (Focusable(*placed.wnd))
            order.push_back(placed.wnd);
    }
    if (order.empty())
        return;
    const auto at = std::find(order.begin(), order.end(), focus);
    const int size = static_cast<int>(order.size());
    const int index = at == order.end() ? 0 : static_cast<int>(at - order.begin());
    SetFocusTo(order[static_cast<std::size_t>(((index + step) % size + size) % size)]);
}

bool SYTermDialogView::Hotkey(char letter) {
    letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    const std::vector<Placed> controls = Controls();
    for (std::size_t i = 0; i < controls.size(); ++i) {
        SYWnd& wnd = *controls[i].wnd;
        if (hotkeyOf(wnd) != letter || !wnd.IsWindowEnabled())
            continue;
        if (auto* button = dynamic_cast<SYButton*>(&wnd)) {
            SetFocusTo(button);
            button->Click();
            return true;
        }
        // A label's letter leads to the control after it.
        for (std::size_t next = i + 1; next < controls.size(); ++next) {
            if (Focusable(*controls[next].wnd)) {
                SetFocusTo(controls[next].wnd);
                return true;
            }
        }
    }
    return false;
}

void SYTermDialogView::Command(int id) {
    m_dialog.OnCommand(SYMakeCommand(static_cast<unsigned>(id), BN_CLICKED), 0);
}

void SYTermDialogView::PressDefault() {
    SYWnd* ok = nullptr;
    for (const Placed& placed : Controls()) {
        if (placed.wnd->Kind() == SYControlKind::DefaultButton) {
            ok = placed.wnd;
            break;
        }
        if (ok == nullptr && isPushButton(placed.wnd->Kind()) && placed.wnd->GetDlgCtrlID() == IDOK)
            ok = placed.wnd;
    }
    if (ok == nullptr)
        Command(IDOK);
    else if (auto* button = dynamic_cast<SYButton*>(ok))
        button->Click();
}

void SYTermDialogView::ShowPage(int index) {
    if (m_sheet != nullptr && index >= 0 && index < m_sheet->GetPageCount())
        m_sheet->ClickTab(index);
}

void SYTermDialogView::SwitchPage(int step) {
    if (m_sheet == nullptr || m_sheet->GetPageCount() == 0)
        return;
    const int count = m_sheet->GetPageCount();
    ShowPage(((m_sheet->GetActiveIndex() + step) % count + count) % count);
}

void SYTermDialogView::HandleKey(int key) {
    SYWnd* focus = Focused();
    if (SYTermKeys::IsClick(key)) {
        Click(key);
        return;
    }
    if (key == SYTermKeys::Esc) {
        Command(IDCANCEL);
        return;
    }
    if (key == '\t' || key == KEY_BTAB) {
        MoveFocus(key == '\t' ? 1 : -1);
        return;
    }
    if (key == SYTermKeys::CtrlPageUp || key == SYTermKeys::CtrlPageDown) {
        SwitchPage(key == SYTermKeys::CtrlPageUp ? -1 : 1);
        return;
    }
    if (SYTermKeys::IsAlt(key)) {
        const char letter = static_cast<char>(SYTermKeys::AltCharacter(key));
        if (m_sheet != nullptr && letter >= '1' && letter <= '9')
            ShowPage(letter - '1');
        else
            Hotkey(letter);
        return;
    }
    if (focus == nullptr) {
        if (isEnter(key))
            PressDefault();
        return;
    }
    if (isEnter(key)) {
        if (isPushButton(focus->Kind()))
            static_cast<SYButton*>(focus)->Click();
        else if (focus->Kind() != SYControlKind::ListCtrl || !OpenListRow(*focus))
            PressDefault();
        return;
    }
    bool handled = false;
    switch (focus->Kind()) {
    case SYControlKind::ListCtrl:
        handled = ListKey(*focus, key);
        break;
    case SYControlKind::TreeCtrl:
        handled = TreeKey(*focus, key);
        break;
    case SYControlKind::Edit:
    case SYControlKind::MultiLineEdit:
        handled = EditKey(*focus, key);
        break;
    case SYControlKind::DateTimeEdit:
        handled = DateKey(*focus, key);
        break;
    case SYControlKind::RadioButton:
        handled = RadioKey(*focus, key);
        break;
    case SYControlKind::TabCtrl:
        handled = key == KEY_LEFT || key == KEY_RIGHT;
        if (handled)
            SwitchPage(key == KEY_LEFT ? -1 : 1);
        break;
    default:
        handled = ButtonKey(*focus, key);
        break;
    }
    if (handled || key <= ' ' || key >= 0x7F || !std::isalnum(key) ||
        Hotkey(static_cast<char>(key)))
        return;
    if (key == 'q' && m_sheet != nullptr && m_quitRequest)
        m_quitRequest();
}

bool SYTermDialogView::ButtonKey(SYWnd& wnd, int key) {
    if (key == ' ') {
        if (auto* button = dynamic_cast<SYButton*>(&wnd))
            button->Click();
        return true;
    }
    if (key == KEY_UP || key == KEY_LEFT || key == KEY_DOWN || key == KEY_RIGHT) {
        MoveFocus(key == KEY_UP || key == KEY_LEFT ? -1 : 1);
        return true;
    }
    return false;
}

bool SYTermDialogView::RadioKey(SYWnd& wnd, int key) {
    auto& radio = static_cast<SYRadioButton&>(wnd);
    const int step = key == KEY_UP || key == KEY_LEFT      ? -1
                     : key == KEY_DOWN || key == KEY_RIGHT ? 1
                                                           : 0;
    if (step == 0)
        return ButtonKey(wnd, key);
    std::vector<SYRadioButton*> group = radio.Group();
    std::erase_if(group, [](const SYRadioButton* b) { return !Focusable(*b); });
    const auto at = std::find(group.begin(), group.end(), &radio);
    if (at == group.end())
        return true;
    const int size = static_cast<int>(group.size());
    const int index = (static_cast<int>(at - group.begin()) + step + size) % size;
    SetFocusTo(group[static_cast<std::size_t>(index)]);
    group[static_cast<std::size_t>(index)]->Click();
    return true;
}

bool SYTermDialogView::ListKey(SYWnd& wnd, int key) {
    auto& list = static_cast<SYListCtrlEx&>(wnd);
    const int count = list.GetItemCount();
    int current = list.GetNextItem(-1, LVNI_FOCUSED);
    if (current < 0)
        current = list.GetSelectedItem();
    const int row = movedRow(key, current, count, list.GetCountPerPage());
    if (row == -2)
        return false;
    if (count > 0) {
        const int target = std::clamp(row, 0, count - 1);
        list.ClickRow(target);
        list.EnsureVisible(target);
    }
    return true;
}

bool SYTermDialogView::OpenListRow(SYWnd& wnd) {
    auto& list = static_cast<SYListCtrlEx&>(wnd);
    const int row = list.GetSelectedItem();
    if (row < 0 || wnd.GetParent() == nullptr)
        return false;
    list.ClickRow(row);
    // A row opens only where the dialog answers a double click; else Enter is the dialog's.
    return wnd.GetParent()->OnNotify(wnd.GetDlgCtrlID(), NM_DBLCLK, &wnd) != 0;
}

bool SYTermDialogView::TreeKey(SYWnd& wnd, int key) {
    auto& tree = static_cast<SYTreeCtrlEx&>(wnd);
    const std::vector<Painter::TreeLine> lines = Painter::ShownNodes(tree);
    if (lines.empty())
        return false;
    HTREEITEM selected = tree.GetSelectedItem();
    const int current = Painter::IndexOfNode(lines, selected);
    if (key == KEY_RIGHT || key == KEY_LEFT) {
        if (selected == nullptr)
            return true;
        const bool expanded = tree.ItemExpanded(selected);
        if (tree.ItemHasChildren(selected) && expanded == (key == KEY_LEFT))
            tree.ToggleItem(selected);
        else if (key == KEY_RIGHT && expanded)
            tree.ClickItem(tree.GetChildItem(selected));
        else if (key == KEY_LEFT && tree.GetParentItem(selected) != nullptr)
            tree.ClickItem(tree.GetParentItem(selected));
        return true;
    }
    const int page = std::max(1, wnd.GetWindowRect().Height() / SYFontMetrics::RowHeight);
    const int count = static_cast<int>(lines.size());
    const int row = movedRow(key, current, count, page);
    if (row == -2)
        return false;
    tree.ClickItem(lines[static_cast<std::size_t>(std::clamp(row, 0, count - 1))].node);
    return true;
}

bool SYTermDialogView::EditKey(SYWnd& wnd, int key) {
    auto& edit = static_cast<SYEdit&>(wnd);
    SYTermLineEdit& line = m_edits[edit.GetDlgCtrlID()];
    std::string text = edit.GetWindowText();
    const int width = std::max(1, edit.GetWindowRect().Width() / SYFontMetrics::CharWidth);
    if (edit.IsMultiLine() && (key == KEY_UP || key == KEY_DOWN)) {
        const int caret = line.Caret(text) + (key == KEY_UP ? -width : width);
        line.SetCaret(std::clamp(caret, 0, SYTermText::Width(text)));
        return true;
    }
    if (!line.HandleKey(key, text, edit.IsReadOnly(), edit.GetLimitText()))
        return false;
    if (text != edit.GetWindowText())
        edit.TypeText(text);
    return true;
}

bool SYTermDialogView::DateKey(SYWnd& wnd, int key) {
    auto& editor = static_cast<SYDateTimeEdit&>(wnd);
    DateEntry& entry = m_dates[editor.GetDlgCtrlID()];
    const std::vector<DateField> fields = dateFields(editor);
    const int last = static_cast<int>(fields.size()) - 1;
    const DateField field = fields[static_cast<std::size_t>(entry.segment)];
    if (key == KEY_LEFT || key == KEY_RIGHT) {
        entry = {std::clamp(entry.segment + (key == KEY_LEFT ? -1 : 1), 0, last), {}};
        return true;
    }
    if (key == KEY_UP || key == KEY_DOWN) {
        pickField(editor, entry.segment, field.value + (key == KEY_UP ? 1 : -1));
        entry.digits.clear();
        return true;
    }
    if (key < '0' || key > '9')
        return false;
    entry.digits += static_cast<char>(key);
    pickField(editor, entry.segment, std::stoi(entry.digits));
    if (static_cast<int>(entry.digits.size()) == field.digits)
        entry = {std::min(entry.segment + 1, last), {}};
    return true;
}

void SYTermDialogView::ScrollToShow(int row, int col, int viewRows, int viewCols) {
    const SYRect& rect = m_dialog.GetWindowRect();
    const int rows = Painter::CellsDown(rect.Height());
    const int cols = Painter::CellsAcross(rect.Width());
    // As little as shows the caret, so that the title and tabs stay in sight when they can.
    m_scrollRow = std::clamp(row - viewRows + 1, 0, std::max(0, rows - viewRows));
    m_scrollCol = std::clamp(col - viewCols + 1, 0, std::max(0, cols - viewCols));
}

void SYTermDialogView::Draw(SYTermScreen& screen, bool top) {
    SYWnd* focus = Focused();
    const SYRect& rect = m_dialog.GetWindowRect();
    const int viewRows =
        std::max(1, std::min(Painter::CellsDown(rect.Height()), screen.Rows() - 2));
    const int viewCols =
        std::max(1, std::min(Painter::CellsAcross(rect.Width()), screen.Cols() - 2));
    const SYTermCanvas box =
        SYTermCanvas::Box(screen, viewRows + 2, viewCols + 2, m_dialog.GetWindowText());
    const std::vector<Placed> controls = Controls();
    m_caretRow = m_caretCol = -1;
    for (const Placed& placed : controls) {
        if (placed.wnd == focus) {
            m_painter.CaretOf(placed, m_caretRow, m_caretCol);
            ScrollToShow(m_caretRow, m_caretCol, box.Rows(), box.Cols());
        }
    }
    SYTermCanvas canvas = box.Scrolled(m_scrollRow, m_scrollCol);
    box.ToScreen(0, 0, m_viewTop, m_viewLeft);
    canvas.ToScreen(0, 0, m_originRow, m_originCol);
    m_viewRows = box.Rows();
    m_viewCols = box.Cols();
    for (const Placed& placed : controls)
        m_painter.DrawControl(canvas, placed, placed.wnd == focus);
    m_painter.DrawScrollMarks(screen, box, m_scrollRow, Painter::CellsDown(rect.Height()));
    if (!top)
        return;
    const bool caretShown = focus != nullptr && (takesText(focus->Kind()) ||
                                                 focus->Kind() == SYControlKind::DateTimeEdit);
    int row = 0;
    int col = 0;
    const bool inSight = canvas.ToScreen(m_caretRow, m_caretCol, row, col);
    screen.SetCursor(row, col, caretShown && inSight);
}

void SYTermDialogView::Click(int key) {
    const int row = SYTermKeys::ClickRow(key);
    const int col = SYTermKeys::ClickCol(key);
    if (row < m_viewTop || row >= m_viewTop + m_viewRows || col < m_viewLeft ||
        col >= m_viewLeft + m_viewCols)
        return;
    const int cellRow = row - m_originRow;
    const int cellCol = col - m_originCol;
    const std::vector<Placed> controls = Controls();
    // The last made lies on top, as a button over its group's frame.
    for (auto it = controls.rbegin(); it != controls.rend(); ++it) {
        if (Focusable(*it->wnd) && cellRow >= it->row && cellRow < it->row + it->rows &&
            cellCol >= it->col && cellCol < it->col + it->cols) {
            ClickOn(*it, cellRow - it->row, cellCol - it->col, SYTermKeys::IsDoubleClick(key));
            return;
        }
    }
}

void SYTermDialogView::ClickOn(const Placed& placed, int row, int col, bool twice) {
    SYWnd& wnd = *placed.wnd;
    SetFocusTo(&wnd);
    switch (wnd.Kind()) {
    case SYControlKind::ListCtrl: {
        auto& list = static_cast<SYListCtrlEx&>(wnd);
        if (row > 0) {
            const int item = list.GetTopIndex() + row - 1;
            twice ? list.DoubleClickRow(item) : list.ClickRow(item);
            return;
        }
        for (int column = 0, left = 0; column < list.GetColumnCount(); ++column) {
            left += Painter::CellsAcross(list.GetColWidth(column));
            if (col < left) {
                list.ClickHeader(column);
                return;
            }
        }
        return;
    }
    case SYControlKind::TreeCtrl: {
        auto& tree = static_cast<SYTreeCtrlEx&>(wnd);
        const std::vector<Painter::TreeLine> lines = Painter::ShownNodes(tree);
        const int index = m_treeTops[wnd.GetDlgCtrlID()] + row;
        if (index < static_cast<int>(lines.size()))
            twice ? tree.ToggleItem(lines[static_cast<std::size_t>(index)].node)
                  : tree.ClickItem(lines[static_cast<std::size_t>(index)].node);
        return;
    }
    case SYControlKind::TabCtrl: {
        const std::vector<std::pair<int, int>> spans = m_painter.TabSpans();
        for (int i = 0; i < static_cast<int>(spans.size()); ++i) {
            const auto [start, width] = spans[static_cast<std::size_t>(i)];
            if (col >= start && col < start + width)
                ShowPage(i);
        }
        return;
    }
    case SYControlKind::Edit: {
        SYTermLineEdit& line = m_edits[wnd.GetDlgCtrlID()];
        line.SetCaret(line.FirstShown(wnd.GetWindowText(), placed.cols) + col);
        return;
    }
    case SYControlKind::Button:
    case SYControlKind::DefaultButton:
    case SYControlKind::CheckBox:
    case SYControlKind::RadioButton:
        static_cast<SYButton&>(wnd).Click();
        return;
    default:
        return;
    }
}
