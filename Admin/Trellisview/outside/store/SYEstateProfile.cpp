#include "outside/store/SYEstateProfile.h"

#include "outside/store/SYGeneratedRows.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYSWInvObject.h"
#include "outside/store/SYScanFile.h"
#include "outside/store/SYSystemRulesWriter.h"

namespace {

using namespace generated;

// The realistic estate. Its operating system ships kOSFiles files in kOSBuilds builds; a
// file changes in some builds only, so PCs of different builds share most of them.
constexpr int kOSFiles = 150;
constexpr int kOSBuilds = 4;
constexpr int kCatalogueApps = 400;
constexpr int kCatalogueVendors = 100;
constexpr int kSetupVariants = 3000;
constexpr int kMacroVariants = 30000;
constexpr int kEstateUserRules = 2000;
// One rule in this many is retired after the estate is written.
constexpr int kRetiredEvery = 13;

int osRevision(int file, int build) {
    switch (file % 4) {
    case 0:
        return build;
    case 1:
        return build / 2;
    default:
        return 0;
    }
}

SYScanFile osFile(int file, int build) {
    static const char* const kinds[] = {".sys", ".exe", ".dll", ".dll", ".dll"};
    const int revision = osRevision(file, build);
    SYScanFile scanned{numbered("crv%03d", file) + kinds[file % 5],
                       20000 + static_cast<std::uint64_t>(file) * 1499 +
                           static_cast<std::uint64_t>(revision) * 211,
                       kBuildBase + 600 * 86400 + revision * 86400 * 120 + file * 60,
                       "",
                       "",
                       ""};
    // A third of the system's files carry no version information; system rules name them.
    if (file % 3 != 0)
        scanned = {scanned.name,
                   scanned.size,
                   scanned.time,
                   "Corvid OS",
                   numbered("10.%d", revision),
                   file % 2 == 0 ? "Corvid Systems" : "Corvid Systems, Inc."};
    return scanned;
}

std::string catalogueCompany(int vendor, int spelling) {
    static const char* const forms[] = {"Cobalt %03d Software", "Cobalt %03d Software, Inc.",
                                        "COBALT %03d SOFTWARE INC"};
    return numbered(forms[spelling % 3], vendor);
}

int catalogueVersions(int app) {
    return 1 + app % 4;
}

int catalogueFileCount(int app) {
    return 4 + app % 9;
}

std::string catalogueName(int app) {
    return numbered("Workbench %03d", app);
}

// File j of one version of catalogue application app: the program and its core library
// carry version information, the modules after them do not.
SYScanFile catalogueFile(int app, int version, int j) {
    const std::string stem = numbered("wb%03d", app);
    const std::uint64_t size = 50000 + static_cast<std::uint64_t>(app) * 3001 +
                               static_cast<std::uint64_t>(j) * 577 +
                               static_cast<std::uint64_t>(version) * 97;
    const std::int32_t time =
        buildTime(300 + static_cast<std::size_t>(app), static_cast<std::size_t>(version));
    if (j >= 2)
        return {stem + numbered("m%02d.dll", j), size, time, "", "", ""};
    return {stem + (j == 0 ? ".exe" : "core.dll"),
            size,
            time,
            catalogueName(app),
            numbered("%d.0", version + 1),
            catalogueCompany(app % kCatalogueVendors, version + j)};
}

} // namespace

void SYEstateProfile::WritePCFiles(SYInventoryWriter& writer, unsigned long pc, int index,
                                   const std::string& home) {
    WriteSystemFiles(writer, pc);
    WriteCatalogueApps(writer, pc);
    WriteLocalFiles(writer, pc, index, home);
}

int SYEstateProfile::Pick(int count) {
    return static_cast<int>(m_random() % static_cast<std::uint32_t>(count));
}

