#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "SYCliTable.h"

// What one command shows: a title, labelled values and tables, written as aligned text,
// RFC 4180 CSV, one JSON document, or a PDF through the print engine.
class SYCliDocument {
public:
    enum class Format { Text, Csv, Json };

    struct Field {
        std::string label;
        std::string key;
        SYCliTable::Cell cell;
    };

    explicit SYCliDocument(std::string title = {}) : m_title(std::move(title)) {}

    const std::string& Title() const { return m_title; }
    // A sentence that text output gives in place of the fields.
    void SetLead(std::string lead) { m_lead = std::move(lead); }
    void AddField(const std::string& label, const std::string& key, SYCliTable::Cell cell);
    SYCliTable& AddTable(SYCliTable table);
    const std::vector<Field>& Fields() const { return m_fields; }
    const std::vector<SYCliTable>& Tables() const { return m_tables; }

    void Write(std::ostream& out, Format format) const;
    // 0 if the file cannot be written or PDF output is not built in.
    int WritePdf(const std::string& path) const;

private:
    void WriteText(std::ostream& out) const;
    void WriteCsv(std::ostream& out) const;
    void WriteJson(std::ostream& out) const;

    std::string m_title;
    std::string m_lead;
    std::vector<Field> m_fields;
    std::vector<SYCliTable> m_tables;
};
