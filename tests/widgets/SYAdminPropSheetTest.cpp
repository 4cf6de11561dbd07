#include <gtest/gtest.h>

#include <string>

#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYAdminPropSheet.h"
#include "outside/widgets/SYEdit.h"
#include "support/SYScriptedModalHost.h"

namespace {

constexpr int kFirstPage = 19930;
constexpr int kSecondPage = 19932;
constexpr unsigned kEdit = 19931;

void registerPages() {
    for (int id : {kFirstPage, kSecondPage})
        SYDialogTemplates::Register({id,
                                     id == kFirstPage ? "First" : "Second",
                                     180,
                                     100,
                                     {{kEdit, SYControlKind::Edit, "", 4, 4, 100, 12}}});
}

class CountingPage : public SYAdminPropPage {
public:
    explicit CountingPage(int templateId) : SYAdminPropPage(templateId) {}

    int loads = 0;
    int saves = 0;
    int valid = 1;
    bool failSave = false;
    bool closeOnInit = false;
    std::string text;

    int OnInitDialog() override {
        SYAdminPropPage::OnInitDialog();
        if (closeOnInit)
            CancelToClose();
        return 1;
    }
    int ValidateData() override { return valid; }

protected:
    void DoDataExchange(CDataExchange* dx) override {
        ++(dx->m_bSaveAndValidate ? saves : loads);
        DDX_Text(dx, kEdit, text);
        if (dx->m_bSaveAndValidate && failSave)
            dx->Fail();
    }
};

class TestSheet : public SYAdminPropSheet {
public:
    TestSheet() : SYAdminPropSheet("Test Sheet") {
        registerPages();
        AddPage(&first);
        AddPage(&second);
    }

    CountingPage first{kFirstPage};
    CountingPage second{kSecondPage};
    int saved = 0;
    int saveResult = 1;
    unsigned okCommand = 0;

    int SaveData() override {
        ++saved;
        return saveResult;
    }
    // Refuses OK in a read-only sheet, as the rule sheets do.
    int OnOK(unsigned wParam, long lParam) override {
        okCommand = wParam;
        if (IsReadOnly())
            return 0;
        return SYAdminPropSheet::OnOK(wParam, lParam);
    }
};

TEST(AdminPropSheet, APageRunsItsLoadExchangeOnEveryActivation) {
    SYScriptedModalHost host;
    TestSheet sheet;
    auto loads = [&](int first, int second) {
        return [&sheet, first, second](CDialog&) {
            EXPECT_EQ(sheet.first.loads, first);
            EXPECT_EQ(sheet.second.loads, second);
        };
    };
    host.ExpectDialog("Test Sheet")
        .Inspect(loads(1, 0))
        .SelectPage(1)
        .Inspect(loads(1, 1))
        .SelectPage(0)
        .Inspect(loads(2, 1))
        .SelectPage(1)
        .Inspect(loads(2, 2))
        .SelectPage(1)
        .Inspect(loads(2, 2))
        .PressCancel();
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(sheet.saved, 0);
    EXPECT_EQ(sheet.first.saves + sheet.second.saves, 0);
}

TEST(AdminPropSheet, OKSavesEveryOpenedPageAndStaysOpenOnRefusal) {
    SYScriptedModalHost host;
    TestSheet sheet;
    sheet.second.valid = 0;
    host.ExpectDialog("Test Sheet")
        .SelectPage(1)
        .Type(kEdit, "on the second page")
        .SelectPage(0)
        .Type(kEdit, "on the first page")
        .PressOK()
        .Inspect([&](CDialog& open) {
            EXPECT_FALSE(open.IsModalEnded());
            EXPECT_EQ(sheet.GetActiveIndex(), 1) << "the refusing page comes to the front";
            EXPECT_EQ(sheet.saved, 0);
            sheet.second.valid = 1;
            sheet.saveResult = 0;
        })
        .PressOK()
        .Inspect([&](CDialog& open) {
            EXPECT_FALSE(open.IsModalEnded()) << "a failed save keeps the sheet open";
            sheet.saveResult = 1;
        })
        .PressOK();
    EXPECT_EQ(sheet.DoModal(), IDOK);
    EXPECT_EQ(sheet.saved, 2);
    EXPECT_EQ(sheet.first.text, "on the first page");
    EXPECT_EQ(sheet.second.text, "on the second page");
    EXPECT_EQ(sheet.okCommand, SYMakeCommand(IDOK, BN_CLICKED));
}

TEST(AdminPropSheet, APageWhoseExchangeFailsComesToTheFront) {
    SYScriptedModalHost host;
    TestSheet sheet;
    sheet.second.failSave = true;
    host.ExpectDialog("Test Sheet")
        .SelectPage(1)
        .SelectPage(0)
        .PressOK()
        .Inspect([&](CDialog& open) {
            EXPECT_FALSE(open.IsModalEnded());
            EXPECT_EQ(sheet.GetActiveIndex(), 1);
            EXPECT_EQ(sheet.saved, 0);
        })
        .PressCancel();
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
}

TEST(AdminPropSheet, ARefusedOKInAReadOnlySheetClosesWithoutSaving) {
    SYScriptedModalHost host;
    TestSheet sheet;
    sheet.SetReadOnly(1);
    host.ExpectDialog("Test Sheet")
        .Inspect([&](CDialog&) { EXPECT_EQ(sheet.first.IsReadOnly(), 1); })
        .PressOK();
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(sheet.saved, 0);
    EXPECT_EQ(sheet.first.saves, 0);
}

TEST(AdminPropSheet, CancelTurnsIntoClose) {
    SYScriptedModalHost host;
    TestSheet sheet;
    sheet.first.closeOnInit = true;
    host.ExpectDialog("Test Sheet")
        .Inspect(
            [](CDialog& open) { EXPECT_EQ(open.GetDlgItem(IDCANCEL)->GetWindowText(), "Close"); })
        .PressCancel();
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
}

TEST(AdminPropSheet, PagesReachTheSheetsDatabase) {
    TestSheet sheet;
    EXPECT_EQ(sheet.first.GetDatabase(), nullptr);
    EXPECT_EQ(sheet.first.GetAdminSheet(), &sheet);
    EXPECT_EQ(sheet.first.IsReadOnly(), 0);
    CountingPage alone(kFirstPage);
    EXPECT_EQ(alone.GetAdminSheet(), nullptr);
    EXPECT_EQ(alone.IsReadOnly(), 0);
}

} // namespace