// The system's files without version information, and the modules of two catalogue
// applications in three, by name and size of each version; besides, logs no PC holds yet.
void SYEstateProfile::WriteSystemRules(SYSystemRulesWriter& rules) {
    for (int file = 0; file < kOSFiles; file += 3)
        rules.AddRule(
            identify(InvDataWindows, osFile(file, 0).name, "Corvid OS", "", "Corvid Systems"));
    for (int app = 0; app < kCatalogueApps; ++app) {
        if (app % 3 == 0)
            continue;
        const std::string company = catalogueCompany(app % kCatalogueVendors, 0);
        for (int version = 0; version < catalogueVersions(app); ++version) {
            const std::string number = numbered("%d.0", version + 1);
            for (int j = 2; j < catalogueFileCount(app); ++j) {
                const SYScanFile module = catalogueFile(app, version, j);
                SYRuleRow row = identify(InvDataWindows, module.name, catalogueName(app).c_str(),
                                         number.c_str(), company.c_str());
                row.size = module.size;
                rules.AddRule(row);
            }
        }
    }
    for (int log = 0; log < 500; ++log)
        rules.AddRule(ignore(InvDataWindows, numbered("oemlog%04d.log", log), "Vendor log"));
}

void SYEstateProfile::WriteSystemFiles(SYInventoryWriter& writer, unsigned long pc) {
    const int build = Pick(kOSBuilds);
    for (int file = 0; file < kOSFiles; ++file)
        writer.AddFile(InvDataWindows, pc, file % 5 == 0 ? "C:\\Windows" : "C:\\Windows\\System32",
                       osFile(file, build));
}

// The popular applications are on most PCs: the square of an even draw favours low
// numbers.
void SYEstateProfile::WriteCatalogueApps(SYInventoryWriter& writer, unsigned long pc) {
    const int count = 14 + Pick(8);
    for (int i = 0; i < count; ++i) {
        const double draw = Pick(1000) / 1000.0;
        const int app = static_cast<int>(kCatalogueApps * draw * draw);
        const int version = Pick(catalogueVersions(app));
        const std::string folder = "C:\\Program Files\\" +
                                   catalogueCompany(app % kCatalogueVendors, 0) + "\\" +
                                   catalogueName(app);
        for (int j = 0; j < catalogueFileCount(app); ++j)
            writer.AddFile(InvDataWindows, pc, folder, catalogueFile(app, version, j));
    }
}

// Installers and in-house macros many PCs share a few of, and a profile cache of its own.
void SYEstateProfile::WriteLocalFiles(SYInventoryWriter& writer, unsigned long pc, int index,
                                      const std::string& home) {
    for (int i = 1 + Pick(3); i > 0; --i) {
        const int setup = Pick(kSetupVariants);
        writer.AddFile(InvDataWindows, pc, home + "\\Downloads",
                       {numbered("setup_%04d.exe", setup), setupSize(setup),
                        buildTime(30, 0) + setup * 60, "", "", ""});
    }
    for (int i = 0; i < 2; ++i) {
        const int macro = Pick(kMacroVariants);
        writer.AddFile(InvDataWindows, pc, home + "\\Documents\\Macros",
                       {numbered("macro%05d.exe", macro), 30000 + static_cast<std::uint64_t>(macro),
                        kScanBase - macro * 60, "", "", ""});
    }
    writer.AddFile(InvDataWindows, pc, home + "\\AppData\\Local",
                   {numbered("profile%06d.dat", index), 65536, kScanBase - 7200, "", "", ""});
}

// Rules an administrator made over the years: in-house macros identified, installers
// ignored by size, modules of catalogue applications the system rules leave open named.
// Gives the rules to retire once written.
void SYEstateProfile::WriteUserRules(SYInventoryWriter& writer,
                                     std::vector<unsigned long>& retired) {
    for (int i = 0; i < kEstateUserRules; ++i) {
        SYRuleRow row;
        switch (i % 4) {
        case 0:
        case 1: {
            const int macro = i * 7919 % kMacroVariants;
            row = identify(InvDataWindows, numbered("macro%05d.exe", macro), "In-house Macros",
                           numbered("%d", 1 + macro % 5).c_str(), "Internal IT");
            break;
        }
        case 2: {
            const int setup = i * 104729 % kSetupVariants;
            row =
                ignore(InvDataWindows, numbered("setup_%04d.exe", setup), "Installer left behind");
            row.size = setupSize(setup);
            break;
        }
        default: {
            const int app = (i * 3) % kCatalogueApps / 3 * 3;
            const std::string company = catalogueCompany(app % kCatalogueVendors, 1);
            row = identify(InvDataWindows, catalogueFile(app, 0, 2 + i % 2).name,
                           catalogueName(app).c_str(), "", company.c_str());
        }
        }
        const unsigned long id = writer.AddUserRule(row);
        if (i % kRetiredEvery == kRetiredEvery - 1)
            retired.push_back(id);
    }
}
