#include "SYCliInventory.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryGenerator.h"

std::string SYCliInventory::DefaultPath() {
    const char* dataHome = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    std::filesystem::path base;
    if (dataHome != nullptr && *dataHome != '\0')
        base = dataHome;
    else if (home != nullptr && *home != '\0')
        base = std::filesystem::path(home) / ".local" / "share";
    else
        base = std::filesystem::current_path();
    return (base / "trellisview" / "inventory.db").string();
}

std::string SYCliInventory::InstallFolder(const std::string& path) {
    return (std::filesystem::path(path).parent_path() / "installation").string();
}

void SYCliInventory::Open(SYDatabase& database, const std::string& path) {
    const std::string file = path.empty() ? DefaultPath() : path;
    const std::string install = InstallFolder(file);
    // Scripts read stdout, so the note of a first run goes to stderr.
    if (path.empty() && SYInventoryGenerator::CreateIfAbsent(
                            file, install, SYInventoryGenerator::DemoOptions()) != 0)
        std::fprintf(stderr, "Created the demo inventory %s\n", file.c_str());
    database.Open(file);
    SYGetApp().SetInstallPath(install);
}
