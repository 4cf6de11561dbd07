#include "details/SYAppViewLists.h"

#include <algorithm>
#include <cstdint>

#include "outside/framework/SYListItemArray.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYStringTable.h"
#include "outside/services/SYTextFormat.h"
#include "outside/widgets/SYFontMetrics.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYPeDataLabeledList.h"
#include "resources/SYResourceIds.h"

namespace appview {

namespace {

void beginRebuild(SYListCtrlEx& list, SYListItemArray& items, int sortColumn, int sortAscending,
                  int keepSelection) {
    if (keepSelection != 0)
        list.SaveSelections();
    list.SetRedraw(0);
    items.SortArray(sortColumn, sortAscending);
}

void endRebuild(SYListCtrlEx& list, int keepSelection) {
    if (keepSelection != 0)
        list.RestoreSelections();
    list.SetRedraw(1);
    list.Invalidate(0);
}

} // namespace

void Rebuild(SYListCtrlEx& list, SYListItemArray& items, int sortColumn, int sortAscending,
             int keepSelection, const RowOf& rowOf) {
    if (keepSelection != 0)
        list.SaveSelections();
    list.SetRedraw(0);
    list.DeleteAllItems();
    items.SortArray(sortColumn, sortAscending);
    std::string text;
    for (int i = 0; i < items.GetSize(); ++i) {
        const SYListItem* item = items[i];
        if (item == nullptr)
            continue;
        const int image = rowOf(*item, text);
        const int row = list.InsertBitmapString(image, -1, text);
        if (row != -1)
            list.SetItemData(row, static_cast<std::uint32_t>(i));
    }
    endRebuild(list, keepSelection);
}

void RebuildInPlace(SYListCtrlEx& list, SYListItemArray& items, int sortColumn, int sortAscending,
                    int keepSelection, const RowOf& rowOf) {
    const int present = list.GetItemCount();
    beginRebuild(list, items, sortColumn, sortAscending, keepSelection);
    std::string text;
    int placed = 0;
    for (int i = 0; i < items.GetSize(); ++i) {
        const SYListItem* item = items[i];
        if (item == nullptr)
            continue;
        const int image = rowOf(*item, text);
        if (placed < present) {
            list.SetItemString(placed, text);
            list.SetItemData(placed, static_cast<std::uint32_t>(i));
            list.SetItemState(placed, 0, LVIS_SELECTED | LVIS_FOCUSED);
            ++placed;
            continue;
        }
        const int row = list.InsertBitmapString(image, -1, text);
        if (row != -1) {
            list.SetItemData(row, static_cast<std::uint32_t>(i));
            ++placed;
        }
    }
    for (int row = present - 1; row >= placed; --row)
        list.DeleteItem(row);
    endRebuild(list, keepSelection);
}

void ClickSort(int column, int& sortColumn, int& sortAscending) {
    sortAscending = column == sortColumn ? (sortAscending != 0 ? 0 : 1) : 1;
    sortColumn = column;
}

const SYListItem* SelectedItem(const SYListCtrlEx& list, const SYListItemArray& items,
                               bool rowsInStep) {
    const int row = list.GetSelectedItem();
    if (row == -1 || !rowsInStep)
        return nullptr;
    return items.GetAt(static_cast<int>(list.GetItemData(row)));
}

int SampleWidth(const SYListCtrlEx& list, const std::string& sample) {
    return list.GetStringWidth(sample) + SYFontMetrics::ColumnPadding;
}

int RemainingWidth(const SYListCtrlEx& list, int otherColumnsWidth) {
    return list.GetClientRect().Width() - otherColumnsWidth - SYFontMetrics::ScrollBarWidth;
}

void StretchToMargins(const SYWnd& page, unsigned id) {
    SYWnd* control = page.GetDlgItem(id);
    if (control == nullptr)
        return;
    SYRect rect = control->GetWindowRect();
    const SYRect client = page.GetClientRect();
    rect.right = std::max(rect.left, client.right - rect.left);
    rect.bottom = std::max(rect.top, client.bottom - rect.left);
    control->MoveWindow(rect);
}

void StretchRight(const SYWnd& page, unsigned id, int margin) {
    SYWnd* control = page.GetDlgItem(id);
    if (control == nullptr)
        return;
    SYRect rect = control->GetWindowRect();
    rect.right = std::max(rect.left, page.GetClientRect().right - margin);
    control->MoveWindow(rect);
}

void AddLabeledData(SYPeDataLabeledList& data, const SYWnd& page, unsigned labelId,
                    const std::string& value, int justification) {
    const SYWnd* label = page.GetDlgItem(labelId);
    data.AddData(label != nullptr ? label->GetWindowText() : std::string(), value, justification);
}

std::string NameAndVersion(const std::string& name, const std::string& version) {
    if (version.empty())
        return name;
    return SYFormatText(SYStringTable::Get(IDS_NAME_AND_VERSION), {name, version});
}

void PostCommand(unsigned command) {
    SYGetApp().MainWindow().PostMessage(command, 0, 0);
}

} // namespace appview
