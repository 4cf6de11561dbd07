#include "outside/widgets/SYListCtrlEx.h"

#include <algorithm>
#include <cctype>
#include <fstream>
#include <utility>

#include "outside/framework/SYString.h"
#include "outside/services/SYStringTable.h"
#include "outside/widgets/SYFontMetrics.h"

SY_IMPLEMENT_DYNAMIC(SYListCtrlEx, SYWnd)

namespace {

std::vector<std::string> splitFields(const std::string& text) {
    std::vector<std::string> fields;
    fields.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\t')) + 1);
    int position = 0;
    std::string field;
    while (SYListCtrlEx::NextField(text, position, field))
        fields.push_back(std::move(field));
    return fields;
}

std::string csvCell(const std::string& text) {
    const bool quote = text.find_first_of(",\"\r\n") != std::string::npos ||
                       (!text.empty() && (text.front() == ' ' || text.back() == ' '));
    if (!quote)
        return text;
    std::string quoted = "\"";
    for (char c : text) {
        if (c == '"')
            quoted += '"';
        quoted += c;
    }
    return quoted + '"';
}

std::string csvLine(const std::vector<std::string>& cells) {
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i > 0)
            line += ',';
        line += csvCell(cells[i]);
    }
    return line + "\r\n";
}

} // namespace

SYListCtrlEx::SYListCtrlEx() = default;

SYListCtrlEx::~SYListCtrlEx() = default;

int SYListCtrlEx::Initialize(unsigned id, SYWnd* parent) {
    if (parent == nullptr || !parent->IsWindow() || IsWindow())
        return 0;
    if (parent->GetDlgItem(id) != nullptr)
        return SubclassDlgItem(id, parent);
    return Create(SYControlKind::ListCtrl, id, "", parent->GetClientRect(), parent);
}

int SYListCtrlEx::Initialize(unsigned id, unsigned bitmapId, unsigned maskColour, int imageWidth,
                             SYWnd* parent) {
    if (!Initialize(id, parent))
        return 0;
    m_images.Create(bitmapId, imageWidth, 0, maskColour);
    return 1;
}

void SYListCtrlEx::OnDestroy() {
    // The rows and columns belong to the window; the object can be made into a new one.
    m_columns.clear();
    m_rows.clear();
    m_saved.clear();
    m_topIndex = 0;
}

int SYListCtrlEx::NextField(const std::string& text, int& position, std::string& field) {
    if (position < 0 || static_cast<std::size_t>(position) >= text.size())
        return 0;
    const std::size_t start = static_cast<std::size_t>(position);
    const std::size_t tab = text.find('\t', start);
    const std::size_t end = tab == std::string::npos ? text.size() : tab;
    field = text.substr(start, end - start);
    position = static_cast<int>(tab == std::string::npos ? text.size() : tab + 1);
    return 1;
}

int SYListCtrlEx::AddHeader(int stringId) {
    std::string titles;
    if (!SYStringTable::Load(stringId, titles))
        return 0;
    return AddHeader(titles);
}

int SYListCtrlEx::AddHeader(const std::string& titles) {
    int added = 0;
    for (const std::string& field : splitFields(titles)) {
        std::size_t at = 0;
        int format = SYAlignLeft;
        if (!field.empty() && (field[0] == '<' || field[0] == '>' || field[0] == '*')) {
            format = field[0] == '>' ? SYAlignRight : field[0] == '*' ? SYAlignCentre : SYAlignLeft;
            ++at;
        }
        int width = 0;
        while (at < field.size() && std::isdigit(static_cast<unsigned char>(field[at])))
            width = width * 10 + (field[at++] - '0');
        const int column =
            InsertColumn(GetColumnCount(), field.substr(at), format, width > 0 ? width : -1);
        if (column < 0)
            break;
        SetHdrFormat(column, format);
        ++added;
    }
    return added;
}

int SYListCtrlEx::InsertColumn(int column, const std::string& title, int format, int width) {
    if (!IsWindow() || column < 0)
        return -1;
    column = std::min(column, GetColumnCount());
    ListColumn added{title,
                     width < 0 ? GetStringWidth(title) + SYFontMetrics::ColumnPadding : width,
                     format, SYAlignLeft, false};
    m_columns.insert(m_columns.begin() + column, added);
    for (Row& row : m_rows) {
        if (static_cast<int>(row.cells.size()) > column)
            row.cells.insert(row.cells.begin() + column, std::string());
    }
    NoteChange();
    return column;
}

int SYListCtrlEx::DeleteColumn(int column) {
    if (!ValidColumn(column))
        return 0;
    m_columns.erase(m_columns.begin() + column);
    for (Row& row : m_rows) {
        if (static_cast<int>(row.cells.size()) > column)
            row.cells.erase(row.cells.begin() + column);
    }
    NoteChange();
    return 1;
}

