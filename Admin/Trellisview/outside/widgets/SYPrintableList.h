#pragma once

#include <string>
#include <vector>

// What the print engine reads of a report list: the visible columns that are not excluded
// from printing, with their titles, justification and rows.
class SYPrintableList {
public:
    struct Column {
        std::string title;
        int width = 0;  // pixels
        int format = 0; // 0 left, 1 right, 2 centre
    };

    virtual ~SYPrintableList() = default;
    virtual std::vector<Column> PrintColumns() const = 0;
    // One vector of cell texts per row, in the order of PrintColumns.
    virtual std::vector<std::vector<std::string>> PrintRows() const = 0;
};
