#include <gtest/gtest.h>

#include "details/SYAppInstDetailsDlg.h"
#include "details/SYAppMachineItem.h"
#include "details/SYAppTabWnd.h"
#include "details/SYAppViewGeneralPage.h"
#include "details/SYAppViewMachinesPage.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYProgress.h"
#include "outside/store/SYInventoryGenerator.h"
#include "outside/store/SYSamData.h"
#include "outside/widgets/SYAdminImages.h"
#include "resources/SYResourceIds.h"
#include "support/DetailsInventory.h"
#include "support/FaultSweep.h"
#include "support/SYScriptedModalHost.h"
#include "support/StoreQueries.h"

namespace {

class AppTabWnd : public DetailsInventory {
protected:
    void SetUp() override {
        DetailsInventory::SetUp();
        ASSERT_NE(tabs.Initialize(100, &main), 0);
        tabs.SetDatabase(&db);
    }

    SYAppViewGeneralPage& General() {
        return *dynamic_cast<SYAppViewGeneralPage*>(tabs.GetPage(0));
    }
    SYAppViewMachinesPage& Machines() {
        return *dynamic_cast<SYAppViewMachinesPage*>(tabs.GetPage(1));
    }
    Strings Totals(SYWnd& page) {
        return {TextOf(page, IDC_TOTAL_CLIENTS), TextOf(page, IDC_TOTAL_INSTALLATIONS)};
    }

