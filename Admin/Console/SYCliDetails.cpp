#include "SYCliDetails.h"

#include <array>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "SYCliError.h"
#include "SYCliPlatform.h"
#include "details/SYAppInstDetailsDlg.h"
#include "details/SYAppMachineItem.h"
#include "details/SYAppTabWnd.h"
#include "details/SYAppViewGeneralPage.h"
#include "details/SYAppViewMachinesPage.h"
#include "details/SYPalmAppDeviceItem.h"
#include "details/SYPalmAppInstDetailsDlg.h"
#include "details/SYPalmAppTabWnd.h"
#include "details/SYRIMAppDeviceItem.h"
#include "details/SYRIMAppInstDetailsDlg.h"
#include "details/SYRIMAppTabWnd.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYSWInvObject.h"
#include "outside/widgets/SYWnd.h"
#include "rules/SYAppFileItem.h"

namespace {

using Cell = SYCliTable::Cell;

constexpr unsigned kTabID = 400;

// The window the view lives under for the life of a command.
struct Host : SYWnd {
    Host() { Create(SYControlKind::Static, 1, "trellisview", {0, 0, 800, 600}, nullptr); }
};

Cell shownAs(Cell cell, std::string shown) {
    cell.shown = std::move(shown);
    return cell;
}

// Each row of a view's list in the list's order, with the item behind it.
template <class Item, class Add>
void forEachRow(const SYListCtrlEx& list, const SYListItemArray& items, Add add) {
    for (int row = 0; row < list.GetItemCount(); ++row) {
        const auto* item =
            dynamic_cast<const Item*>(items.GetAt(static_cast<int>(list.GetItemData(row))));
        if (item != nullptr)
            add(row, *item);
    }
}

SYCliTable fileTable(bool withID) {
    SYCliTable files("files", "Files");
    if (withID)
        files.AddColumn("Id", "id");
    files.AddColumn("File", "name");
    files.AddColumn("Size", "size", 1);
    files.AddColumn("Mod Time", "time");
    files.AddColumn("Version", "version");
    return files;
}

// The Palm page's columns between the client and the storage card path (the location), in
// the list's order: the values a script reads; titles and text are the list's.
struct PalmColumn {
    const char* key;
    int format;
    Cell (*value)(const SYPalmAppDeviceItem& device);
};

const std::array<PalmColumn, 8> kPalmColumns{{
    {"where", 0, [](const SYPalmAppDeviceItem& d) { return SYCliTable::Text(d.Where()); }},
    {"size", 1, [](const SYPalmAppDeviceItem& d) { return SYCliTable::Size(d.AppSize()); }},
    {"total_size", 1, [](const SYPalmAppDeviceItem& d) { return SYCliTable::Size(d.TotalSize()); }},
    {"create_date", 0,
     [](const SYPalmAppDeviceItem& d) { return SYCliTable::Time(d.CreateDate()); }},
    {"modify_date", 0,
     [](const SYPalmAppDeviceItem& d) { return SYCliTable::Time(d.ModifyDate()); }},
    {"backup_date", 0,
     [](const SYPalmAppDeviceItem& d) { return SYCliTable::Time(d.BackupDate()); }},
    {"database_count", 1,
     [](const SYPalmAppDeviceItem& d) { return SYCliTable::Number(d.DatabaseCount()); }},
    {"record_count", 1,
     [](const SYPalmAppDeviceItem& d) { return SYCliTable::Number(d.RecordCount()); }},
}};

std::string locationOf(const SYPalmAppDeviceItem& device) {
    return device.StorageCardPath();
}

std::string locationOf(const SYRIMAppDeviceItem&) {
    return {};
}

SYCliTable clientTable() {
    SYCliTable clients("clients", "Clients");
    clients.AddColumn("Client Id", "client_id");
    clients.AddColumn("Client", "client");
    clients.AddColumn("Installation", "installation_id");
    clients.AddColumn("Last Scan", "last_scan");
    clients.AddColumn("Location", "location");
    return clients;
}

void addAppFields(SYCliDocument& document, std::uint32_t appID, const std::string& name,
                  const std::string& version, const std::string& company, int clients,
                  int installations) {
    document.AddField("Id", "id", SYCliTable::Id(appID));
    document.AddField("Name", "name", SYCliTable::Text(name));
    document.AddField("Version", "version", SYCliTable::Text(version));
    document.AddField("Company", "company", SYCliTable::Text(company));
    document.AddField("Total Clients", "total_clients", SYCliTable::Number(clients));
    document.AddField("Total Installations", "total_installations",
                      SYCliTable::Number(installations));
}

[[noreturn]] void unknown(const SYDatabase& database, const std::string& what) {
    throw SYCliError(SYCliError::StoreFailed, database.Path() + ": no " + what);
}

// A view or dialog that read nothing: the id is unknown, unless the store failed, which the
// library has reported and the command line then tells instead.
SYCliDocument nothingRead(const SYDatabase& database, const std::string& what) {
    if (SYGetApp().Reports().empty())
        unknown(database, what);
    return SYCliDocument();
}

std::string appOn(std::uint32_t appID, unsigned char platform) {
    return "application " + std::to_string(appID) + " on " + SYCliPlatform::Words[platform];
}

SYCliDocument installationDocument(std::uint32_t clientID, std::uint32_t installationID) {
    SYCliDocument document("Installation " + std::to_string(installationID));
    document.AddField("Installation", "installation_id", SYCliTable::Id(installationID));
    document.AddField("Client Id", "client_id", SYCliTable::Id(clientID));
    return document;
}

} // namespace

