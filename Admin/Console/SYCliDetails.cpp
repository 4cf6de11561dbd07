#include "SYCliDetails.h"

#include <array>
#include <set>
#include <string>

#include "SYCliError.h"
#include "SYCliPlatform.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYSWInvObject.h"

namespace {

// Per platform: the application row, and its installations with client, location and last
// scan, in the order of the clients page (client name, then location).
struct PlatformSql {
    const char* app;
    const char* installations;
    const char* installation; // client, location, application of one installation
};

const std::array<PlatformSql, 4> kSql{{
    {"SELECT AppName, AppVersion, AppCompany FROM [Applications] WHERE AppID = ?",
     "SELECT i.MachineID, m.MachineName, i.InstallationID, "
     "(SELECT CreationTime FROM MachineData d WHERE d.MachineID = i.MachineID AND "
     "d.ResourceID = 1), i.Location FROM Installations i JOIN Machines m ON m.MachineID = "
     "i.MachineID WHERE i.InvDataType = 0 AND i.AppID = ? ORDER BY m.MachineName COLLATE "
     "NOCASE, i.Location COLLATE NOCASE",
     "SELECT i.MachineID, i.Location, i.AppID FROM Installations i WHERE i.InvDataType = 0 AND "
     "i.InstallationID = ?"},
    {"SELECT AppName, AppVersion, AppCompany FROM [PPC Applications] WHERE AppID = ?",
     "SELECT i.MachineID, d.DeviceName, i.InstallationID, d.LastSWInvTime, i.Location FROM "
     "Installations i JOIN Devices d ON d.DeviceID = i.MachineID WHERE i.InvDataType = 1 AND "
     "i.AppID = ? ORDER BY d.DeviceName COLLATE NOCASE, i.Location COLLATE NOCASE",
     "SELECT i.MachineID, i.Location, i.AppID FROM Installations i WHERE i.InvDataType = 1 AND "
     "i.InstallationID = ?"},
    {"SELECT AppName, AppVersion, '' FROM [Palm Applications] WHERE AppID = ?",
     "SELECT i.DeviceID, d.DeviceName, i.InstallationID, d.LastSWInvTime, i.StorageCardPath "
     "FROM [Palm Application Installations] i JOIN Devices d ON d.DeviceID = i.DeviceID WHERE "
     "i.AppID = ? ORDER BY d.DeviceName COLLATE NOCASE",
     "SELECT DeviceID, StorageCardPath, AppID FROM [Palm Application Installations] WHERE "
     "InstallationID = ?"},
    {"SELECT AppName, AppVersion, '' FROM [RIM Applications] WHERE AppID = ?",
     "SELECT i.DeviceID, d.DeviceName, i.InstallationID, d.LastSWInvTime, '' FROM "
     "[RIM Application Installations] i JOIN Devices d ON d.DeviceID = i.DeviceID WHERE "
     "i.AppID = ? ORDER BY d.DeviceName COLLATE NOCASE",
     "SELECT DeviceID, '', AppID FROM [RIM Application Installations] WHERE InstallationID = ?"},
}};

bool hasFiles(unsigned char platform) {
    return platform == InvDataWindows || platform == InvDataPPC;
}

SYCliTable fileTable(bool withVersion) {
    SYCliTable files("files", "Files");
    files.AddColumn("Id", "id");
    files.AddColumn("File", "name");
    files.AddColumn("Size", "size", 1);
    files.AddColumn("Mod Time", "time");
    if (withVersion)
        files.AddColumn("Version", "version");
    return files;
}

// The files of an application or of one installation, once each.
void addFiles(SYCliTable& table, SYAppFileSet& set) {
    std::set<unsigned long> seen;
    set.Open();
    for (; !set.IsEOF(); set.MoveNext()) {
        if (!seen.insert(set.FileID()).second)
            continue;
        table.AddRow({SYCliTable::Id(set.FileID()), SYCliTable::Text(set.FileName()),
                      SYCliTable::Size(set.FileSize()), SYCliTable::Time(set.FileTime()),
                      SYCliTable::Text(set.VersionAppVersion())});
    }
    set.Close();
}

} // namespace

