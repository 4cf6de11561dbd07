#include "outside/widgets/SYTreeCtrlEx.h"

#include <vector>

struct SYTreeNode {
    std::string text;
    int image = 0;
    int selectedImage = 0;
    std::uint32_t data = 0;
    unsigned state = 0;
    SYTreeNode* parent = nullptr;
    SYTreeNode* firstChild = nullptr;
    SYTreeNode* lastChild = nullptr;
    SYTreeNode* prev = nullptr;
    SYTreeNode* next = nullptr;
};

namespace {

SYTreeNode rootMark;
SYTreeNode firstMark;
SYTreeNode lastMark;

} // namespace

const HTREEITEM TVI_ROOT = &rootMark;
const HTREEITEM TVI_FIRST = &firstMark;
const HTREEITEM TVI_LAST = &lastMark;

SY_IMPLEMENT_DYNAMIC(SYTreeCtrlEx, SYWnd)

SYTreeCtrlEx::SYTreeCtrlEx() = default;

SYTreeCtrlEx::~SYTreeCtrlEx() = default;

int SYTreeCtrlEx::Initialize(unsigned id, SYWnd* parent) {
    if (parent == nullptr || !parent->IsWindow() || IsWindow())
        return 0;
    if (parent->GetDlgItem(id) != nullptr)
        return SubclassDlgItem(id, parent);
    return Create(SYControlKind::TreeCtrl, id, "", parent->GetClientRect(), parent);
}

void SYTreeCtrlEx::OnDestroy() {
    // The nodes belong to the window.
    m_nodes.clear();
    m_firstRoot = m_lastRoot = nullptr;
    m_selected = nullptr;
}

const SYImageList* SYTreeCtrlEx::SetImageList(const SYImageList* list, int type) {
    if (type != 0)
        return nullptr;
    const SYImageList* old = m_images;
    m_images = list;
    NoteChange();
    return old;
}

bool SYTreeCtrlEx::IsValidItem(HTREEITEM node) const {
    return m_nodes.find(node) != m_nodes.end();
}

HTREEITEM SYTreeCtrlEx::ResolveParent(HTREEITEM parent) const {
    return parent == TVI_ROOT ? nullptr : parent;
}

HTREEITEM SYTreeCtrlEx::InsertItem(const std::string& text, int image, int selectedImage,
                                   HTREEITEM parent, HTREEITEM insertAfter) {
    parent = ResolveParent(parent);
    if (!IsWindow() || (parent != nullptr && !Live(parent)))
        return nullptr;
    SYTreeNode*& first = parent != nullptr ? parent->firstChild : m_firstRoot;
    SYTreeNode*& last = parent != nullptr ? parent->lastChild : m_lastRoot;
    SYTreeNode* after = nullptr;
    if (insertAfter == nullptr || insertAfter == TVI_LAST)
        after = last;
    else if (insertAfter != TVI_FIRST) {
        if (!Live(insertAfter) || insertAfter->parent != parent)
            return nullptr;
        after = insertAfter;
    }
    auto owned = std::make_unique<SYTreeNode>();
    SYTreeNode* node = owned.get();
    node->text = text;
    node->image = image;
    node->selectedImage = selectedImage;
    node->parent = parent;
    node->prev = after;
    node->next = after != nullptr ? after->next : first;
    (node->prev != nullptr ? node->prev->next : first) = node;
    (node->next != nullptr ? node->next->prev : last) = node;
    m_nodes.emplace(node, std::move(owned));
    NoteChange();
    return node;
}

HTREEITEM SYTreeCtrlEx::InsertItem(const std::string& text, HTREEITEM parent,
                                   HTREEITEM insertAfter) {
    return InsertItem(text, 0, 0, parent, insertAfter);
}

HTREEITEM SYTreeCtrlEx::GetNextItem(HTREEITEM node, unsigned code) const {
    if (code == TVGN_ROOT || (code == TVGN_CHILD && (node == nullptr || node == TVI_ROOT)))
        return m_firstRoot;
    if (code == TVGN_CARET)
        return m_selected;
    if (!Live(node))
        return nullptr;
    switch (code) {
    case TVGN_NEXT:
        return node->next;
    case TVGN_PREVIOUS:
        return node->prev;
    case TVGN_PARENT:
        return node->parent;
    case TVGN_CHILD:
        return node->firstChild;
    default:
        return nullptr;
    }
}

