#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "navigation/InventoryFixture.h"
#include "navigation/SYInvListCtrl.h"
#include "navigation/SYInvTreeWnd.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYInventoryWriter.h"
#include "rules/SYSWRule.h"

namespace {

using Strings = std::vector<std::string>;

constexpr std::int32_t ScanTime = 1614862923;

SYScanFile scanned(const std::string& name, std::uint64_t size, const std::string& app = "") {
    SYScanFile file;
    file.name = name;
    file.size = size;
    file.time = ScanTime;
    file.appName = app;
    if (!app.empty()) {
        file.appVersion = "2.0";
        file.appCompany = "Tool Makers";
    }
    return file;
}

// Two Windows CE devices: "setup.exe" in two sizes and "junk.tmp" unidentified, the two files
// of "Tool" identified by their version information. The views follow rules that the engine
// writes and the rule service applies, as the console drives them after a dialog.
class NavigationRuleFlowTest : public InventoryFixture {
protected:
    void SetUp() override {
        InventoryFixture::SetUp();
        SYInventoryWriter writer(db);
        for (const char* name : {"pocket1", "pocket2"}) {
            const auto device = writer.AddDevice(1, name, "user", ScanTime);
            writer.AddFile(1, device, "\\Windows", scanned("setup.exe", 100));
            writer.AddFile(1, device, "\\Windows", scanned("junk.tmp", 7));
            writer.AddFile(1, device, "\\Program Files\\Tool", scanned("tool.exe", 500, "Tool"));
            writer.AddFile(1, device, "\\Program Files\\Tool", scanned("tool.dll", 600, "Tool"));
        }
        const auto third = writer.AddDevice(1, "pocket3", "user", ScanTime);
        writer.AddFile(1, third, "\\Temp", scanned("setup.exe", 200));
        writer.Commit();

        ASSERT_NE(tree.Initialize(200, &host), 0);
        tree.SetDatabase(&db);
        ASSERT_EQ(list.Initialize(300, 4052, 0x808000, 14, &host), 1);
        list.SetDatabase(&db);
        engine.Database = &db;
        engine.InvDataType = 1;
    }

    Strings listNames() const {
        Strings names;
        for (int row = 0; row < list.GetItemCount(); ++row)
            names.push_back(list.GetItemText(row, 0));
        return names;
    }

    Strings companies() {
        Strings names;
        SYTreeCtrlEx& ctrl = tree.GetTreeCtrl();
        for (HTREEITEM n = ctrl.GetChildItem(tree.PPCAppsItem()); n; n = ctrl.GetNextSiblingItem(n))
            names.push_back(ctrl.GetItemText(n));
        return names;
    }

    SYInvTreeWnd tree;
    SYInvListCtrl list;
    SYSWRule engine;
};

TEST_F(NavigationRuleFlowTest, IdentifiedFileLeavesTheListAndItsApplicationJoinsTheTree) {
    tree.UpdateTree();
    EXPECT_EQ(companies(), Strings{"Tool Makers"});
    EXPECT_EQ(tree.GetTreeCtrl().GetItemText(tree.PPCAppsItem()), "Windows CE Applications  (1)");
    list.SetUnidFilesMode(1);
    list.BuildUnidFiles();
    ASSERT_EQ(listNames(), (Strings{"junk.tmp", "setup.exe", "setup.exe"}));
    list.SelectItem(2);

    SYIdRuleItem rule;
    rule.SetFileName("SETUP.EXE");
    rule.SetAppName("Setup Wizard");
    rule.SetAppVersion("1.0");
    rule.SetAppCompany("Acme Installers");
    ASSERT_NE(engine.AddIdRule(rule, 1), 0);
    engine.UpdateSamData();
    list.IdentifyFile(&rule, 1);
    EXPECT_EQ(listNames(), Strings{"junk.tmp"});
    EXPECT_EQ(list.GetSelectedItem(), 0);

    // The list shows what the store now says, row for row.
    list.BuildUnidFiles();
    EXPECT_EQ(listNames(), Strings{"junk.tmp"});

    tree.UpdateTree();
    EXPECT_EQ(companies(), (Strings{"Acme Installers", "Tool Makers"}));
    EXPECT_EQ(tree.GetTreeCtrl().GetItemText(tree.PPCAppsItem()), "Windows CE Applications  (2)");
    ASSERT_TRUE(tree.SelectCompany("Acme Installers", tree.PPCAppsItem()));
    const HTREEITEM company = tree.GetTreeCtrl().GetSelectedItem();
    EXPECT_EQ(tree.GetTreeCtrl().GetItemText(tree.GetTreeCtrl().GetChildItem(company)),
              "Setup Wizard  [ 1.0 ]");
    EXPECT_EQ(tree.CheckItemForText(tree.GetTreeCtrl().GetChildItem(company), "SETUP"), 1);
    EXPECT_TRUE(SYGetApp().Reports().empty());
}


TEST_F(NavigationRuleFlowTest, IgnoredApplicationLeavesTreeAndLists) {
    tree.UpdateTree();
    ASSERT_TRUE(tree.SelectCompany("Tool Makers", tree.PPCAppsItem()));
    const HTREEITEM company = tree.GetTreeCtrl().GetSelectedItem();
    tree.GetTreeCtrl().Expand(company, TVE_EXPAND);
    const HTREEITEM app = tree.GetTreeCtrl().GetChildItem(company);
    tree.GetTreeCtrl().SelectItem(app);
    const std::uint32_t appID = tree.GetSelectedAppID();
    ASSERT_NE(appID, 0u);
    list.SetAppListMode(1);
    list.BuildAppList("tool makers");
    ASSERT_EQ(listNames(), Strings{"Tool"});

    // What ignoring an application amounts to: one ignore rule per file of it.
    for (const char* name : {"tool.exe", "tool.dll"}) {
        SYIgnoreRuleItem rule;
        rule.SetFileName(name);
        ASSERT_NE(engine.AddExcludeRule(rule, 1), 0);
    }
    engine.UpdateSamData();
    tree.IgnoreApplication(appID, 1);
    list.IgnoreApplication(appID, 1);
    EXPECT_EQ(tree.GetTreeCtrl().GetSelectedItem(), company);
    EXPECT_EQ(list.GetItemCount(), 0);

    tree.UpdateTree();
    EXPECT_TRUE(companies().empty());
    EXPECT_EQ(tree.GetTreeCtrl().GetItemText(tree.PPCAppsItem()), "Windows CE Applications  (0)");
    list.SetCompanyListMode(1);
    list.BuildCompanies();
    EXPECT_EQ(list.GetItemCount(), 0);
}

} // namespace
