#include "outside/widgets/SYPrintEngine.h"

#include <algorithm>
#include <cctype>
#include <fstream>

#ifdef TV_HAVE_CAIRO
#include <cairo-pdf.h>
#include <cairo.h>
#endif

#include "outside/widgets/SYPrintEngineText.h"
#include "outside/widgets/SYPrintableList.h"

namespace {

constexpr int ColumnGap = 2;
constexpr int NarrowestColumn = 3;

bool isPdfPath(const std::string& path) {
    if (path.size() < 4)
        return false;
    std::string tail = path.substr(path.size() - 4);
    std::transform(tail.begin(), tail.end(), tail.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return tail == ".pdf";
}

std::string joinCells(const std::vector<std::string>& cells, const std::vector<int>& widths,
                      const std::vector<int>& formats, int width) {
    std::string line;
    for (std::size_t i = 0; i < widths.size(); ++i) {
        if (i != 0)
            line += std::string(ColumnGap, ' ');
        const std::string cell = i < cells.size() ? cells[i] : std::string();
        line += printtext::Fit(cell, widths[i], formats[i]);
    }
    return printtext::Head(printtext::TrimRight(line), width);
}

// Shrinks the widest columns until the table fits the line, as far as they can go.
void fitColumns(std::vector<int>& widths, int width) {
    int total = ColumnGap * (static_cast<int>(widths.size()) - 1);
    for (const int w : widths)
        total += w;
    while (total > width) {
        auto widest = std::max_element(widths.begin(), widths.end());
        if (*widest <= NarrowestColumn)
            return;
        --*widest;
        --total;
    }
}

} // namespace

// Fills pages line by line: the title heads each page, and a table's heading is repeated
// on every page its rows run over.
class SYPrintEngine::Paginator {
public:
    Paginator(const std::string& title, int width, int height) : m_height(height) {
        if (!title.empty())
            m_header = {printtext::Fit(title, width, 0), ""};
        for (std::string& line : m_header)
            line = printtext::TrimRight(line);
    }

    void Add(const std::string& line) {
        if (NeedsPage(1))
            StartPage();
        // A blank line has no use at the top of a page.
        if (line.empty() && m_pages.back().size() == m_topLines)
            return;
        m_pages.back().push_back(line);
    }

    void AddTable(const std::vector<std::string>& heading, const std::vector<std::string>& rows) {
        // The heading goes with at least one row.
        if (NeedsPage(static_cast<int>(heading.size()) + 1))
            StartPage();
        for (const std::string& line : heading)
            Add(line);
        m_repeated = heading;
        for (const std::string& line : rows)
            Add(line);
        m_repeated.clear();
    }

    // The next line goes on a new page, unless this one holds nothing yet.
    void BreakPage() { m_breakPending = !m_pages.empty() && m_pages.back().size() > m_topLines; }

    std::vector<std::vector<std::string>> Finish() {
        if (m_pages.empty())
            StartPage();
        return std::move(m_pages);
    }

private:
    bool NeedsPage(int lines) const {
        if (m_pages.empty() || m_breakPending)
            return true;
        const bool fresh = m_pages.back().size() == m_topLines;
        return !fresh && m_height - static_cast<int>(m_pages.back().size()) < lines;
    }

    void StartPage() {
        m_breakPending = false;
        m_pages.emplace_back();
        const std::size_t fixed = m_header.size() + m_repeated.size();
        // A page too short for its headings still takes one line of content.
        if (static_cast<int>(fixed) < m_height) {
            m_pages.back() = m_header;
            m_pages.back().insert(m_pages.back().end(), m_repeated.begin(), m_repeated.end());
        }
        m_topLines = m_pages.back().size();
    }

