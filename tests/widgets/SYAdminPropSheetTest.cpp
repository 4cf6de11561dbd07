#include <gtest/gtest.h>

#include <string>

#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYAdminPropSheet.h"
#include "support/SYScriptedModalHost.h"

namespace {

constexpr int kFirstPage = 19930;
constexpr int kSecondPage = 19932;
constexpr unsigned kEdit = 19931;

class CountingPage : public SYAdminPropPage {
public:
    explicit CountingPage(int templateId) : SYAdminPropPage(templateId) {
        SYDialogTemplates::Register({templateId,
                                     templateId == kFirstPage ? "First" : "Second",
                                     180,
                                     100,
                                     {{kEdit, SYControlKind::Edit, "", 4, 4, 100, 12}}});
    }

    int loads = 0;
    int valid = 1;
    bool failSave = false;
    std::string text;

    int ValidateData() override { return valid; }

protected:
    void DoDataExchange(CDataExchange* dx) override {
        loads += dx->m_bSaveAndValidate ? 0 : 1;
        DDX_Text(dx, kEdit, text);
        if (dx->m_bSaveAndValidate && failSave)
            dx->Fail();
    }
};

class TestSheet : public SYAdminPropSheet {
public:
    TestSheet() : SYAdminPropSheet("Test Sheet") {
        AddPage(&first);
        AddPage(&second);
    }

    CountingPage first{kFirstPage};
    CountingPage second{kSecondPage};
    int saved = 0;
    int saveResult = 1;

    int SaveData() override {
        ++saved;
        return saveResult;
    }
    // Refuses OK in a read-only sheet, as the rule sheets do.
    int OnOK(unsigned wParam, long lParam) override {
        return IsReadOnly() ? 0 : SYAdminPropSheet::OnOK(wParam, lParam);
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
        .SelectPage(0)
        .Inspect(loads(2, 1))
        .SelectPage(1)
        .SelectPage(1)
        .Inspect(loads(2, 2))
        .PressCancel();
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(sheet.saved, 0);
}

// A page that refuses its data, in its exchange or its validation, and a failed save each
// keep the sheet open; the refusing page comes to the front.
TEST(AdminPropSheet, OKSavesEveryOpenedPageAndStaysOpenOnRefusal) {
    for (const bool failExchange : {false, true}) {
        SCOPED_TRACE(failExchange ? "the exchange fails" : "the validation fails");
        SYScriptedModalHost host;
        TestSheet sheet;
        if (failExchange)
            sheet.second.failSave = true;
        else
            sheet.second.valid = 0;
        host.ExpectDialog("Test Sheet")
            .SelectPage(1)
            .Type(kEdit, "on the second page")
            .SelectPage(0)
            .Type(kEdit, "on the first page")
            .PressOK()
            .Inspect([&](CDialog& open) {
                EXPECT_FALSE(open.IsModalEnded());
                EXPECT_EQ(sheet.GetActiveIndex(), 1);
                EXPECT_EQ(sheet.saved, 0);
                sheet.second.valid = 1;
                sheet.second.failSave = false;
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
    }
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
}

TEST(AdminPropSheet, CancelTurnsIntoClose) {
    SYScriptedModalHost host;
    TestSheet sheet;
    host.ExpectDialog("Test Sheet")
        .Inspect([&](CDialog& open) {
            sheet.first.CancelToClose();
            EXPECT_EQ(open.GetDlgItem(IDCANCEL)->GetWindowText(), "Close");
        })
        .PressCancel();
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
}

} // namespace
