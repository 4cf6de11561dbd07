#include <gtest/gtest.h>

#include "outside/services/SYStringTable.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYTabWnd.h"

namespace {

constexpr int kPageTemplate = 19940;
constexpr unsigned kPageList = 19941;

int printed = 0;

} // namespace

// A page that builds its list from data its object held before the window existed.
class SYTestTabPage : public SYTabWndPage {
    SY_DECLARE_DYNCREATE(SYTestTabPage)

public:
    SYTestTabPage() : SYTabWndPage(kPageTemplate) {
        SYDialogTemplates::Register({kPageTemplate,
                                     "",
                                     200,
                                     120,
                                     {{kPageList, SYControlKind::ListCtrl, "", 4, 4, 100, 50}}});
    }

    std::vector<std::string> rows;
    SYListCtrlEx list;
    int resized = 0;

    int OnInitDialog() override {
        SYTabWndPage::OnInitDialog();
        if (!list.Initialize(kPageList, this))
            return 1;
        list.AddHeader("Name");
        for (const std::string& row : rows)
            list.InsertBitmapString(-1, -1, row);
        return 1;
    }
    void Resize() override { ++resized; }
    void BeginPrinting(CDC*, SYPrintEngine*) override { ++printed; }
};

SY_IMPLEMENT_DYNCREATE(SYTestTabPage, SYTabWndPage)

namespace {

struct MainWindow : SYWnd {
    MainWindow() { Create(SYControlKind::Static, 1, "main", {0, 0, 640, 480}, nullptr); }
};

// Pages are made by run-time class before the tab window exists, and keep the data they
// were given until their windows are made on activation.
TEST(TabWnd, PagesLiveBeforeTheirWindowsAndOnlyTheActiveOneShows) {
    SYStringTable::Register(19942, "General");
    SYTabWnd tabs;
    ASSERT_TRUE(tabs.AddPage(19942, SY_RUNTIME_CLASS(SYTestTabPage)));
    EXPECT_FALSE(tabs.AddPage(19943, SY_RUNTIME_CLASS(SYTabWnd))) << "not a page";
    auto* first = dynamic_cast<SYTestTabPage*>(tabs.GetPage(0));
    ASSERT_NE(first, nullptr);
    EXPECT_FALSE(first->IsWindow());
    first->rows = {"held", "before"};

    MainWindow main;
    ASSERT_TRUE(tabs.Initialize(500, &main));
    ASSERT_TRUE(tabs.SetActivePage(0));
    EXPECT_EQ(first->list.GetItemCount(), 2);
    EXPECT_EQ(tabs.GetPageTitle(0), "General");
    // A page added to a tab window that exists gets its window at once, hidden.
    ASSERT_TRUE(tabs.AddPage(19943, SY_RUNTIME_CLASS(SYTestTabPage)));
    auto* second = static_cast<SYTestTabPage*>(tabs.GetPage(1));
    EXPECT_TRUE(second->IsWindow());
    EXPECT_FALSE(second->IsWindowVisible());

    ASSERT_TRUE(tabs.ClickTab(1));
    EXPECT_FALSE(first->IsWindowVisible());
    EXPECT_TRUE(second->IsWindowVisible());
    EXPECT_FALSE(tabs.SetActivePage(2));
    EXPECT_EQ(tabs.GetActivePage(), second);
    // The hidden page's control with the same id is skipped.
    EXPECT_EQ(main.FindControl(kPageList), &second->list);

    printed = 0;
    EXPECT_TRUE(tabs.BeginPrinting(nullptr, nullptr, 0));
    EXPECT_EQ(printed, 1) << "the active page only";
    tabs.BeginPrinting(nullptr, nullptr, 1);
    EXPECT_EQ(printed, 3) << "every page";
    tabs.MoveWindow({0, 0, 300, 200});
    EXPECT_GE(second->resized, 1);
    EXPECT_EQ(second->GetWindowRect().right, 300);
}

} // namespace
