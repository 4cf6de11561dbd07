#include "SYCliInventory.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <unistd.h>

#include "SYCliError.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryGenerator.h"
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
    SetFirstRun(opener);
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

void SYCliInventory::SetFirstRun(SYInventoryOpener& opener) {
    SYInventoryGenerator::Options options = SYInventoryGenerator::FirstRunOptions();
    if (isatty(STDERR_FILENO) != 0)
        options.progress = ShowProgress;
    opener.SetDemoOptions(options);
}

void SYCliInventory::ShowProgress(int written, int total) {
    constexpr int width = 40;
    const int percent = written * 100 / total;
    static int shown = -1;
    if (percent == shown)
        return;
    shown = percent;
    const int filled = percent * width / 100;
    std::fprintf(stderr, "\r[%s%s] %3d%% %d/%d clients", std::string(filled, '#').c_str(),
                 std::string(width - filled, ' ').c_str(), percent, written, total);
    if (written == total)
        std::fputc('\n', stderr);
}