HTREEITEM SYTreeCtrlEx::WalkNext(HTREEITEM node) const {
    if (node == nullptr)
        return m_firstRoot;
    if (!Live(node))
        return nullptr;
    if (node->firstChild != nullptr)
        return node->firstChild;
    for (; node != nullptr; node = node->parent) {
        if (node->next != nullptr)
            return node->next;
    }
    return nullptr;
}

HTREEITEM SYTreeCtrlEx::FindItem(HTREEITEM start, const std::string& text, int image) const {
    start = ResolveParent(start);
    if (start != nullptr && !Live(start))
        return nullptr;
    for (SYTreeNode* child = start != nullptr ? start->firstChild : m_firstRoot; child != nullptr;
         child = child->next) {
        if (child->text == text && (image == -1 || child->image == image))
            return child;
    }
    return nullptr;
}

bool SYTreeCtrlEx::ItemHasChildren(HTREEITEM node) const {
    return Live(node) && node->firstChild != nullptr;
}

std::string SYTreeCtrlEx::GetItemText(HTREEITEM node) const {
    return Live(node) ? node->text : std::string();
}

int SYTreeCtrlEx::SetItemText(HTREEITEM node, const std::string& text) {
    if (!Live(node))
        return 0;
    node->text = text;
    NoteChange();
    return 1;
}

int SYTreeCtrlEx::GetItemImage(HTREEITEM node) const {
    return Live(node) ? node->image : -1;
}

int SYTreeCtrlEx::GetItemImage(HTREEITEM node, int& image, int& selectedImage) const {
    if (!Live(node))
        return 0;
    image = node->image;
    selectedImage = node->selectedImage;
    return 1;
}

int SYTreeCtrlEx::SetItemImage(HTREEITEM node, int image, int selectedImage) {
    if (!Live(node))
        return 0;
    node->image = image;
    node->selectedImage = selectedImage;
    NoteChange();
    return 1;
}

std::uint32_t SYTreeCtrlEx::GetItemData(HTREEITEM node) const {
    return Live(node) ? node->data : 0;
}

int SYTreeCtrlEx::SetItemData(HTREEITEM node, std::uint32_t data) {
    if (!Live(node))
        return 0;
    node->data = data;
    return 1;
}

unsigned SYTreeCtrlEx::GetItemState(HTREEITEM node, unsigned mask) const {
    return Live(node) ? node->state & mask : 0;
}

int SYTreeCtrlEx::SetItemState(HTREEITEM node, unsigned state, unsigned mask) {
    if (!Live(node))
        return 0;
    // Selection goes through SelectItem, so that there is one selected node; the
    // expanded-once bit can be cleared but only a real expansion sets it.
    mask &= ~TVIS_SELECTED;
    if (state & TVIS_EXPANDEDONCE)
        mask &= ~TVIS_EXPANDEDONCE;
    node->state = (node->state & ~mask) | (state & mask);
    NoteChange();
    return 1;
}

int SYTreeCtrlEx::SelectItem(HTREEITEM node) {
    if (node != nullptr && !Live(node))
        return 0;
    if (node == m_selected)
        return 1;
    if (m_selected != nullptr)
        m_selected->state &= ~TVIS_SELECTED;
    m_selected = node;
    if (node != nullptr)
        node->state |= TVIS_SELECTED;
    NoteChange();
    SendNotifyToParent(TVN_SELCHANGED);
    return 1;
}

int SYTreeCtrlEx::EnsureVisible(HTREEITEM node) {
    if (!Live(node))
        return 0;
    std::vector<SYTreeNode*> ancestors;
    for (SYTreeNode* up = node->parent; up != nullptr; up = up->parent)
        ancestors.push_back(up);
    for (auto it = ancestors.rbegin(); it != ancestors.rend(); ++it) {
        if (!ItemExpanded(*it))
            Expand(*it, TVE_EXPAND);
    }
    return 1;
}

bool SYTreeCtrlEx::ItemExpanded(HTREEITEM node) const {
    return Live(node) && (node->state & TVIS_EXPANDED) != 0;
}