SYCliDocument SYCliDetails::App(std::uint32_t appID, unsigned char platform) {
    const PlatformSql& sql = kSql.at(platform);
    auto app = m_database.Cached(sql.app);
    app->Bind(1, std::int64_t{appID});
    if (!app->Step())
        throw SYCliError(SYCliError::StoreFailed, m_database.Path() + ": no application " +
                                                      std::to_string(appID) + " on " +
                                                      SYCliPlatform::Words[platform]);
    SYCliDocument document(app->Text(0));
    document.AddField("Id", "id", SYCliTable::Id(appID));
    document.AddField("Name", "name", SYCliTable::Text(app->Text(0)));
    document.AddField("Version", "version", SYCliTable::Text(app->Text(1)));
    document.AddField("Company", "company", SYCliTable::Text(app->Text(2)));
    app->Reset();

    SYCliTable clients("clients", "Clients");
    clients.AddColumn("Client Id", "client_id");
    clients.AddColumn("Client", "client");
    clients.AddColumn("Installation", "installation_id");
    clients.AddColumn("Last Scan", "last_scan");
    clients.AddColumn("Location", "location");
    std::set<std::int64_t> machines;
    auto installations = m_database.Cached(sql.installations);
    installations->Bind(1, std::int64_t{appID});
    while (installations->Step()) {
        machines.insert(installations->Int64(0));
        clients.AddRow({SYCliTable::Id(installations->Int64(0)),
                        SYCliTable::Text(installations->Text(1)),
                        SYCliTable::Id(installations->Int64(2)),
                        SYCliTable::Time(static_cast<std::int32_t>(installations->Int64(3))),
                        SYCliTable::Text(installations->Text(4))});
    }
    installations->Reset();
    document.AddField("Total Clients", "total_clients",
                      SYCliTable::Number(static_cast<std::int64_t>(machines.size())));
    document.AddField("Total Installations", "total_installations",
                      SYCliTable::Number(static_cast<std::int64_t>(clients.Rows().size())));

    SYCliTable files = fileTable(true);
    if (hasFiles(platform)) {
        SYAppFileSet set(&m_database);
        set.InvDataType = platform;
        set.FilterForAppID(appID);
        set.SortByID();
        addFiles(files, set);
    }
    document.AddTable(std::move(files));
    document.AddTable(std::move(clients));
    return document;
}

SYCliDocument SYCliDetails::Installation(std::uint32_t clientID, std::uint32_t installationID,
                                         unsigned char platform) {
    const PlatformSql& sql = kSql.at(platform);
    auto installation = m_database.Cached(sql.installation);
    installation->Bind(1, std::int64_t{installationID});
    const bool found = installation->Step() && installation->Int64(0) == clientID;
    const std::string location = found ? installation->Text(1) : std::string();
    const std::int64_t appID = found ? installation->Int64(2) : 0;
    installation->Reset();
    if (!found)
        throw SYCliError(SYCliError::StoreFailed, m_database.Path() + ": no installation " +
                                                      std::to_string(installationID) +
                                                      " on client " + std::to_string(clientID));

    SYCliDocument app = App(static_cast<std::uint32_t>(appID), platform);
    SYCliDocument document("Installation " + std::to_string(installationID));
    document.AddField("Installation", "installation_id", SYCliTable::Id(installationID));
    document.AddField("Client Id", "client_id", SYCliTable::Id(clientID));
    for (const auto& row : app.Tables().back().Rows()) {
        if (row[2].value == std::to_string(installationID)) {
            document.AddField("Client", "client", row[1]);
            document.AddField("Last Scan", "last_scan", row[3]);
        }
    }
    document.AddField("Location", "location", SYCliTable::Text(location));
    for (const auto& field : app.Fields()) {
        if (field.key == "id" || field.key == "name" || field.key == "version" ||
            field.key == "company")
            document.AddField(field.label == "Id" ? "Application Id" : field.label,
                              field.key == "id" ? "app_id" : field.key, field.cell);
    }
    SYCliTable files = fileTable(true);
    if (hasFiles(platform)) {
        SYAppFileSet set(&m_database);
        set.InvDataType = platform;
        set.FilterForInstallationID(installationID);
        addFiles(files, set);
    }
    document.AddTable(std::move(files));
    return document;
}
