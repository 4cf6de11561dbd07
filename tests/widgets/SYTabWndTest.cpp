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

TEST(TabWnd, PagesAreMadeByRunTimeClassAndLiveBeforeTheirWindows) {
    SYStringTable::Register(19942, "General");
    SYTabWnd tabs;
    ASSERT_TRUE(tabs.AddPage(19942, SY_RUNTIME_CLASS(SYTestTabPage)));
    auto* page = dynamic_cast<SYTestTabPage*>(tabs.GetPage(0));
    ASSERT_NE(page, nullptr);
    EXPECT_FALSE(page->IsWindow());
    EXPECT_EQ(tabs.GetActivePage(), nullptr);
    page->rows = {"held", "before"};

    MainWindow main;
    ASSERT_TRUE(tabs.Initialize(500, &main));
    ASSERT_TRUE(tabs.SetActivePage(0));
    ASSERT_TRUE(page->IsWindow());
    EXPECT_EQ(page->list.GetItemCount(), 2);
    EXPECT_EQ(tabs.GetPageTitle(0), "General");
}

TEST(TabWnd, AnActivePageAmongWindowsMadeAtOnce) {
    MainWindow main;
    SYTabWnd tabs;
    ASSERT_TRUE(tabs.Initialize(500, &main));
    ASSERT_TRUE(tabs.AddPage(19942, SY_RUNTIME_CLASS(SYTestTabPage)));
    ASSERT_TRUE(tabs.AddPage(19943, SY_RUNTIME_CLASS(SYTestTabPage)));
    EXPECT_FALSE(tabs.AddPage(19943, SY_RUNTIME_CLASS(SYTabWnd))) << "not a page";
    EXPECT_FALSE(tabs.AddPage(19943, nullptr));
    ASSERT_EQ(tabs.GetPageCount(), 2);
    EXPECT_TRUE(tabs.GetPage(1)->IsWindow());
    EXPECT_EQ(tabs.GetActiveIndex(), 0);
    EXPECT_FALSE(tabs.GetPage(1)->IsWindowVisible());

    ASSERT_TRUE(tabs.ClickTab(1));
    EXPECT_FALSE(tabs.GetPage(0)->IsWindowVisible());
    EXPECT_TRUE(tabs.GetPage(1)->IsWindowVisible());
    EXPECT_FALSE(tabs.SetActivePage(2));
    EXPECT_EQ(tabs.GetActivePage(), tabs.GetPage(1));

    // Controls of the visible page are found; the hidden page's same id is skipped.
    EXPECT_EQ(main.FindControl(kPageList), &static_cast<SYTestTabPage*>(tabs.GetPage(1))->list);

    printed = 0;
    EXPECT_TRUE(tabs.BeginPrinting(nullptr, nullptr, 0));
    EXPECT_EQ(printed, 1);
    tabs.BeginPrinting(nullptr, nullptr, 1);
    EXPECT_EQ(printed, 3);

    tabs.MoveWindow({0, 0, 300, 200});
    auto* second = static_cast<SYTestTabPage*>(tabs.GetPage(1));
    EXPECT_GE(second->resized, 1);
    EXPECT_EQ(second->GetWindowRect().right, 300);
    EXPECT_EQ(second->GetWindowRect().bottom, 200);
}

} // namespace