    SYAppTabWnd tabs;
};

TEST_F(AppTabWnd, LoadShowsTheApplicationItsFilesAndEveryInstallation) {
    std::vector<int> told;
    SYGetApp().SetProgressSink([&](const std::string& task, int percent) {
        if (task == SYProgress::OpeningApplication)
            told.push_back(percent);
    });
    ASSERT_EQ(tabs.LoadAppData(toolApp, 0), 1);
    SYGetApp().SetProgressSink(nullptr);
    EXPECT_EQ(told, (std::vector<int>{0, 50, 100}));
    std::string name, version, company;
    tabs.AppInfo(name, version, company);
    EXPECT_EQ((Strings{name, version, company}), (Strings{"Tool", "2.0", "Acme"}));
    EXPECT_EQ(TextOf(General(), IDC_APP_NAME), "Tool");
    // tool.exe lies in three places but is one row; help.txt has no time.
    EXPECT_EQ(Rows(tabs.AppFileList()),
              (Strings{"help.txt\t10\tAny", "tool.exe\t5,000,000,000\t1/1/1970 12:10:00 AM"}));
    // PC-A was never scanned and holds Tool twice: one client, two installations.
    EXPECT_EQ(Rows(*tabs.MachineList()),
              (Strings{"PC-A\t\tC:\\Tool", "PC-A\t\tD:\\Tool", "pc-b\t3/4/2026\tC:\\Tool"}));
    EXPECT_EQ(Totals(General()), (Strings{"2", "3"}));
    EXPECT_EQ(Totals(Machines()), (Strings{"2", "3"}));
    EXPECT_EQ(tabs.MachineList()->GetItemImage(0), SYAdminImages::ImageMachine);
    EXPECT_EQ(tabs.AppFileList().GetItemImage(0), SYAdminImages::ImageAppFile);

    // An id without an application record keeps the name shown before and lists nothing.
    ASSERT_EQ(tabs.LoadAppData(9999, 0), 1);
    EXPECT_EQ(TextOf(General(), IDC_APP_NAME), "Tool");
    EXPECT_EQ(tabs.AppFileList().GetItemCount() + tabs.MachineList()->GetItemCount(), 0);
    EXPECT_EQ(Totals(Machines()), (Strings{"0", "0"}));

    EXPECT_EQ(tabs.LoadAppData(0, 0), 0);
    tabs.AppInfo(name, version, company);
    EXPECT_EQ(name + version + company, "");
    EXPECT_EQ(Totals(General()), (Strings{"", ""}));
    EXPECT_EQ(Totals(Machines()), (Strings{"", ""}));
    EXPECT_EQ(SYGetApp().WaitCursorCount(), 0);
}

TEST_F(AppTabWnd, WindowsCEClientsTakeTheirLastScanFromTheDevice) {
    ASSERT_EQ(tabs.LoadAppData(ceToolApp, 1), 1);
    EXPECT_EQ(Rows(*tabs.MachineList()), (Strings{"ce-1\t5/6/2026\t\\Program Files\\CE Tool",
                                                  "ce-2\t\t\\Program Files\\CE Tool"}));
    EXPECT_EQ(tabs.MachineList()->GetItemImage(0), SYAdminImages::ImagePPCDevice);
}

TEST_F(AppTabWnd, ClientOrderFollowsHeaderClicksAndSurvivesAReload) {
    ASSERT_EQ(tabs.LoadAppData(toolApp, 0), 1);
    SYListCtrlEx& list = *tabs.MachineList();
    tabs.ActivateMachinesPage();
    list.SelectItem(2);
    const Strings noScanFirst = {"PC-A\t\tC:\\Tool", "PC-A\t\tD:\\Tool",
                                 "pc-b\t3/4/2026\tC:\\Tool"};
    const Strings newestFirst = {"pc-b\t3/4/2026\tC:\\Tool", "PC-A\t\tC:\\Tool",
                                 "PC-A\t\tD:\\Tool"};
    ASSERT_NE(list.ClickHeader(1), 0);
    EXPECT_EQ(Rows(list), noScanFirst);
    // Descending reverses the scan time only; clients and folders stay ascending.
    ASSERT_NE(list.ClickHeader(1), 0);
    EXPECT_EQ(Rows(list), newestFirst);
    EXPECT_EQ(list.GetSelectedItem(), 0) << "the selection follows its row";
    ASSERT_EQ(tabs.LoadAppData(toolApp, 0), 1);
    EXPECT_EQ(Rows(list), newestFirst);
    EXPECT_EQ(list.GetSelectedItem(), -1);
    // The first click on the client column after the start sorts it descending.
    SYAppTabWnd fresh;
    ASSERT_NE(fresh.Initialize(101, &main), 0);
    fresh.SetDatabase(&db);
    ASSERT_EQ(fresh.LoadAppData(toolApp, 0), 1);
    ASSERT_NE(fresh.MachineList()->ClickHeader(0), 0);
    EXPECT_EQ(fresh.MachineList()->GetItemText(0, 0), "pc-b");
}

TEST_F(AppTabWnd, SelectionsAreReadFromTheActivePageAndLiveRowsOnly) {
    ASSERT_EQ(tabs.LoadAppData(toolApp, 0), 1);
    std::uint32_t machine = 77, installation = 77;
    tabs.MachineList()->SelectItem(2);
    tabs.AppFileList().SelectItem(1);
    EXPECT_EQ(tabs.GetSelectedInstallation(machine, installation), 0) << "General is active";
    EXPECT_EQ(tabs.GetSelectedFileID(), Id("SELECT FileID FROM Files WHERE FileName = 'tool.exe'"));
    tabs.ActivateMachinesPage();
    EXPECT_EQ(tabs.GetSelectedFileID(), 0u);
    ASSERT_EQ(tabs.GetSelectedInstallation(machine, installation), 1);
    EXPECT_EQ(machine, pcB);
    EXPECT_EQ(installation, InstallationAt(pcB, "C:\\Tool"));

    // Emptied arrays leave rows behind that must not be read.
    Machines().ClearMachines();
    General().ClearFiles();
    EXPECT_EQ(tabs.GetSelectedInstallation(machine, installation), 0);
    EXPECT_EQ(General().GetSelectedFileID(), 0u);

    unsigned menu = 0, command = 0;
    EXPECT_EQ(tabs.GetContextMenuInfo(menu, command), 0) << "the focus is on no list";
    tabs.MachineList()->SetFocus();
    ASSERT_EQ(tabs.GetContextMenuInfo(menu, command), 1);
    EXPECT_EQ((std::vector<unsigned>{menu, command}), (std::vector<unsigned>{13002, 13808}));
    tabs.ActivateGeneralPage();
    tabs.AppFileList().SetFocus();
    ASSERT_EQ(tabs.GetContextMenuInfo(menu, command), 1);
    EXPECT_EQ((std::vector<unsigned>{menu, command}), (std::vector<unsigned>{13001, 2001}));
}

TEST_F(AppTabWnd, DoubleClicksPostTheirCommandOnlyWithASelection) {
    ASSERT_EQ(tabs.LoadAppData(toolApp, 0), 1);
    tabs.AppFileList().DoubleClickRow(0);
    tabs.ActivateMachinesPage();
    tabs.MachineList()->DoubleClickRow(1);
    EXPECT_EQ(PostedCommands(), (std::vector<unsigned>{2001, 13808}));
    tabs.MachineList()->SelectItem(-1);
    Machines().OnDblclkMachineList();
    EXPECT_TRUE(PostedCommands().empty());
}

// Whichever statement fails, the load is reported once and a row whose item is gone is
// never read.
TEST_F(AppTabWnd, AFailedLoadIsReportedAndNeverReadsAGoneRow) {
    for (FaultSweep sweep(db); sweep.Next();) {
        SCOPED_TRACE(sweep.Nth());
        reports.Clear();
        ASSERT_EQ(tabs.LoadAppData(toolApp, 0), 1);
        tabs.ActivateMachinesPage();
        tabs.MachineList()->SelectItem(0);
        sweep.Arm();
        EXPECT_EQ(tabs.LoadAppData(ceToolApp, 1), sweep.Fired() ? 0 : 1);
        EXPECT_EQ(reports.Size(), sweep.Fired() ? 1U : 0U);
        EXPECT_EQ(SYGetApp().WaitCursorCount(), 0);
        std::uint32_t machine = 0, installation = 0;
        if (sweep.Fired() && tabs.GetSelectedInstallation(machine, installation) != 0) {
            ADD_FAILURE() << "read " << machine << "/" << installation << " with "
                          << Rows(*tabs.MachineList()).size() << " rows";
        }
    }
}

TEST_F(AppTabWnd, ResizingStretchesListsAndFieldsToEqualMargins) {
    tabs.MoveWindow({0, 0, 900, 700});
    for (SYWnd* page : {tabs.GetPage(0), tabs.GetPage(1)}) {
        const SYRect client = page->GetClientRect();
        for (const unsigned id : {IDC_APP_FILES_GROUP, IDC_APP_FILE_LIST, IDC_MACHINE_LIST}) {
            const SYWnd* control = page->GetDlgItem(id);
            if (control == nullptr)
                continue;
            const SYRect rect = control->GetWindowRect();
            EXPECT_EQ(client.right - rect.right, rect.left) << id;
            EXPECT_EQ(client.bottom - rect.bottom, rect.left) << id;
        }
    }
    const SYRect name = General().GetDlgItem(IDC_APP_NAME)->GetWindowRect();
    EXPECT_EQ(General().GetClientRect().right - name.right, name.top);
    EXPECT_EQ(General().GetDlgItem(IDC_APP_COMPANY)->GetWindowRect().right, name.right);
}

// Descending reverses the main key only: ties run ascending by client, then folder.
TEST(AppMachineItem, TieBreaksRunAscendingWhateverTheDirection) {
    const auto item = [](const char* client, std::int32_t scan, const char* location) {
        SYAppMachineItem machine;
        machine.SetMachineName(client);
        machine.SetLastScan(scan);
        machine.SetLocation(location);
        return machine;
    };
    const SYAppMachineItem a = item("a", 5, "C"), b = item("B", 5, "C"), aLater = item("a", 9, "D"),
                           aD = item("A", 5, "D");
    const struct {
        const SYAppMachineItem& first;
        const SYAppMachineItem& second;
        int column;
        int ascending;
        int expected;
    } cases[] = {
        {a, b, 0, 0, 1},      {a, aD, 0, 0, -1},    {a, b, 1, 0, -1},  {a, aD, 1, 0, -1},
        {a, aLater, 1, 0, 1}, {a, b, 2, 0, -1},     {a, aD, 2, 1, -1}, {a, b, 4, 1, 0},
        {a, aD, 3, 1, 0},     {a, aLater, 6, 1, 0},
    };
    for (const auto& c : cases) {
        const int result = c.first.CompareTo(&c.second, c.column, c.ascending);
        EXPECT_EQ((result > 0) - (result < 0), c.expected)
            << c.first.MachineName() << " " << c.second.MachineName() << " column " << c.column
            << " ascending " << c.ascending;
    }
    EXPECT_EQ(a.CompareTo(nullptr, 0, 1), 0);
}

TEST_F(AppTabWnd, DetailsShowTheSelectedInstallationAfterARuleMovedOneOfItsFiles) {
    ASSERT_EQ(tabs.LoadAppData(toolApp, 0), 1);
    tabs.ActivateMachinesPage();
    tabs.MachineList()->SelectItem(0);
    std::uint32_t machine = 0, installation = 0;
    ASSERT_EQ(tabs.GetSelectedInstallation(machine, installation), 1);
    SYSamData sam(db);
    sam.InvDataType = 0;
    sam.AddRule(AddUserRule(db, 1, "help.txt"));

    SYScriptedModalHost host;
    host.ExpectDialog(IDD_APP_INST_DETAILS)
        .Inspect([](CDialog& dialog) {
            EXPECT_EQ(TextOf(dialog, IDC_APP_NAME), "Tool  [ 2.0 ]");
            EXPECT_EQ(TextOf(dialog, IDC_INST_CLIENT), "PC-A");
            EXPECT_EQ(TextOf(dialog, IDC_INST_LOCATION), "C:\\Tool");
            const auto* list = dynamic_cast<SYListCtrlEx*>(dialog.FindControl(IDC_INST_FILE_LIST));
            ASSERT_NE(list, nullptr);
            EXPECT_EQ(Rows(*list), (Strings{"tool.exe\t5,000,000,000\t1/1/1970 12:10:00 AM\t2.0"}));
            EXPECT_EQ(list->GetItemImage(0), SYAdminImages::ImageAppFile);
        })
        .PressCancel();
    SYAppInstDetailsDlg details;
    details.SetDatabase(&db);
    details.SetInstInfo(machine, installation, 0);
    EXPECT_EQ(details.DoModal(), 1);
    EXPECT_TRUE(host.ScriptDone());
}

TEST_F(AppTabWnd, DetailsOfNothingShowNoDialog) {
    SYScriptedModalHost host;
    const unsigned long installation = InstallationAt(pcB, "C:\\Tool");
    const struct {
        const char* what;
        SYDatabase* database;
        std::uint32_t machine;
        std::uint32_t installation;
        std::size_t reports;
    } cases[] = {
        {"no client, and the store is not touched", nullptr, 0, 1, 0},
        {"no installation, and the store is not touched", nullptr, 1, 0, 0},
        {"an installation of another client", &db, static_cast<std::uint32_t>(pcA),
         static_cast<std::uint32_t>(installation), 0},
        {"no database", nullptr, static_cast<std::uint32_t>(pcB),
         static_cast<std::uint32_t>(installation), 1},
    };
    for (const auto& c : cases) {
        reports.Clear();
        SYAppInstDetailsDlg details;
        details.SetDatabase(c.database);
        details.SetInstInfo(c.machine, c.installation, 0);
        EXPECT_EQ(details.DoModal(), 2) << c.what;
        EXPECT_EQ(reports.Size(), c.reports) << c.what;
    }
    EXPECT_TRUE(host.OpenedDialogs().empty());
}

// The generator's estate: the most installed application's totals and rows are the store's.
TEST(AppTabWndOnEstate, TotalsAndRowsAreTheStoresForTheMostInstalledApplication) {
    SYDatabase db;
    db.OpenMemory();
    SYInventoryGenerator::Options options;
    options.clients = 60;
    SYInventoryGenerator(options).Generate(db, "");
    const auto appID = static_cast<std::uint32_t>(
        Scalar(db, "SELECT AppID FROM Installations WHERE InvDataType = 0 GROUP BY AppID "
                   "ORDER BY COUNT(DISTINCT MachineID) DESC LIMIT 1"));
    const std::string where = " WHERE InvDataType = 0 AND AppID = " + std::to_string(appID);
    SYWnd main;
    main.Create(SYControlKind::Static, 1, "main", {0, 0, 800, 600}, nullptr);
    SYAppTabWnd tabs;
    ASSERT_NE(tabs.Initialize(100, &main), 0);
    tabs.SetDatabase(&db);
    ASSERT_EQ(tabs.LoadAppData(appID, 0), 1);
    EXPECT_EQ(tabs.MachineTotal(),
              Scalar(db, "SELECT COUNT(DISTINCT MachineID) FROM Installations" + where));
    EXPECT_EQ(tabs.InstallationTotal(), Scalar(db, "SELECT COUNT(*) FROM Installations" + where));
    EXPECT_GT(tabs.MachineTotal(), 1);
    EXPECT_EQ(tabs.AppFileList().GetItemCount(), Scalar(db, "SELECT COUNT(*) FROM Files" + where));
    EXPECT_EQ(tabs.MachineList()->GetItemCount(), tabs.InstallationTotal());
}

} // namespace
