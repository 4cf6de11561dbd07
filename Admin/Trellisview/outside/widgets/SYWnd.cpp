#include "outside/widgets/SYWnd.h"

#include <algorithm>
#include <deque>

#include "outside/widgets/SYButton.h"
#include "outside/widgets/SYCheckBox.h"
#include "outside/widgets/SYDateTimeEdit.h"
#include "outside/widgets/SYEdit.h"
#include "outside/widgets/SYFontMetrics.h"
#include "outside/widgets/SYGroupBox.h"
#include "outside/widgets/SYIcon.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYRadioButton.h"
#include "outside/widgets/SYStatic.h"
#include "outside/widgets/SYTextWnd.h"
#include "outside/widgets/SYTreeCtrlEx.h"

SY_IMPLEMENT_DYNAMIC(SYWnd, CObject)

SYWnd* SYWnd::s_focus = nullptr;

namespace {

std::unique_ptr<SYWnd> makeControl(SYControlKind kind) {
    switch (kind) {
    case SYControlKind::Static:
        return std::make_unique<SYStatic>();
    case SYControlKind::Edit:
    case SYControlKind::MultiLineEdit:
        return std::make_unique<SYEdit>();
    case SYControlKind::Button:
    case SYControlKind::DefaultButton:
        return std::make_unique<SYButton>();
    case SYControlKind::CheckBox:
        return std::make_unique<SYCheckBox>();
    case SYControlKind::RadioButton:
        return std::make_unique<SYRadioButton>();
    case SYControlKind::GroupBox:
        return std::make_unique<SYGroupBox>();
    case SYControlKind::DateTimeEdit:
        return std::make_unique<SYDateTimeEdit>();
    case SYControlKind::TextWindow:
        return std::make_unique<SYTextWnd>();
    case SYControlKind::ListCtrl:
        return std::make_unique<SYListCtrlEx>();
    case SYControlKind::TreeCtrl:
        return std::make_unique<SYTreeCtrlEx>();
    case SYControlKind::Icon:
        return std::make_unique<SYIcon>();
    case SYControlKind::TabCtrl:
        break;
    }
    return std::make_unique<SYWnd>();
}

SYRect dialogUnitsToPixels(const SYControlTemplate& control) {
    const int left = control.x * SYFontMetrics::DialogUnitX;
    const int top = control.y * SYFontMetrics::DialogUnitY;
    return {left, top, left + control.cx * SYFontMetrics::DialogUnitX,
            top + control.cy * SYFontMetrics::DialogUnitY};
}

} // namespace

SYWnd::SYWnd() = default;

SYWnd::~SYWnd() {
    if (m_created)
        DestroyWindow();
}

int SYWnd::Create(SYControlKind kind, unsigned id, const std::string& text, const SYRect& rect,
                  SYWnd* parent, unsigned style) {
    if (m_created || (parent != nullptr && !parent->IsWindow()))
        return 0;
    m_kind = kind;
    m_id = id;
    m_text = text;
    m_rect = rect;
    m_style = style;
    m_enabled = (style & SYStyleDisabled) == 0;
    m_visible = (style & SYStyleHidden) == 0;
    m_readOnly = (style & SYStyleReadOnly) != 0;
    m_created = true;
    if (parent != nullptr)
        AttachTo(parent);
    return 1;
}

int SYWnd::SubclassDlgItem(unsigned id, SYWnd* parent) {
    if (m_created || parent == nullptr)
        return 0;
    SYWnd* placeholder = parent->GetDlgItem(id);
    auto& owned = parent->m_ownedChildren;
    const auto slot = std::find_if(owned.begin(), owned.end(),
                                   [placeholder](const auto& p) { return p.get() == placeholder; });
    // Only a control the parent made itself can be taken over, not another object's window.
    if (placeholder == nullptr || slot == owned.end())
        return 0;
    m_kind = placeholder->m_kind;
    m_id = id;
    m_text = placeholder->m_text;
    m_rect = placeholder->m_rect;
    m_style = placeholder->m_style;
    m_enabled = placeholder->m_enabled;
    m_visible = placeholder->m_visible;
    m_readOnly = placeholder->m_readOnly;
    m_created = true;
    m_parent = parent;
    // Takes the placeholder's place in the child order, which radio groups depend on.
    std::replace(parent->m_children.begin(), parent->m_children.end(), placeholder, this);
    placeholder->m_parent = nullptr;
    placeholder->m_created = false;
    if (s_focus == placeholder)
        s_focus = this;
    owned.erase(slot);
    return 1;
}

