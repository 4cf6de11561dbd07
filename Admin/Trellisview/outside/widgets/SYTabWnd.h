#pragma once

#include <memory>
#include <string>
#include <vector>

#include "outside/widgets/SYTabWndPage.h"
#include "outside/widgets/SYWnd.h"

class CDC;
class SYPrintEngine;

// A window with a strip of tabs over one page at a time. Pages are made by run-time class
// and owned here; each page's window is made as soon as the tab window exists, hidden but
// for the active page.
class SYTabWnd : public SYWnd {
    SY_DECLARE_DYNCREATE(SYTabWnd)

public:
    SYTabWnd();
    ~SYTabWnd() override;

    // Takes the place of the parent's control with this id, or makes a new child filling
    // the parent. Gives 0 without a parent window.
    virtual int Initialize(unsigned id, SYWnd* parent);

    // Makes a page of the class, titled by the string; the first page becomes active.
    // Gives 0 if the class cannot be made or is no page.
    int AddPage(int titleStringId, const SYRuntimeClass* pageClass);
    int GetPageCount() const { return static_cast<int>(m_pages.size()); }
    SYTabWndPage* GetPage(int index) const;
    const std::string& GetPageTitle(int index) const;
    SYTabWndPage* GetActivePage() const { return GetPage(m_active); }
    int GetActiveIndex() const { return m_active; }
    int SetActivePage(int index);
    // What a user's click on a tab does.
    int ClickTab(int index) { return IsWindowEnabled() ? SetActivePage(index) : 0; }

    // Gives the pages to print to the engine: the active page, or with allPages every page
    // whose window exists, in tab order. Gives 0 if there was nothing to print.
    virtual int BeginPrinting(CDC* dc, SYPrintEngine* engine, int allPages);
    // Fits the pages to the window below the tabs.
    virtual void Resize();

protected:
    void OnSize() override { Resize(); }
    void OnDestroy() override;

private:
    SYRect PageRect() const;
    int MakePageWindow(SYTabWndPage& page);

    struct Page {
        std::string title;
        std::unique_ptr<SYTabWndPage> page;
    };
    std::vector<Page> m_pages;
    int m_active = -1;
};
