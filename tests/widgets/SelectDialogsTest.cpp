#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYAppSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/widgets/SYAppCompanySelectDlg.h"
#include "outside/widgets/SYAppSelectDlg.h"
#include "outside/widgets/SYEdit.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "resources/SYResourceIds.h"
#include "support/SYScriptedModalHost.h"

namespace {

using Script = SYScriptedModalHost::DialogScript;

SYListCtrlEx& listOf(CDialog& dialog, unsigned id) {
    return *dynamic_cast<SYListCtrlEx*>(dialog.FindControl(id));
}

std::vector<std::string> rowsOf(CDialog& dialog, unsigned id) {
    SYListCtrlEx& list = listOf(dialog, id);
    std::vector<std::string> rows;
    for (int row = 0; row < list.GetItemCount(); ++row) {
        std::string text;
        for (int column = 0; column < list.GetColumnCount(); ++column)
            text += (column == 0 ? "" : "|") + list.GetItemText(row, column);
        rows.push_back(text);
    }
    return rows;
}

std::string selectedText(CDialog& dialog, unsigned id) {
    SYListCtrlEx& list = listOf(dialog, id);
    const int row = list.GetSelectedItem();
    return row == -1 ? "(none)" : list.GetItemText(row, 0);
}

bool okEnabled(CDialog& dialog) {
    return dialog.GetDlgItem(IDOK)->IsWindowEnabled();
}

// Companies in several spellings, an application without a company, one whose only file
// is ignored (so it is not installed) and one on a Windows CE device.
class SelectDialogs : public testing::Test {
protected:
    void SetUp() override {
        db.OpenMemory();
        SYInventoryWriter writer(db);
        const auto pc = writer.AddMachine("pc", "", CTime(0));
        const auto add = [&](const char* file, const char* app, const char* version,
                             const char* company) {
            writer.AddFile(0, pc, "C:\\Apps", {file, 10, 60, app, version, company});
        };
        add("zeta2.exe", "zeta", "2.0", "ACME Corporation");
        add("zeta.exe", "Zeta", "1.0", "Acme Corp.");
        add("alpha.exe", "Alpha", "", "Acme Corp.");
        add("beta.exe", "Beta", "3", "Bolt, Inc.");
        add("abacus.exe", "Abacus", "2", "aardvark Software");
        add("tool.exe", "Tool", "1", "");
        add("gone.exe", "Gone", "1", "Vanishing Ltd");
        writer.AddUserRule({0, 1, "gone.exe", {}, CTime(), "", "", "", "ignored"});
        const auto device = writer.AddDevice(1, "handheld", "", CTime(0));
        writer.AddFile(1, device, "\\Windows", {"pocket.exe", 5, 60, "Pocket", "1", "Pocket Co"});
        writer.Commit();
        owner.Create(SYControlKind::Static, 1, "console", {0, 0, 800, 600}, nullptr);
        SYGetApp().ClearReports();
    }

    void TearDown() override {
        owner.DestroyWindow();
        SYGetApp().ClearReports();
    }

    unsigned long appID(const std::string& name, const std::string& version) {
        SYAppSet set(db);
        set.Open();
        for (; !set.IsEOF(); set.MoveNext()) {
            if (set.AppName() == name && set.AppVersion() == version)
                return set.AppID();
        }
        ADD_FAILURE() << "no application " << name << " " << version;
        return 0;
    }

    // Runs the application dialog with this script; gives DoModal's result.
    int RunApps(const std::function<void(Script&)>& play, unsigned char invDataType = 0) {
        SYScriptedModalHost host;
        play(host.ExpectDialog(IDD_APP_SELECT));
        appDialog.SetDatabase(&db);
        appDialog.SetInvDataType(invDataType);
        return appDialog.DoModal();
    }

    int RunCompanies(const std::string& preset, const std::function<void(Script&)>& play) {
        SYScriptedModalHost host;
        play(host.ExpectDialog(IDD_APP_COMPANY_SELECT));
        companyDialog.SetDatabase(&db);
        companyDialog.SetInvDataType(0);
        companyDialog.SetCompanyName(preset);
        return companyDialog.DoModal();
    }

