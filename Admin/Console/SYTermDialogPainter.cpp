#include "SYTermDialogPainter.h"

#include <algorithm>
#include <cctype>

#include "SYTermCanvas.h"
#include "SYTermText.h"
#include "outside/widgets/CPropertySheet.h"
#include "outside/widgets/SYButton.h"
#include "outside/widgets/SYDateTimeEdit.h"
#include "outside/widgets/SYEdit.h"
#include "outside/widgets/SYFontMetrics.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYTextWnd.h"

namespace {

SYTermAttr stateAttr(const SYWnd& wnd, bool focused, SYTermAttr normal) {
    if (!wnd.IsWindowEnabled())
        return SYTermAttr::Dim;
    return focused ? SYTermAttr::Reverse : normal;
}

// A text in a field, its hotkey letter underlined while the control can take it.
void putLabel(SYTermCanvas& canvas, int row, int col, const std::string& label, SYTermAttr attr,
              int width) {
    int hotkey = -1;
    const std::string plain = SYTermText::StripHotkey(label, &hotkey);
    canvas.Put(row, col, SYTermText::Slice(plain, 0, width), attr);
    if (hotkey >= 0 && hotkey < width && attr == SYTermAttr::Normal)
        canvas.Put(row, col + hotkey, SYTermText::Slice(plain, hotkey, 1), SYTermAttr::Underline);
}

// Cell where each run of digits of the shown date begins.
std::vector<int> digitRuns(const std::string& shown) {
    std::vector<int> starts;
    for (int i = 0; i < static_cast<int>(shown.size()); ++i) {
        if (std::isdigit(static_cast<unsigned char>(shown[i])) &&
            (i == 0 || !std::isdigit(static_cast<unsigned char>(shown[i - 1]))))
            starts.push_back(i);
    }
    return starts;
}

} // namespace

SYTermDialogPainter::SYTermDialogPainter(CPropertySheet* sheet,
                                         std::map<unsigned, SYTermLineEdit>& edits,
                                         std::map<unsigned, DateEntry>& dates,
                                         std::map<unsigned, int>& treeTops)
    : m_sheet(sheet), m_edits(edits), m_dates(dates), m_treeTops(treeTops) {}

int SYTermDialogPainter::CellsAcross(int pixels) {
    return (pixels + SYFontMetrics::CharWidth - 1) / SYFontMetrics::CharWidth;
}

int SYTermDialogPainter::CellsDown(int pixels) {
    return (pixels + SYFontMetrics::RowHeight - 1) / SYFontMetrics::RowHeight;
}

std::vector<SYTermDialogPainter::TreeLine>
SYTermDialogPainter::ShownNodes(const SYTreeCtrlEx& tree) {
    std::vector<TreeLine> lines;
    std::vector<TreeLine> pending;
    for (HTREEITEM root = tree.GetRootItem(); root != nullptr; root = tree.GetNextSiblingItem(root))
        pending.push_back({root, 0});
    std::reverse(pending.begin(), pending.end());
    while (!pending.empty()) {
        const TreeLine line = pending.back();
        pending.pop_back();
        lines.push_back(line);
        if (!tree.ItemExpanded(line.node))
            continue;
        std::vector<TreeLine> children;
        for (HTREEITEM child = tree.GetChildItem(line.node); child != nullptr;
             child = tree.GetNextSiblingItem(child))
            children.push_back({child, line.depth + 1});
        pending.insert(pending.end(), children.rbegin(), children.rend());
    }
    return lines;
}

int SYTermDialogPainter::IndexOfNode(const std::vector<TreeLine>& lines, HTREEITEM node) {
    for (int i = 0; i < static_cast<int>(lines.size()); ++i) {
        if (lines[i].node == node)
            return i;
    }
    return -1;
}

