#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "outside/framework/CObject.h"
#include "outside/services/SYConsoleApp.h"
#include "support/FaultSweep.h"
#include "support/InventoryFixture.h"

namespace {

using InvTreeTest = InventoryFixture;

// The root labels in their order; a negative BlackBerry count means no such root.
Strings roots(int palm, int rim, int ce) {
    Strings labels{"Palm Applications  (" + std::to_string(palm) + ")"};
    if (rim >= 0)
        labels.push_back("BlackBerry Applications (" + std::to_string(rim) + ")");
    labels.push_back("Windows CE Applications  (" + std::to_string(ce) + ")");
    labels.insert(labels.end(), {"Unidentified Windows CE Files", "Ignored Windows CE Files"});
    return labels;
}

std::string idIs(std::uint32_t id) {
    return " WHERE AppID = " + std::to_string(id);
}

TEST_F(InvTreeTest, RootsComeOnceInOrderAndTheBlackBerryRootOnlyWithItsTable) {
    tree.UpdateTree();
    EXPECT_EQ(Texts(nullptr), roots(0, 0, 0));
    EXPECT_EQ(Ctrl().GetSelectedItem(), tree.PalmAppsItem());
    const auto first = Children(nullptr);
    AddApp(1, "Acme", "acme", "Tool", "1.0");
    tree.UpdateTree();
    const auto companies = Children(tree.PPCAppsItem());
    EXPECT_EQ(companies.size(), 1u);
    tree.UpdateTree();
    EXPECT_EQ(Children(nullptr), first);
    EXPECT_EQ(Children(tree.PPCAppsItem()), companies);
    EXPECT_EQ(Texts(nullptr), roots(0, 0, 1));

    // A store without the BlackBerry table loses the branch, silently.
    db.Close();
    db.OpenMemory(false);
    tree.UpdateTree();
    EXPECT_EQ(tree.RIMAppsItem(), nullptr);
    EXPECT_EQ(Texts(nullptr), roots(0, -1, 0));
    EXPECT_TRUE(reports.Empty());
    EXPECT_NE(dynamic_cast<SYInvTreeWnd*>(SYRuntimeClass::CreateObject("SYInvTreeWnd").get()),
              nullptr);
}

TEST_F(InvTreeTest, CompaniesStayUnbuiltBehindAPlaceholderUntilExpandedOnce) {
    const auto tool = AddApp(1, "Acme Corp.", "acme", "Tool", "1.0");
    AddApp(1, "Acme Corp.", "acme", "Editor", "");
    tree.UpdateTree();
    const HTREEITEM company = Ctrl().GetChildItem(tree.PPCAppsItem());
    ASSERT_TRUE(tree.IsItemPPCCompany(company));
    EXPECT_EQ(Texts(company), Strings{"<>"});
    EXPECT_FALSE(tree.SelectApplication(tool, company)) << "only the placeholder stands";
    tree.CheckBuildItem(tree.PPCAppsItem());
    EXPECT_EQ(Texts(company), Strings{"<>"}) << "a root is no company";
    Ctrl().SelectItem(Ctrl().GetChildItem(company));
    EXPECT_EQ(tree.GetSelectedAppID(), 0u) << "the placeholder carries no id";
    tree.UpdateTree();
    EXPECT_EQ(Ctrl().GetSelectedItem(), company) << "a refresh takes the selection off it";
    EXPECT_EQ(Texts(company), Strings{"<>"});

    tree.CheckBuildItem(company);
    EXPECT_EQ(Texts(company), (Strings{"Editor", "Tool  [ 1.0 ]"}));
    AddApp(1, "Acme Corp.", "acme", "Browser", "2");
    tree.CheckBuildItem(company);
    EXPECT_EQ(Texts(company).size(), 3u) << "not expanded yet: read again";
    Ctrl().Expand(company, TVE_EXPAND);
    AddApp(1, "Acme Corp.", "acme", "Viewer", "3");
    tree.CheckBuildItem(company);
    EXPECT_EQ(Texts(company).size(), 3u) << "expanded once: no more lazy reads";

    Ctrl().SelectItem(company);
    EXPECT_TRUE(tree.SelectApplication(tool, nullptr)) << "below the selected node";
    EXPECT_EQ(tree.GetSelectedAppID(), tool);
    EXPECT_TRUE(tree.IsItemPPCApplication(Ctrl().GetSelectedItem()));
    EXPECT_EQ(tree.GetSelectedPalmAppID(), 0);
    std::string internal = "unchanged", display;
    EXPECT_EQ(tree.GetSelectedCompany(internal), 0) << "does not climb to the parent";
    EXPECT_EQ(internal, "unchanged");

    EXPECT_EQ(tree.SelectCompany("acme", tree.PPCAppsItem()), 0) << "the text, not the key";
    EXPECT_EQ(tree.SelectCompany("Acme Corp.", nullptr), 0);
    ASSERT_EQ(tree.SelectCompany("Acme Corp.", tree.PPCAppsItem()), 1);
    EXPECT_EQ(tree.GetSelectedCompany(internal) + tree.GetSelectedCompanyDisplayName(display), 2);
    EXPECT_EQ(internal + "|" + display, "acme|Acme Corp.");
}

TEST_F(InvTreeTest, MergeOrdersByInternalNameFoldsCaseVariantsAndKeepsNodes) {
    AddApp(1, "Zeta", "zeta", "Z", "1");
    AddApp(1, "Mid Co", "mid", "M", "1");
    AddApp(1, "MID co", "MID", "M2", "1");
    AddApp(1, "Mid Co", "mid", "M3", "1"); // the commonest spelling is shown
    const auto loose = AddApp(1, "", "", "Loose", "1");
    AddApp(1, "Hidden", "hidden", "Gone", "1", 0);
    tree.UpdateTree();
    EXPECT_EQ(Texts(tree.PPCAppsItem()), (Strings{"(No Company)", "Mid Co", "Zeta"}));
    std::string display = "x";
    Ctrl().SelectItem(Ctrl().GetChildItem(tree.PPCAppsItem()));
    EXPECT_EQ(tree.GetSelectedCompanyDisplayName(display), 1);
    EXPECT_EQ(display, "") << "the words stand on the node only";

    // One pass drops the first company and puts a new one before the others.
    const auto before = Children(tree.PPCAppsItem());
    AddApp(1, "Aardvark", "aardvark", "A", "1");
    Run("DELETE FROM [PPC Applications]" + idIs(loose));
    tree.UpdateTree();
    EXPECT_EQ(Texts(tree.PPCAppsItem()), (Strings{"Aardvark", "Mid Co", "Zeta"}));
    const auto after = Children(tree.PPCAppsItem());
    EXPECT_EQ(std::vector<HTREEITEM>(after.begin() + 1, after.end()),
              std::vector<HTREEITEM>(before.begin() + 1, before.end()));
    tree.CheckBuildItem(after[1]);
    EXPECT_EQ(Texts(after[1]), (Strings{"M  [ 1 ]", "M2  [ 1 ]", "M3  [ 1 ]"}));
}

TEST_F(InvTreeTest, MergeKeepsNodesExpansionAndSelectionByText) {
    const auto tool = AddApp(1, "Acme", "acme", "Tool", "1.0");
    const auto editor = AddApp(1, "Acme", "acme", "Editor", "2.0");
    AddApp(1, "Beta", "beta", "B", "1");
    tree.UpdateTree();
    const auto companies = Children(tree.PPCAppsItem());
    const HTREEITEM acme = companies[0];
    Expand(acme);
    Expand(companies[1]);
    Ctrl().Expand(companies[1], TVE_COLLAPSE);
    ASSERT_TRUE(tree.SelectApplication(editor, acme));
    tree.UpdateTree();
    EXPECT_EQ(tree.GetSelectedAppID(), editor) << "same text: the new node";
    EXPECT_EQ(Texts(companies[1]), Strings{"<>"}) << "collapsed: reset";
    EXPECT_EQ(Ctrl().GetItemState(companies[1], TVIS_EXPANDEDONCE), 0u);

    const std::string acmeRows = " WHERE AppCompanyInternal = 'acme'";
    Run("UPDATE [PPC Applications] SET AppCompany = 'ACME Corporation'" + acmeRows);
    Run("UPDATE [PPC Applications] SET AppVersion = '3.0'" + idIs(editor));
    tree.UpdateTree();
    EXPECT_EQ(Children(tree.PPCAppsItem()), companies);
    EXPECT_EQ(Ctrl().GetItemText(acme), "ACME Corporation");
    EXPECT_TRUE(Ctrl().ItemExpanded(acme));
    EXPECT_EQ(Texts(acme), (Strings{"Editor  [ 3.0 ]", "Tool  [ 1.0 ]"})) << "expanded: rebuilt";
    EXPECT_EQ(Ctrl().GetSelectedItem(), acme) << "another text: the company";

    Run("UPDATE [PPC Applications] SET AppCompany = ''" + acmeRows);
    tree.UpdateTree();
    EXPECT_EQ(Ctrl().GetItemText(acme), "ACME Corporation") << "an empty name leaves the text";
    ASSERT_TRUE(tree.SelectApplication(tool, acme));
    tree.BuildApps(acme, 0);
    EXPECT_NE(tree.GetSelectedAppID(), tool) << "not restoring leaves it to the control";
}

TEST_F(InvTreeTest, IgnoreDeletesTheNodeAndResetsCollapsedCompaniesOnTheWay) {
    AddApp(1, "Acme", "acme", "Tool", "1.0");
    const auto b = AddApp(1, "Beta", "beta", "B", "1");
    const auto c = AddApp(1, "Gamma", "gamma", "C", "1");
    const auto c2 = AddApp(1, "Gamma", "gamma", "C2", "1");
    tree.UpdateTree();
    const auto companies = Children(tree.PPCAppsItem());
    tree.CheckBuildItem(companies[0]); // built but collapsed
    Expand(companies[1]);
    tree.CheckBuildItem(companies[2]);
    Ctrl().SelectItem(tree.PPCAppsItem());

    tree.IgnoreApplication(b, 1);
    EXPECT_EQ(Texts(companies[0]), Strings{"<>"}) << "collapsed before the hit: reset";
    EXPECT_EQ(Ctrl().GetChildItem(companies[1]), nullptr) << "the company keeps its node";
    EXPECT_EQ(Texts(companies[2]).size(), 2u) << "behind the hit: untouched";
    EXPECT_EQ(Ctrl().GetSelectedItem(), tree.PPCAppsItem());
    tree.IgnoreApplication(c, 1);
    EXPECT_EQ(Texts(companies[2]), Strings{"<>"}) << "collapsed: reads anew when built";

    Run("DELETE FROM [PPC Applications]" + idIs(c));
    Expand(companies[2]);
    ASSERT_TRUE(tree.SelectApplication(c2, companies[2]));
    tree.IgnoreApplication(0, 1);
    EXPECT_EQ(tree.GetSelectedAppID(), c2);
    tree.IgnoreApplication(c2, 1);
    EXPECT_EQ(Ctrl().GetSelectedItem(), companies[2]) << "the selected one's company";
    EXPECT_TRUE(Ctrl().IsRedrawOn());
}

TEST_F(InvTreeTest, WindowsBranchHasItsOwnImagesCountAndIds) {
    const auto pc = AddApp(0, "Acme", "acme", "Tool", "1.0");
    const auto ce = AddApp(1, "Acme", "acme", "Tool", "1.0");
    ASSERT_EQ(pc, ce) << "each platform numbers its own applications";
    tree.UpdateTree();
    const HTREEITEM root = Ctrl().InsertItem("Windows", 1, 1);
    tree.SetAppsItem(root);
    tree.UpdateApps(root, 0);
    tree.UpdateAppCounts();
    EXPECT_EQ(Ctrl().GetItemText(root), "Windows Applications  (1)");
    const HTREEITEM pcAcme = Ctrl().GetChildItem(root);
    const HTREEITEM ceAcme = Ctrl().GetChildItem(tree.PPCAppsItem());
    ASSERT_TRUE(tree.IsItemCompany(pcAcme));
    Expand(pcAcme);
    Expand(ceAcme);
    EXPECT_TRUE(tree.IsItemApplication(Ctrl().GetChildItem(pcAcme)));
    tree.IgnoreApplication(ce, 1);
    EXPECT_EQ(Ctrl().GetChildItem(ceAcme), nullptr);
    EXPECT_EQ(Texts(pcAcme), Strings{"Tool  [ 1.0 ]"});
}

TEST_F(InvTreeTest, HandheldBranchesCountAndFindTheSelectionAgainById) {
    const auto memo = AddPalmApp("MemoPad", "1.0", "Memos");
    AddPalmApp("Clock", "", "");
    AddPalmApp("Calc", "2.1", "");
    const auto mail = AddRIMApp("Mail", "4.0");
    AddRIMApp("Maps", "");
    AddApp(1, "Acme", "acme", "Tool", "1.0");
    AddApp(1, "Acme", "acme", "Old", "0.9", 0);
    tree.UpdateTree();
    EXPECT_EQ(Texts(tree.PalmAppsItem()), (Strings{"Calc  [ 2.1 ]", "Clock", "Memos  [ 1.0 ]"}));
    EXPECT_EQ(Texts(tree.RIMAppsItem()), (Strings{"Mail  [ 4.0 ]", "Maps"}));
    EXPECT_EQ(Texts(nullptr), roots(3, 2, 1));

    const HTREEITEM acme = Ctrl().GetChildItem(tree.PPCAppsItem());
    Ctrl().SelectItem(acme);
    tree.UpdateTree();
    EXPECT_EQ(Ctrl().GetSelectedItem(), acme) << "another branch's selection stays";
    ASSERT_TRUE(tree.SelectPalmApplication(memo, tree.PalmAppsItem()));
    EXPECT_EQ(tree.GetSelectedAppID(), 0u);
    tree.UpdateTree();
    EXPECT_EQ(tree.GetSelectedPalmAppID(), memo) << "a new node, found again by id";
    ASSERT_TRUE(tree.SelectRIMApplication(mail, tree.RIMAppsItem()));
    EXPECT_EQ(tree.GetSelectedPalmAppID(), 0);
    tree.UpdateTree();
    EXPECT_EQ(tree.GetSelectedRIMAppID(), mail);

    Run("DELETE FROM [RIM Applications] WHERE AppID = " + std::to_string(mail));
    tree.UpdateTree();
    EXPECT_EQ(Ctrl().GetSelectedItem(), tree.RIMAppsItem()) << "gone: the branch's root";
    EXPECT_TRUE(Ctrl().IsRedrawOn());
}

TEST_F(InvTreeTest, RemovingTheWindowsCEBranchUnderItsSelectedCompanyLeavesNoSelection) {
    AddApp(1, "Acme", "acme", "Tool", "1.0");
    tree.UpdateTree();
    Ctrl().SelectItem(Ctrl().GetChildItem(tree.PPCAppsItem()));
    tree.RemovePPCData();
    EXPECT_EQ(Ctrl().GetSelectedItem(), nullptr);
    EXPECT_EQ(Texts(nullptr), (Strings{"Palm Applications  (0)", "BlackBerry Applications (0)"}));
    tree.UpdateTree();
    EXPECT_EQ(Ctrl().GetSelectedItem(), tree.PalmAppsItem()) << "the first root, once rebuilt";
    EXPECT_NE(tree.PPCAppsItem(), nullptr);
}

TEST_F(InvTreeTest, AFailureAtAnyStatementIsReportedAndTheNextUpdateMendsTheTree) {
    AddPalmApp("MemoPad", "1.0");
    AddPalmApp("Clock", "1.0");
    AddApp(1, "Acme", "acme", "Tool", "1.0");
    tree.UpdateTree();
    const HTREEITEM acme = Ctrl().GetChildItem(tree.PPCAppsItem());
    Expand(acme);
    // The tree's probe for the BlackBerry table fails silently: no such branch then.
    const std::vector<std::pair<std::function<void()>, bool>> steps = {
        {[&] { tree.UpdateTree(); }, false},
        {[&] { tree.UpdateAppCounts(); }, true},
        {[&] { EXPECT_LE(tree.CheckItemForText(tree.PalmAppsItem(), "memo"), 1); }, true},
    };
    for (std::size_t i = 0; i < steps.size(); ++i) {
        SCOPED_TRACE(i);
        for (FaultSweep sweep(db); sweep.Next();) {
            SCOPED_TRACE(sweep.Nth());
            reports.Clear();
            sweep.Arm();
            steps[i].first();
            const Strings failed =
                reports.Empty() && !steps[i].second ? Strings{} : Strings{"CDBException"};
            EXPECT_EQ(ReportKinds(), sweep.Fired() ? failed : Strings{});
            EXPECT_TRUE(Ctrl().IsRedrawOn());
            EXPECT_TRUE(Texts(tree.PalmAppsItem()).size() == 2 ||
                        Texts(tree.PPCAppsItem()) == Strings{"Acme"})
                << "one failure costs one branch at most";
            tree.UpdateTree();
            EXPECT_EQ(Texts(nullptr), roots(2, 0, 1));
            EXPECT_EQ(Texts(tree.PalmAppsItem()).size(), 2u);
            EXPECT_EQ(Texts(acme), Strings{"Tool  [ 1.0 ]"});
        }
    }
    EXPECT_EQ(SYGetApp().WaitCursorCount(), 0);
}

TEST_F(InvTreeTest, SearchIgnoresCaseAndBuildsUnbuiltCompanies) {
    const auto tool = AddApp(1, "Acme Tools", "acme", "Widget Maker", "1.0");
    AddApp(1, "Bolt, Inc.", "bolt", "Bolt", "1");
    AddApp(1, "Bolt, Inc.", "bolt", "Bolt Extra", "1");
    AddApp(1, "Bolt Inc", "bolt", "Bolt Tools", "1");
    AddFile(1, "wmaker.exe", 100, 1000, 1, tool);
    AddFile(1, "Setup.EXE", 100, 1000, 0);
    AddFile(1, "junk.tmp", 100, 1000, 3);
    AddPalmApp("MemoPad", "1.0", "Notes");
    tree.UpdateTree();
    const HTREEITEM acme = Ctrl().GetChildItem(tree.PPCAppsItem());
    struct Case {
        HTREEITEM node;
        const char* text;
        int found;
    };
    const std::vector<Case> cases = {
        {tree.PPCUnidFilesItem(), "SETUP", 1},
        {tree.PPCUnidFilesItem(), "junk", 0},
        {tree.PPCExcludesItem(), "JUNK", 1},
        {tree.PPCAppsItem(), "tools", 1},
        {tree.PPCAppsItem(), "bolt inc", 0}, // a company's first spelling only
        {acme, "maker", 1},
        {acme, "1.0", 0},
        {tree.PalmAppsItem(), "memo", 1},
        {tree.PalmAppsItem(), "notes", 0},
        {tree.RIMAppsItem(), "", 0},
        {nullptr, "", 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(tree.CheckItemForText(c.node, c.text), c.found) << c.text;

    // The search built the company without expanding it; its application searches files.
    EXPECT_EQ(Texts(acme), Strings{"Widget Maker  [ 1.0 ]"});
    EXPECT_FALSE(Ctrl().ItemExpanded(acme));
    const HTREEITEM app = Ctrl().GetChildItem(acme);
    EXPECT_EQ(tree.CheckItemForText(app, "WMAKER") * 2 + tree.CheckItemForText(app, "setup"), 2);
    EXPECT_TRUE(reports.Empty());
}

} // namespace
