#pragma once

#include "outside/widgets/CDialog.h"

class CDC;
class SYPrintEngine;
class SYTabWnd;

// A page of a tab window, made on a dialog template. Its object can live before its
// window: data belong to the object, controls to the window.
class SYTabWndPage : public CDialog {
    SY_DECLARE_DYNAMIC(SYTabWndPage)

public:
    explicit SYTabWndPage(int templateId = 0);

    SYTabWnd* GetTabWnd() const;

    // Lays the page's controls out after the tab window gave it a new size.
    virtual void Resize();
    // Adds what the page prints to the engine's document.
    virtual void BeginPrinting(CDC* dc, SYPrintEngine* engine);

protected:
    void OnSize() override;
};
