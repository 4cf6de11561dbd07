#include "outside/store/SYInventoryGenerator.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <vector>

#include "outside/framework/CException.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYEstateProfile.h"
#include "outside/store/SYFileVerdict.h"
#include "outside/store/SYGeneratedRows.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYSWInvObject.h"
#include "outside/store/SYSWRuleSet.h"
#include "outside/store/SYSamData.h"
#include "outside/store/SYSystemRulesWriter.h"
#include "outside/store/SYTransaction.h"

namespace {

using namespace generated;

constexpr std::uint64_t kGigabyte = 1ULL << 30;

struct Company {
    std::vector<const char*> spellings;
};

// Companies as their files' version information spells them.
const std::vector<Company> kCompanies = {
    {{"Bluefin Labs", "Bluefin Labs, Inc.", "BLUEFIN LABS INC"}},
    {{"Quillmark Systems Corporation", "Quillmark Systems Corp."}},
    {{"Tarnwell Ltd.", "Tarnwell Limited", "TARNWELL LTD"}},
    {{"Orrery Soft GmbH", "Orrery Soft"}},
    {{"Halcyon Data LLC", "Halcyon Data"}},
    {{"Pinecrest Tools Co.", "Pinecrest Tools"}},
    {{"Kestrel Audio AG"}},
    {{"Sundial Works, Inc.", "Sundial Works"}},
};

struct App {
    int company;
    const char* name;
    const char* stem;
    std::vector<const char*> versions;
    std::uint32_t baseSize;
};

const std::vector<App> kPCApps = {
    {0, "Bluefin Mail", "bfmail", {"3.0", "3.1", "4.0"}, 1800000},
    {0, "Bluefin Sync", "bfsync", {"1.2"}, 650000},
    {1, "Quill Writer", "qwriter", {"2.0", "2.5"}, 4200000},
    {1, "Quill Sheets", "qsheets", {"2.0"}, 3900000},
    {2, "Tarnwell Backup", "twbackup", {"7.1", "8.0"}, 2500000},
    {3, "Orrery Planner", "orplan", {"1.0", "1.1", "2.0"}, 1200000},
    {4, "Halcyon Query", "hquery", {"5.5"}, 5100000},
    {5, "Pinecrest Zip", "pczip", {"9.2", "10.0"}, 800000},
    {6, "Kestrel Player", "kplay", {"3.3"}, 2900000},
    {7, "Sundial Clock", "sdclock", {"1.0"}, 300000},
    {7, "Sundial Calendar", "sdcal", {"2.1", "2.2"}, 1500000},
};

const std::vector<App> kCEApps = {
    {0, "Bluefin Pocket Mail", "bfpmail", {"1.0", "1.5"}, 420000},
    {3, "Orrery Pocket Planner", "orpplan", {"1.0"}, 310000},
    {5, "Pinecrest Pocket Zip", "pcpzip", {"2.0"}, 150000},
    {6, "Kestrel Pocket Player", "kpplay", {"1.1", "1.2"}, 520000},
};

struct PalmApp {
    const char* name;
    const char* database;
    const char* creator;
    const char* icon;
    std::vector<const char*> versions;
};

const std::vector<PalmApp> kPalmApps = {
    {"Memo Pad Plus", "MemoPadPlusDB", "MPPL", "Memo+", {"1.0", "1.2"}},
    {"TideTables", "TideTablesDB", "TIDE", "Tides", {"2.0"}},
    {"Ledgerly", "LedgerlyDB", "LDGR", "", {"3.1", "3.2"}},
    {"SkyChart", "SkyChartDB", "SKYC", "Sky", {"1.0"}},
    {"Trailmap", "TrailmapDB", "TRLM", "", {"0.9"}},
    {"Notewise", "NotewiseDB", "NTWS", "Notes", {"4.0"}},
    {"Expense Log", "ExpenseLogDB", "EXPL", "", {"1.0"}},
    {"WorldClock", "WorldClockDB", "WCLK", "Clock", {"2.2"}},
};

struct RIMApp {
    const char* name;
    std::vector<const char*> versions;
};

const std::vector<RIMApp> kRIMApps = {
    {"Mail Relay", {"4.0", "4.1"}}, {"Field Notes", {"1.0"}}, {"Dispatch", {"2.3"}},
    {"Timesheet", {"1.1", "1.2"}},  {"Crossword", {"1.0"}},
};

const std::vector<const char*> kUsers = {"ann", "bob",  "carla", "dev", "emil", "fay",
                                         "gus", "hana", "ivo",   "jo",  "kim",  "lars"};

const char* spelling(const App& app, std::size_t version, std::size_t shift) {
    const auto& spellings = kCompanies[static_cast<std::size_t>(app.company)].spellings;
    return spellings[(version + shift) % spellings.size()];
}

// The files of one version of an application: program and core library carry version
// information, the helper library and the read-me do not.
std::vector<SYScanFile> appFiles(const App& app, std::size_t appIndex, std::size_t version) {
    const std::string stem = app.stem;
    const std::int32_t time = buildTime(appIndex, version);
    const std::string name = app.name;
    const std::string number = app.versions[version];
    return {
        {stem + ".exe", app.baseSize + version * 104729, time, name, number,
         spelling(app, version, 0)},
        {stem + "core.dll", app.baseSize / 3 + version * 7919, time, name, number,
         spelling(app, version, 1)},
        {stem + "hlp.dll", 40000 + appIndex * 1000 + version * 37, time, "", "", ""},
        {"readme.txt", 1000 + appIndex * 13 + version, time, "", "", ""},
    };
}

std::uint64_t sharedRuntimeSize(int variant) {
    return 210000 + static_cast<std::uint64_t>(variant) * 5003;
}

// Retires a rule as the rule engine does: the row stays removed, then the rule service
// brings the files of its name back in line.
void retireRule(SYDatabase& database, const std::string& installFolder, unsigned long ruleID) {
    SYSWRuleSet rules(database);
    rules.FilterForRuleID(ruleID);
    rules.Open();
    rules.Edit();
    rules.SetRuleState(RuleStateRemoved);
    rules.Update(1);
    rules.Close();
    SYSamData sam(database);
    sam.InvDataType = InvDataWindows;
    sam.EstablishSystemRulesDb(installFolder);
    sam.DeleteRule(ruleID);
}

} // namespace