SYCliDocument SYCliDetails::App(std::uint32_t appID, unsigned char platform) {
    if (appID == 0)
        unknown(m_database, appOn(appID, platform));
    if (platform == InvDataPalm)
        return HandheldApp<SYPalmAppTabWnd, SYPalmAppViewGeneralPage, SYPalmAppViewDevicesPage,
                           SYPalmAppDeviceItem>(appID, platform);
    if (platform == InvDataRIM)
        return HandheldApp<SYRIMAppTabWnd, SYRIMAppViewGeneralPage, SYRIMAppViewDevicesPage,
                           SYRIMAppDeviceItem>(appID, platform);
    return WindowsApp(appID, platform);
}

SYCliDocument SYCliDetails::WindowsApp(std::uint32_t appID, unsigned char platform) {
    Host host;
    SYAppTabWnd tabs;
    tabs.Initialize(kTabID, &host);
    tabs.SetDatabase(&m_database);
    if (tabs.LoadAppData(appID, platform) == 0)
        return nothingRead(m_database, appOn(appID, platform));
    auto& general = *dynamic_cast<SYAppViewGeneralPage*>(tabs.GetPage(0));
    auto& machines = *dynamic_cast<SYAppViewMachinesPage*>(tabs.GetPage(1));

    std::string name, version, company;
    tabs.AppInfo(name, version, company);
    SYCliTable files = fileTable(true);
    const SYListCtrlEx& fileList = tabs.AppFileList();
    forEachRow<SYAppFileItem>(fileList, *general.AppFileData(), [&](int row, const auto& file) {
        files.AddRow({SYCliTable::Id(file.FileID()), SYCliTable::Text(file.FileName()),
                      shownAs(SYCliTable::Size(file.FileSize(), file.HaveFileSize()),
                              fileList.GetItemText(row, 1)),
                      shownAs(SYCliTable::Time(file.ModTime()), fileList.GetItemText(row, 2)),
                      SYCliTable::Text({})});
    });
    SYCliTable clients = clientTable();
    const SYListCtrlEx& machineList = *tabs.MachineList();
    forEachRow<SYAppMachineItem>(
        machineList, *machines.MachineData(), [&](int row, const auto& machine) {
            clients.AddRow(
                {SYCliTable::Id(machine.MachineID()), SYCliTable::Text(machine.MachineName()),
                 SYCliTable::Id(machine.InstallationID()),
                 shownAs(SYCliTable::Time(machine.LastScan()), machineList.GetItemText(row, 1)),
                 SYCliTable::Text(machine.Location())});
        });
    // A fresh view of an id without a record shows nothing at all.
    if (name.empty() && files.Rows().empty() && clients.Rows().empty())
        unknown(m_database, appOn(appID, platform));

    SYCliDocument document(name);
    addAppFields(document, appID, name, version, company, tabs.MachineTotal(),
                 tabs.InstallationTotal());
    document.AddTable(std::move(files));
    document.AddTable(std::move(clients));
    return document;
}

