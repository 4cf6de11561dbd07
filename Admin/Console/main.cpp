// trellisview [--db FILE [--create]] [--check] [--summary]
// trellisview COMMAND ... (see --help)
//
// Opens the inventory FILE (by default the demo inventory under $XDG_DATA_HOME or
// ~/.local/share/trellisview/, created with its system rules on first run). On a terminal
// it starts the console there; with --summary, or when stdin or stdout is no terminal, it
// prints the inventory's summary per platform. A FILE that does not exist is made as a demo
// inventory only with --create; --check runs the store's quick check first. Exit codes:
// 0 done, 1 the store failed or refused, 2 bad usage.

#include <cstdio>
#include <string>
#include <unistd.h>

#include "SYCliInventory.h"
#include "SYCommandLine.h"
#include "SYTermConsoleProgram.h"
#include "outside/framework/CException.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryOpener.h"
#include "outside/store/SYInventorySummary.h"

namespace {

int usage(const char* program) {
    std::fprintf(stderr, "usage: %s [--db FILE [--create]] [--check] [--summary]\n", program);
    return 2;
}

void tell(const std::string& line) {
    std::fprintf(stderr, "trellisview: %s\n", line.c_str());
}

int summarise(SYDatabase& db, const SYInventoryOpener& opener) {
    try {
        SYInventorySummary summary;
        summary.Load(db);
        std::printf("Inventory %s\n\n%s", opener.Path().c_str(), summary.Format().c_str());
    } catch (const CException& e) {
        tell(opener.Describe(e.ErrorMessage()));
        return 1;
    }
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (SYCommandLine::Wants(argc, argv))
        return SYCommandLine::Run(argc, argv);
    SYInventoryOpener opener;
    SYCliInventory::SetFirstRun(opener);
    bool summaryOnly = false;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--db" && i + 1 < argc)
            opener.SetPath(argv[++i]);
        else if (arg == "--create")
            opener.SetCreate(1);
        else if (arg == "--check")
            opener.SetCheck(1);
        else if (arg == "--summary")
            summaryOnly = true;
        else
            return usage(argv[0]);
    }
    const bool console = !summaryOnly && isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
    // The summary only reads: a file kept in another journal mode is not rewritten.
    opener.SetMode(console ? SYDatabase::OpenMode::Write : SYDatabase::OpenMode::Read);
    SYDatabase db;
    if (opener.Open(db) == 0) {
        tell(opener.Message());
        return 1;
    }
    if (opener.CreatedInventory() != 0)
        std::printf("Created the demo inventory %s\n", opener.Path().c_str());
    if (!opener.Message().empty())
        tell(opener.Message());
    if (console)
        return SYTermConsoleProgram::Run(db, opener.InstallPath());
    return summarise(db, opener);
}
