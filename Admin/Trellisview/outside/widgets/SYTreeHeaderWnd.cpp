#include "outside/widgets/SYTreeHeaderWnd.h"

#include <algorithm>

#include "outside/widgets/SYFontMetrics.h"

SY_IMPLEMENT_DYNCREATE(SYTreeHeaderWnd, SYWnd)

SYTreeHeaderWnd::SYTreeHeaderWnd() = default;

SYTreeHeaderWnd::~SYTreeHeaderWnd() {
    // The tree is a member: its window goes before the object does.
    DestroyWindow();
}

int SYTreeHeaderWnd::Initialize(unsigned id, SYWnd* parent) {
    if (parent == nullptr || !parent->IsWindow() || IsWindow())
        return 0;
    const int made = parent->GetDlgItem(id) != nullptr
                         ? SubclassDlgItem(id, parent)
                         : Create(SYControlKind::TreeCtrl, id, "", parent->GetClientRect(), parent);
    if (!made)
        return 0;
    return m_tree.Create(SYControlKind::TreeCtrl, TreeId, "", TreeRect(), this);
}

SYRect SYTreeHeaderWnd::TreeRect() const {
    SYRect rect = GetClientRect();
    rect.top = std::min(rect.bottom, SYFontMetrics::HeaderHeight);
    return rect;
}

void SYTreeHeaderWnd::OnSize() {
    if (m_tree.IsWindow())
        m_tree.MoveWindow(TreeRect());
}

int SYTreeHeaderWnd::OnNotify(unsigned id, int code, SYWnd* from) {
    if (SYWnd::OnNotify(id, code, from))
        return 1;
    if (from != &m_tree || GetParent() == nullptr)
        return 0;
    return GetParent()->OnNotify(GetDlgCtrlID(), code, from);
}
