#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "navigation/InventoryFixture.h"
#include "outside/framework/SYString.h"
#include "outside/store/SYAppCompanySet.h"
#include "outside/store/SYAppEnum.h"

namespace {

using NavigationRecordsetTest = InventoryFixture;
using Pairs = std::vector<std::pair<std::string, std::string>>;

// The tree's merge needs all rows of one company, internal names compared without regard
// to case, to stand together and in that order; the enumerator must find them all.
TEST_F(NavigationRecordsetTest, InternalNamesDifferingInCaseRunTogether) {
    AddApp(1, "Mid", "mid", "M1", "1");
    AddApp(1, "Zeta", "Zeta", "Z", "1");
    AddApp(1, "MID", "MID", "M2", "1");
    AddApp(1, "Hidden", "aaa", "H", "1", 0);
    AddApp(0, "Windows", "aab", "W", "1");
    SYAppCompanySet set(db);
    set.InvDataType = 1;
    set.Open();
    std::vector<std::string> internals;
    for (; !set.IsEOF(); set.MoveNext())
        internals.push_back(set.AppCompanyInternal());
    ASSERT_EQ(internals.size(), 3u);
    EXPECT_EQ(SYStrICmp(internals[0], "mid"), 0);
    EXPECT_EQ(SYStrICmp(internals[1], "mid"), 0);
    EXPECT_EQ(internals[2], "Zeta");

    SYAppEnum apps(&db);
    apps.InvDataType = 1;
    apps.SetCompanyName("Mid");
    ASSERT_NE(apps.BeginEnumApps(), 0);
    std::vector<std::string> names;
    std::string name, version, internal;
    while (apps.EnumApp(name, version, internal) != 0)
        names.push_back(name);
    EXPECT_EQ(names, (std::vector<std::string>{"M1", "M2"}));
}

} // namespace