SYInventoryGenerator::Options SYInventoryGenerator::RealisticOptions(int clients,
                                                                     std::uint32_t seed) {
    Options options;
    options.seed = seed;
    options.clients = clients;
    options.tailVendors = std::max(200, clients / 20);
    options.realistic = true;
    return options;
}

SYInventoryGenerator::Options SYInventoryGenerator::FirstRunOptions() {
    return RealisticOptions(2000, DemoOptions().seed);
}

SYInventoryGenerator::Options SYInventoryGenerator::DemoOptions() {
    Options options;
    options.seed = 20260101;
    options.clients = 200;
    return options;
}

SYInventoryGenerator::SYInventoryGenerator(const Options& options)
    : m_options(options), m_random(options.seed) {}

int SYInventoryGenerator::Pick(int count) {
    return static_cast<int>(m_random() % static_cast<std::uint32_t>(count));
}

bool SYInventoryGenerator::Chance(int percent) {
    return Pick(100) < percent;
}

std::int32_t SYInventoryGenerator::LastScan() {
    return kScanBase - Pick(60 * 86400);
}

void SYInventoryGenerator::WriteSystemRules(const std::string& installFolder) {
    std::filesystem::create_directories(installFolder);
    const auto path =
        (std::filesystem::path(installFolder) / SYSamData::SystemRulesFileName).string();
    if (std::filesystem::exists(path))
        return;
    SYSystemRulesWriter rules(path);
    for (const char* name : {"pagefile.sys", "hiberfil.sys", "desktop.ini", "thumbs.db"})
        rules.AddRule(ignore(InvDataWindows, name, "Operating system file"));
    SYRuleRow runtime =
        identify(InvDataWindows, "sharedrt.dll", "Shared Runtime", "", "Halcyon Data LLC");
    rules.AddRule(runtime);
    for (int variant = 0; variant < 2; ++variant) {
        runtime.size = sharedRuntimeSize(variant);
        runtime.appVersion = variant == 0 ? "1.0" : "2.0";
        rules.AddRule(runtime);
    }
    rules.AddRule(
        identify(InvDataWindows, "orplanhlp.dll", "Orrery Planner", "2.0", "Orrery Soft"));
    rules.AddRule(identify(InvDataPPC, "sharedce.dll", "Pocket Runtime", "1.0", "Halcyon Data"));
    rules.AddRule(ignore(InvDataPPC, "unload.log", "Setup log"));
    if (m_options.realistic)
        SYEstateProfile(m_random).WriteSystemRules(rules);
    rules.Commit();
}

