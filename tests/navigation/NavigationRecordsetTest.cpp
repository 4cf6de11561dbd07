#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "navigation/InventoryFixture.h"
#include "outside/framework/CException.h"
#include "outside/store/SYAppCompanySet.h"
#include "outside/store/SYAppEnum.h"
#include "outside/store/SYAppSet.h"
#include "outside/store/SYPalmAppEnum.h"
#include "outside/store/SYRIMAppEnum.h"
#include "outside/store/SYTableSet.h"

namespace {

using NavigationRecordsetTest = InventoryFixture;
using Pairs = std::vector<std::pair<std::string, std::string>>;

TEST_F(NavigationRecordsetTest, CompanySetRunsByInternalNameWithoutCaseOldestSpellingFirst) {
    AddApp(1, "Beta", "beta", "B", "1");
    AddApp(1, "ACME Inc", "ACME", "A1", "1");
    AddApp(1, "Acme", "acme", "A2", "1");
    AddApp(1, "acme!", "acme", "A3", "1");
    AddApp(1, "Acme", "acme", "A4", "1");
    AddApp(1, "Hidden", "aaa", "H", "1", 0);
    AddApp(0, "Windows", "aab", "W", "1");
    SYAppCompanySet set(db);
    set.InvDataType = 1;
    set.Open();
    Pairs rows;
    for (; !set.IsEOF(); set.MoveNext())
        rows.emplace_back(set.AppCompany(), set.AppCompanyInternal());
    EXPECT_EQ(rows,
              (Pairs{{"ACME Inc", "ACME"}, {"Acme", "acme"}, {"acme!", "acme"}, {"Beta", "beta"}}));
}

TEST_F(NavigationRecordsetTest, AppSetAndEnumeratorReadInstalledApplicationsOfACompany) {
    const auto tool = AddApp(0, "Acme", "acme", "Tool", "1.0", 1, "tool");
    AddApp(0, "ACME", "ACME", "Other Case", "2", 1);
    AddApp(0, "Acme", "acme", "Gone", "1", 0);
    AddApp(1, "Acme", "acme", "CE Tool", "1");

    SYAppSet set(db);
    set.FilterForAppID(tool);
    set.Open();
    ASSERT_FALSE(set.IsEOF());
    EXPECT_EQ(set.AppNameInternal(), "tool");
    EXPECT_EQ(set.AppCompany(), "Acme");
    EXPECT_EQ(set.AppInstalled(), 1);

    SYAppEnum apps;
    apps.SetDatabase(&db);
    apps.SetCompanyName("acme");
    ASSERT_TRUE(apps.BeginEnumApps());
    Pairs names;
    std::string name, version, internal;
    while (apps.EnumApp(name, version, internal))
        names.emplace_back(name, std::to_string(apps.CurrentAppID() != 0));
    apps.EndEnumApps();
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (Pairs{{"Other Case", "1"}, {"Tool", "1"}}));

    apps.SetCompanyName("nobody");
    EXPECT_FALSE(apps.BeginEnumApps());
    EXPECT_FALSE(apps.EnumApp(name, version, internal));
}

TEST_F(NavigationRecordsetTest, DeviceEnumeratorsGiveIdsVersionsAndIconNames) {
    const auto memo = AddPalmApp("MemoPad", "1.0", "Memos");
    SYPalmAppEnum palm(&db);
    ASSERT_TRUE(palm.BeginEnumApps());
    std::string name;
    ASSERT_TRUE(palm.EnumApp(name));
    EXPECT_EQ(name, "MemoPad");
    EXPECT_EQ(palm.CurrentAppID(), memo);
    EXPECT_EQ(palm.CurrentAppVersion(), "1.0");
    EXPECT_EQ(palm.CurrentAppIconName(), "Memos");
    EXPECT_FALSE(palm.EnumApp(name));
    EXPECT_EQ(palm.CurrentAppID(), 0);
    palm.EndEnumApps();

    SYRIMAppEnum rim(&db);
    EXPECT_FALSE(rim.BeginEnumApps());
}

TEST_F(NavigationRecordsetTest, TableSetTellsWhetherATableExists) {
    const auto exists = [this](const std::string& name) {
        SYTableSet set(db);
        set.FilterForTable(name);
        set.Open(SYRecordset::forwardOnly, nullptr, SYRecordset::readOnly);
        return !set.IsEOF();
    };
    EXPECT_TRUE(exists("RIM Applications"));
    EXPECT_TRUE(exists("rim applications"));
    EXPECT_FALSE(exists("RIM Applications'; --"));
    UseStoreWithoutRIM();
    EXPECT_FALSE(exists("RIM Applications"));
    EXPECT_TRUE(exists("Palm Applications"));
}

TEST_F(NavigationRecordsetTest, HandheldInventoriesHaveNoApplicationSet) {
    SYAppSet set(db);
    set.InvDataType = 2;
    EXPECT_THROW(set.Open(), CInvalidArgException);
}

} // namespace
