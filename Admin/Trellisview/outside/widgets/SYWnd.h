#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "outside/framework/CObject.h"
#include "outside/widgets/SYDialogTemplate.h"
#include "outside/widgets/SYRect.h"
#include "outside/widgets/SYWidgetIds.h"

// Base of every window and control. A window object can live without its window: it
// "exists" (IsWindow) only between Create and DestroyWindow. Children are listed, not
// owned, except those made from a dialog template, which the parent owns.
class SYWnd : public CObject {
    SY_DECLARE_DYNAMIC(SYWnd)

public:
    SYWnd();
    SYWnd(const SYWnd&) = delete;
    SYWnd& operator=(const SYWnd&) = delete;
    ~SYWnd() override;

    // Makes the window a child of parent (or a top-level window for null). Gives 0 if it
    // already exists or the parent has no window.
    int Create(SYControlKind kind, unsigned id, const std::string& text, const SYRect& rect,
               SYWnd* parent, unsigned style = SYStyleNone);
    // Takes the place of the parent's control with this id, as made from its template,
    // keeping that control's text, rectangle, style and states. Gives 0 if there is none.
    int SubclassDlgItem(unsigned id, SYWnd* parent);
    // Creates the controls of a template as owned children; gives 0 for a null template.
    int CreateControls(const SYDialogTemplate* dialogTemplate);
    // Makes a control that this window owns until its window is destroyed; gives it, or
    // null if it could not be made.
    SYWnd* CreateOwnedChild(std::unique_ptr<SYWnd> child, SYControlKind kind, unsigned id,
                            const std::string& text, const SYRect& rect,
                            unsigned style = SYStyleNone);
    void DestroyWindow();
    bool IsWindow() const { return m_created; }

    unsigned GetDlgCtrlID() const { return m_id; }
    SYControlKind Kind() const { return m_kind; }
    unsigned Style() const { return m_style; }
    SYWnd* GetParent() const { return m_parent; }
    const std::vector<SYWnd*>& Children() const { return m_children; }
    // Dialogs and pages answer true; FindControl skips the hidden ones.
    virtual bool IsDialogWindow() const { return false; }
    // A direct child with this id, or null.
    SYWnd* GetDlgItem(unsigned id) const;
    // Any descendant with this id, looking first at direct children; windows of hidden
    // dialogs (inactive pages) are skipped so that pages may reuse ids.
    SYWnd* FindControl(unsigned id) const;

    virtual void SetWindowText(const std::string& text);
    const std::string& GetWindowText() const { return m_text; }

    void EnableWindow(int enable);
    bool IsWindowEnabled() const { return m_enabled; }
    void ShowWindow(int show);
    bool IsWindowVisible() const { return m_visible; }
    void SetReadOnly(int readOnly);
    bool IsReadOnly() const { return m_readOnly; }

    void SetFocus();
    bool HasFocus() const { return s_focus == this; }
    static SYWnd* GetFocus() { return s_focus; }

    // Moves or sizes the window; OnSize follows.
    void MoveWindow(const SYRect& rect);
    const SYRect& GetWindowRect() const { return m_rect; }
    // Interior in the window's own coordinates.
    SYRect GetClientRect() const { return {0, 0, m_rect.Width(), m_rect.Height()}; }

    // While redraw is off, changes do not paint; turning it on again does not repaint
    // either, so callers invalidate afterwards.
    void SetRedraw(int redraw) { m_redraw = redraw != 0; }
    bool IsRedrawOn() const { return m_redraw; }
    void Invalidate(int erase = 1);
    int InvalidateCount() const { return m_invalidations; }
    // Content changes, and how many of them painted at once because redraw was on.
    int ChangeCount() const { return m_changes; }
    int PaintedChangeCount() const { return m_paintedChanges; }

    // Commands (button clicks, edit changes) and notifications (list and tree events) go
    // to the parent. Handlers stand in for a message table; a handled message gives 1.
    virtual int OnCommand(unsigned wParam, long lParam);
    virtual int OnNotify(unsigned id, int code, SYWnd* from);
    void MapCommand(unsigned id, int code, std::function<void()> handler);
    void MapNotify(unsigned id, int code, std::function<void()> handler);

protected:
    // Called after a change a user would see.
    void NoteChange();
    void SendCommandToParent(int code);
    void SendNotifyToParent(int code);
    // Called when the window goes away, before its children are destroyed.
    virtual void OnDestroy() {}
    virtual void OnSize() {}

private:
    void AttachTo(SYWnd* parent);
    void Detach();
    void DestroyChildren();

    static SYWnd* s_focus;

    unsigned m_id = 0;
    SYControlKind m_kind = SYControlKind::Static;
    unsigned m_style = SYStyleNone;
    bool m_created = false;
    SYWnd* m_parent = nullptr;
    std::vector<SYWnd*> m_children;
    std::vector<std::unique_ptr<SYWnd>> m_ownedChildren;
    std::string m_text;
    bool m_enabled = true;
    bool m_visible = true;
    bool m_readOnly = false;
    bool m_redraw = true;
    SYRect m_rect;
    int m_invalidations = 0;
    int m_changes = 0;
    int m_paintedChanges = 0;
    std::map<std::pair<unsigned, int>, std::function<void()>> m_commandHandlers;
    std::map<std::pair<unsigned, int>, std::function<void()>> m_notifyHandlers;
};
