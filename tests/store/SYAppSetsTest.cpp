#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "outside/framework/CException.h"
#include "outside/store/SYAppEnum.h"
#include "outside/store/SYAppSet.h"
#include "outside/store/SYInventoryModel.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYPalmAppEnum.h"
#include "outside/store/SYRIMAppEnum.h"
#include "outside/store/SYTableSet.h"
#include "support/StoreQueries.h"

namespace {

// Companies scanned in several spellings, one application seen in two versions, one
// application whose only file gets ignored, and handheld applications.
class AppInventory : public testing::Test {
protected:
    void SetUp() override {
        db.OpenMemory();
        SYInventoryWriter writer(db);
        const auto pc = writer.AddMachine("pc", "", CTime(0));
        const auto add = [&](const char* file, const char* app, const char* version,
                             const char* company) {
            writer.AddFile(0, pc, "C:\\Apps", {file, 10, 60, app, version, company});
        };
        add("zeta.exe", "Zeta", "1.0", "Acme Corp.");
        add("zeta2.exe", "zeta", "2.0", "ACME Corporation");
        add("alpha.exe", "Alpha", "", "Acme Corp.");
        add("gone.exe", "Gone", "1", "Vanishing Ltd");
        add("beta.exe", "Beta", "3", "Bolt, Inc.");
        add("beta2.exe", "Beta Tools", "3", "Bolt Inc");
        add("beta3.exe", "Beta Extra", "3", "Bolt, Inc.");
        const auto palm = writer.AddDevice(2, "palm", "", CTime(0));
        writer.AddPalmInstallation(writer.AddPalmApplication({"Tides", "1", "TidesDB", "TIDE", ""}),
                                   palm, {});
        writer.AddPalmInstallation(
            writer.AddPalmApplication({"Memo", "2", "MemoDB", "MEMO", "Memo+"}), palm, {});
        writer.AddUserRule({0, 1, "gone.exe", {}, CTime(), "", "", "", "ignored"});
        writer.Commit();
    }

    SYDatabase db;
};

TEST_F(AppInventory, EnumeratesInstalledApplicationsOfOneCompany) {
    SYAppEnum apps;
    apps.SetDatabase(&db);
    apps.SetCompanyName("acme");
    ASSERT_NE(apps.BeginEnumApps(), 0);
    std::vector<std::string> rows;
    std::string name;
    std::string version;
    std::string internal;
    while (apps.EnumApp(name, version, internal) != 0) {
        rows.push_back(name + "|" + version + "|" + internal);
        EXPECT_EQ(Scalar(db, "SELECT AppName = '" + name + "' FROM Applications WHERE AppID = " +
                                 std::to_string(apps.CurrentAppID())),
                  1);
    }
    apps.EndEnumApps();
    // In the order they were added, whatever the spelling of the company.
    EXPECT_EQ(rows, (std::vector<std::string>{"Zeta|1.0|zeta", "zeta|2.0|zeta", "Alpha||alpha"}));

    apps.SetCompanyName("vanishing");
    EXPECT_EQ(apps.BeginEnumApps(), 0);
    SYAppSet all(db);
    all.FilterForCompany("vanishing");
    all.Open();
    ASSERT_FALSE(all.IsEOF());
    EXPECT_EQ(all.AppInstalled(), 0);
    all.FilterForInstalledApps();
    all.Requery();
    EXPECT_TRUE(all.IsEOF());
}

TEST_F(AppInventory, HandheldApplicationsAndTables) {
    SYPalmAppEnum palm(&db);
    ASSERT_NE(palm.BeginEnumApps(), 0);
    std::vector<std::string> rows;
    std::string name;
    while (palm.EnumApp(name) != 0)
        rows.push_back(name + "|" + palm.CurrentAppVersion() + "|" + palm.CurrentAppIconName());
    palm.EndEnumApps();
    EXPECT_EQ(rows, (std::vector<std::string>{"Memo|2|Memo+", "Tides|1|"}));

    SYRIMAppEnum rim(&db);
    EXPECT_EQ(rim.BeginEnumApps(), 0);
    SYDatabase old;
    old.OpenMemory(false);
    SYRIMAppEnum oldRim(&old);
    EXPECT_THROW(oldRim.BeginEnumApps(), CDBException);

    for (const auto& [store, table, found] :
         {std::tuple{&db, "RIM Applications", true}, std::tuple{&old, "RIM Applications", false},
          std::tuple{&db, "rim applications", false}}) {
        SYTableSet tables(store);
        tables.FilterForTable(table);
        tables.Open(SYRecordset::forwardOnly, nullptr, SYRecordset::readOnly);
        EXPECT_EQ(tables.IsEOF() == 0, found) << table;
    }
}

// A search reads no further than its first hit: no walk of the model hands out another row
// once its visitor said stop.
TEST_F(AppInventory, ModelWalksStopWhereTheVisitorSays) {
    SYInventoryWriter writer(db);
    const auto pc = writer.AddMachine("pc2", "", CTime(0));
    for (const char* file : {"a.tmp", "b.tmp"})
        writer.AddFile(0, pc, "C:\\Temp", {file, 1, 60, "", "", ""});
    writer.AddRIMApplication("Mail", "1");
    writer.AddRIMApplication("Maps", "1");
    writer.Commit();
    const SYInventoryModel model(&db);
    using Next = std::function<bool()>;
    const std::vector<std::pair<const char*, std::function<void(const Next&)>>> walks = {
        {"companies",
         [&](const Next& next) { model.ForEachCompany(0, [&](const auto&) { return next(); }); }},
        {"applications",
         [&](const Next& next) {
             model.ForEachCompanyApp(0, "acme", [&](const auto&) { return next(); });
         }},
        {"palm",
         [&](const Next& next) { model.ForEachPalmApp([&](const auto&) { return next(); }); }},
        {"rim",
         [&](const Next& next) { model.ForEachRIMApp([&](const auto&) { return next(); }); }},
        {"files",
         [&](const Next& next) {
             model.ForEachFile(0, SYInventoryModel::FileList::unidentified,
                               [&](const auto&) { return next(); });
         }},
    };
    for (const auto& [name, walk] : walks) {
        int all = 0;
        int stopped = 0;
        walk([&] { return ++all > 0; });
        walk([&] { return ++stopped == 0; });
        EXPECT_GE(all, 2) << name;
        EXPECT_EQ(stopped, 1) << name;
    }
}

} // namespace