    SYDatabase db;
    SYWnd owner;
    SYAppSelectDlg appDialog{&owner};
    SYAppCompanySelectDlg companyDialog{&owner};
};

TEST_F(SelectDialogs, ApplicationsOfEachInventoryByCompanyThenName) {
    const struct {
        unsigned char invDataType;
        std::vector<std::string> rows;
    } cases[] = {
        {0,
         {"Tool|1|(No Company)", "Abacus|2|aardvark Software", "Alpha||Acme Corp.",
          "Zeta|1.0|Acme Corp.", "zeta|2.0|ACME Corporation", "Beta|3|Bolt, Inc."}},
        {1, {"Pocket|1|Pocket Co"}},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(static_cast<int>(expected.invDataType));
        std::vector<std::string> rows;
        const int result = RunApps(
            [&](Script& script) {
                script
                    .Inspect([&](CDialog& dialog) {
                        rows = rowsOf(dialog, IDC_SELECT_APP_LIST);
                        SYListCtrlEx& list = listOf(dialog, IDC_SELECT_APP_LIST);
                        EXPECT_EQ(list.GetColumnTitle(2), "Company");
                        EXPECT_GT(list.GetColWidth(2),
                                  list.GetStringWidth(expected.rows.front().substr(
                                      expected.rows.front().rfind('|') + 1)));
                    })
                    .PressCancel();
            },
            expected.invDataType);
        EXPECT_EQ(result, IDCANCEL);
        EXPECT_EQ(rows, expected.rows);
    }
}

TEST_F(SelectDialogs, TheApplicationChosenIsTheOneOnTheRow) {
    const struct {
        const char* what;
        std::function<void(Script&)> play;
        int result;
        const char* name;
        const char* version;
    } cases[] = {
        {"select and OK", [](Script& s) { s.SelectRow(IDC_SELECT_APP_LIST, 5).PressOK(); }, IDOK,
         "Beta", "3"},
        {"double click", [](Script& s) { s.DoubleClickRow(IDC_SELECT_APP_LIST, 4); }, IDOK, "zeta",
         "2.0"},
        // Sorting by a header moves the rows; the choice must follow the row, not its place.
        {"sort by version, then OK",
         [](Script& s) {
             s.ClickHeader(IDC_SELECT_APP_LIST, 1).ClickHeader(IDC_SELECT_APP_LIST, 1);
             s.SelectRow(IDC_SELECT_APP_LIST, 0).PressOK();
         },
         IDOK, "Beta", "3"},
        {"select, then cancel",
         [](Script& s) { s.SelectRow(IDC_SELECT_APP_LIST, 1).PressCancel(); }, IDCANCEL, "", ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(RunApps(c.play), c.result);
        EXPECT_EQ(appDialog.AppID(), c.result == IDOK ? appID(c.name, c.version) : 0UL);
    }
}

TEST_F(SelectDialogs, OKWaitsForARow) {
    const int result = RunApps([](Script& script) {
        script
            .Inspect([](CDialog& dialog) {
                EXPECT_FALSE(okEnabled(dialog));
                // Even if it is reached some other way, OK without a row keeps the dialog.
                dialog.OnOK();
                EXPECT_FALSE(dialog.IsModalEnded());
            })
            .SelectRow(IDC_SELECT_APP_LIST, 0)
            .Inspect([](CDialog& dialog) { EXPECT_TRUE(okEnabled(dialog)); })
            .PressOK();
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(appDialog.AppID(), appID("Tool", "1"));
}

TEST_F(SelectDialogs, CompaniesShowOnceUnderTheirCommonestSpelling) {
    std::vector<std::string> rows;
    EXPECT_EQ(RunCompanies("",
                           [&](Script& script) {
                               script
                                   .Inspect([&](CDialog& dialog) {
                                       rows = rowsOf(dialog, IDC_SELECT_COMPANY_LIST);
                                       EXPECT_EQ(selectedText(dialog, IDC_SELECT_COMPANY_LIST),
                                                 "(none)");
                                       EXPECT_FALSE(okEnabled(dialog));
                                   })
                                   .PressCancel();
                           }),
              IDCANCEL);
    EXPECT_EQ(rows, (std::vector<std::string>{"aardvark Software", "Acme Corp.", "Bolt, Inc."}));
    EXPECT_EQ(companyDialog.CompanyName(), "");
}

TEST_F(SelectDialogs, ThePresetSelectsItsCompany) {
    const struct {
        const char* preset;
        const char* selected;
    } cases[] = {
        {"ACME CORPORATION", "Acme Corp."}, // a rarer spelling, case aside
        {"acme corp", "Acme Corp."},        // the company's key
        {"bolt, INC.", "Bolt, Inc."},
        {"aa", "aardvark Software"}, // the beginning of a name
        {"Nobody", "(none)"},
        {"Vanishing Ltd", "(none)"}, // nothing of it is installed
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.preset);
        const bool found = std::string(c.selected) != "(none)";
        const int result = RunCompanies(c.preset, [&](Script& script) {
            script.Inspect([&](CDialog& dialog) {
                EXPECT_EQ(selectedText(dialog, IDC_SELECT_COMPANY_LIST), c.selected);
                EXPECT_EQ(dialog.FindControl(IDC_SELECT_COMPANY_NAME)->GetWindowText(), c.preset);
                EXPECT_EQ(okEnabled(dialog), found);
            });
            if (found)
                script.PressOK();
            else
                script.PressCancel();
        });
        EXPECT_EQ(result, found ? IDOK : IDCANCEL);
        EXPECT_EQ(companyDialog.CompanyName(), found ? c.selected : c.preset);
    }
}

TEST_F(SelectDialogs, TheNameEditAndTheListFollowEachOther) {
    const int result = RunCompanies("Acme", [](Script& script) {
        script.SelectRow(IDC_SELECT_COMPANY_LIST, 2)
            .Inspect([](CDialog& dialog) {
                EXPECT_EQ(dialog.FindControl(IDC_SELECT_COMPANY_NAME)->GetWindowText(),
                          "Bolt, Inc.");
            })
            .Type(IDC_SELECT_COMPANY_NAME, "xyz")
            .Inspect([](CDialog& dialog) {
                EXPECT_EQ(selectedText(dialog, IDC_SELECT_COMPANY_LIST), "(none)");
                EXPECT_FALSE(okEnabled(dialog));
            })
            .Type(IDC_SELECT_COMPANY_NAME, "AARD")
            .Inspect([](CDialog& dialog) {
                EXPECT_EQ(selectedText(dialog, IDC_SELECT_COMPANY_LIST), "aardvark Software");
                // The user's typing stands; only the selection follows it.
                EXPECT_EQ(dialog.FindControl(IDC_SELECT_COMPANY_NAME)->GetWindowText(), "AARD");
            })
            .PressOK();
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(companyDialog.CompanyName(), "aardvark Software");
}

TEST_F(SelectDialogs, CancelKeepsThePresetAndADoubleClickChooses) {
    EXPECT_EQ(RunCompanies("Bolt",
                           [](Script& script) {
                               script.SelectRow(IDC_SELECT_COMPANY_LIST, 0).PressCancel();
                           }),
              IDCANCEL);
    EXPECT_EQ(companyDialog.CompanyName(), "Bolt");

    SYAppCompanySelectDlg again(&owner);
    SYScriptedModalHost host;
    host.ExpectDialog(IDD_APP_COMPANY_SELECT).DoubleClickRow(IDC_SELECT_COMPANY_LIST, 1);
    again.SetDatabase(&db);
    again.SetCompanyName("Bolt");
    EXPECT_EQ(again.DoModal(), IDOK);
    EXPECT_EQ(again.CompanyName(), "Acme Corp.");
}

TEST_F(SelectDialogs, AStoreFailureIsReportedAndNothingShows) {
    const struct {
        const char* what;
        bool companies;
        bool withDatabase;
    } cases[] = {
        {"applications, failing store", false, true},
        {"companies, failing store", true, true},
        {"applications, no database", false, false},
        {"companies, no database", true, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        SYGetApp().ClearReports();
        SYScriptedModalHost host; // expects nothing: a dialog that opens fails the test
        if (c.withDatabase)
            db.FailStatement();
        int result = 0;
        if (c.companies) {
            SYAppCompanySelectDlg dialog(&owner);
            dialog.SetDatabase(c.withDatabase ? &db : nullptr);
            dialog.SetCompanyName("Acme Corp.");
            result = dialog.DoModal();
            EXPECT_EQ(dialog.CompanyName(), "Acme Corp.");
        } else {
            SYAppSelectDlg dialog(&owner);
            dialog.SetDatabase(c.withDatabase ? &db : nullptr);
            result = dialog.DoModal();
            EXPECT_EQ(dialog.AppID(), 0UL);
        }
        db.ClearFault();
        EXPECT_EQ(result, IDCANCEL);
        EXPECT_TRUE(host.OpenedDialogs().empty());
        ASSERT_EQ(SYGetApp().Reports().size(), 1U);
        EXPECT_EQ(SYGetApp().Reports().front().parent, &owner);
        EXPECT_EQ(SYGetApp().WaitCursorCount(), 0);
    }
}

} // namespace