    int m_height;
    std::vector<std::string> m_header;
    std::vector<std::string> m_repeated;
    std::vector<std::vector<std::string>> m_pages;
    std::size_t m_topLines = 0;
    bool m_breakPending = false;
};

SYPrintEngine::DestinationChooser& SYPrintEngine::chooser() {
    static DestinationChooser current;
    return current;
}

void SYPrintEngine::SetDestinationChooser(DestinationChooser chooser) {
    SYPrintEngine::chooser() = std::move(chooser);
}

int SYPrintEngine::PrintSetup(int flags) {
    m_setUp = false;
    if ((flags & PrintSetupNoPrompt) == 0 && chooser())
        m_destination = chooser()(*this);
    m_setUp = !m_destination.empty();
    return m_setUp ? 1 : 0;
}

int SYPrintEngine::BeginPrinting() {
    if (!m_setUp)
        return 0;
    m_blocks.clear();
    m_begun = true;
    return 1;
}

int SYPrintEngine::Print() {
    if (!m_begun)
        return 0;
    m_begun = false;
    return isPdfPath(m_destination) ? WritePdf(m_destination) : WriteText(m_destination);
}

void SYPrintEngine::TakePage(const CDC* dc) {
    if (dc != nullptr && dc != &m_dc)
        m_dc = *dc;
}

SYPeDataLabeledList* SYPrintEngine::AddLabeledDataList(CDC* dc) {
    TakePage(dc);
    Block block{Block::Kind::Data, std::make_unique<SYPeDataLabeledList>(), {}};
    SYPeDataLabeledList* list = block.data.get();
    m_blocks.push_back(std::move(block));
    return list;
}

void SYPrintEngine::AddBreak() {
    m_blocks.push_back({Block::Kind::Break, nullptr, {}});
}

void SYPrintEngine::AddPageBreak() {
    m_blocks.push_back({Block::Kind::PageBreak, nullptr, {}});
}

int SYPrintEngine::AddList(const SYPrintableList& list, CDC* dc) {
    const std::vector<SYPrintableList::Column> columns = list.PrintColumns();
    if (columns.empty())
        return 0;
    TakePage(dc);
    Table table;
    for (const SYPrintableList::Column& column : columns) {
        table.titles.push_back(column.title);
        table.formats.push_back(column.format);
    }
    table.rows = list.PrintRows();
    m_blocks.push_back({Block::Kind::Table, nullptr, std::move(table)});
    return 1;
}

std::vector<std::string> SYPrintEngine::LayoutTable(const Table& table, int width,
                                                    std::vector<std::string>& heading) const {
    std::vector<int> widths;
    for (std::size_t i = 0; i < table.titles.size(); ++i) {
        int natural = std::max(1, printtext::Width(table.titles[i]));
        for (const std::vector<std::string>& row : table.rows) {
            if (i < row.size())
                natural = std::max(natural, printtext::Width(row[i]));
        }
        widths.push_back(natural);
    }
    fitColumns(widths, width);

    std::vector<std::string> rules;
    for (const int w : widths)
        rules.emplace_back(static_cast<std::size_t>(w), '-');
    const std::vector<int> left(widths.size(), 0);
    heading = {joinCells(table.titles, widths, table.formats, width),
               joinCells(rules, widths, left, width)};

    std::vector<std::string> lines;
    for (const std::vector<std::string>& row : table.rows)
        lines.push_back(joinCells(row, widths, table.formats, width));
    return lines;
}

std::vector<std::vector<std::string>> SYPrintEngine::Paginate() const {
    const int width = m_dc.CharsPerLine();
    Paginator pages(m_title, width, m_dc.LinesPerPage());
    for (const Block& block : m_blocks) {
        switch (block.kind) {
        case Block::Kind::Data:
            for (const std::string& line : block.data->Layout(width))
                pages.Add(line);
            break;
        case Block::Kind::Break:
            pages.Add("");
            break;
        case Block::Kind::PageBreak:
            pages.BreakPage();
            break;
        case Block::Kind::Table: {
            std::vector<std::string> heading;
            const std::vector<std::string> rows = LayoutTable(block.table, width, heading);
            pages.AddTable(heading, rows);
            break;
        }
        }
    }
    return pages.Finish();
}

std::string SYPrintEngine::RenderText() const {
    std::string text;
    bool first = true;
    for (const std::vector<std::string>& page : Paginate()) {
        if (!first)
            text += '\f';
        first = false;
        for (const std::string& line : page)
            text += line + '\n';
    }
    return text;
}

int SYPrintEngine::WriteText(const std::string& path) const {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out)
        return 0;
    out << RenderText();
    out.close();
    return out ? 1 : 0;
}

#ifdef TV_HAVE_CAIRO

int SYPrintEngine::WritePdf(const std::string& path) const {
    using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
    using Context = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;
    Surface surface(cairo_pdf_surface_create(path.c_str(), m_dc.PageWidth(), m_dc.PageHeight()),
                    cairo_surface_destroy);
    if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS)
        return 0;
    {
        Context cr(cairo_create(surface.get()), cairo_destroy);
        cairo_select_font_face(cr.get(), "monospace", CAIRO_FONT_SLANT_NORMAL,
                               CAIRO_FONT_WEIGHT_NORMAL);
        cairo_set_font_size(cr.get(), m_dc.FontSize());
        cairo_font_extents_t extents;
        cairo_font_extents(cr.get(), &extents);
        for (const std::vector<std::string>& page : Paginate()) {
            double baseline = m_dc.TopMargin() + extents.ascent;
            for (const std::string& line : page) {
                if (!line.empty()) {
                    cairo_move_to(cr.get(), m_dc.LeftMargin(), baseline);
                    cairo_show_text(cr.get(), line.c_str());
                }
                baseline += m_dc.LineHeight();
            }
            cairo_show_page(cr.get());
        }
        if (cairo_status(cr.get()) != CAIRO_STATUS_SUCCESS)
            return 0;
    }
    cairo_surface_finish(surface.get());
    return cairo_surface_status(surface.get()) == CAIRO_STATUS_SUCCESS ? 1 : 0;
}

#else

int SYPrintEngine::WritePdf(const std::string& /*path*/) const {
    return 0;
}

#endif