void SYTermDialogPainter::CaretOf(const Placed& placed, int& row, int& col) {
    row = placed.row;
    col = placed.col;
    SYWnd& wnd = *placed.wnd;
    switch (wnd.Kind()) {
    case SYControlKind::Edit: {
        SYTermLineEdit& line = m_edits[wnd.GetDlgCtrlID()];
        col += line.Caret(wnd.GetWindowText()) - line.FirstShown(wnd.GetWindowText(), placed.cols);
        break;
    }
    case SYControlKind::MultiLineEdit: {
        const int caret = m_edits[wnd.GetDlgCtrlID()].Caret(wnd.GetWindowText());
        row += std::min(caret / placed.cols, placed.rows - 1);
        col += caret % placed.cols;
        break;
    }
    case SYControlKind::DateTimeEdit: {
        const auto& editor = static_cast<const SYDateTimeEdit&>(wnd);
        const std::vector<int> runs = digitRuns(editor.DisplayText());
        const int segment = m_dates[wnd.GetDlgCtrlID()].segment;
        if (segment < static_cast<int>(runs.size()))
            col += runs[static_cast<std::size_t>(segment)];
        break;
    }
    case SYControlKind::ListCtrl: {
        const auto& list = static_cast<const SYListCtrlEx&>(wnd);
        const int selected = list.GetSelectedItem();
        if (selected >= list.GetTopIndex() && selected - list.GetTopIndex() < placed.rows - 1)
            row += 1 + selected - list.GetTopIndex();
        break;
    }
    case SYControlKind::TreeCtrl: {
        const auto& tree = static_cast<const SYTreeCtrlEx&>(wnd);
        const int index = IndexOfNode(ShownNodes(tree), tree.GetSelectedItem());
        int& top = m_treeTops[wnd.GetDlgCtrlID()];
        if (index >= 0)
            top = std::clamp(top, std::max(0, index - placed.rows + 1), index);
        row += std::max(0, index - top);
        break;
    }
    default:
        break;
    }
}

void SYTermDialogPainter::DrawScrollMarks(SYTermScreen& screen, const SYTermCanvas& box,
                                          int scrollRow, int rows) {
    int row = 0;
    int col = 0;
    box.ToScreen(0, box.Cols() - 1, row, col);
    if (scrollRow > 0)
        screen.Put(row - 1, col, "▲", SYTermAttr::Bold);
    if (scrollRow + box.Rows() < rows)
        screen.Put(row + box.Rows(), col, "▼", SYTermAttr::Bold);
}

void SYTermDialogPainter::DrawControl(SYTermCanvas& canvas, const Placed& placed, bool focused) {
    SYWnd& wnd = *placed.wnd;
    switch (wnd.Kind()) {
    case SYControlKind::Static:
        DrawLabel(canvas, placed);
        break;
    case SYControlKind::GroupBox:
        canvas.Frame(placed.row, placed.col, placed.rows, placed.cols,
                     SYTermText::StripHotkey(wnd.GetWindowText()),
                     wnd.IsWindowEnabled() ? SYTermAttr::Normal : SYTermAttr::Dim);
        break;
    case SYControlKind::Button:
    case SYControlKind::DefaultButton:
    case SYControlKind::CheckBox:
    case SYControlKind::RadioButton:
        DrawButton(canvas, placed, focused);
        break;
    case SYControlKind::Edit:
    case SYControlKind::MultiLineEdit:
        DrawEdit(canvas, placed, focused);
        break;
    case SYControlKind::DateTimeEdit:
        DrawDate(canvas, placed, focused);
        break;
    case SYControlKind::TextWindow: {
        const auto lines = SYTermText::Wrap(static_cast<SYTextWnd&>(wnd).GetText(), placed.cols);
        for (int i = 0; i < placed.rows && i < static_cast<int>(lines.size()); ++i)
            canvas.Put(placed.row + i, placed.col, lines[static_cast<std::size_t>(i)],
                       SYTermAttr::Normal);
        break;
    }
    case SYControlKind::ListCtrl:
        DrawList(canvas, placed, focused);
        break;
    case SYControlKind::TreeCtrl:
        DrawTree(canvas, placed, focused);
        break;
    case SYControlKind::TabCtrl:
        DrawTabs(canvas, placed, focused);
        break;
    case SYControlKind::Icon:
        break;
    }
}

void SYTermDialogPainter::DrawLabel(SYTermCanvas& canvas, const Placed& placed) {
    const SYWnd& wnd = *placed.wnd;
    const SYTermAttr attr = wnd.IsWindowEnabled() ? SYTermAttr::Normal : SYTermAttr::Dim;
    const bool right = (wnd.Style() & SYStyleRightAlign) != 0;
    if (placed.rows == 1 && !right) {
        putLabel(canvas, placed.row, placed.col, wnd.GetWindowText(), attr, placed.cols);
        return;
    }
    const auto lines = SYTermText::Wrap(SYTermText::StripHotkey(wnd.GetWindowText()), placed.cols);
    for (int i = 0; i < placed.rows && i < static_cast<int>(lines.size()); ++i)
        canvas.Put(placed.row + i, placed.col,
                   SYTermText::Fit(lines[static_cast<std::size_t>(i)], placed.cols, right), attr);
}

