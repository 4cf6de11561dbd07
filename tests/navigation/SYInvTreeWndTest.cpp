#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "navigation/InventoryFixture.h"
#include "navigation/SYInvTreeWnd.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYStatement.h"
#include "outside/widgets/SYAdminImages.h"

namespace {

// Opens the protected building blocks to the tests.
class TestTree : public SYInvTreeWnd {
public:
    using SYInvTreeWnd::BuildApps;
    using SYInvTreeWnd::BuildPalmApps;
    using SYInvTreeWnd::RemovePPCData;
    using SYInvTreeWnd::SetAppsItem;
    using SYInvTreeWnd::UpdateAppCounts;
    using SYInvTreeWnd::UpdateApps;

    SYTreeCtrlEx& Ctrl() { return GetTreeCtrl(); }
};

class InvTreeTest : public InventoryFixture {
protected:
    void SetUp() override {
        InventoryFixture::SetUp();
        ASSERT_NE(tree.Initialize(200, &host), 0);
        tree.SetDatabase(&db);
    }

    SYTreeCtrlEx& ctrl() { return tree.Ctrl(); }

    std::vector<std::string> texts(HTREEITEM parent) {
        std::vector<std::string> result;
        for (HTREEITEM n = ctrl().GetChildItem(parent); n; n = ctrl().GetNextSiblingItem(n))
            result.push_back(ctrl().GetItemText(n));
        return result;
    }

    std::vector<std::string> rootTexts() { return texts(nullptr); }

    HTREEITEM child(HTREEITEM parent, const std::string& text) {
        for (HTREEITEM n = ctrl().GetChildItem(parent); n; n = ctrl().GetNextSiblingItem(n))
            if (ctrl().GetItemText(n) == text)
                return n;
        return nullptr;
    }

    // What the console does before a node expands, then the user's expansion.
    void expand(HTREEITEM node) {
        tree.CheckBuildItem(node);
        ctrl().Expand(node, TVE_EXPAND);
    }

