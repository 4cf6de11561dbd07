#include "navigation/InventoryFixture.h"

#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYStatement.h"

namespace {

const char* appTable(unsigned char inv) {
    return inv == 0 ? "[Applications]" : "[PPC Applications]";
}

std::int64_t lastID(SYDatabase& db) {
    return db.LastInsertID();
}

} // namespace

void InventoryFixture::SetUp() {
    db.OpenMemory(true);
    host.Create(SYControlKind::Static, 1, "host", {0, 0, 800, 600}, nullptr);
    SYGetApp().ClearReports();
}

void InventoryFixture::TearDown() {
    host.DestroyWindow();
    SYGetApp().ClearReports();
}

void InventoryFixture::UseStoreWithoutRIM() {
    db.Close();
    db.OpenMemory(false);
}

std::uint32_t InventoryFixture::AddApp(unsigned char inv, const std::string& company,
                                       const std::string& companyInternal, const std::string& name,
                                       const std::string& version, int installed,
                                       const std::string& nameInternal) {
    SYStatement insert(db, std::string("INSERT INTO ") + appTable(inv) +
                               " (AppName, AppNameInternal, AppVersion, AppCompany, "
                               "AppCompanyInternal, AppInstalled) VALUES (?, ?, ?, ?, ?, ?)");
    insert.Bind(1, name)
        .Bind(2, nameInternal.empty() ? name : nameInternal)
        .Bind(3, version)
        .Bind(4, company)
        .Bind(5, companyInternal)
        .Bind(6, std::int64_t{installed});
    insert.Execute();
    return static_cast<std::uint32_t>(lastID(db));
}

void InventoryFixture::SetAppCompany(std::uint32_t appID, unsigned char inv,
                                     const std::string& company) {
    SYStatement update(db, std::string("UPDATE ") + appTable(inv) +
                               " SET AppCompany = ? WHERE AppID = ?");
    update.Bind(1, company).Bind(2, std::int64_t{appID});
    update.Execute();
}

void InventoryFixture::SetAppVersion(std::uint32_t appID, unsigned char inv,
                                     const std::string& version) {
    SYStatement update(db, std::string("UPDATE ") + appTable(inv) +
                               " SET AppVersion = ? WHERE AppID = ?");
    update.Bind(1, version).Bind(2, std::int64_t{appID});
    update.Execute();
}

void InventoryFixture::RemoveApp(std::uint32_t appID, unsigned char inv) {
    SYStatement remove(db, std::string("DELETE FROM ") + appTable(inv) + " WHERE AppID = ?");
    remove.Bind(1, std::int64_t{appID});
    remove.Execute();
}

std::int32_t InventoryFixture::AddPalmApp(const std::string& name, const std::string& version,
                                          const std::string& iconName) {
    SYStatement insert(db, "INSERT INTO [Palm Applications] (AppName, AppVersion, DatabaseName, "
                           "CreatorID, IconName) VALUES (?, ?, ?, 'crid', ?)");
    insert.Bind(1, name).Bind(2, version).Bind(3, name + version).Bind(4, iconName);
    insert.Execute();
    return static_cast<std::int32_t>(lastID(db));
}

std::int32_t InventoryFixture::AddRIMApp(const std::string& name, const std::string& version) {
    SYStatement insert(db, "INSERT INTO [RIM Applications] (AppName, AppVersion) VALUES (?, ?)");
    insert.Bind(1, name).Bind(2, version);
    insert.Execute();
    return static_cast<std::int32_t>(lastID(db));
}

std::uint32_t InventoryFixture::AddFile(unsigned char inv, const std::string& name,
                                        std::int64_t size, std::int64_t time, int state,
                                        std::uint32_t appID) {
    SYStatement insert(db, "INSERT INTO Files (InvDataType, FileName, FileSize, FileTime, "
                           "FileState, AppID) VALUES (?, ?, ?, ?, ?, ?)");
    insert.Bind(1, std::int64_t{inv})
        .Bind(2, name)
        .Bind(3, size)
        .Bind(4, time)
        .Bind(5, std::int64_t{state})
        .Bind(6, std::int64_t{appID});
    insert.Execute();
    const auto fileID = lastID(db);
    SYStatement location(db, "INSERT INTO FileLocations (FileID, MachineID, Location) "
                             "VALUES (?, 1, 'C:\\Program Files')");
    location.Bind(1, fileID);
    location.Execute();
    return static_cast<std::uint32_t>(fileID);
}

std::vector<std::string> InventoryFixture::ReportKinds() const {
    std::vector<std::string> kinds;
    for (const auto& report : SYGetApp().Reports())
        kinds.push_back(report.kind);
    return kinds;
}
