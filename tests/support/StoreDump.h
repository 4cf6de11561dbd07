#pragma once

#include <string>
#include <vector>

#include "outside/store/SYDatabase.h"

// Every row of every table of the main schema as text, tables by name and rows in key
// order: two dumps are equal exactly when the stores hold the same data.
inline std::string DumpStore(SYDatabase& db) {
    std::vector<std::string> tables;
    {
        SYStatement list(db, "SELECT name FROM main.sqlite_master WHERE type = 'table' AND "
                             "name NOT LIKE 'sqlite%' ORDER BY name");
        while (list.Step())
            tables.push_back(list.Text(0));
    }
    std::string dump;
    for (const auto& table : tables) {
        dump += "[" + table + "]\n";
        SYStatement rows(db, "SELECT * FROM main.[" + table + "] ORDER BY 1");
        while (rows.Step()) {
            for (int i = 0; i < rows.ColumnCount(); ++i)
                dump += (rows.IsNull(i) ? std::string("<null>") : rows.Text(i)) + "|";
            dump += "\n";
        }
    }
    return dump;
}
