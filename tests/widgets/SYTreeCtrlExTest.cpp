#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "outside/widgets/SYTreeHeaderWnd.h"

namespace {

// A top-level window that counts the notifications it receives.
struct Listener : SYWnd {
    Listener() { Create(SYControlKind::Static, 1, "main", {0, 0, 400, 300}, nullptr); }
    int OnNotify(unsigned id, int code, SYWnd* from) override {
        heard.push_back({id, code});
        return SYWnd::OnNotify(id, code, from);
    }
    int Count(int code) const {
        int n = 0;
        for (const auto& [id, c] : heard)
            n += c == code ? 1 : 0;
        return n;
    }
    std::vector<std::pair<unsigned, int>> heard;
};

class TreeTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(header.Initialize(77, &main)); }

    // Builds nodes from "parent/child" paths; a node is named by its path.
    void Build(const std::vector<std::string>& paths) {
        for (const std::string& path : paths) {
            const auto slash = path.rfind('/');
            HTREEITEM parent =
                slash == std::string::npos ? TVI_ROOT : nodes.at(path.substr(0, slash));
            nodes[path] = tree().InsertItem(path, 1, 1, parent, TVI_LAST);
            ASSERT_NE(nodes[path], nullptr) << path;
        }
    }
    SYTreeCtrlEx& tree() { return header.GetTreeCtrl(); }
    std::string Name(HTREEITEM node) {
        return node == nullptr ? "(none)" : tree().GetItemText(node);
    }

    Listener main;
    SYTreeHeaderWnd header;
    std::map<std::string, HTREEITEM> nodes;
};

TEST_F(TreeTest, DeletingTheSelectedNodeMovesTheSelectionByTheControlsRule) {
    struct Case {
        const char* selected;
        const char* deleted;
        const char* expected;
    };
    const Case cases[] = {
        {"A/2", "A/2", "A/3"},   // next sibling first
        {"A/3", "A/3", "A/2"},   // else the previous one
        {"B/1", "B/1", "B"},     // else the parent
        {"A/2/x", "A/2", "A/3"}, // a selected descendant goes with its ancestor
        {"C", "C", "B"},         // roots follow the same rule
        {"A/1", "A/3", "A/1"},   // another node's deletion leaves the selection alone
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string("deleting ") + c.deleted);
        tree().DeleteAllItems();
        nodes.clear();
        Build({"A", "A/1", "A/2", "A/2/x", "A/3", "B", "B/1", "C"});
        tree().SelectItem(nodes[c.selected]);
        main.heard.clear();
        ASSERT_TRUE(tree().DeleteItem(nodes[c.deleted]));
        EXPECT_EQ(Name(tree().GetSelectedItem()), c.expected);
        EXPECT_EQ(main.Count(TVN_SELCHANGED), std::string(c.selected) == c.expected ? 0 : 1);
        EXPECT_EQ(tree().GetItemState(tree().GetSelectedItem(), TVIS_SELECTED), TVIS_SELECTED);
    }
}

TEST_F(TreeTest, TheLastNodeGoingLeavesNoSelectionAndDeletedHandlesAreRefused) {
    Build({"A", "A/1"});
    tree().SelectItem(nodes["A/1"]);
    HTREEITEM child = nodes["A/1"];
    ASSERT_TRUE(tree().DeleteItem(nodes["A"]));
    EXPECT_EQ(tree().GetSelectedItem(), nullptr);
    EXPECT_EQ(tree().GetCount(), 0);
    EXPECT_EQ(tree().GetItemImage(child), -1);
    EXPECT_EQ(tree().GetItemText(child), "");
    EXPECT_FALSE(tree().SetItemData(child, 5));
    EXPECT_EQ(tree().InsertItem("orphan", 1, 1, child, TVI_LAST), nullptr);
}

TEST_F(TreeTest, DeleteChildrenBringsASelectionBelowUpToTheNode) {
    Build({"A", "A/1", "A/1/a", "A/2", "B"});
    tree().SelectItem(nodes["A/1/a"]);
    ASSERT_TRUE(tree().DeleteChildren(nodes["A"]));
    EXPECT_EQ(tree().GetSelectedItem(), nodes["A"]);
    EXPECT_FALSE(tree().ItemHasChildren(nodes["A"]));
    EXPECT_EQ(tree().GetCount(), 2);
}

TEST_F(TreeTest, OnlyARealExpansionSetsTheExpandedOnceBit) {
    Build({"company", "company/<>", "leaf"});
    HTREEITEM company = nodes["company"];
    EXPECT_EQ(tree().GetItemState(company, TVIS_EXPANDEDONCE), 0u);

    // Nothing to show: no expansion, no bit.
    EXPECT_FALSE(tree().Expand(nodes["leaf"], TVE_EXPAND));
    EXPECT_EQ(tree().GetItemState(nodes["leaf"], TVIS_EXPANDEDONCE), 0u);
    // The bit cannot be set from outside.
    tree().SetItemState(company, TVIS_EXPANDEDONCE, TVIS_EXPANDEDONCE);
    EXPECT_EQ(tree().GetItemState(company, TVIS_EXPANDEDONCE), 0u);

    ASSERT_TRUE(tree().Expand(company, TVE_EXPAND));
    EXPECT_EQ(tree().GetItemState(company, TVIS_EXPANDEDONCE), TVIS_EXPANDEDONCE);
    EXPECT_TRUE(tree().ItemExpanded(company));

    ASSERT_TRUE(tree().Expand(company, TVE_COLLAPSE, 1, 1));
    EXPECT_FALSE(tree().ItemExpanded(company));
    EXPECT_EQ(tree().GetItemState(company, TVIS_EXPANDEDONCE), TVIS_EXPANDEDONCE);
    // Clearing it makes the node unbuilt again.
    tree().SetItemState(company, 0, TVIS_EXPANDEDONCE);
    EXPECT_EQ(tree().GetItemState(company, TVIS_EXPANDEDONCE), 0u);
}

