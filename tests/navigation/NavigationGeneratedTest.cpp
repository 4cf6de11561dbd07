#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "navigation/SYInvListCtrl.h"
#include "navigation/SYInvTreeWnd.h"
#include "outside/framework/CObject.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryGenerator.h"
#include "outside/store/SYStatement.h"
#include "outside/widgets/SYWnd.h"
#include "rules/SYAppFileItem.h"

namespace {

std::int64_t scalar(SYDatabase& db, const std::string& sql) {
    SYStatement statement(db, sql);
    return statement.Step() ? statement.Int64(0) : -1;
}

// The views on a generated inventory of every platform.
class NavigationGeneratedTest : public testing::Test {
protected:
    void SetUp() override {
        SYGetApp().ClearReports();
        db.OpenMemory();
        SYInventoryGenerator::Options options;
        options.seed = 11;
        options.clients = 300;
        SYInventoryGenerator(options).Generate(db, "");
        host.Create(SYControlKind::Static, 1, "host", {0, 0, 800, 600}, nullptr);
        ASSERT_NE(tree.Initialize(200, &host), 0);
        tree.SetDatabase(&db);
    }

    std::vector<HTREEITEM> children(HTREEITEM parent) {
        std::vector<HTREEITEM> nodes;
        SYTreeCtrlEx& ctrl = tree.GetTreeCtrl();
        for (HTREEITEM n = ctrl.GetChildItem(parent); n; n = ctrl.GetNextSiblingItem(n))
            nodes.push_back(n);
        return nodes;
    }

    SYDatabase db;
    SYWnd host;
    SYInvTreeWnd tree;
};

TEST_F(NavigationGeneratedTest, ExpandedTreeHoldsEveryInstalledApplicationOnceAndStaysPut) {
    tree.UpdateTree();
    SYTreeCtrlEx& ctrl = tree.GetTreeCtrl();
    const auto installed =
        scalar(db, "SELECT COUNT(*) FROM [PPC Applications] WHERE AppInstalled = 1");
    ASSERT_GT(installed, 0);
    EXPECT_EQ(ctrl.GetItemText(tree.PPCAppsItem()),
              "Windows CE Applications  (" + std::to_string(installed) + ")");
    EXPECT_EQ(static_cast<std::int64_t>(children(tree.PalmAppsItem()).size()),
              scalar(db, "SELECT COUNT(*) FROM [Palm Applications]"));

    const std::vector<HTREEITEM> companies = children(tree.PPCAppsItem());
    EXPECT_EQ(static_cast<std::int64_t>(companies.size()),
              scalar(db, "SELECT COUNT(DISTINCT lower(AppCompanyInternal)) FROM "
                         "[PPC Applications] WHERE AppInstalled = 1"));
    std::set<std::uint32_t> ids;
    for (HTREEITEM company : companies) {
        tree.CheckBuildItem(company);
        ctrl.Expand(company, TVE_EXPAND);
        for (HTREEITEM app : children(company)) {
            ASSERT_TRUE(tree.IsItemPPCApplication(app));
            EXPECT_TRUE(ids.insert(ctrl.GetItemData(app)).second);
        }
    }
    EXPECT_EQ(static_cast<std::int64_t>(ids.size()), installed);

    const HTREEITEM selected = children(companies.back()).front();
    ctrl.SelectItem(selected);
    const std::string text = ctrl.GetItemText(selected);
    tree.UpdateTree();
    EXPECT_EQ(children(tree.PPCAppsItem()), companies);
    EXPECT_EQ(ctrl.GetItemText(ctrl.GetSelectedItem()), text);
    EXPECT_TRUE(ctrl.ItemExpanded(companies.front()));
    EXPECT_TRUE(SYGetApp().Reports().empty());
}

TEST_F(NavigationGeneratedTest, UnidentifiedListMatchesTheStoreAndSortsBySize) {
    SYInvListCtrl list;
    ASSERT_EQ(list.Initialize(300, 4052, 0x808000, 14, &host), 1);
    list.SetDatabase(&db);
    list.SetUnidFilesMode(0);
    list.BuildUnidFiles();
    const auto unidentified =
        scalar(db, "SELECT COUNT(*) FROM Files WHERE InvDataType = 0 AND FileState = 0");
    ASSERT_GT(unidentified, 1);
    EXPECT_EQ(list.GetItemCount(), unidentified);

    list.ClickHeader(1);
    list.ClickHeader(1);
    for (int row = 1; row < list.GetItemCount(); ++row) {
        const auto& above = static_cast<const SYAppFileItem&>(
            *list.Data().GetAt(static_cast<int>(list.GetItemData(row - 1))));
        const auto& below = static_cast<const SYAppFileItem&>(
            *list.Data().GetAt(static_cast<int>(list.GetItemData(row))));
        ASSERT_GE(above.FileSize(), below.FileSize()) << row;
    }
}

TEST(SYInvTreeWnd, IsCreatableByItsRuntimeName) {
    const auto made = SYRuntimeClass::CreateObject("SYInvTreeWnd");
    ASSERT_NE(made, nullptr);
    EXPECT_NE(dynamic_cast<SYInvTreeWnd*>(made.get()), nullptr);
}

} // namespace
