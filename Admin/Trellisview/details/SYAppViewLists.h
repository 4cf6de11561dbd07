#pragma once

#include <functional>
#include <string>

class CDC;
class SYListCtrlEx;
class SYListItem;
class SYListItemArray;
class SYPeDataLabeledList;
class SYPrintEngine;
class SYWnd;

// What the pages of the application views and the details dialogs share: rebuilding a list
// from its item array, the header-click order, the selected row's item, measuring, laying
// out and printing. A row's item data is the index of its item in the array.
namespace appview {

// Gives a row's image and makes its text.
using RowOf = std::function<int(const SYListItem& item, std::string& text)>;

// Sorts the array and fills the emptied list from it, redraw off meanwhile.
void Rebuild(SYListCtrlEx& list, SYListItemArray& items, int sortColumn, int sortAscending,
             int keepSelection, const RowOf& rowOf);
// The same, rewriting the rows the list has in place (their selection cleared) and
// inserting or deleting only the difference; new rows take the image rowOf gives.
void RebuildInPlace(SYListCtrlEx& list, SYListItemArray& items, int sortColumn, int sortAscending,
                    int keepSelection, const RowOf& rowOf);

// A click on a header: the sorted column flips its direction, another sorts ascending.
void ClickSort(int column, int& sortColumn, int& sortAscending);

// The item behind the selected row; null without a selection or while the rows are not
// in step with the array (between emptying it and the next rebuild).
const SYListItem* SelectedItem(const SYListCtrlEx& list, const SYListItemArray& items,
                               bool rowsInStep);

// A sample text's width in the list's font plus the padding of a column.
int SampleWidth(const SYListCtrlEx& list, const std::string& sample);
// The page's client width left for a column after the others and a vertical scroll bar.
int RemainingWidth(const SYListCtrlEx& list, int otherColumnsWidth);

// The control keeps its left and top edges; its right and bottom margins become its left.
void StretchToMargins(const SYWnd& page, unsigned id);
// The control reaches to the right up to this margin.
void StretchRight(const SYWnd& page, unsigned id, int margin);

// A line of labelled data: the label's text read from the page's control.
void AddLabeledData(SYPeDataLabeledList& data, const SYWnd& page, unsigned labelId,
                    const std::string& value, int justification);

// The name, or "name  [ version ]" from the string table when there is a version.
std::string NameAndVersion(const std::string& name, const std::string& version);

// A double click's command, for the console to run.
void PostCommand(unsigned command);

} // namespace appview
