#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "outside/widgets/SYImageList.h"
#include "outside/widgets/SYPrintableList.h"
#include "outside/widgets/SYWnd.h"

// A report list: titled columns, rows of tab-separated cells with an image and one 32-bit
// item data word, single or multiple selection, a focused row, a top row for scrolling.
// A click on a header goes to the sort callback if one is set, else to SortOnHeader.
class SYListCtrlEx : public SYWnd, public SYPrintableList {
    SY_DECLARE_DYNAMIC(SYListCtrlEx)

public:
    using SortCallback = void (*)(int column, void* argument);

    SYListCtrlEx();
    ~SYListCtrlEx() override;

    // Takes the place of the parent's control with this id, or makes a new child filling
    // the parent. Gives 0 without a parent window.
    virtual int Initialize(unsigned id, SYWnd* parent);
    // The same with the strip of row images.
    virtual int Initialize(unsigned id, unsigned bitmapId, unsigned maskColour, int imageWidth,
                           SYWnd* parent);
    const SYImageList& GetImageList() const { return m_images; }

    // Columns. A header string holds one field per column, divided by tabs; a field may
    // start with a format mark ("<" left, ">" right, "*" centre) and a width in pixels.
    int AddHeader(int stringId);
    int AddHeader(const std::string& titles);
    // The next tab-separated field of text from position on; 0 when none is left.
    static int NextField(const std::string& text, int& position, std::string& field);
    // Gives the new column's index or -1. A negative width measures the title.
    int InsertColumn(int column, const std::string& title, int format = SYAlignLeft,
                     int width = -1);
    int DeleteColumn(int column);
    int GetColumnCount() const { return static_cast<int>(m_columns.size()); }
    std::string GetColumnTitle(int column) const;
    int SetColWidth(int column, int width);
    int GetColWidth(int column) const;
    // Alignment of the cells (0 left, 1 right, 2 centre).
    int SetColFormat(int column, int format);
    int GetColFormat(int column) const;
    // Alignment of the header title.
    int SetHdrFormat(int column, int format);
    int GetHdrFormat(int column) const;
    // Each column (or one) as wide as its title plus the padding.
    void CalcColsFromHeader(int column = -1);
    // Each column as wide as its tab-separated sample plus the padding.
    void SetupColumnsFromString(const std::string& samples);
    int GetStringWidth(const std::string& text) const;
    void ExcludeColumnFromPrinting(int column, int exclude = 1);
    bool IsColumnExcludedFromPrinting(int column) const;

    // Rows. Gives the new row or -1; row -1 (or past the end) appends, image -1 is none.
    int InsertBitmapString(int image, int row, const std::string& text);
    // The same with the cells already apart, so a long list is not joined only to be split.
    int InsertBitmapString(int image, int row, std::vector<std::string> cells);
    int SetItemString(int row, const std::string& text);
    std::string GetItemString(int row) const;
    int SetItemText(int row, int column, const std::string& text);
    std::string GetItemText(int row, int column) const;
    int GetItemImage(int row) const;
    int SetItemImage(int row, int image);
    int SetItemData(int row, std::uint32_t data);
    std::uint32_t GetItemData(int row) const;
    int GetItemCount() const { return static_cast<int>(m_rows.size()); }
    int DeleteItem(int row);
    int DeleteAllItems();
    // Puts the rows in a new order, row i being the one that was row order[i]; each row
    // keeps its text, image, data and state. Gives 0 and changes nothing unless order names
    // every row once.
    int ReorderItems(const std::vector<int>& order);

    // Selection and focus.
    void SetSingleSelection(int single) { m_singleSelection = single != 0; }
    bool IsSingleSelection() const { return m_singleSelection; }
    // The first selected row, or -1.
    int GetSelectedItem() const;
    int GetSelectedCount() const;
    std::vector<int> GetSelectedRows() const;
    // Selects and focuses only this row; -1 clears the selection.
    int SelectItem(int row);
    int SetItemState(int row, unsigned state, unsigned mask);
    unsigned GetItemState(int row, unsigned mask) const;
    // The next row after start (-1: from the first) with all of the LVNI flags, or -1.
    int GetNextItem(int start, unsigned flags) const;
    // Remember the selected and focused rows by item data and text, and bring them back
    // after the rows were rebuilt, even in another order.
    void SaveSelections();
    void RestoreSelections();

    // Scrolling by whole rows.
    int GetTopIndex() const { return m_topIndex; }
    int GetCountPerPage() const;
    int Scroll(int dx, int dy);
    int EnsureVisible(int row, int partialOK = 0);
    int GetItemRect(int row, SYRect& rect) const;

    // Header clicks.
    void SetSortCallback(SortCallback callback, void* argument);
    void SetHeaderClickable(int clickable) { m_headerClickable = clickable != 0; }
    bool IsHeaderClickable() const { return m_headerClickable; }
    // Called on a click on a column header when no callback is set. The list's own order:
    // by the column's text, ascending, a second click on the same column reverses it.
    virtual void SortOnHeader(int column);

    // What a user's actions do. Each gives 0 if the user could not do it.
    int ClickHeader(int column);
    int ClickRow(int row);
    int DoubleClickRow(int row);

    // The rows as comma-separated values, titles first (RFC 4180 quoting, CRLF lines).
    std::string MakeCsv() const;
    int ExportCsv(const std::string& path) const;

    std::vector<Column> PrintColumns() const override;
    std::vector<std::vector<std::string>> PrintRows() const override;

protected:
    void OnDestroy() override;

private:
    struct ListColumn {
        std::string title;
        int width = 0;
        int format = SYAlignLeft;
        int headerFormat = SYAlignLeft;
        bool excluded = false;
    };
    struct Row {
        std::vector<std::string> cells;
        int image = -1;
        std::uint32_t data = 0;
        unsigned state = 0;
    };
    struct SavedSelection {
        std::uint32_t data;
        std::vector<std::string> cells;
        unsigned state;
    };

    bool ValidRow(int row) const { return row >= 0 && row < GetItemCount(); }
    bool ValidColumn(int column) const { return column >= 0 && column < GetColumnCount(); }
    void ClampTopIndex();
    std::vector<int> PrintedColumns() const;

    SYImageList m_images;
    std::vector<ListColumn> m_columns;
    std::vector<Row> m_rows;
    std::vector<SavedSelection> m_saved;
    bool m_singleSelection = false;
    bool m_headerClickable = true;
    int m_topIndex = 0;
    SortCallback m_sortCallback = nullptr;
    void* m_sortArgument = nullptr;
    int m_textSortColumn = -1;
    bool m_textSortAscending = true;
};
