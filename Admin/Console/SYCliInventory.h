#pragma once

#include <string>

class SYDatabase;

// Where the command line finds its inventory and the system rules beside it.
class SYCliInventory {
public:
    // The demo inventory under $XDG_DATA_HOME or ~/.local/share/trellisview/.
    static std::string DefaultPath();
    // The installation folder of an inventory, which holds its system rules database.
    static std::string InstallFolder(const std::string& path);
    // Opens the inventory (an empty path: the demo one, created on first use only there) and
    // points the application object at its installation folder. Store failures throw.
    static void Open(SYDatabase& database, const std::string& path);
};
