#pragma once

#include <string>
#include <vector>

#include "outside/widgets/CDialog.h"
#include "outside/widgets/CPropertyPage.h"

// A modal dialog of tabbed pages with OK and Cancel. The pages are the caller's objects
// (usually members of a derived sheet); the sheet makes their windows as they come to the
// front. OK runs the active page's exchange from the controls and closes with IDOK.
class CPropertySheet : public CDialog {
    SY_DECLARE_DYNAMIC(CPropertySheet)

public:
    explicit CPropertySheet(const std::string& title = "", SYWnd* owner = nullptr);

    void AddPage(CPropertyPage* page);
    int GetPageCount() const { return static_cast<int>(m_pages.size()); }
    CPropertyPage* GetPage(int index) const;
    CPropertyPage* GetActivePage() const { return GetPage(m_active); }
    int GetActiveIndex() const { return m_active; }
    // Brings a page to the front; gives 0 if the page is unknown or a page refused.
    int SetActivePage(int index);
    // What a user's click on a tab does.
    int ClickTab(int index) { return SetActivePage(index); }

    void CancelToClose();
    int OnInitDialog() override;
    int OnCommand(unsigned wParam, long lParam) override;

    // The id of the strip of tabs among the sheet's controls.
    static constexpr unsigned TabStripId = 0x3020;

protected:
    int CreateDialogControls() override;
    void OnDestroy() override;
    SYRect PageRect() const;

private:
    std::vector<CPropertyPage*> m_pages;
    int m_active = -1;
};
