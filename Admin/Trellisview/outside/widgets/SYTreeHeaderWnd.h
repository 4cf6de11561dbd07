#pragma once

#include <string>

#include "outside/widgets/SYTreeCtrlEx.h"
#include "outside/widgets/SYWnd.h"

// A window with a title bar over a tree control that fills the rest. The tree's
// notifications reach this window's parent, under this window's id.
class SYTreeHeaderWnd : public SYWnd {
    SY_DECLARE_DYNCREATE(SYTreeHeaderWnd)

public:
    SYTreeHeaderWnd();
    ~SYTreeHeaderWnd() override;

    // Takes the place of the parent's control with this id, or makes a new child filling
    // the parent, and makes the tree inside it. Gives 0 without a parent window.
    virtual int Initialize(unsigned id, SYWnd* parent);

    SYTreeCtrlEx& GetTreeCtrl() { return m_tree; }
    const SYTreeCtrlEx& GetTreeCtrl() const { return m_tree; }

    void SetHeaderText(const std::string& text) { SetWindowText(text); }
    const std::string& GetHeaderText() const { return GetWindowText(); }

    int OnNotify(unsigned id, int code, SYWnd* from) override;

    // The id the tree control has inside this window.
    static constexpr unsigned TreeId = 100;

protected:
    void OnSize() override;

private:
    SYRect TreeRect() const;

    SYTreeCtrlEx m_tree;
};