int SYTreeCtrlEx::Expand(HTREEITEM node, unsigned code, int notify, int recursive) {
    if (!Live(node))
        return 0;
    if (code == TVE_TOGGLE)
        code = ItemExpanded(node) ? TVE_COLLAPSE : TVE_EXPAND;
    if (code != TVE_EXPAND && code != TVE_COLLAPSE)
        return 0;
    if (notify)
        SendNotifyToParent(TVN_ITEMEXPANDING);
    // The parent may have rebuilt or deleted the node while it was told.
    if (!Live(node))
        return 0;
    if (code == TVE_EXPAND) {
        if (node->firstChild == nullptr)
            return 0;
        node->state |= TVIS_EXPANDED | TVIS_EXPANDEDONCE;
    } else {
        node->state &= ~TVIS_EXPANDED;
        if (recursive)
            CollapseBelow(node);
    }
    NoteChange();
    if (notify)
        SendNotifyToParent(TVN_ITEMEXPANDED);
    return 1;
}

void SYTreeCtrlEx::CollapseBelow(SYTreeNode* node) {
    for (SYTreeNode* child = node->firstChild; child != nullptr; child = child->next) {
        child->state &= ~TVIS_EXPANDED;
        CollapseBelow(child);
    }
}

bool SYTreeCtrlEx::IsInSubtree(HTREEITEM node, HTREEITEM top) const {
    for (; node != nullptr; node = node->parent) {
        if (node == top)
            return true;
    }
    return false;
}

void SYTreeCtrlEx::Unlink(SYTreeNode* node) {
    (node->prev != nullptr ? node->prev->next
                           : (node->parent != nullptr ? node->parent->firstChild : m_firstRoot)) =
        node->next;
    (node->next != nullptr ? node->next->prev
                           : (node->parent != nullptr ? node->parent->lastChild : m_lastRoot)) =
        node->prev;
    node->prev = node->next = nullptr;
}

void SYTreeCtrlEx::Forget(SYTreeNode* node) {
    // Most nodes that go are leaves, which need no walk.
    if (node->firstChild == nullptr) {
        m_nodes.erase(node);
        return;
    }
    std::vector<SYTreeNode*> pending{node};
    while (!pending.empty()) {
        SYTreeNode* gone = pending.back();
        pending.pop_back();
        for (SYTreeNode* child = gone->firstChild; child != nullptr; child = child->next)
            pending.push_back(child);
        m_nodes.erase(gone);
    }
}

int SYTreeCtrlEx::DeleteItem(HTREEITEM node) {
    if (node == TVI_ROOT)
        return DeleteAllItems();
    if (!Live(node))
        return 0;
    // As the common control does: the selected node's own deletion hands the selection on;
    // an ancestor's deletion takes it away.
    const bool losesSelection = IsInSubtree(m_selected, node);
    SYTreeNode* successor = nullptr;
    if (m_selected == node)
        successor = node->next != nullptr   ? node->next
                    : node->prev != nullptr ? node->prev
                                            : node->parent;
    Unlink(node);
    if (losesSelection) {
        if (successor != nullptr)
            successor->state |= TVIS_SELECTED;
        m_selected = successor;
    }
    Forget(node);
    NoteChange();
    if (losesSelection)
        SendNotifyToParent(TVN_SELCHANGED);
    return 1;
}

int SYTreeCtrlEx::DeleteChildren(HTREEITEM node) {
    if (!Live(node))
        return 0;
    // Deleting the children one by one walks a selection among them up to the node itself.
    if (m_selected != node && IsInSubtree(m_selected, node))
        SelectItem(node);
    while (node->firstChild != nullptr) {
        SYTreeNode* child = node->firstChild;
        Unlink(child);
        Forget(child);
    }
    NoteChange();
    return 1;
}

int SYTreeCtrlEx::DeleteAllItems() {
    if (!IsWindow())
        return 0;
    const bool hadSelection = m_selected != nullptr;
    m_nodes.clear();
    m_firstRoot = m_lastRoot = nullptr;
    m_selected = nullptr;
    NoteChange();
    if (hadSelection)
        SendNotifyToParent(TVN_SELCHANGED);
    return 1;
}

int SYTreeCtrlEx::ClickItem(HTREEITEM node) {
    if (!IsWindow() || !IsWindowEnabled() || !Live(node))
        return 0;
    SetFocus();
    return SelectItem(node);
}

int SYTreeCtrlEx::ToggleItem(HTREEITEM node) {
    if (!IsWindow() || !IsWindowEnabled() || !Live(node))
        return 0;
    return Expand(node, TVE_TOGGLE, 1);
}