std::string SYListCtrlEx::GetColumnTitle(int column) const {
    return ValidColumn(column) ? m_columns[column].title : std::string();
}

int SYListCtrlEx::SetColWidth(int column, int width) {
    if (!ValidColumn(column) || width < 0)
        return 0;
    m_columns[column].width = width;
    NoteChange();
    return 1;
}

int SYListCtrlEx::GetColWidth(int column) const {
    return ValidColumn(column) ? m_columns[column].width : 0;
}

int SYListCtrlEx::SetColFormat(int column, int format) {
    if (!ValidColumn(column))
        return 0;
    m_columns[column].format = format;
    NoteChange();
    return 1;
}

int SYListCtrlEx::GetColFormat(int column) const {
    return ValidColumn(column) ? m_columns[column].format : SYAlignLeft;
}

int SYListCtrlEx::SetHdrFormat(int column, int format) {
    if (!ValidColumn(column))
        return 0;
    m_columns[column].headerFormat = format;
    NoteChange();
    return 1;
}

int SYListCtrlEx::GetHdrFormat(int column) const {
    return ValidColumn(column) ? m_columns[column].headerFormat : SYAlignLeft;
}

void SYListCtrlEx::CalcColsFromHeader(int column) {
    for (int i = 0; i < GetColumnCount(); ++i) {
        if (column == -1 || column == i)
            SetColWidth(i, GetStringWidth(m_columns[i].title) + SYFontMetrics::ColumnPadding);
    }
}

void SYListCtrlEx::SetupColumnsFromString(const std::string& samples) {
    const std::vector<std::string> fields = splitFields(samples);
    for (int i = 0; i < GetColumnCount() && i < static_cast<int>(fields.size()); ++i)
        SetColWidth(i, GetStringWidth(fields[i]) + SYFontMetrics::ColumnPadding);
}

int SYListCtrlEx::GetStringWidth(const std::string& text) const {
    return SYFontMetrics::TextWidth(text);
}

void SYListCtrlEx::ExcludeColumnFromPrinting(int column, int exclude) {
    if (ValidColumn(column))
        m_columns[column].excluded = exclude != 0;
}

bool SYListCtrlEx::IsColumnExcludedFromPrinting(int column) const {
    return ValidColumn(column) && m_columns[column].excluded;
}

int SYListCtrlEx::InsertBitmapString(int image, int row, const std::string& text) {
    return InsertBitmapString(image, row, splitFields(text));
}

int SYListCtrlEx::InsertBitmapString(int image, int row, std::vector<std::string> cells) {
    if (!IsWindow())
        return -1;
    if (row < 0 || row > GetItemCount())
        row = GetItemCount();
    m_rows.insert(m_rows.begin() + row, Row{std::move(cells), image, 0, 0});
    NoteChange();
    return row;
}

int SYListCtrlEx::SetItemString(int row, const std::string& text) {
    if (!ValidRow(row))
        return 0;
    m_rows[row].cells = splitFields(text);
    NoteChange();
    return 1;
}

std::string SYListCtrlEx::GetItemString(int row) const {
    if (!ValidRow(row))
        return {};
    std::string text;
    for (std::size_t i = 0; i < m_rows[row].cells.size(); ++i) {
        if (i > 0)
            text += '\t';
        text += m_rows[row].cells[i];
    }
    return text;
}

int SYListCtrlEx::SetItemText(int row, int column, const std::string& text) {
    if (!ValidRow(row) || column < 0)
        return 0;
    auto& cells = m_rows[row].cells;
    if (static_cast<int>(cells.size()) <= column)
        cells.resize(column + 1);
    cells[column] = text;
    NoteChange();
    return 1;
}

std::string SYListCtrlEx::GetItemText(int row, int column) const {
    if (!ValidRow(row) || column < 0 || column >= static_cast<int>(m_rows[row].cells.size()))
        return {};
    return m_rows[row].cells[column];
}

int SYListCtrlEx::GetItemImage(int row) const {
    return ValidRow(row) ? m_rows[row].image : -1;
}

int SYListCtrlEx::SetItemImage(int row, int image) {
    if (!ValidRow(row))
        return 0;
    m_rows[row].image = image;
    NoteChange();
    return 1;
}

int SYListCtrlEx::SetItemData(int row, std::uint32_t data) {
    if (!ValidRow(row))
        return 0;
    m_rows[row].data = data;
    return 1;
}

std::uint32_t SYListCtrlEx::GetItemData(int row) const {
    return ValidRow(row) ? m_rows[row].data : 0;
}