template <class TabWnd, class GeneralPage, class DevicesPage, class Item>
SYCliDocument SYCliDetails::HandheldApp(std::uint32_t appID, unsigned char platform) {
    Host host;
    TabWnd tabs;
    tabs.Initialize(kTabID, &host);
    tabs.SetDatabase(&m_database);
    if (tabs.LoadAppData(static_cast<std::int32_t>(appID)) == 0)
        return nothingRead(m_database, appOn(appID, platform));
    const auto& general = *dynamic_cast<GeneralPage*>(tabs.GetPage(0));
    auto& devices = *dynamic_cast<DevicesPage*>(tabs.GetPage(1));

    // A device holds the application once: the installation is known by the application.
    constexpr bool palm = std::is_same_v<Item, SYPalmAppDeviceItem>;
    const SYListCtrlEx& list = *tabs.DeviceList();
    SYCliTable clients = clientTable();
    if constexpr (palm) {
        for (std::size_t i = 0; i < kPalmColumns.size(); ++i)
            clients.AddColumn(list.GetColumnTitle(static_cast<int>(i) + 1), kPalmColumns[i].key,
                              kPalmColumns[i].format);
    }
    forEachRow<Item>(list, *devices.DeviceData(), [&](int row, const Item& device) {
        std::vector<Cell> cells{SYCliTable::Id(device.DeviceID()),
                                SYCliTable::Text(device.ClientName()), SYCliTable::Id(appID),
                                SYCliTable::Text({}), SYCliTable::Text(locationOf(device))};
        if constexpr (palm) {
            for (std::size_t i = 0; i < kPalmColumns.size(); ++i)
                cells.push_back(shownAs(kPalmColumns[i].value(device),
                                        list.GetItemText(row, static_cast<int>(i) + 1)));
        }
        clients.AddRow(std::move(cells));
    });
    if (general.AppName().empty() && clients.Rows().empty())
        unknown(m_database, appOn(appID, platform));

    SYCliDocument document(general.AppName());
    addAppFields(document, appID, general.AppName(), general.AppVersion(), {}, tabs.DeviceTotal(),
                 tabs.DeviceTotal());
    document.AddTable(fileTable(true));
    document.AddTable(std::move(clients));
    return document;
}

SYCliDocument SYCliDetails::Installation(std::uint32_t clientID, std::uint32_t installationID,
                                         unsigned char platform) {
    if (platform == InvDataPalm)
        return PalmInstallation(clientID, installationID);
    if (platform == InvDataRIM)
        return RIMInstallation(clientID, installationID);
    return WindowsInstallation(clientID, installationID, platform);
}

SYCliDocument SYCliDetails::WindowsInstallation(std::uint32_t clientID,
                                                std::uint32_t installationID,
                                                unsigned char platform) {
    SYAppInstDetailsDlg dialog;
    dialog.SetDatabase(&m_database);
    dialog.SetInstInfo(clientID, installationID, platform);
    if (dialog.LoadData() == 0)
        return nothingRead(m_database, "installation " + std::to_string(installationID) +
                                           " on client " + std::to_string(clientID));
    SYCliDocument document = installationDocument(clientID, installationID);
    document.AddField("Application", "application", SYCliTable::Text(dialog.AppName()));
    document.AddField("Client", "client", SYCliTable::Text(dialog.ClientName()));
    document.AddField("Location", "location", SYCliTable::Text(dialog.Location()));
    SYCliTable files = fileTable(false);
    for (const SYAppInstFileItem& file : dialog.FileData())
        files.AddRow({SYCliTable::Text(file.FileName), SYCliTable::Size(file.FileSize),
                      SYCliTable::Time(file.ModTime), SYCliTable::Text(file.Version)});
    document.AddTable(std::move(files));
    return document;
}

SYCliDocument SYCliDetails::PalmInstallation(std::uint32_t deviceID, std::uint32_t appID) {
    SYPalmAppInstDetailsDlg dialog;
    dialog.SetDatabase(&m_database);
    dialog.SetInstInfo(static_cast<std::int32_t>(appID), deviceID);
    if (dialog.LoadData() == 0)
        return nothingRead(m_database,
                           appOn(appID, InvDataPalm) + " on client " + std::to_string(deviceID));
    SYCliDocument document = installationDocument(deviceID, appID);
    document.AddField("Application", "application", SYCliTable::Text(dialog.AppName()));
    document.AddField("Client", "client", SYCliTable::Text(dialog.ClientName()));
    document.AddField("Creator ID", "creator_id", SYCliTable::Text(dialog.CreatorID()));
    document.AddField("Database", "database", SYCliTable::Text(dialog.DatabaseName()));
    SYCliTable details("details", "Details");
    details.AddColumn("Name", "name");
    details.AddColumn("Value", "value");
    for (const std::string& row : dialog.Details()) {
        const auto tab = row.find('\t');
        details.AddRow({SYCliTable::Text(row.substr(0, tab)),
                        SYCliTable::Text(tab == std::string::npos ? "" : row.substr(tab + 1))});
    }
    document.AddTable(std::move(details));
    return document;
}

SYCliDocument SYCliDetails::RIMInstallation(std::uint32_t deviceID, std::uint32_t appID) {
    SYRIMAppInstDetailsDlg dialog;
    dialog.SetDatabase(&m_database);
    dialog.SetInstInfo(static_cast<std::int32_t>(appID), deviceID);
    if (dialog.LoadData() == 0)
        return nothingRead(m_database,
                           appOn(appID, InvDataRIM) + " on client " + std::to_string(deviceID));
    SYCliDocument document = installationDocument(deviceID, appID);
    document.AddField("Application", "application", SYCliTable::Text(dialog.AppName()));
    document.AddField("Client", "client", SYCliTable::Text(dialog.ClientName()));
    return document;
}