    TestTree tree;
};

using Strings = std::vector<std::string>;

TEST_F(InvTreeTest, EmptyStoreGivesEveryRootWithZeroCountsAndSelectsTheFirst) {
    tree.UpdateTree();
    EXPECT_EQ(rootTexts(), (Strings{"Palm Applications  (0)", "BlackBerry Applications (0)",
                                    "Windows CE Applications  (0)", "Unidentified Windows CE Files",
                                    "Ignored Windows CE Files"}));
    EXPECT_EQ(ctrl().GetSelectedItem(), tree.PalmAppsItem());
    EXPECT_EQ(ctrl().GetItemImage(tree.PPCUnidFilesItem()), SYAdminImages::ImagePPCUnid);
    EXPECT_EQ(ctrl().GetItemImage(tree.PPCExcludesItem()), SYAdminImages::ImagePPCExcludes);
    EXPECT_EQ(ctrl().GetItemImage(tree.RIMAppsItem()), SYAdminImages::ImageRIMRoot);
    EXPECT_FALSE(ctrl().ItemExpanded(tree.PPCAppsItem()));
    EXPECT_EQ(tree.AppsItem(), nullptr);
    EXPECT_TRUE(SYGetApp().Reports().empty());
}

TEST_F(InvTreeTest, StoreWithoutBlackBerryTableHasNoSuchRootAndNoReport) {
    UseStoreWithoutRIM();
    tree.UpdateTree();
    EXPECT_EQ(tree.RIMAppsItem(), nullptr);
    EXPECT_EQ(rootTexts(), (Strings{"Palm Applications  (0)", "Windows CE Applications  (0)",
                                    "Unidentified Windows CE Files", "Ignored Windows CE Files"}));
    EXPECT_TRUE(SYGetApp().Reports().empty());
}

TEST_F(InvTreeTest, SecondUpdateMovesNoRootAndMakesNoSecond) {
    AddApp(1, "Acme", "acme", "Tool", "1.0");
    tree.UpdateTree();
    const std::vector<HTREEITEM> roots{tree.PalmAppsItem(), tree.RIMAppsItem(), tree.PPCAppsItem(),
                                       tree.PPCUnidFilesItem(), tree.PPCExcludesItem()};
    const HTREEITEM company = ctrl().GetChildItem(tree.PPCAppsItem());
    tree.UpdateTree();
    std::vector<HTREEITEM> after;
    for (HTREEITEM n = ctrl().GetRootItem(); n; n = ctrl().GetNextSiblingItem(n))
        after.push_back(n);
    EXPECT_EQ(after, roots);
    EXPECT_EQ(ctrl().GetChildItem(tree.PPCAppsItem()), company);
}

TEST_F(InvTreeTest, CompaniesStartUnbuiltAndBuildOnDemandUntilExpanded) {
    const auto tool = AddApp(1, "Acme", "acme", "Tool", "1.0");
    AddApp(1, "Acme", "acme", "Editor", "");
    tree.UpdateTree();
    const HTREEITEM company = ctrl().GetChildItem(tree.PPCAppsItem());
    ASSERT_TRUE(tree.IsItemPPCCompany(company));
    EXPECT_EQ(texts(company), Strings{"<>"});
    EXPECT_FALSE(tree.SelectApplication(tool, company)) << "only the placeholder stands";
    tree.CheckBuildItem(tree.PPCAppsItem());
    EXPECT_EQ(texts(company), Strings{"<>"}) << "a root is no company";

    ctrl().SelectItem(ctrl().GetChildItem(company));
    EXPECT_TRUE(tree.IsItemApplication(ctrl().GetSelectedItem()));
    EXPECT_EQ(tree.GetSelectedAppID(), 0u) << "the placeholder carries no id";

    tree.CheckBuildItem(company);
    EXPECT_EQ(texts(company), (Strings{"Editor", "Tool  [ 1.0 ]"}));
    // Not yet expanded: each check reads the applications again.
    AddApp(1, "Acme", "acme", "Browser", "2");
    tree.CheckBuildItem(company);
    EXPECT_EQ(texts(company), (Strings{"Browser  [ 2 ]", "Editor", "Tool  [ 1.0 ]"}));
    ctrl().Expand(company, TVE_EXPAND);
    AddApp(1, "Acme", "acme", "Viewer", "3");
    tree.CheckBuildItem(company);
    EXPECT_EQ(texts(company).size(), 3u) << "expanded once: no more lazy reads";

    EXPECT_TRUE(tree.SelectApplication(tool, company));
    EXPECT_EQ(tree.GetSelectedAppID(), tool);
    EXPECT_TRUE(tree.IsItemPPCApplication(ctrl().GetSelectedItem()));
    std::string name = "unchanged";
    EXPECT_EQ(tree.GetSelectedCompany(name), 0) << "does not climb to the parent";
    EXPECT_EQ(name, "unchanged");
}


TEST_F(InvTreeTest, SelectCompanyByDisplayNameBuildsIt) {
    AddApp(1, "Acme Corp.", "acme", "Tool", "1.0");
    tree.UpdateTree();
    const HTREEITEM before = ctrl().GetSelectedItem();
    EXPECT_EQ(tree.SelectCompany("Acme Corp.", nullptr), 0);
    EXPECT_EQ(ctrl().GetSelectedItem(), before);
    EXPECT_EQ(tree.SelectCompany("acme", tree.PPCAppsItem()), 0) << "the text, not the key";
    ASSERT_EQ(tree.SelectCompany("Acme Corp.", tree.PPCAppsItem()), 1);
    std::string internal, display;
    EXPECT_EQ(tree.GetSelectedCompany(internal), 1);
    EXPECT_EQ(tree.GetSelectedCompanyDisplayName(display), 1);
    EXPECT_EQ(internal, "acme");
    EXPECT_EQ(display, "Acme Corp.");
    EXPECT_EQ(texts(ctrl().GetSelectedItem()), Strings{"Tool  [ 1.0 ]"});
}

TEST_F(InvTreeTest, MergeOrdersByInternalNameAndFoldsCaseVariants) {
    AddApp(1, "Zeta", "zeta", "Z", "1");
    AddApp(1, "Mid Co", "mid", "M", "1");
    AddApp(1, "MID co", "MID", "M2", "1");
    AddApp(1, "Mid Co", "mid", "M3", "1"); // the commonest spelling is shown
    AddApp(1, "", "", "Loose", "1");
    AddApp(1, "Hidden", "hidden", "Gone", "1", 0);
    tree.UpdateTree();
    EXPECT_EQ(texts(tree.PPCAppsItem()), (Strings{"(No Company)", "Mid Co", "Zeta"}));

    // A new company sorting before all others goes first; the others keep their nodes.
    const HTREEITEM mid = child(tree.PPCAppsItem(), "Mid Co");
    AddApp(1, "Aardvark", "aardvark", "A", "1");
    tree.UpdateTree();
    EXPECT_EQ(texts(tree.PPCAppsItem()), (Strings{"(No Company)", "Aardvark", "Mid Co", "Zeta"}));
    EXPECT_EQ(child(tree.PPCAppsItem(), "Mid Co"), mid);

    // Both spellings' applications stand below the one node.
    tree.CheckBuildItem(mid);
    EXPECT_EQ(texts(mid), (Strings{"M  [ 1 ]", "M2  [ 1 ]", "M3  [ 1 ]"}));
    std::string display;
    ctrl().SelectItem(ctrl().GetChildItem(tree.PPCAppsItem()));
    EXPECT_EQ(tree.GetSelectedCompanyDisplayName(display), 1);
    EXPECT_EQ(display, "") << "the words stand on the node only";
}

TEST_F(InvTreeTest, RenamedCompanyKeepsNodeSelectionAndExpansion) {
    const auto tool = AddApp(1, "Acme", "acme", "Tool", "1.0");
    AddApp(1, "Beta", "beta", "B", "1");
    tree.UpdateTree();
    const HTREEITEM acme = ctrl().GetChildItem(tree.PPCAppsItem());
    expand(acme);
    ctrl().SelectItem(acme);

    SetAppCompany(tool, 1, "ACME Corporation");
    tree.UpdateTree();
    EXPECT_EQ(ctrl().GetChildItem(tree.PPCAppsItem()), acme);
    EXPECT_EQ(ctrl().GetItemText(acme), "ACME Corporation");
    EXPECT_EQ(ctrl().GetSelectedItem(), acme);
    EXPECT_TRUE(ctrl().ItemExpanded(acme));
    EXPECT_EQ(texts(acme), Strings{"Tool  [ 1.0 ]"}) << "expanded: rebuilt, not reset";

    // An empty display name leaves the node's text.
    SetAppCompany(tool, 1, "");
    tree.UpdateTree();
    EXPECT_EQ(ctrl().GetItemText(acme), "ACME Corporation");
}


TEST_F(InvTreeTest, SelectionBelowExpandedCompanyFollowsTheText) {
    const auto tool = AddApp(1, "Acme", "acme", "Tool", "1.0");
    const auto editor = AddApp(1, "Acme", "acme", "Editor", "2.0");
    tree.UpdateTree();
    const HTREEITEM acme = ctrl().GetChildItem(tree.PPCAppsItem());
    expand(acme);
    ASSERT_TRUE(tree.SelectApplication(editor, acme));

    // Same text after an update: the new node is selected.
    tree.UpdateTree();
    EXPECT_EQ(ctrl().GetItemText(ctrl().GetSelectedItem()), "Editor  [ 2.0 ]");
    EXPECT_EQ(tree.GetSelectedAppID(), editor);

    // Another version now: the text no longer matches and the company is selected.
    SetAppVersion(editor, 1, "3.0");
    tree.UpdateTree();
    EXPECT_EQ(ctrl().GetSelectedItem(), acme);
    EXPECT_EQ(texts(acme), (Strings{"Editor  [ 3.0 ]", "Tool  [ 1.0 ]"}));

    // Rebuilt without restoring: the selection is left where the control put it.
    ASSERT_TRUE(tree.SelectApplication(tool, acme));
    tree.BuildApps(acme, 0);
    EXPECT_NE(tree.GetSelectedAppID(), tool);
}

TEST_F(InvTreeTest, CollapsedCompanyIsResetByTheMerge) {
    AddApp(1, "Acme", "acme", "Tool", "1.0");
    tree.UpdateTree();
    const HTREEITEM acme = ctrl().GetChildItem(tree.PPCAppsItem());
    expand(acme);
    ctrl().Expand(acme, TVE_COLLAPSE);
    tree.UpdateTree();
    EXPECT_EQ(texts(acme), Strings{"<>"});
    EXPECT_EQ(ctrl().GetItemState(acme, TVIS_EXPANDEDONCE), 0u);
}

TEST_F(InvTreeTest, CompaniesLeavingDropNodesAndFreeTheirSlots) {
    const auto a = AddApp(1, "Acme", "acme", "Tool", "1.0");
    const auto b = AddApp(1, "Beta", "beta", "B", "1");
    tree.UpdateTree();
    ctrl().Expand(tree.PPCAppsItem(), TVE_EXPAND);
    ASSERT_EQ(tree.Companies().GetSize(), 2);

    RemoveApp(a, 1);
    tree.UpdateTree();
    EXPECT_EQ(texts(tree.PPCAppsItem()), Strings{"Beta"});
    EXPECT_EQ(tree.Companies().GetAt(0), nullptr);
    ASSERT_NE(tree.Companies().GetAt(1), nullptr);

    RemoveApp(b, 1);
    tree.UpdateTree();
    EXPECT_EQ(ctrl().GetChildItem(tree.PPCAppsItem()), nullptr);
    EXPECT_FALSE(ctrl().ItemExpanded(tree.PPCAppsItem()));
    EXPECT_EQ(tree.Companies().GetSize(), 2) << "slots are never reused";
}

TEST_F(InvTreeTest, IgnoreSelectedOnlyApplicationSelectsItsCompany) {
    const auto tool = AddApp(1, "Acme", "acme", "Tool", "1.0");
    tree.UpdateTree();
    const HTREEITEM acme = ctrl().GetChildItem(tree.PPCAppsItem());
    expand(acme);
    ASSERT_TRUE(tree.SelectApplication(tool, acme));
    const int invalidations = ctrl().InvalidateCount();

    tree.IgnoreApplication(0, 1);
    EXPECT_EQ(tree.GetSelectedAppID(), tool);
    tree.IgnoreApplication(tool, 1);
    EXPECT_EQ(ctrl().GetSelectedItem(), acme);
    EXPECT_EQ(ctrl().GetChildItem(acme), nullptr) << "the company keeps its node";
    EXPECT_GT(ctrl().InvalidateCount(), invalidations);
    EXPECT_TRUE(ctrl().IsRedrawOn());
}

TEST_F(InvTreeTest, IgnoreWalksPastCollapsedCompaniesResettingThem) {
    AddApp(1, "Acme", "acme", "Tool", "1.0");
    const auto b = AddApp(1, "Beta", "beta", "B", "1");
    const auto c = AddApp(1, "Gamma", "gamma", "C", "1");
    tree.UpdateTree();
    const HTREEITEM acme = child(tree.PPCAppsItem(), "Acme");
    const HTREEITEM beta = child(tree.PPCAppsItem(), "Beta");
    const HTREEITEM gamma = child(tree.PPCAppsItem(), "Gamma");
    tree.CheckBuildItem(acme); // built but collapsed
    expand(beta);
    tree.CheckBuildItem(gamma);
    ctrl().SelectItem(tree.PPCAppsItem());

    tree.IgnoreApplication(b, 1);
    EXPECT_EQ(texts(acme), Strings{"<>"}) << "collapsed before the hit: reset";
    EXPECT_EQ(ctrl().GetChildItem(beta), nullptr);
    EXPECT_EQ(texts(gamma), Strings{"C  [ 1 ]"}) << "behind the hit: untouched";
    EXPECT_EQ(ctrl().GetSelectedItem(), tree.PPCAppsItem());

    // In a collapsed company nothing visible changes; it reads anew when built.
    tree.IgnoreApplication(c, 1);
    EXPECT_EQ(texts(gamma), Strings{"<>"});
}

TEST_F(InvTreeTest, WindowsBranchUsesItsOwnImagesWhenAWindowProvidesTheRoot) {
    AddApp(0, "Acme", "acme", "Tool", "1.0");
    const auto ce = AddApp(1, "Acme", "acme", "Tool", "1.0");
    const HTREEITEM root = ctrl().InsertItem("Windows", 1, 1);
    tree.SetAppsItem(root);
    tree.UpdateApps(root, 0);
    const HTREEITEM acme = ctrl().GetChildItem(root);
    ASSERT_TRUE(tree.IsItemCompany(acme));
    expand(acme);
    EXPECT_TRUE(tree.IsItemApplication(ctrl().GetChildItem(acme)));
    // An id of the other platform does not reach this branch.
    tree.IgnoreApplication(ce + 100, 0);
    EXPECT_EQ(texts(acme).size(), 1u);
}

TEST_F(InvTreeTest, PalmBranchKeepsSelectionByIdAndShowsIconNames) {
    const auto memo = AddPalmApp("MemoPad", "1.0", "Memos");
    AddPalmApp("Clock", "", "");
    const auto calc = AddPalmApp("Calc", "2.1", "");
    tree.UpdateTree();
    EXPECT_EQ(texts(tree.PalmAppsItem()), (Strings{"Calc  [ 2.1 ]", "Clock", "Memos  [ 1.0 ]"}));
    EXPECT_EQ(ctrl().GetItemText(tree.PalmAppsItem()), "Palm Applications  (3)");

    ASSERT_TRUE(tree.SelectPalmApplication(memo, tree.PalmAppsItem()));
    EXPECT_EQ(tree.GetSelectedPalmAppID(), memo);
    EXPECT_EQ(tree.GetSelectedAppID(), 0u);
    tree.UpdateTree();
    EXPECT_EQ(tree.GetSelectedPalmAppID(), memo) << "a new node, found again by id";
    EXPECT_TRUE(ctrl().IsRedrawOn());

    ASSERT_TRUE(tree.SelectPalmApplication(calc, tree.PalmAppsItem()));
    SYStatement remove(db, "DELETE FROM [Palm Applications] WHERE AppID = ?");
    remove.Bind(1, std::int64_t{calc});
    remove.Execute();
    tree.UpdateTree();
    EXPECT_EQ(ctrl().GetSelectedItem(), tree.PalmAppsItem());
}

TEST_F(InvTreeTest, PalmRebuildLeavesAnotherSelectionAlone) {
    AddApp(1, "Acme", "acme", "Tool", "1.0");
    AddPalmApp("MemoPad", "1.0");
    tree.UpdateTree();
    const HTREEITEM acme = ctrl().GetChildItem(tree.PPCAppsItem());
    ctrl().SelectItem(acme);
    tree.BuildPalmApps(tree.PalmAppsItem());
    EXPECT_EQ(ctrl().GetSelectedItem(), acme);
}

TEST_F(InvTreeTest, BlackBerryBranchAndCounts) {
    const auto mail = AddRIMApp("Mail", "4.0");
    AddRIMApp("Maps", "");
    AddApp(1, "Acme", "acme", "Tool", "1.0");
    AddApp(1, "Acme", "acme", "Old", "0.9", 0);
    tree.UpdateTree();
    EXPECT_EQ(texts(tree.RIMAppsItem()), (Strings{"Mail  [ 4.0 ]", "Maps"}));
    EXPECT_EQ(ctrl().GetItemText(tree.RIMAppsItem()), "BlackBerry Applications (2)");
    EXPECT_EQ(ctrl().GetItemText(tree.PPCAppsItem()), "Windows CE Applications  (1)");
    ASSERT_TRUE(tree.SelectRIMApplication(mail, tree.RIMAppsItem()));
    EXPECT_EQ(tree.GetSelectedRIMAppID(), mail);
    EXPECT_EQ(tree.GetSelectedPalmAppID(), 0);
}

TEST_F(InvTreeTest, CountFailureIsReportedAndLeavesTheRemainingLabels) {
    AddPalmApp("MemoPad", "1.0");
    AddApp(1, "Acme", "acme", "Tool", "1.0");
    tree.UpdateTree();
    AddPalmApp("Clock", "1.0");
    AddApp(1, "Beta", "beta", "B", "1.0");
    db.FailStatement(1);
    tree.UpdateAppCounts();
    EXPECT_EQ(ReportKinds(), Strings{"CDBException"});
    EXPECT_EQ(ctrl().GetItemText(tree.PalmAppsItem()), "Palm Applications  (1)");
    EXPECT_EQ(ctrl().GetItemText(tree.PPCAppsItem()), "Windows CE Applications  (1)");
}

TEST_F(InvTreeTest, FailingBranchIsReportedAndTheOthersStillUpdate) {
    AddPalmApp("MemoPad", "1.0");
    AddApp(1, "Acme", "acme", "Tool", "1.0");
    db.FailStatement(1); // the Palm enumeration
    tree.UpdateTree();
    EXPECT_EQ(ReportKinds(), Strings{"CDBException"});
    EXPECT_EQ(ctrl().GetChildItem(tree.PalmAppsItem()), nullptr);
    EXPECT_TRUE(ctrl().IsRedrawOn());
    EXPECT_EQ(texts(tree.PPCAppsItem()), Strings{"Acme"});
    EXPECT_EQ(ctrl().GetItemText(tree.PalmAppsItem()), "Palm Applications  (1)");
}

TEST_F(InvTreeTest, RemovedWindowsCEBranchComesBackWithTheNextUpdate) {
    AddApp(1, "Acme", "acme", "Tool", "1.0");
    tree.UpdateTree();
    ctrl().SelectItem(ctrl().GetChildItem(tree.PPCAppsItem()));
    tree.RemovePPCData();
    EXPECT_EQ(tree.PPCAppsItem(), nullptr);
    EXPECT_EQ(tree.PPCUnidFilesItem(), nullptr);
    EXPECT_EQ(tree.PPCExcludesItem(), nullptr);
    EXPECT_EQ(rootTexts(), (Strings{"Palm Applications  (0)", "BlackBerry Applications (0)"}));
    tree.UpdateTree();
    EXPECT_EQ(rootTexts(), (Strings{"Palm Applications  (0)", "Windows CE Applications  (1)",
                                    "BlackBerry Applications (0)", "Unidentified Windows CE Files",
                                    "Ignored Windows CE Files"}));
}

TEST_F(InvTreeTest, SearchAnswersFromTheDatabase) {
    const auto tool = AddApp(1, "Acme Tools", "acme", "Widget Maker", "1.0");
    AddApp(1, "Other", "other", "Thing", "1.0");
    AddFile(1, "wmaker.exe", 100, 1000, 1, tool);
    AddFile(1, "Setup.EXE", 100, 1000, 0);
    AddFile(1, "junk.tmp", 100, 1000, 3);
    AddPalmApp("MemoPad", "1.0", "Notes");
    tree.UpdateTree();
    const HTREEITEM acme = child(tree.PPCAppsItem(), "Acme Tools");

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
        {tree.PPCAppsItem(), "acme tools x", 0},
        {acme, "maker", 1},
        {acme, "1.0", 0},
        {tree.PalmAppsItem(), "memo", 1},
        {tree.PalmAppsItem(), "notes", 0},
        {tree.RIMAppsItem(), "", 0},
        {tree.PalmAppsItem(), "", 1},
        {nullptr, "", 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(tree.CheckItemForText(c.node, c.text), c.found) << c.text;

    // The search built the company without expanding it; its application searches files.
    EXPECT_EQ(texts(acme), Strings{"Widget Maker  [ 1.0 ]"});
    EXPECT_FALSE(ctrl().ItemExpanded(acme));
    const HTREEITEM app = ctrl().GetChildItem(acme);
    EXPECT_EQ(tree.CheckItemForText(app, "WMAKER"), 1);
    EXPECT_EQ(tree.CheckItemForText(app, "setup"), 0);
    EXPECT_TRUE(SYGetApp().Reports().empty());
}

TEST_F(InvTreeTest, SearchFailureIsReportedAsNotFound) {
    AddFile(1, "Setup.EXE", 100, 1000, 0);
    tree.UpdateTree();
    db.FailStatement(1);
    EXPECT_EQ(tree.CheckItemForText(tree.PPCUnidFilesItem(), "setup"), 0);
    EXPECT_EQ(ReportKinds(), Strings{"CDBException"});
}

} // namespace