int SYListCtrlEx::DeleteItem(int row) {
    if (!ValidRow(row))
        return 0;
    m_rows.erase(m_rows.begin() + row);
    if (row < m_topIndex)
        --m_topIndex;
    ClampTopIndex();
    NoteChange();
    return 1;
}

int SYListCtrlEx::DeleteAllItems() {
    if (!IsWindow())
        return 0;
    m_rows.clear();
    m_topIndex = 0;
    NoteChange();
    return 1;
}

int SYListCtrlEx::ReorderItems(const std::vector<int>& order) {
    if (order.size() != m_rows.size())
        return 0;
    std::vector<bool> named(m_rows.size(), false);
    for (const int row : order) {
        if (!ValidRow(row) || named[static_cast<std::size_t>(row)])
            return 0;
        named[static_cast<std::size_t>(row)] = true;
    }
    std::vector<Row> rows;
    rows.reserve(m_rows.size());
    for (const int row : order)
        rows.push_back(std::move(m_rows[static_cast<std::size_t>(row)]));
    m_rows.swap(rows);
    NoteChange();
    return 1;
}

int SYListCtrlEx::GetSelectedItem() const {
    return GetNextItem(-1, LVNI_SELECTED);
}

int SYListCtrlEx::GetSelectedCount() const {
    return static_cast<int>(GetSelectedRows().size());
}

std::vector<int> SYListCtrlEx::GetSelectedRows() const {
    std::vector<int> rows;
    for (int row = 0; row < GetItemCount(); ++row) {
        if (m_rows[row].state & LVIS_SELECTED)
            rows.push_back(row);
    }
    return rows;
}

