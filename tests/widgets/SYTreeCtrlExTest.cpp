#include <gtest/gtest.h>

#include <algorithm>
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
    long Count(int code) const {
        return std::ranges::count(heard, code, &std::pair<unsigned, int>::second);
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

TEST_F(TreeTest, DeletingMovesOrDropsTheSelectionByTheControlsRule) {
    struct Case {
        const char* selected;
        const char* deleted;
        const char* expected;
    };
    const Case cases[] = {
        {"A/2", "A/2", "A/3"},      // next sibling first
        {"A/3", "A/3", "A/2"},      // else the previous one
        {"B/1", "B/1", "B"},        // else the parent
        {"A/2/x", "A/2", "(none)"}, // an ancestor's deletion leaves no selection
        {"A/2/x", "A", "(none)"},
        {"A/1", "A/3", "A/1"}, // another node's deletion leaves the selection alone
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string("deleting ") + c.deleted);
        tree().DeleteAllItems();
        nodes.clear();
        Build({"A", "A/1", "A/2", "A/2/x", "A/3", "B", "B/1", "C"});
        main.heard.clear();
        tree().SelectItem(nodes[c.selected]);
        tree().SelectItem(nodes[c.selected]); // no change, no notification
        ASSERT_TRUE(tree().DeleteItem(nodes[c.deleted]));
        EXPECT_EQ(Name(tree().GetSelectedItem()), c.expected);
        EXPECT_EQ(main.heard.size(), std::string(c.selected) == c.expected ? 1u : 2u);
        EXPECT_EQ(main.heard[0], (std::pair<unsigned, int>{77, TVN_SELCHANGED}));
        if (HTREEITEM selected = tree().GetSelectedItem()) {
            EXPECT_EQ(tree().GetItemState(selected, TVIS_SELECTED), TVIS_SELECTED);
        }
    }
}

TEST_F(TreeTest, EmptiedBranchesTakeTheSelectionAndDeletedHandlesAreRefused) {
    Build({"A", "A/1", "A/1/a", "A/2", "B"});
    tree().SelectItem(nodes["A/1/a"]);
    ASSERT_TRUE(tree().DeleteChildren(nodes["A"]));
    EXPECT_EQ(tree().GetSelectedItem(), nodes["A"]);
    EXPECT_FALSE(tree().ItemHasChildren(nodes["A"]));

    ASSERT_TRUE(tree().DeleteItem(nodes["A"]));
    ASSERT_TRUE(tree().DeleteItem(nodes["B"]));
    EXPECT_EQ(tree().GetSelectedItem(), nullptr);
    EXPECT_EQ(tree().GetCount(), 0);
    EXPECT_EQ(tree().GetItemText(nodes["A/1"]), "");
    EXPECT_FALSE(tree().SetItemData(nodes["A"], 5));
    EXPECT_EQ(tree().InsertItem("orphan", 1, 1, nodes["A"], TVI_LAST), nullptr);
}

TEST_F(TreeTest, OnlyARealExpansionSetsTheExpandedOnceBit) {
    Build({"company", "company/<>", "leaf", "A", "A/1", "A/1/a"});
    HTREEITEM company = nodes["company"];
    EXPECT_FALSE(tree().Expand(nodes["leaf"], TVE_EXPAND)) << "nothing to show";
    EXPECT_EQ(tree().GetItemState(nodes["leaf"], TVIS_EXPANDEDONCE), 0u);
    tree().SetItemState(company, TVIS_EXPANDEDONCE, TVIS_EXPANDEDONCE);
    EXPECT_EQ(tree().GetItemState(company, TVIS_EXPANDEDONCE), 0u) << "not settable from outside";

    ASSERT_TRUE(tree().Expand(company, TVE_EXPAND));
    ASSERT_TRUE(tree().Expand(company, TVE_COLLAPSE, 1, 1));
    EXPECT_FALSE(tree().ItemExpanded(company));
    EXPECT_EQ(tree().GetItemState(company, TVIS_EXPANDEDONCE), TVIS_EXPANDEDONCE);
    tree().SetItemState(company, 0, TVIS_EXPANDEDONCE);
    EXPECT_EQ(tree().GetItemState(company, TVIS_EXPANDEDONCE), 0u) << "clearing makes it unbuilt";

    tree().EnsureVisible(nodes["A/1/a"]);
    EXPECT_TRUE(tree().ItemExpanded(nodes["A"]));
    EXPECT_EQ(tree().GetItemState(nodes["A/1"], TVIS_EXPANDEDONCE), TVIS_EXPANDEDONCE);
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
    });
    for (int i = 0; i < 3; ++i)
        ASSERT_TRUE(tree().ToggleItem(company));
    EXPECT_EQ(built, 1);
    EXPECT_TRUE(tree().ItemExpanded(company));
    EXPECT_EQ(Name(tree().GetChildItem(company)), "app 1");
    EXPECT_EQ(main.Count(TVN_ITEMEXPANDED), 3);
}

TEST_F(TreeTest, NavigationCodesTreeOrderWalkAndInsertPositions) {
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

    EXPECT_EQ(Name(tree().InsertItem("first", 1, 1, nodes["A"], TVI_FIRST)), "first");
    tree().InsertItem("after 1", 1, 1, nodes["A"], nodes["A/1"]);
    EXPECT_EQ(Name(tree().GetNextSiblingItem(nodes["A/1"])), "after 1");
    EXPECT_EQ(Name(tree().GetChildItem(nodes["A"])), "first");
    EXPECT_EQ(tree().InsertItem("x", 1, 1, TVI_ROOT, nodes["A/1"]), nullptr) << "not a child";
}

TEST_F(TreeTest, FindItemLooksAtDirectChildrenByTextAndImage) {
    HTREEITEM root = tree().InsertItem("root", 13, 13);
    tree().InsertItem("Acme", 2, 2, root);
    HTREEITEM ppc = tree().InsertItem("Acme", 14, 14, root);
    HTREEITEM deep = tree().InsertItem("Deep", 14, 14, ppc);
    EXPECT_EQ(tree().FindItem(root, "Acme", 14), ppc);
    EXPECT_EQ(tree().FindItem(root, "acme", 14), nullptr);
    EXPECT_EQ(tree().FindItem(root, "Deep", 14), nullptr);
    EXPECT_EQ(tree().FindItem(ppc, "Deep", -1), deep);
}

} // namespace
