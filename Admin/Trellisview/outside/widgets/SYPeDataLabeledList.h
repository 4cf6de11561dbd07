#pragma once

#include <string>
#include <vector>

// A block of a print-out: label and value pairs, one to a line, the values in one column.
class SYPeDataLabeledList {
public:
    struct Row {
        std::string label;
        std::string value;
        int justification; // 0 left (text), 1 right (numbers), 2 centred
    };

    // Adds a line. Values of justification 1 line up on their right edge.
    void AddData(const std::string& label, const std::string& value, int justification);
    const std::vector<Row>& Rows() const { return m_rows; }

    // The lines in a page `width` characters wide. A value too long for its column goes on
    // over further lines, each starting in the value column.
    std::vector<std::string> Layout(int width) const;

private:
    std::vector<Row> m_rows;
};
