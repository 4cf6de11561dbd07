#pragma once

#include <string>

#include "outside/store/SYDatabase.h"

class SYInventoryOpener;

// Where the command line finds its inventory and the system rules beside it.
class SYCliInventory {
public:
    // The demo inventory under $XDG_DATA_HOME or ~/.local/share/trellisview/; empty when
    // neither is set.
    static std::string DefaultPath();
    // The installation folder of an inventory, which holds its system rules database.
    static std::string InstallFolder(const std::string& path);
    // Opens the inventory (an empty path: the demo one, created on first use only there) and
    // points the application object at its installation folder. A refusal throws SYCliError
    // with the opener's one line; a view opens for reading, so the file is not rewritten.
    static void Open(SYDatabase& database, const std::string& path, SYDatabase::OpenMode mode);
    // Makes the opener give a first-run demo inventory the program's realistic estate, with
    // a progress bar on a terminal while it is made.
    static void SetFirstRun(SYInventoryOpener& opener);
    // A bar on stderr, redrawn when the percentage moves.
    static void ShowProgress(int written, int total);
};
