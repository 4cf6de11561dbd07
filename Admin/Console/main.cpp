// trellisview [--db FILE] [--summary]
//
// Opens the inventory FILE (by default the demo inventory under $XDG_DATA_HOME or
// ~/.local/share/trellisview/), creating the demo inventory and its system rules first when
// it is absent. On a terminal it starts the console there; with --summary, or when stdin or
// stdout is no terminal, it prints the inventory's summary per platform.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

#include "SYCommandLine.h"
#include "SYTermConsoleProgram.h"
#include "outside/framework/CException.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryGenerator.h"
#include "outside/store/SYInventorySummary.h"

namespace {

std::filesystem::path defaultDatabase() {
    const char* dataHome = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    std::filesystem::path base;
    if (dataHome != nullptr && *dataHome != '\0')
        base = dataHome;
    else if (home != nullptr && *home != '\0')
        base = std::filesystem::path(home) / ".local" / "share";
    else
        base = std::filesystem::current_path();
    return base / "trellisview" / "inventory.db";
}

int usage(const char* program) {
    std::fprintf(stderr, "usage: %s [--db FILE] [--summary]\n", program);
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    if (SYCommandLine::Wants(argc, argv))
        return SYCommandLine::Run(argc, argv);
    std::filesystem::path database = defaultDatabase();
    bool summaryOnly = false;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--db" && i + 1 < argc)
            database = argv[++i];
        else if (arg == "--summary")
            summaryOnly = true;
        else
            return usage(argv[0]);
    }
    try {
        const auto install = database.parent_path() / "installation";
        if (SYInventoryGenerator::CreateIfAbsent(database.string(), install.string(),
                                                 SYInventoryGenerator::DemoOptions()) != 0)
            std::printf("Created the demo inventory %s\n", database.string().c_str());
        if (!summaryOnly && isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0)
            return SYTermConsoleProgram::Run(database.string());
        SYDatabase db;
        db.Open(database.string());
        SYInventorySummary summary;
        summary.Load(db);
        std::printf("Inventory %s\n\n%s", database.string().c_str(), summary.Format().c_str());
    } catch (const CException& e) {
        std::fprintf(stderr, "trellisview: %s\n", e.ErrorMessage().c_str());
        return 1;
    }
    return 0;
}