void SYTermDialogPainter::DrawButton(SYTermCanvas& canvas, const Placed& placed, bool focused) {
    const SYWnd& wnd = *placed.wnd;
    const std::string label = wnd.GetWindowText();
    const int check = static_cast<const SYButton&>(wnd).GetCheck();
    if (wnd.Kind() == SYControlKind::CheckBox || wnd.Kind() == SYControlKind::RadioButton) {
        const bool box = wnd.Kind() == SYControlKind::CheckBox;
        const std::string mark = box ? (check ? "[x]" : "[ ]") : (check ? "(*)" : "( )");
        canvas.Put(placed.row, placed.col, mark, stateAttr(wnd, focused, SYTermAttr::Normal));
        putLabel(canvas, placed.row, placed.col + 4, label,
                 wnd.IsWindowEnabled() ? SYTermAttr::Normal : SYTermAttr::Dim, placed.cols - 4);
        return;
    }
    const SYTermAttr normal =
        wnd.Kind() == SYControlKind::DefaultButton ? SYTermAttr::Bold : SYTermAttr::Normal;
    const SYTermAttr attr = stateAttr(wnd, focused, normal);
    // The caption keeps its padding where the button is wide enough for it.
    const std::string caption = SYTermText::StripHotkey(label);
    const bool roomy = SYTermText::Width(caption) + 4 <= placed.cols;
    const std::string shown = roomy ? "[ " + caption + " ]" : "[" + caption + "]";
    const int col = placed.col + std::max(0, (placed.cols - SYTermText::Width(shown)) / 2);
    canvas.Put(placed.row, col, shown, attr);
    putLabel(canvas, placed.row, col + (roomy ? 2 : 1), label, attr, placed.cols);
}

void SYTermDialogPainter::DrawEdit(SYTermCanvas& canvas, const Placed& placed, bool focused) {
    const auto& edit = static_cast<const SYEdit&>(*placed.wnd);
    const std::string& text = edit.GetWindowText();
    const bool right = (edit.Style() & SYStyleRightAlign) != 0;
    if (edit.IsReadOnly()) {
        canvas.Put(placed.row, placed.col, SYTermText::Fit(text, placed.cols, right),
                   edit.IsWindowEnabled() ? SYTermAttr::Normal : SYTermAttr::Dim);
        return;
    }
    const SYTermAttr attr = stateAttr(edit, focused, SYTermAttr::Underline);
    if (edit.IsMultiLine()) {
        const int caret = m_edits[edit.GetDlgCtrlID()].Caret(text);
        const int first = std::max(0, caret / placed.cols - placed.rows + 1) * placed.cols;
        for (int i = 0; i < placed.rows; ++i)
            canvas.Put(
                placed.row + i, placed.col,
                SYTermText::Fit(SYTermText::Slice(text, first + i * placed.cols, placed.cols),
                                placed.cols),
                attr);
        return;
    }
    SYTermLineEdit& line = m_edits[edit.GetDlgCtrlID()];
    const int first = line.FirstShown(text, placed.cols);
    const std::string shown = SYTermText::Slice(text, first, placed.cols);
    const bool rightAligned = right && first == 0;
    canvas.Put(placed.row, placed.col, SYTermText::Fit(shown, placed.cols, rightAligned), attr);
    // A selected text stands out of the focused field the other way round.
    if (focused && line.AllSelected()) {
        const int start = rightAligned ? placed.cols - SYTermText::Width(shown) : 0;
        canvas.Put(placed.row, placed.col + std::max(0, start), shown, SYTermAttr::Normal);
    }
}

void SYTermDialogPainter::DrawDate(SYTermCanvas& canvas, const Placed& placed, bool focused) {
    const auto& editor = static_cast<const SYDateTimeEdit&>(*placed.wnd);
    canvas.Put(placed.row, placed.col, SYTermText::Fit(editor.DisplayText(), placed.cols),
               stateAttr(editor, focused, SYTermAttr::Underline));
}