TEST_F(TreeTest, TheParentCanBuildANodeWhileItIsToldOfTheExpansion) {
    Build({"company", "company/<>"});
    HTREEITEM company = nodes["company"];
    int built = 0;
    main.MapNotify(77, TVN_ITEMEXPANDING, [&] {
        if (tree().GetItemState(company, TVIS_EXPANDEDONCE))
            return;
        ++built;
        tree().DeleteChildren(company);
        tree().InsertItem("app 1", 3, 3, company, TVI_LAST);
        tree().InsertItem("app 2", 3, 3, company, TVI_LAST);
    });
    ASSERT_TRUE(tree().ToggleItem(company));
    ASSERT_TRUE(tree().ToggleItem(company));
    ASSERT_TRUE(tree().ToggleItem(company));
    EXPECT_EQ(built, 1);
    EXPECT_TRUE(tree().ItemExpanded(company));
    EXPECT_EQ(Name(tree().GetChildItem(company)), "app 1");
    EXPECT_EQ(main.Count(TVN_ITEMEXPANDED), 3);
}

TEST_F(TreeTest, EnsureVisibleExpandsTheAncestors) {
    Build({"A", "A/1", "A/1/a"});
    tree().EnsureVisible(nodes["A/1/a"]);
    EXPECT_TRUE(tree().ItemExpanded(nodes["A"]));
    EXPECT_TRUE(tree().ItemExpanded(nodes["A/1"]));
    EXPECT_EQ(tree().GetItemState(nodes["A/1"], TVIS_EXPANDEDONCE), TVIS_EXPANDEDONCE);
}

TEST_F(TreeTest, NavigationCodesAndTreeOrderWalk) {
    Build({"A", "A/1", "A/1/a", "A/2", "B", "C", "C/1"});
    EXPECT_EQ(tree().GetNextItem(nullptr, TVGN_CHILD), nodes["A"]);
    EXPECT_EQ(tree().GetNextItem(nodes["A/1"], TVGN_NEXT), nodes["A/2"]);
    EXPECT_EQ(tree().GetNextItem(nodes["A/2"], TVGN_NEXT), nullptr);
    EXPECT_EQ(tree().GetNextItem(nodes["A/2"], TVGN_PREVIOUS), nodes["A/1"]);
    EXPECT_EQ(tree().GetNextItem(nodes["A/1/a"], TVGN_PARENT), nodes["A/1"]);
    EXPECT_EQ(tree().GetNextItem(nodes["A"], TVGN_PARENT), nullptr);
    EXPECT_EQ(tree().GetNextItem(nodes["B"], TVGN_CHILD), nullptr);

    std::vector<std::string> order;
    for (HTREEITEM node = tree().WalkNext(nullptr); node != nullptr; node = tree().WalkNext(node))
        order.push_back(Name(node));
    EXPECT_EQ(order, (std::vector<std::string>{"A", "A/1", "A/1/a", "A/2", "B", "C", "C/1"}));
}

TEST_F(TreeTest, InsertionMarksAndSiblingsPlaceNewNodes) {
    Build({"A", "A/m"});
    tree().InsertItem("first", 1, 1, nodes["A"], TVI_FIRST);
    tree().InsertItem("after m", 1, 1, nodes["A"], nodes["A/m"]);
    tree().InsertItem("last", 1, 1, nodes["A"], nullptr);
    std::vector<std::string> children;
    for (HTREEITEM c = tree().GetChildItem(nodes["A"]); c != nullptr;
         c = tree().GetNextSiblingItem(c))
        children.push_back(Name(c));
    EXPECT_EQ(children, (std::vector<std::string>{"first", "A/m", "after m", "last"}));
    // A position that is no child of the parent is refused.
    EXPECT_EQ(tree().InsertItem("x", 1, 1, TVI_ROOT, nodes["A/m"]), nullptr);
}

TEST_F(TreeTest, FindItemLooksAtDirectChildrenByTextAndImage) {
    HTREEITEM root = tree().InsertItem("root", 13, 13);
    tree().InsertItem("Acme", 2, 2, root);
    HTREEITEM ppc = tree().InsertItem("Acme", 14, 14, root);
    HTREEITEM deep = tree().InsertItem("Deep", 14, 14, ppc);
    tree().SetItemData(ppc, 42);
    EXPECT_EQ(tree().FindItem(root, "Acme", 14), ppc);
    EXPECT_EQ(tree().GetItemData(ppc), 42u);
    EXPECT_EQ(tree().FindItem(root, "acme", 14), nullptr);
    EXPECT_EQ(tree().FindItem(root, "Deep", 14), nullptr);
    EXPECT_EQ(tree().FindItem(ppc, "Deep", -1), deep);
    EXPECT_EQ(tree().FindItem(TVI_ROOT, "root", 13), root);
}

TEST_F(TreeTest, SelectionChangesReachTheHeadersParentUnderItsId) {
    Build({"A", "B"});
    main.heard.clear();
    tree().SelectItem(nodes["A"]);
    tree().SelectItem(nodes["A"]);
    tree().SelectItem(nullptr);
    ASSERT_EQ(main.heard.size(), 2u);
    EXPECT_EQ(main.heard[0], (std::pair<unsigned, int>{77, TVN_SELCHANGED}));
    EXPECT_EQ(tree().GetSelectedItem(), nullptr);
}

} // namespace