// One application of the long tail: a program with version information and a library
// without, under the vendor's own folder.
void SYInventoryGenerator::WriteTailApps(SYInventoryWriter& writer, unsigned char invDataType,
                                         unsigned long client, int count) {
    for (int i = 0; i < count; ++i) {
        const int vendor = Pick(m_options.tailVendors);
        const int app = Pick(2);
        const std::string company = numbered("Longtail Vendor %04d, Inc.", vendor);
        const std::string name = numbered("Tail Tool %05d", vendor * 2 + app);
        const std::string stem = numbered("tt%05d", vendor * 2 + app);
        const auto time = buildTime(100 + static_cast<std::size_t>(vendor), 0);
        const std::string root =
            invDataType == InvDataWindows ? "C:\\Program Files\\" : "\\Program Files\\";
        const std::string folder = root + company.substr(0, 20) + "\\" + name;
        const std::uint64_t size = 90000 + static_cast<std::uint64_t>(vendor) * 131 + app;
        writer.AddFile(invDataType, client, folder,
                       {stem + ".exe", size, time, name, "1.0", company});
        writer.AddFile(invDataType, client, folder, {stem + "x.dll", size / 2, time, "", "", ""});
    }
}

void SYInventoryGenerator::WriteMachine(SYInventoryWriter& writer, int index) {
    const std::string user =
        kUsers[static_cast<std::size_t>(Pick(static_cast<int>(kUsers.size())))];
    const CTime scan = Chance(95) ? CTime(LastScan()) : CTime();
    const auto pc = writer.AddMachine(numbered("PC-%05d", index), user, scan);
    const int appCount = 3 + Pick(5);
    for (int i = 0; i < appCount; ++i) {
        const auto appIndex = static_cast<std::size_t>(Pick(static_cast<int>(kPCApps.size())));
        const App& app = kPCApps[appIndex];
        const auto version = static_cast<std::size_t>(Pick(static_cast<int>(app.versions.size())));
        const std::string folder = std::string("C:\\Program Files\\") + app.name;
        const auto files = appFiles(app, appIndex, version);
        for (const auto& file : files)
            writer.AddFile(InvDataWindows, pc, folder, file);
        if (Chance(20))
            writer.AddFile(InvDataWindows, pc, "C:\\Windows\\System32", files[2]);
    }
    if (m_options.tailVendors > 0)
        WriteTailApps(writer, InvDataWindows, pc, 2 + Pick(3));
    const int pageVariant = Pick(12);
    writer.AddFile(InvDataWindows, pc, "C:\\",
                   {"pagefile.sys", (4 + static_cast<std::uint64_t>(pageVariant)) * kGigabyte,
                    kScanBase - pageVariant * 86400, "", "", ""});
    if (Chance(50))
        writer.AddFile(InvDataWindows, pc, "C:\\",
                       {"hiberfil.sys", 6871947674ULL + Pick(3), kBuildBase, "", "", ""});
    const int runtime = Pick(3);
    writer.AddFile(
        InvDataWindows, pc, "C:\\Windows\\System32",
        {"sharedrt.dll", sharedRuntimeSize(runtime), buildTime(20, runtime), "", "", ""});
    const std::string home = "C:\\Users\\" + user;
    writer.AddFile(InvDataWindows, pc, home + "\\Desktop",
                   {"desktop.ini", 282, kBuildBase, "", "", ""});
    if (m_options.realistic)
        SYEstateProfile(m_random).WritePCFiles(writer, pc, index, home);
    if (Chance(40))
        writer.AddFile(InvDataWindows, pc, home + "\\Pictures",
                       {"thumbs.db", 8192 + static_cast<std::uint64_t>(Pick(20)) * 512, kScanBase,
                        "", "", ""});
    if (Chance(30)) {
        const int setup = Pick(40);
        writer.AddFile(InvDataWindows, pc, home + "\\Downloads",
                       {numbered("setup_%02d.exe", setup), setupSize(setup),
                        buildTime(30, 0) + setup * 60, "", "", ""});
    }
    if (Chance(10))
        writer.AddFile(InvDataWindows, pc, home + "\\AppData\\Local\\Temp",
                       {numbered("~wrl%05d.tmp", index), 4096, kScanBase - 3600, "", "", ""});
}