void SYTermDialogPainter::DrawList(SYTermCanvas& canvas, const Placed& placed, bool focused) {
    const auto& list = static_cast<const SYListCtrlEx&>(*placed.wnd);
    const bool enabled = list.IsWindowEnabled();
    auto putRow = [&](int row, auto cellOf, SYTermAttr attr) {
        std::string line;
        for (int column = 0; column < list.GetColumnCount(); ++column) {
            const int width = CellsAcross(list.GetColWidth(column));
            if (width <= 0)
                continue;
            const bool rightAligned = list.GetColFormat(column) == SYAlignRight;
            line += SYTermText::Fit(cellOf(column), width - 1, rightAligned) + " ";
        }
        canvas.Put(row, placed.col, SYTermText::Fit(line, placed.cols), attr);
    };
    putRow(
        placed.row, [&](int column) { return list.GetColumnTitle(column); },
        enabled ? SYTermAttr::Bold : SYTermAttr::Dim);
    canvas.Fill(placed.row + 1, placed.col, placed.rows - 1, placed.cols, SYTermAttr::Normal);
    for (int i = 0; i + 1 < placed.rows; ++i) {
        const int row = list.GetTopIndex() + i;
        if (row >= list.GetItemCount())
            break;
        const bool selected = list.GetItemState(row, LVIS_SELECTED) != 0;
        const SYTermAttr attr = !enabled   ? SYTermAttr::Dim
                                : selected ? SYTermAttr::Reverse
                                : focused && list.GetItemState(row, LVIS_FOCUSED) != 0
                                    ? SYTermAttr::Underline
                                    : SYTermAttr::Normal;
        putRow(
            placed.row + 1 + i, [&](int column) { return list.GetItemText(row, column); }, attr);
    }
}

void SYTermDialogPainter::DrawTree(SYTermCanvas& canvas, const Placed& placed, bool /*focused*/) {
    const auto& tree = static_cast<const SYTreeCtrlEx&>(*placed.wnd);
    const std::vector<TreeLine> lines = ShownNodes(tree);
    const int top = m_treeTops[placed.wnd->GetDlgCtrlID()];
    canvas.Fill(placed.row, placed.col, placed.rows, placed.cols, SYTermAttr::Normal);
    for (int i = 0; i < placed.rows && top + i < static_cast<int>(lines.size()); ++i) {
        const TreeLine& line = lines[static_cast<std::size_t>(top + i)];
        const char* mark = !tree.ItemHasChildren(line.node) ? "  "
                           : tree.ItemExpanded(line.node)   ? "- "
                                                            : "+ ";
        const std::string text = std::string(static_cast<std::size_t>(2 * line.depth), ' ') + mark +
                                 tree.GetItemText(line.node);
        const bool selected = line.node == tree.GetSelectedItem();
        canvas.Put(placed.row + i, placed.col, SYTermText::Fit(text, placed.cols),
                   selected ? SYTermAttr::Reverse : SYTermAttr::Normal);
    }
}

std::vector<std::pair<int, int>> SYTermDialogPainter::TabSpans() const {
    std::vector<std::pair<int, int>> spans;
    int col = 0;
    for (int i = 0; m_sheet != nullptr && i < m_sheet->GetPageCount(); ++i) {
        const int width = SYTermText::Width(m_sheet->GetPage(i)->GetTitle()) + 2;
        spans.emplace_back(col, width);
        col += width + 1;
    }
    return spans;
}

void SYTermDialogPainter::DrawTabs(SYTermCanvas& canvas, const Placed& placed, bool focused) {
    const std::vector<std::pair<int, int>> spans = TabSpans();
    for (int i = 0; i < static_cast<int>(spans.size()); ++i) {
        const std::string title = m_sheet->GetPage(i)->GetTitle();
        const bool active = i == m_sheet->GetActiveIndex();
        const SYTermAttr attr = !active   ? SYTermAttr::Normal
                                : focused ? SYTermAttr::Reverse
                                          : SYTermAttr::Bold;
        canvas.Put(placed.row, placed.col + spans[static_cast<std::size_t>(i)].first,
                   active ? "[" + title + "]" : " " + title + " ", attr);
    }
}
