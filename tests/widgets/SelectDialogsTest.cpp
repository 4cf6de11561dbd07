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
#include "support/ReportCapture.h"
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
        reports.Clear();
    }

    void TearDown() override { owner.DestroyWindow(); }

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

    ReportCapture reports;
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
        const auto look = [&](CDialog& dialog) { rows = rowsOf(dialog, IDC_SELECT_APP_LIST); };
        EXPECT_EQ(RunApps([&](Script& s) { s.Inspect(look).PressCancel(); }, expected.invDataType),
                  IDCANCEL);
        EXPECT_EQ(rows, expected.rows);
    }
}

TEST_F(SelectDialogs, TheApplicationChosenIsTheOneOnTheRow) {
    const struct {
        const char* what;
        std::function<void(Script&)> play;
        const char* name; // null: cancelled
        const char* version;
    } cases[] = {
        {"select and OK", [](Script& s) { s.SelectRow(IDC_SELECT_APP_LIST, 5).PressOK(); }, "Beta",
         "3"},
        {"double click", [](Script& s) { s.DoubleClickRow(IDC_SELECT_APP_LIST, 4); }, "zeta",
         "2.0"},
        // Sorting by a header moves the rows; the choice must follow the row, not its place.
        {"sort by version, then OK",
         [](Script& s) {
             s.ClickHeader(IDC_SELECT_APP_LIST, 1).ClickHeader(IDC_SELECT_APP_LIST, 1);
             s.SelectRow(IDC_SELECT_APP_LIST, 0).PressOK();
         },
         "Beta", "3"},
        {"OK waits for a row",
         [](Script& s) {
             s.Inspect([](CDialog& dialog) {
                 EXPECT_FALSE(okEnabled(dialog));
                 dialog.OnOK(); // reached some other way, it still keeps the dialog
                 EXPECT_FALSE(dialog.IsModalEnded());
             });
             s.SelectRow(IDC_SELECT_APP_LIST, 0).PressOK();
         },
         "Tool", "1"},
        {"select, then cancel",
         [](Script& s) { s.SelectRow(IDC_SELECT_APP_LIST, 1).PressCancel(); }, nullptr, nullptr},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(RunApps(c.play), c.name != nullptr ? IDOK : IDCANCEL);
        EXPECT_EQ(appDialog.AppID(), c.name != nullptr ? appID(c.name, c.version) : 0UL);
    }
}

// Companies show once, under their commonest spelling.
TEST_F(SelectDialogs, ThePresetSelectsItsCompanyAndCancelKeepsIt) {
    const std::vector<std::string> companies{"aardvark Software", "Acme Corp.", "Bolt, Inc."};
    const struct {
        const char* preset;
        const char* selected;
    } cases[] = {
        {"ACME CORPORATION", "Acme Corp."}, // a rarer spelling, case aside
        {"acme corp", "Acme Corp."},        // the company's key
        {"aa", "aardvark Software"},        // the beginning of a name
        {"Nobody", "(none)"},
        {"Vanishing Ltd", "(none)"}, // nothing of it is installed
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.preset);
        const bool found = std::string(c.selected) != "(none)";
        const int result = RunCompanies(c.preset, [&](Script& script) {
            script.Inspect([&](CDialog& dialog) {
                EXPECT_EQ(rowsOf(dialog, IDC_SELECT_COMPANY_LIST), companies);
                EXPECT_EQ(selectedText(dialog, IDC_SELECT_COMPANY_LIST), c.selected);
                EXPECT_EQ(dialog.FindControl(IDC_SELECT_COMPANY_NAME)->GetWindowText(), c.preset);
                EXPECT_EQ(okEnabled(dialog), found);
            });
            if (found)
                script.PressOK();
            else
                script.SelectRow(IDC_SELECT_COMPANY_LIST, 0).PressCancel();
        });
        EXPECT_EQ(result, found ? IDOK : IDCANCEL);
        EXPECT_EQ(companyDialog.CompanyName(), found ? c.selected : c.preset);
    }
}

TEST_F(SelectDialogs, TheNameEditAndTheListFollowEachOther) {
    const int result = RunCompanies("Acme", [](Script& script) {
        auto expect = [](const char* name, const char* selected) {
            return [=](CDialog& dialog) {
                EXPECT_EQ(dialog.FindControl(IDC_SELECT_COMPANY_NAME)->GetWindowText(), name);
                EXPECT_EQ(selectedText(dialog, IDC_SELECT_COMPANY_LIST), selected);
            };
        };
        script.SelectRow(IDC_SELECT_COMPANY_LIST, 2)
            .Inspect(expect("Bolt, Inc.", "Bolt, Inc."))
            .Type(IDC_SELECT_COMPANY_NAME, "xyz")
            .Inspect(expect("xyz", "(none)"))
            // The user's typing stands; only the selection follows it.
            .Type(IDC_SELECT_COMPANY_NAME, "AARD")
            .Inspect(expect("AARD", "aardvark Software"))
            .DoubleClickRow(IDC_SELECT_COMPANY_LIST, 1);
    });
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(companyDialog.CompanyName(), "Acme Corp.");
}

TEST_F(SelectDialogs, AStoreFailureIsReportedAndNothingShows) {
    for (const bool companies : {false, true}) {
        for (const bool withDatabase : {false, true}) {
            SCOPED_TRACE(std::string(companies ? "companies" : "applications") +
                         (withDatabase ? ", failing store" : ", no database"));
            reports.Clear();
            SYScriptedModalHost host; // expects nothing: a dialog that opens fails the test
            if (withDatabase)
                db.FailStatement();
            SYAppCompanySelectDlg companyDlg(&owner);
            SYAppSelectDlg appDlg(&owner);
            CDialog& dialog = companies ? static_cast<CDialog&>(companyDlg) : appDlg;
            companyDlg.SetDatabase(withDatabase ? &db : nullptr);
            companyDlg.SetCompanyName("Acme Corp.");
            appDlg.SetDatabase(withDatabase ? &db : nullptr);
            EXPECT_EQ(dialog.DoModal(), IDCANCEL);
            db.ClearFault();
            EXPECT_EQ(companyDlg.CompanyName(), "Acme Corp.");
            EXPECT_EQ(appDlg.AppID(), 0UL);
            ASSERT_EQ(reports.Size(), 1U);
            EXPECT_EQ(reports.All().front().parent, &owner);
            EXPECT_EQ(SYGetApp().WaitCursorCount(), 0);
        }
    }
}

} // namespace