void SYInventoryGenerator::WriteCEDevice(SYInventoryWriter& writer, int index) {
    const CTime scan = Chance(95) ? CTime(LastScan()) : CTime();
    const auto device = writer.AddDevice(InvDataPPC, numbered("CE-%05d", index),
                                         kUsers[static_cast<std::size_t>(Pick(12))], scan);
    const int appCount = 1 + Pick(3);
    for (int i = 0; i < appCount; ++i) {
        const auto appIndex = static_cast<std::size_t>(Pick(static_cast<int>(kCEApps.size())));
        const App& app = kCEApps[appIndex];
        const auto version = static_cast<std::size_t>(Pick(static_cast<int>(app.versions.size())));
        for (const auto& file : appFiles(app, appIndex + 40, version))
            writer.AddFile(InvDataPPC, device, std::string("\\Program Files\\") + app.name, file);
    }
    if (m_options.tailVendors > 0)
        WriteTailApps(writer, InvDataPPC, device, 1);
    writer.AddFile(InvDataPPC, device, "\\Windows",
                   {"sharedce.dll", 64000, buildTime(50, 0), "", "", ""});
    writer.AddFile(
        InvDataPPC, device, "\\Windows",
        {"cache.dat", 2048 + static_cast<std::uint64_t>(Pick(8)) * 1024, kScanBase, "", "", ""});
    if (Chance(30))
        writer.AddFile(InvDataPPC, device, "\\Windows", {"unload.log", 512, kScanBase, "", "", ""});
}

void SYInventoryGenerator::WritePalmDevice(SYInventoryWriter& writer, int index) {
    const CTime scan = Chance(95) ? CTime(LastScan()) : CTime();
    const auto device = writer.AddDevice(InvDataPalm, numbered("PALM-%05d", index),
                                         kUsers[static_cast<std::size_t>(Pick(12))], scan);
    const int appCount = 3 + Pick(4);
    const int first = Pick(static_cast<int>(kPalmApps.size()));
    for (int i = 0; i < appCount; ++i) {
        const auto& app =
            kPalmApps[static_cast<std::size_t>((first + i) % static_cast<int>(kPalmApps.size()))];
        const auto version = static_cast<std::size_t>(Pick(static_cast<int>(app.versions.size())));
        const long appID = writer.AddPalmApplication(
            {app.name, app.versions[version], app.database, app.creator, app.icon});
        SYPalmInstall install;
        install.inROM = i == 0 && Chance(50);
        install.appSize = 20000 + static_cast<unsigned long>(Pick(200000));
        install.totalSize = install.appSize + static_cast<unsigned long>(Pick(400000));
        install.createDate = CTime(buildTime(60 + static_cast<std::size_t>(i), version));
        install.modifyDate = CTime(kScanBase - Pick(90 * 86400));
        install.backupDate = Chance(70) ? CTime(kScanBase - Pick(10 * 86400)) : CTime();
        install.databaseCount = 1 + static_cast<unsigned long>(Pick(4));
        install.recordCount = static_cast<unsigned long>(Pick(5000));
        install.storageCardPath = !install.inROM && Chance(20) ? "/PALM/Launcher" : "";
        writer.AddPalmInstallation(appID, device, install);
    }
}

