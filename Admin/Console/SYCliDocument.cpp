#include "SYCliDocument.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "outside/widgets/SYPrintEngine.h"

namespace {

using Cell = SYCliTable::Cell;

// Display width of UTF-8 text: one column per code point.
std::size_t width(const std::string& text) {
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    }));
}

std::string pad(const std::string& text, std::size_t to, bool right) {
    const std::string fill(to > width(text) ? to - width(text) : 0, ' ');
    return right ? fill + text : text + fill;
}

void writeAligned(std::ostream& out, const SYCliTable& table) {
    const auto& columns = table.Columns();
    std::vector<std::size_t> widths;
    for (const auto& column : columns)
        widths.push_back(width(column.title));
    for (const auto& row : table.Rows()) {
        for (std::size_t c = 0; c < row.size() && c < widths.size(); ++c)
            widths[c] = std::max(widths[c], width(row[c].shown));
    }
    auto line = [&](auto cellText) {
        std::string text;
        for (std::size_t c = 0; c < columns.size(); ++c) {
            const bool last = c + 1 == columns.size();
            const bool right = columns[c].format == 1;
            text += last && !right ? cellText(c) : pad(cellText(c), widths[c], right);
            if (!last)
                text += "  ";
        }
        out << text << '\n';
    };
    line([&](std::size_t c) { return columns[c].title; });
    for (const auto& row : table.Rows())
        line([&](std::size_t c) { return c < row.size() ? row[c].shown : std::string(); });
}

std::string csvField(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (char c : text) {
        if (c == '"')
            quoted += '"';
        quoted += c;
    }
    return quoted + '"';
}

void csvLine(std::ostream& out, const std::vector<std::string>& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i)
        out << (i == 0 ? "" : ",") << csvField(fields[i]);
    out << "\r\n";
}

void writeCsvTable(std::ostream& out, const SYCliTable& table) {
    std::vector<std::string> fields;
    for (const auto& column : table.Columns())
        fields.push_back(column.key);
    csvLine(out, fields);
    for (const auto& row : table.Rows()) {
        fields.clear();
        for (const Cell& cell : row)
            fields.push_back(cell.value);
        csvLine(out, fields);
    }
}

nlohmann::ordered_json jsonValue(const Cell& cell) {
    if (cell.number && !cell.value.empty())
        return std::stoll(cell.value);
    if (cell.number)
        return nullptr;
    return cell.value;
}

nlohmann::ordered_json jsonTable(const SYCliTable& table) {
    auto rows = nlohmann::ordered_json::array();
    for (const auto& row : table.Rows()) {
        nlohmann::ordered_json object = nlohmann::ordered_json::object();
        for (std::size_t c = 0; c < row.size() && c < table.Columns().size(); ++c)
            object[table.Columns()[c].key] = jsonValue(row[c]);
        rows.push_back(std::move(object));
    }
    return rows;
}

} // namespace

void SYCliDocument::AddField(const std::string& label, const std::string& key, Cell cell) {
    m_fields.push_back({label, key, std::move(cell)});
}

SYCliTable& SYCliDocument::AddTable(SYCliTable table) {
    m_tables.push_back(std::move(table));
    return m_tables.back();
}

void SYCliDocument::Write(std::ostream& out, Format format) const {
    switch (format) {
    case Format::Text:
        WriteText(out);
        break;
    case Format::Csv:
        WriteCsv(out);
        break;
    case Format::Json:
        WriteJson(out);
        break;
    }
}

void SYCliDocument::WriteText(std::ostream& out) const {
    if (!m_lead.empty()) {
        out << m_lead << '\n';
    } else {
        std::size_t labelWidth = 0;
        for (const Field& field : m_fields)
            labelWidth = std::max(labelWidth, width(field.label) + 1);
        for (const Field& field : m_fields)
            out << pad(field.label + ":", labelWidth, false) << "  " << field.cell.shown << '\n';
    }
    const bool headed = !m_fields.empty() || m_tables.size() > 1;
    for (const SYCliTable& table : m_tables) {
        if (headed)
            out << '\n' << table.Title() << '\n';
        writeAligned(out, table);
    }
}

void SYCliDocument::WriteCsv(std::ostream& out) const {
    if (!m_fields.empty()) {
        std::vector<std::string> keys, values;
        for (const Field& field : m_fields) {
            keys.push_back(field.key);
            values.push_back(field.cell.value);
        }
        csvLine(out, keys);
        csvLine(out, values);
    }
    for (std::size_t i = 0; i < m_tables.size(); ++i) {
        // Further tables follow after an empty line, as a spreadsheet reads sections.
        if (i > 0 || !m_fields.empty())
            out << "\r\n";
        writeCsvTable(out, m_tables[i]);
    }
}

void SYCliDocument::WriteJson(std::ostream& out) const {
    if (m_fields.empty() && m_tables.size() == 1) {
        out << jsonTable(m_tables.front()).dump(2) << '\n';
        return;
    }
    nlohmann::ordered_json object = nlohmann::ordered_json::object();
    for (const Field& field : m_fields)
        object[field.key] = jsonValue(field.cell);
    for (const SYCliTable& table : m_tables)
        object[table.Key()] = jsonTable(table);
    out << object.dump(2) << '\n';
}

int SYCliDocument::WritePdf(const std::string& path) const {
    SYPrintEngine engine;
    engine.SetTitle(m_title);
    engine.SetDestination(path);
    if (engine.PrintSetup(SYPrintEngine::PrintSetupNoPrompt) == 0 || engine.BeginPrinting() == 0)
        return 0;
    if (!m_fields.empty()) {
        SYPeDataLabeledList* data = engine.AddLabeledDataList(nullptr);
        for (const Field& field : m_fields)
            data->AddData(field.label, field.cell.shown, field.cell.number ? 1 : 0);
    }
    for (const SYCliTable& table : m_tables) {
        engine.AddBreak();
        engine.AddList(table, nullptr);
    }
    return engine.Print();
}
