#include "outside/widgets/CPropertySheet.h"

#include <algorithm>

#include "outside/widgets/SYButton.h"
#include "outside/widgets/SYFontMetrics.h"

SY_IMPLEMENT_DYNAMIC(CPropertySheet, CDialog)

namespace {

constexpr int margin = 8;
constexpr int buttonWidth = 80;
constexpr int buttonHeight = 24;
constexpr int tabHeight = SYFontMetrics::RowHeight + 4;

SYRect pageSize(int templateId) {
    const SYDialogTemplate* found = SYDialogTemplates::Find(templateId);
    if (found == nullptr)
        return {};
    return {0, 0, found->cx * SYFontMetrics::DialogUnitX, found->cy * SYFontMetrics::DialogUnitY};
}

} // namespace

CPropertySheet::CPropertySheet(const std::string& title, SYWnd* owner) : CDialog(0, owner) {
    if (!title.empty())
        SetTitle(title);
}

void CPropertySheet::AddPage(CPropertyPage* page) {
    if (page == nullptr || std::find(m_pages.begin(), m_pages.end(), page) != m_pages.end())
        return;
    page->SetSheet(this);
    m_pages.push_back(page);
}

CPropertyPage* CPropertySheet::GetPage(int index) const {
    if (index < 0 || index >= GetPageCount())
        return nullptr;
    return m_pages[index];
}

SYRect CPropertySheet::PageRect() const {
    int width = 0;
    int height = 0;
    for (const CPropertyPage* page : m_pages) {
        const SYRect size = pageSize(page->TemplateId());
        width = std::max(width, size.Width());
        height = std::max(height, size.Height());
    }
    return {margin, margin + tabHeight, margin + width, margin + tabHeight + height};
}

int CPropertySheet::CreateDialogControls() {
    const SYRect pages = PageRect();
    const int buttonTop = pages.bottom + margin;
    const int right = pages.right;
    MoveWindow({0, 0, right + margin, buttonTop + buttonHeight + margin});
    const SYRect okRect{right - 2 * buttonWidth - margin, buttonTop, right - buttonWidth - margin,
                        buttonTop + buttonHeight};
    const SYRect cancelRect{right - buttonWidth, buttonTop, right, buttonTop + buttonHeight};
    return CreateOwnedChild(std::make_unique<SYWnd>(), SYControlKind::TabCtrl, TabStripId, "",
                            {margin, margin, right, margin + tabHeight}) != nullptr &&
           CreateOwnedChild(std::make_unique<SYButton>(), SYControlKind::DefaultButton, IDOK, "OK",
                            okRect) != nullptr &&
           CreateOwnedChild(std::make_unique<SYButton>(), SYControlKind::Button, IDCANCEL, "Cancel",
                            cancelRect) != nullptr;
}

void CPropertySheet::OnDestroy() {
    m_active = -1;
}

int CPropertySheet::OnInitDialog() {
    CDialog::OnInitDialog();
    for (CPropertyPage* page : m_pages)
        page->m_firstActivation = true;
    SetActivePage(0);
    return 1;
}

int CPropertySheet::SetActivePage(int index) {
    CPropertyPage* page = GetPage(index);
    if (page == nullptr || !IsWindow())
        return 0;
    if (index == m_active)
        return 1;
    CPropertyPage* old = GetActivePage();
    if (old != nullptr && !old->OnKillActive())
        return 0;
    if (!page->IsWindow() && !page->CreateModeless(this, PageRect()))
        return 0;
    if (old != nullptr)
        old->ShowWindow(0);
    page->ShowWindow(1);
    m_active = index;
    page->OnSetActive();
    return 1;
}

void CPropertySheet::CancelToClose() {
    if (SYWnd* cancel = GetDlgItem(IDCANCEL))
        cancel->SetWindowText("Close");
}

int CPropertySheet::OnCommand(unsigned wParam, long lParam) {
    if (SYWnd::OnCommand(wParam, lParam))
        return 1;
    if (SYCommandCode(wParam) != BN_CLICKED)
        return 0;
    if (SYCommandId(wParam) == IDOK) {
        CPropertyPage* active = GetActivePage();
        if (active == nullptr || active->UpdateData(1))
            EndDialog(IDOK);
        return 1;
    }
    if (SYCommandId(wParam) == IDCANCEL) {
        OnCancel();
        return 1;
    }
    return 0;
}