void SYInventoryGenerator::WriteRIMDevice(SYInventoryWriter& writer, int index) {
    const CTime scan = Chance(95) ? CTime(LastScan()) : CTime();
    const auto device = writer.AddDevice(InvDataRIM, numbered("BB-%05d", index),
                                         kUsers[static_cast<std::size_t>(Pick(12))], scan);
    if (!m_options.withRIMTables)
        return;
    const int appCount = 1 + Pick(4);
    const int first = Pick(static_cast<int>(kRIMApps.size()));
    for (int i = 0; i < appCount; ++i) {
        const auto& app =
            kRIMApps[static_cast<std::size_t>((first + i) % static_cast<int>(kRIMApps.size()))];
        const auto version = static_cast<std::size_t>(Pick(static_cast<int>(app.versions.size())));
        writer.AddRIMInstallation(writer.AddRIMApplication(app.name, app.versions[version]),
                                  device);
    }
}

void SYInventoryGenerator::WriteUserRules(SYInventoryWriter& writer) {
    writer.AddUserRule(identify(InvDataWindows, "qwriterhlp.dll", "Quill Writer", "2.5",
                                "Quillmark Systems Corp."));
    SYRuleRow setup =
        identify(InvDataWindows, "setup_07.exe", "Setup Assistant", "1.0", "Pinecrest Tools");
    setup.size = setupSize(7);
    setup.time = CTime(buildTime(30, 0) + 7 * 60 + 25);
    writer.AddUserRule(setup);
    SYRuleRow mailHelper =
        identify(InvDataWindows, "bfmailhlp.dll", "Bluefin Mail", "3.1", "BLUEFIN LABS INC");
    mailHelper.time = CTime(buildTime(0, 1));
    writer.AddUserRule(mailHelper);
    SYRuleRow runtime =
        identify(InvDataWindows, "sharedrt.dll", "Halcyon Runtime", "3.0", "Halcyon Data");
    runtime.size = sharedRuntimeSize(2);
    writer.AddUserRule(runtime);
    writer.AddUserRule(ignore(InvDataWindows, "readme.txt", "Documentation, not software"));
    SYRuleRow oneSetup = ignore(InvDataWindows, "setup_13.exe", "Installer left behind");
    oneSetup.size = setupSize(13);
    writer.AddUserRule(oneSetup);
    writer.AddUserRule(
        identify(InvDataPPC, "kpplayhlp.dll", "Kestrel Pocket Player", "1.2", "Kestrel Audio AG"));
    writer.AddUserRule(ignore(InvDataPPC, "cache.dat", "Cache"));
}

void SYInventoryGenerator::Generate(SYDatabase& database, const std::string& installFolder) {
    if (!installFolder.empty())
        WriteSystemRules(installFolder);
    if (m_options.withRIMTables && !database.HaveTable("RIM Applications"))
        throw CInvalidArgException("The inventory has no \"RIM Applications\" table to fill.");
    SYInventoryWriter writer(database, installFolder);
    for (int index = 0; index < m_options.clients; ++index) {
        const int slot = index % 20;
        if (slot < 11)
            WriteMachine(writer, index);
        else if (slot < 15)
            WriteCEDevice(writer, index);
        else if (slot < 18)
            WritePalmDevice(writer, index);
        else
            WriteRIMDevice(writer, index);
        if (m_options.progress)
            m_options.progress(index + 1, m_options.clients);
    }
    WriteUserRules(writer);
    std::vector<unsigned long> retired = {writer.AddUserRule(
        identify(InvDataWindows, "kplayhlp.dll", "Kestrel Player", "3.3", "Kestrel Audio AG"))};
    if (m_options.realistic)
        SYEstateProfile(m_random).WriteUserRules(writer, retired);
    writer.Commit();
    SYTransaction transaction(database);
    for (const unsigned long ruleID : retired)
        retireRule(database, installFolder, ruleID);
    transaction.Commit();
}

int SYInventoryGenerator::CreateIfAbsent(const std::string& databasePath,
                                         const std::string& installFolder, const Options& options) {
    if (std::filesystem::exists(databasePath))
        return 0;
    const auto parent = std::filesystem::path(databasePath).parent_path();
    if (!parent.empty())
        std::filesystem::create_directories(parent);
    SYDatabase database;
    database.Create(databasePath, options.withRIMTables);
    try {
        SYInventoryGenerator(options).Generate(database, installFolder);
    } catch (...) {
        database.Close();
        for (const char* suffix : {"", "-wal", "-shm"})
            std::filesystem::remove(databasePath + suffix);
        throw;
    }
    return 1;
}
