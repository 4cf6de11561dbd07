#include "SYCliInventory.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "SYCliError.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryOpener.h"

std::string SYCliInventory::DefaultPath() {
    return SYInventoryOpener::DefaultPath();
}

std::string SYCliInventory::InstallFolder(const std::string& path) {
    return (std::filesystem::path(path).parent_path() / "installation").string();
}

void SYCliInventory::Open(SYDatabase& database, const std::string& path,
                          SYDatabase::OpenMode mode) {
    SYInventoryOpener opener;
    if (!path.empty())
        opener.SetPath(path);
    opener.SetMode(mode);
    if (opener.Open(database) == 0)
        throw SYCliError(SYCliError::StoreFailed, opener.Message());
    // Scripts read stdout, so notes (a first run, a read-only open) go to stderr.
    if (opener.CreatedInventory() != 0)
        std::fprintf(stderr, "Created the demo inventory %s\n", opener.Path().c_str());
    if (!opener.Message().empty())
        std::fprintf(stderr, "trellisview: %s\n", opener.Message().c_str());
    SYGetApp().SetInstallPath(opener.InstallPath());
}
