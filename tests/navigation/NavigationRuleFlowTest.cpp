#include <gtest/gtest.h>

#include <string>

#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYInventoryWriter.h"
#include "rules/SYSWRule.h"
#include "support/InventoryFixture.h"

namespace {

// Windows CE devices with "setup.exe" in two sizes and "junk.tmp" unidentified, and the two
// files of "Tool" identified by their version information. The views follow rules that the
// engine writes and the rule service applies, as the console drives them after a dialog.
class NavigationRuleFlowTest : public InventoryFixture {
protected:
    void SetUp() override {
        InventoryFixture::SetUp();
        WritePocketInventory(db, true);
        engine.Database = &db;
        engine.InvDataType = 1;
        tree.UpdateTree();
    }

    SYSWRule engine;
};

TEST_F(NavigationRuleFlowTest, IgnoredApplicationLeavesTreeAndLists) {
    ASSERT_TRUE(tree.SelectCompany("Tool Makers", tree.PPCAppsItem()));
    const HTREEITEM company = Ctrl().GetSelectedItem();
    Ctrl().Expand(company, TVE_EXPAND);
    Ctrl().SelectItem(Ctrl().GetChildItem(company));
    const std::uint32_t appID = tree.GetSelectedAppID();
    ASSERT_NE(appID, 0u);
    list.SetAppListMode(1);
    list.BuildAppList("tool makers");
    ASSERT_EQ(Column(0), Strings{"Tool"});

    // What ignoring an application amounts to: one ignore rule per file of it.
    for (const char* name : {"tool.exe", "tool.dll"}) {
        SYIgnoreRuleItem rule;
        rule.SetFileName(name);
        ASSERT_NE(engine.AddExcludeRule(rule, 1), 0);
    }
    engine.UpdateSamData();
    tree.IgnoreApplication(appID, 1);
    list.IgnoreApplication(appID, 1);
    EXPECT_EQ(Ctrl().GetSelectedItem(), company);
    EXPECT_EQ(list.GetItemCount(), 0);

    tree.UpdateTree();
    EXPECT_TRUE(Texts(tree.PPCAppsItem()).empty());
    EXPECT_FALSE(Ctrl().ItemExpanded(tree.PPCAppsItem())) << "an empty branch folds";
    EXPECT_EQ(Ctrl().GetItemText(tree.PPCAppsItem()), "Windows CE Applications  (0)");
    list.SetCompanyListMode(1);
    list.BuildCompanies();
    EXPECT_EQ(list.GetItemCount(), 0);
}

} // namespace