int SYWnd::CreateControls(const SYDialogTemplate* dialogTemplate) {
    if (dialogTemplate == nullptr || !m_created)
        return 0;
    for (const SYControlTemplate& control : dialogTemplate->controls)
        CreateOwnedChild(makeControl(control.kind), control.kind, static_cast<unsigned>(control.id),
                         control.text, dialogUnitsToPixels(control), control.style);
    return 1;
}

SYWnd* SYWnd::CreateOwnedChild(std::unique_ptr<SYWnd> child, SYControlKind kind, unsigned id,
                               const std::string& text, const SYRect& rect, unsigned style) {
    if (child == nullptr || !child->Create(kind, id, text, rect, this, style))
        return nullptr;
    m_ownedChildren.push_back(std::move(child));
    return m_ownedChildren.back().get();
}

void SYWnd::DestroyWindow() {
    if (!m_created)
        return;
    OnDestroy();
    DestroyChildren();
    Detach();
    m_created = false;
    if (s_focus == this)
        s_focus = nullptr;
}

void SYWnd::DestroyChildren() {
    const std::vector<SYWnd*> children = m_children;
    for (SYWnd* child : children)
        child->DestroyWindow();
    m_children.clear();
    m_ownedChildren.clear();
}

void SYWnd::AttachTo(SYWnd* parent) {
    m_parent = parent;
    parent->m_children.push_back(this);
}

void SYWnd::Detach() {
    if (m_parent == nullptr)
        return;
    auto& siblings = m_parent->m_children;
    siblings.erase(std::remove(siblings.begin(), siblings.end(), this), siblings.end());
    m_parent = nullptr;
}

SYWnd* SYWnd::GetDlgItem(unsigned id) const {
    for (SYWnd* child : m_children) {
        if (child->m_id == id)
            return child;
    }
    return nullptr;
}

SYWnd* SYWnd::FindControl(unsigned id) const {
    std::deque<const SYWnd*> pending{this};
    while (!pending.empty()) {
        const SYWnd* wnd = pending.front();
        pending.pop_front();
        if (SYWnd* child = wnd->GetDlgItem(id))
            return child;
        for (const SYWnd* child : wnd->m_children) {
            if (!child->IsDialogWindow() || child->m_visible)
                pending.push_back(child);
        }
    }
    return nullptr;
}

void SYWnd::SetWindowText(const std::string& text) {
    if (m_text == text)
        return;
    m_text = text;
    NoteChange();
}

void SYWnd::EnableWindow(int enable) {
    if (m_enabled == (enable != 0))
        return;
    m_enabled = enable != 0;
    NoteChange();
}

void SYWnd::ShowWindow(int show) {
    if (m_visible == (show != 0))
        return;
    m_visible = show != 0;
    NoteChange();
}

void SYWnd::SetReadOnly(int readOnly) {
    m_readOnly = readOnly != 0;
    NoteChange();
}

void SYWnd::SetFocus() {
    if (m_created)
        s_focus = this;
}

void SYWnd::MoveWindow(const SYRect& rect) {
    m_rect = rect;
    NoteChange();
    OnSize();
}

void SYWnd::Invalidate(int /*erase*/) {
    ++m_invalidations;
}

void SYWnd::NoteChange() {
    ++m_changes;
    if (m_redraw)
        ++m_paintedChanges;
}

int SYWnd::OnCommand(unsigned wParam, long /*lParam*/) {
    auto it = m_commandHandlers.find({SYCommandId(wParam), SYCommandCode(wParam)});
    if (it == m_commandHandlers.end())
        return 0;
    it->second();
    return 1;
}

int SYWnd::OnNotify(unsigned id, int code, SYWnd* /*from*/) {
    auto it = m_notifyHandlers.find({id, code});
    if (it == m_notifyHandlers.end())
        return 0;
    it->second();
    return 1;
}

void SYWnd::MapCommand(unsigned id, int code, std::function<void()> handler) {
    m_commandHandlers[{id, code}] = std::move(handler);
}

void SYWnd::MapNotify(unsigned id, int code, std::function<void()> handler) {
    m_notifyHandlers[{id, code}] = std::move(handler);
}

void SYWnd::SendCommandToParent(int code) {
    if (m_parent != nullptr)
        m_parent->OnCommand(SYMakeCommand(m_id, code), 0);
}

void SYWnd::SendNotifyToParent(int code) {
    if (m_parent != nullptr)
        m_parent->OnNotify(m_id, code, this);
}
