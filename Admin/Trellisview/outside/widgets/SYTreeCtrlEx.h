#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

#include "outside/widgets/SYImageList.h"
#include "outside/widgets/SYWnd.h"

// A node of the tree control; callers hold it only as a handle.
struct SYTreeNode;
using HTREEITEM = SYTreeNode*;

// The marks of InsertItem: the root level as parent, first and last place as position.
extern const HTREEITEM TVI_ROOT;
extern const HTREEITEM TVI_FIRST;
extern const HTREEITEM TVI_LAST;

// A tree of nodes with text, image, selected image, a 32-bit item data word and state bits.
// Handles stay valid until their node is deleted; a deleted or foreign handle is refused
// like a null one. Selection changes and expansions are told to the parent.
class SYTreeCtrlEx : public SYWnd {
    SY_DECLARE_DYNAMIC(SYTreeCtrlEx)

public:
    SYTreeCtrlEx();
    ~SYTreeCtrlEx() override;

    // Takes the place of the parent's control with this id, or makes a new child filling
    // the parent. Gives 0 without a parent window.
    int Initialize(unsigned id, SYWnd* parent);
    // Only the normal image list (type 0) is kept; gives the one it replaces.
    const SYImageList* SetImageList(const SYImageList* list, int type);
    const SYImageList* GetImageList() const { return m_images; }

    // Parent null or TVI_ROOT: the root level. insertAfter null or TVI_LAST: last place;
    // TVI_FIRST: first place; else a child of parent. Gives the node or null.
    HTREEITEM InsertItem(const std::string& text, int image, int selectedImage,
                         HTREEITEM parent = TVI_ROOT, HTREEITEM insertAfter = TVI_LAST);
    HTREEITEM InsertItem(const std::string& text, HTREEITEM parent = TVI_ROOT,
                         HTREEITEM insertAfter = TVI_LAST);

    // Codes: TVGN_ROOT 0, TVGN_NEXT 1, TVGN_PREVIOUS 2, TVGN_PARENT 3, TVGN_CHILD 4
    // (a null node: the first root), TVGN_CARET 9 (the selected node).
    HTREEITEM GetNextItem(HTREEITEM node, unsigned code) const;
    HTREEITEM GetRootItem() const { return GetNextItem(nullptr, TVGN_ROOT); }
    HTREEITEM GetChildItem(HTREEITEM node) const { return GetNextItem(node, TVGN_CHILD); }
    HTREEITEM GetNextSiblingItem(HTREEITEM node) const { return GetNextItem(node, TVGN_NEXT); }
    HTREEITEM GetPrevSiblingItem(HTREEITEM node) const { return GetNextItem(node, TVGN_PREVIOUS); }
    HTREEITEM GetParentItem(HTREEITEM node) const { return GetNextItem(node, TVGN_PARENT); }
    // The next node in tree order: first child, else next sibling, else the next sibling of
    // the nearest ancestor that has one, across the roots. A null node gives the first root.
    HTREEITEM WalkNext(HTREEITEM node) const;
    // The child of start (null or TVI_ROOT: the roots) with exactly this text and image
    // (-1: any image), or null.
    HTREEITEM FindItem(HTREEITEM start, const std::string& text, int image) const;
    bool IsValidItem(HTREEITEM node) const;
    int GetCount() const { return static_cast<int>(m_nodes.size()); }
    bool ItemHasChildren(HTREEITEM node) const;

    std::string GetItemText(HTREEITEM node) const;
    int SetItemText(HTREEITEM node, const std::string& text);
    // The normal image, -1 for a null or deleted node.
    int GetItemImage(HTREEITEM node) const;
    int GetItemImage(HTREEITEM node, int& image, int& selectedImage) const;
    int SetItemImage(HTREEITEM node, int image, int selectedImage);
    std::uint32_t GetItemData(HTREEITEM node) const;
    int SetItemData(HTREEITEM node, std::uint32_t data);
    unsigned GetItemState(HTREEITEM node, unsigned mask = 0xFFFFFFFFu) const;
    // TVIS_SELECTED is left to SelectItem, and TVIS_EXPANDEDONCE can only be cleared.
    int SetItemState(HTREEITEM node, unsigned state, unsigned mask);

    HTREEITEM GetSelectedItem() const { return m_selected; }
    // A null node clears the selection. The parent hears of every change (TVN_SELCHANGED).
    int SelectItem(HTREEITEM node);
    // Expands the collapsed ancestors of the node, as the control does to show it.
    int EnsureVisible(HTREEITEM node);

    bool ItemExpanded(HTREEITEM node) const;
    // TVE_EXPAND, TVE_COLLAPSE or TVE_TOGGLE. Only expanding a node that has children sets
    // the expanded state and the expanded-once bit (TVIS_EXPANDEDONCE, 0x40). With notify
    // the parent hears TVN_ITEMEXPANDING before and TVN_ITEMEXPANDED after; with recursive a
    // collapse also collapses every node below.
    int Expand(HTREEITEM node, unsigned code, int notify = 0, int recursive = 0);

    // The children go too. If the selected node goes, the selection moves to its next
    // sibling, else its previous sibling, else its parent; if a node above the selection
    // goes, nothing stays selected.
    int DeleteItem(HTREEITEM node);
    int DeleteChildren(HTREEITEM node);
    int DeleteAllItems();

    // What a user's actions do: a click on a node selects it; a click on its button
    // expands or collapses it with notification. Each gives 0 if the user could not.
    int ClickItem(HTREEITEM node);
    int ToggleItem(HTREEITEM node);

protected:
    void OnDestroy() override;

private:
    bool Live(HTREEITEM node) const { return node != nullptr && IsValidItem(node); }
    HTREEITEM ResolveParent(HTREEITEM parent) const;
    void Unlink(SYTreeNode* node);
    void Forget(SYTreeNode* node);
    bool IsInSubtree(HTREEITEM node, HTREEITEM top) const;
    void CollapseBelow(SYTreeNode* node);

    std::unordered_map<const SYTreeNode*, std::unique_ptr<SYTreeNode>> m_nodes;
    SYTreeNode* m_firstRoot = nullptr;
    SYTreeNode* m_lastRoot = nullptr;
    HTREEITEM m_selected = nullptr;
    const SYImageList* m_images = nullptr;
};
