#include "support/InventoryFixture.h"

#include "outside/store/SYInventoryWriter.h"

#include "outside/store/SYStatement.h"

void InventoryFixture::SetUp() {
    db.OpenMemory(true);
    host.Create(SYControlKind::Static, 1, "host", {0, 0, 800, 600}, nullptr);
    ASSERT_NE(tree.Initialize(200, &host), 0);
    tree.SetDatabase(&db);
    ASSERT_EQ(list.Initialize(300, 4052, 0x808000, 14, &host), 1);
    list.SetDatabase(&db);
}

void InventoryFixture::TearDown() {
    host.DestroyWindow();
}

std::uint32_t InventoryFixture::AddApp(unsigned char inv, const std::string& company,
                                       const std::string& companyInternal, const std::string& name,
                                       const std::string& version, int installed) {
    SYStatement insert(db, std::string("INSERT INTO ") +
                               (inv == 0 ? "[Applications]" : "[PPC Applications]") +
                               " (AppName, AppNameInternal, AppVersion, AppCompany, "
                               "AppCompanyInternal, AppInstalled) VALUES (?, ?, ?, ?, ?, ?)");
    insert.Bind(1, name).Bind(2, name).Bind(3, version).Bind(4, company).Bind(5, companyInternal);
    insert.Bind(6, std::int64_t{installed});
    insert.Execute();
    return static_cast<std::uint32_t>(db.LastInsertID());
}

std::int32_t InventoryFixture::AddPalmApp(const std::string& name, const std::string& version,
                                          const std::string& iconName) {
    SYStatement insert(db, "INSERT INTO [Palm Applications] (AppName, AppVersion, DatabaseName, "
                           "CreatorID, IconName) VALUES (?, ?, ?, 'crid', ?)");
    insert.Bind(1, name).Bind(2, version).Bind(3, name + version).Bind(4, iconName);
    insert.Execute();
    return static_cast<std::int32_t>(db.LastInsertID());
}

std::int32_t InventoryFixture::AddRIMApp(const std::string& name, const std::string& version) {
    SYStatement insert(db, "INSERT INTO [RIM Applications] (AppName, AppVersion) VALUES (?, ?)");
    insert.Bind(1, name).Bind(2, version);
    insert.Execute();
    return static_cast<std::int32_t>(db.LastInsertID());
}

std::uint32_t InventoryFixture::AddFile(unsigned char inv, const std::string& name,
                                        std::int64_t size, std::int64_t time, int state,
                                        std::uint32_t appID) {
    SYStatement insert(db, "INSERT INTO Files (InvDataType, FileName, FileSize, FileTime, "
                           "FileState, AppID) VALUES (?, ?, ?, ?, ?, ?)");
    insert.Bind(1, std::int64_t{inv}).Bind(2, name).Bind(3, size).Bind(4, time);
    insert.Bind(5, std::int64_t{state}).Bind(6, std::int64_t{appID});
    insert.Execute();
    const auto fileID = db.LastInsertID();
    Run("INSERT INTO FileLocations (FileID, MachineID, Location) VALUES (" +
        std::to_string(fileID) + ", 1, 'C:\\Program Files')");
    return static_cast<std::uint32_t>(fileID);
}

void InventoryFixture::Run(const std::string& sql) {
    SYStatement statement(db, sql);
    statement.Execute();
}

std::vector<HTREEITEM> InventoryFixture::Children(HTREEITEM parent) {
    std::vector<HTREEITEM> nodes;
    for (HTREEITEM n = Ctrl().GetChildItem(parent); n; n = Ctrl().GetNextSiblingItem(n))
        nodes.push_back(n);
    return nodes;
}

Strings InventoryFixture::Texts(HTREEITEM parent) {
    Strings texts;
    for (HTREEITEM node : Children(parent))
        texts.push_back(Ctrl().GetItemText(node));
    return texts;
}

void InventoryFixture::Expand(HTREEITEM node) {
    tree.CheckBuildItem(node);
    Ctrl().Expand(node, TVE_EXPAND);
}

Strings InventoryFixture::Rows() const {
    Strings rows;
    for (int row = 0; row < list.GetItemCount(); ++row)
        rows.push_back(list.GetItemString(row));
    return rows;
}

Strings InventoryFixture::Column(int column) const {
    Strings cells;
    for (int row = 0; row < list.GetItemCount(); ++row)
        cells.push_back(list.GetItemText(row, column));
    return cells;
}

Strings InventoryFixture::ReportKinds() const {
    Strings kinds;
    for (const auto& report : reports.All())
        kinds.push_back(report.kind);
    return kinds;
}

void WritePocketInventory(SYDatabase& db, bool tool) {
    SYInventoryWriter writer(db);
    const CTime time(1614862923);
    const auto first = writer.AddDevice(1, "pocket1", "ann", time);
    const auto second = writer.AddDevice(1, "pocket2", "bob", time);
    for (const auto device : {first, second}) {
        writer.AddFile(1, device, "\\Windows", {"setup.exe", 100, time, "", "", ""});
        writer.AddFile(1, device, "\\Windows", {"junk.tmp", 7, time, "", "", ""});
        if (!tool)
            continue;
        for (const char* name : {"tool.exe", "tool.dll"})
            writer.AddFile(1, device, "\\Tool", {name, 500, time, "Tool", "2.0", "Tool Makers"});
    }
    writer.AddFile(1, second, "\\Temp", {"setup.exe", 200, time, "", "", ""});
    writer.Commit();
}
