#include "outside/widgets/SYTabWnd.h"

#include <algorithm>

#include "outside/services/SYStringTable.h"
#include "outside/widgets/SYFontMetrics.h"

SY_IMPLEMENT_DYNCREATE(SYTabWnd, SYWnd)

SYTabWnd::SYTabWnd() = default;

SYTabWnd::~SYTabWnd() {
    // The pages' windows are children of this one; they go before the page objects.
    DestroyWindow();
}

int SYTabWnd::Initialize(unsigned id, SYWnd* parent) {
    if (parent == nullptr || !parent->IsWindow() || IsWindow())
        return 0;
    if (parent->GetDlgItem(id) != nullptr)
        return SubclassDlgItem(id, parent);
    return Create(SYControlKind::TabCtrl, id, "", parent->GetClientRect(), parent);
}

void SYTabWnd::OnDestroy() {
    m_active = -1;
}

SYRect SYTabWnd::PageRect() const {
    SYRect rect = GetClientRect();
    rect.top = std::min(rect.bottom, SYFontMetrics::RowHeight + 4);
    return rect;
}

int SYTabWnd::MakePageWindow(SYTabWndPage& page) {
    if (!page.CreateModeless(this, PageRect()))
        return 0;
    page.ShowWindow(0);
    return 1;
}

int SYTabWnd::AddPage(int titleStringId, const SYRuntimeClass* pageClass) {
    if (pageClass == nullptr)
        return 0;
    std::unique_ptr<CObject> made = pageClass->CreateObject();
    auto* page = dynamic_cast<SYTabWndPage*>(made.get());
    if (page == nullptr)
        return 0;
    made.release();
    m_pages.push_back({SYStringTable::Get(titleStringId), std::unique_ptr<SYTabWndPage>(page)});
    if (IsWindow() && MakePageWindow(*page) && m_active == -1)
        SetActivePage(GetPageCount() - 1);
    return 1;
}

SYTabWndPage* SYTabWnd::GetPage(int index) const {
    if (index < 0 || index >= GetPageCount())
        return nullptr;
    return m_pages[index].page.get();
}

const std::string& SYTabWnd::GetPageTitle(int index) const {
    static const std::string none;
    return index < 0 || index >= GetPageCount() ? none : m_pages[index].title;
}

int SYTabWnd::SetActivePage(int index) {
    SYTabWndPage* page = GetPage(index);
    if (page == nullptr || !IsWindow())
        return 0;
    if (!page->IsWindow() && !MakePageWindow(*page))
        return 0;
    if (SYTabWndPage* old = GetActivePage(); old != nullptr && old != page)
        old->ShowWindow(0);
    page->ShowWindow(1);
    m_active = index;
    return 1;
}

int SYTabWnd::BeginPrinting(CDC* dc, SYPrintEngine* engine, int allPages) {
    int printed = 0;
    for (int i = 0; i < GetPageCount(); ++i) {
        SYTabWndPage* page = GetPage(i);
        if (page->IsWindow() && (allPages || i == m_active)) {
            page->BeginPrinting(dc, engine);
            ++printed;
        }
    }
    return printed > 0 ? 1 : 0;
}

void SYTabWnd::Resize() {
    for (const Page& entry : m_pages) {
        if (entry.page->IsWindow())
            entry.page->MoveWindow(PageRect());
    }
}
