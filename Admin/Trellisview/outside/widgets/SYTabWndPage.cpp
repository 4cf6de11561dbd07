#include "outside/widgets/SYTabWndPage.h"

#include "outside/widgets/SYTabWnd.h"

SY_IMPLEMENT_DYNAMIC(SYTabWndPage, CDialog)

SYTabWndPage::SYTabWndPage(int templateId) : CDialog(templateId) {}

SYTabWnd* SYTabWndPage::GetTabWnd() const {
    return dynamic_cast<SYTabWnd*>(GetParent());
}

void SYTabWndPage::Resize() {}

void SYTabWndPage::BeginPrinting(CDC* /*dc*/, SYPrintEngine* /*engine*/) {}

void SYTabWndPage::OnSize() {
    Resize();
}