int SYListCtrlEx::SelectItem(int row) {
    if (row != -1 && !ValidRow(row))
        return 0;
    for (int other = 0; other < GetItemCount(); ++other) {
        if (other != row)
            SetItemState(other, 0, LVIS_SELECTED | LVIS_FOCUSED);
    }
    if (row != -1)
        SetItemState(row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    return 1;
}

int SYListCtrlEx::SetItemState(int row, unsigned state, unsigned mask) {
    if (!ValidRow(row))
        return 0;
    mask &= LVIS_SELECTED | LVIS_FOCUSED;
    const unsigned wanted = (m_rows[row].state & ~mask) | (state & mask);
    // A single-selection list and the one focused row allow no second holder.
    const bool exclusive =
        (wanted & LVIS_FOCUSED) || (m_singleSelection && (wanted & LVIS_SELECTED));
    for (int other = 0; exclusive && other < GetItemCount(); ++other) {
        if (other == row)
            continue;
        unsigned drop = 0;
        if ((wanted & LVIS_FOCUSED) && (m_rows[other].state & LVIS_FOCUSED))
            drop |= LVIS_FOCUSED;
        if (m_singleSelection && (wanted & LVIS_SELECTED) && (m_rows[other].state & LVIS_SELECTED))
            drop |= LVIS_SELECTED;
        if (drop != 0)
            SetItemState(other, 0, drop);
    }
    if (wanted == m_rows[row].state)
        return 1;
    m_rows[row].state = wanted;
    NoteChange();
    SendNotifyToParent(LVN_ITEMCHANGED);
    return 1;
}

unsigned SYListCtrlEx::GetItemState(int row, unsigned mask) const {
    return ValidRow(row) ? m_rows[row].state & mask : 0;
}

int SYListCtrlEx::GetNextItem(int start, unsigned flags) const {
    for (int row = std::max(start + 1, 0); row < GetItemCount(); ++row) {
        if ((m_rows[row].state & flags) == flags)
            return row;
    }
    return -1;
}

void SYListCtrlEx::SaveSelections() {
    m_saved.clear();
    for (int row = 0; row < GetItemCount(); ++row) {
        if (m_rows[row].state != 0)
            m_saved.push_back({m_rows[row].data, m_rows[row].cells, m_rows[row].state});
    }
}

void SYListCtrlEx::RestoreSelections() {
    for (int row = 0; row < GetItemCount(); ++row) {
        if (m_rows[row].state != 0)
            SetItemState(row, 0, LVIS_SELECTED | LVIS_FOCUSED);
    }
    std::vector<bool> taken(m_rows.size(), false);
    for (const SavedSelection& saved : m_saved) {
        int found = -1;
        for (int row = 0; row < GetItemCount() && found == -1; ++row) {
            if (!taken[row] && m_rows[row].data == saved.data && m_rows[row].cells == saved.cells)
                found = row;
        }
        // Item data that are row numbers change with the order; the text still finds it.
        for (int row = 0; row < GetItemCount() && found == -1; ++row) {
            if (!taken[row] && m_rows[row].cells == saved.cells)
                found = row;
        }
        if (found == -1)
            continue;
        taken[found] = true;
        SetItemState(found, saved.state, LVIS_SELECTED | LVIS_FOCUSED);
    }
}

int SYListCtrlEx::GetCountPerPage() const {
    const int height = GetClientRect().Height() - SYFontMetrics::HeaderHeight;
    return std::max(1, height / SYFontMetrics::RowHeight);
}

void SYListCtrlEx::ClampTopIndex() {
    const int maxTop = std::max(0, GetItemCount() - GetCountPerPage());
    m_topIndex = std::clamp(m_topIndex, 0, maxTop);
}

int SYListCtrlEx::Scroll(int /*dx*/, int dy) {
    if (!IsWindow())
        return 0;
    m_topIndex += dy / SYFontMetrics::RowHeight;
    ClampTopIndex();
    NoteChange();
    return 1;
}

int SYListCtrlEx::EnsureVisible(int row, int /*partialOK*/) {
    if (!ValidRow(row))
        return 0;
    if (row < m_topIndex)
        m_topIndex = row;
    else if (row >= m_topIndex + GetCountPerPage())
        m_topIndex = row - GetCountPerPage() + 1;
    NoteChange();
    return 1;
}

int SYListCtrlEx::GetItemRect(int row, SYRect& rect) const {
    if (!ValidRow(row))
        return 0;
    const int top = SYFontMetrics::HeaderHeight + (row - m_topIndex) * SYFontMetrics::RowHeight;
    rect = {0, top, GetClientRect().Width(), top + SYFontMetrics::RowHeight};
    return 1;
}

void SYListCtrlEx::SetSortCallback(SortCallback callback, void* argument) {
    m_sortCallback = callback;
    m_sortArgument = argument;
}

void SYListCtrlEx::SortOnHeader(int column) {
    m_textSortAscending = column == m_textSortColumn ? !m_textSortAscending : true;
    m_textSortColumn = column;
    std::stable_sort(m_rows.begin(), m_rows.end(), [&](const Row& a, const Row& b) {
        const std::string& left = column < static_cast<int>(a.cells.size()) ? a.cells[column] : "";
        const std::string& right = column < static_cast<int>(b.cells.size()) ? b.cells[column] : "";
        const int order = SYStrICmp(left, right);
        return m_textSortAscending ? order < 0 : order > 0;
    });
    NoteChange();
}

int SYListCtrlEx::ClickHeader(int column) {
    if (!IsWindow() || !IsWindowEnabled() || !m_headerClickable || !ValidColumn(column))
        return 0;
    SendNotifyToParent(LVN_COLUMNCLICK);
    if (m_sortCallback != nullptr)
        m_sortCallback(column, m_sortArgument);
    else
        SortOnHeader(column);
    return 1;
}

int SYListCtrlEx::ClickRow(int row) {
    if (!IsWindow() || !IsWindowEnabled() || !ValidRow(row))
        return 0;
    SetFocus();
    return SelectItem(row);
}

int SYListCtrlEx::DoubleClickRow(int row) {
    if (!ClickRow(row))
        return 0;
    SendNotifyToParent(NM_DBLCLK);
    return 1;
}

std::vector<int> SYListCtrlEx::PrintedColumns() const {
    std::vector<int> columns;
    for (int i = 0; i < GetColumnCount(); ++i) {
        if (m_columns[i].width > 0 && !m_columns[i].excluded)
            columns.push_back(i);
    }
    return columns;
}

std::string SYListCtrlEx::MakeCsv() const {
    std::vector<int> columns;
    for (int i = 0; i < GetColumnCount(); ++i) {
        if (m_columns[i].width > 0)
            columns.push_back(i);
    }
    std::vector<std::string> cells;
    for (int column : columns)
        cells.push_back(m_columns[column].title);
    std::string csv = csvLine(cells);
    for (int row = 0; row < GetItemCount(); ++row) {
        cells.clear();
        for (int column : columns)
            cells.push_back(GetItemText(row, column));
        csv += csvLine(cells);
    }
    return csv;
}

int SYListCtrlEx::ExportCsv(const std::string& path) const {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file)
        return 0;
    file << MakeCsv();
    file.close();
    return file ? 1 : 0;
}

std::vector<SYPrintableList::Column> SYListCtrlEx::PrintColumns() const {
    std::vector<Column> columns;
    for (int i : PrintedColumns())
        columns.push_back({m_columns[i].title, m_columns[i].width, m_columns[i].format});
    return columns;
}

std::vector<std::vector<std::string>> SYListCtrlEx::PrintRows() const {
    const std::vector<int> columns = PrintedColumns();
    std::vector<std::vector<std::string>> rows;
    for (int row = 0; row < GetItemCount(); ++row) {
        std::vector<std::string> cells;
        for (int column : columns)
            cells.push_back(GetItemText(row, column));
        rows.push_back(std::move(cells));
    }
    return rows;
}
