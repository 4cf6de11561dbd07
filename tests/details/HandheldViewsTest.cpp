#include <gtest/gtest.h>

#include "details/SYPalmAppInstDetailsDlg.h"
#include "details/SYPalmAppTabWnd.h"
#include "details/SYRIMAppInstDetailsDlg.h"
#include "details/SYRIMAppTabWnd.h"
#include "outside/widgets/SYAdminImages.h"
#include "resources/SYResourceIds.h"
#include "support/DetailsInventory.h"
#include "support/SYScriptedModalHost.h"

namespace {

class HandheldViews : public DetailsInventory {
protected:
    void SetUp() override {
        DetailsInventory::SetUp();
        ASSERT_NE(palm.Initialize(100, &main), 0);
        ASSERT_NE(rim.Initialize(101, &main), 0);
        palm.SetDatabase(&db);
        rim.SetDatabase(&db);
    }

    Strings Column(const SYListCtrlEx& list, int column) {
        Strings cells;
        for (int row = 0; row < list.GetItemCount(); ++row)
            cells.push_back(list.GetItemText(row, column));
        return cells;
    }

    SYPalmAppTabWnd palm;
    SYRIMAppTabWnd rim;
};

TEST_F(HandheldViews, PalmViewShowsWhereTheApplicationLiesOnEachDevice) {
    ASSERT_EQ(palm.LoadAppData(memoApp), 1);
    SYWnd& general = *palm.GetPage(0);
    // No name: the database name stands in.
    EXPECT_EQ((Strings{TextOf(general, IDC_PALM_APP_NAME), TextOf(general, IDC_PALM_VERSION),
                       TextOf(general, IDC_PALM_CREATOR), TextOf(general, IDC_PALM_DATABASE),
                       TextOf(general, IDC_PALM_TOTAL_CLIENTS)}),
              (Strings{"MemoDB", "1.1", "memo", "MemoDB", "3"}));
    SYListCtrlEx& list = *palm.DeviceList();
    // ROM even with a storage card path; a card path without ROM is the card.
    EXPECT_EQ(Column(list, 0), (Strings{"palm-a", "palm-b", "palm-c"}));
    EXPECT_EQ(Column(list, 1), (Strings{"RAM", "ROM", "Storage Card"}));
    EXPECT_EQ(list.GetItemString(1),
              "palm-b\tROM\t2 Kb\t4 Kb\t1/2/2025 9:15:00 AM\t\t\t3\t7\t/card");
    EXPECT_EQ(list.GetItemImage(0), SYAdminImages::ImagePalmDevice);
    // Ascending by "Where": ROM last, the others by client.
    ASSERT_NE(list.ClickHeader(1), 0);
    EXPECT_EQ(Column(list, 0), (Strings{"palm-a", "palm-c", "palm-b"}));

    // A second application reuses the first row and drops the surplus; nothing stays selected.
    list.SelectItem(0);
    ASSERT_EQ(palm.LoadAppData(clockApp), 1);
    EXPECT_EQ(Column(list, 0), (Strings{"palm-b"}));
    EXPECT_EQ(list.GetSelectedItem(), -1);
    EXPECT_EQ(TextOf(general, IDC_PALM_APP_NAME), "Clock");

    EXPECT_EQ(palm.LoadAppData(0), 0);
    EXPECT_EQ(palm.GetAppID(), clockApp);
    EXPECT_EQ(list.GetItemCount(), 0);
    EXPECT_EQ(TextOf(general, IDC_PALM_TOTAL_CLIENTS), "");
}

TEST_F(HandheldViews, PalmDetailsListTheDeviceRowAsNamesAndValues) {
    ASSERT_EQ(palm.LoadAppData(memoApp), 1);
    palm.ActivateDevicesPage();
    palm.DeviceList()->SelectItem(1);
    std::uint32_t device = 0;
    ASSERT_EQ(palm.GetSelectedInstallation(device), 1);
    EXPECT_EQ(device, palmB);
    unsigned menu = 0, command = 0;
    palm.DeviceList()->SetFocus();
    ASSERT_EQ(palm.GetContextMenuInfo(menu, command), 1);
    EXPECT_EQ((std::vector<unsigned>{menu, command}), (std::vector<unsigned>{13005, 13808}));

    SYScriptedModalHost host;
    host.ExpectDialog(IDD_PALM_APP_INST_DETAILS)
        .Inspect([](CDialog& dialog) {
            EXPECT_EQ(TextOf(dialog, IDC_PALM_APP_NAME), "MemoDB  [ 1.1 ]");
            EXPECT_EQ(TextOf(dialog, IDC_PALM_CLIENT), "palm-b");
            EXPECT_EQ(TextOf(dialog, IDC_PALM_DATABASE), "MemoDB");
            const auto* list =
                dynamic_cast<SYListCtrlEx*>(dialog.FindControl(IDC_PALM_DETAIL_LIST));
            ASSERT_NE(list, nullptr);
            Strings pairs;
            for (int row = 0; row < list->GetItemCount(); ++row)
                pairs.push_back(list->GetItemText(row, 0) + "=" + list->GetItemText(row, 1));
            // Dates of 0 keep their rows; the path is last.
            EXPECT_EQ(pairs, (Strings{"Where=ROM", "Size=2 Kb", "Total Size=4 Kb",
                                      "Create Date=1/2/2025 9:15:00 AM",
                                      "Modify Date=", "Backup Date=", "Database Count=3",
                                      "Record Count=7", "Storage Card Path=/card"}));
        })
        .PressCancel();
    SYPalmAppInstDetailsDlg details;
    details.SetDatabase(&db);
    details.SetInstInfo(palm.GetAppID(), device);
    EXPECT_EQ(details.DoModal(), 1);

    const struct {
        long app;
        unsigned long device;
    } nothing[] = {{0, palmB}, {memoApp, 0}, {clockApp, palmA}};
    for (const auto& c : nothing) {
        SYPalmAppInstDetailsDlg none;
        none.SetDatabase(c.app == 0 || c.device == 0 ? nullptr : &db);
        none.SetInstInfo(static_cast<std::int32_t>(c.app), static_cast<std::uint32_t>(c.device));
        EXPECT_EQ(none.DoModal(), 2) << c.app << " on " << c.device;
    }
    EXPECT_TRUE(reports.Empty());
    EXPECT_TRUE(host.ScriptDone());
}

TEST_F(HandheldViews, BlackBerryClientsWithOneNameKeepTheirDeviceOrderEitherWay) {
    ASSERT_EQ(rim.LoadAppData(mailApp), 1);
    SYWnd& general = *rim.GetPage(0);
    EXPECT_EQ((Strings{TextOf(general, IDC_RIM_APP_NAME), TextOf(general, IDC_RIM_VERSION),
                       TextOf(general, IDC_RIM_TOTAL_CLIENTS)}),
              (Strings{"Mail", "4.5", "3"}));
    SYListCtrlEx& list = *rim.DeviceList();
    rim.ActivateDevicesPage();
    const auto deviceOrder = [&] {
        std::vector<unsigned long> order;
        for (int row = 0; row < list.GetItemCount(); ++row) {
            list.SelectItem(row);
            std::uint32_t device = 0;
            rim.GetSelectedInstallation(device);
            order.push_back(device);
        }
        return order;
    };
    EXPECT_EQ(deviceOrder(), (std::vector<unsigned long>{rimFirst, rimLower, rimUpper}));
    ASSERT_NE(list.ClickHeader(0), 0);
    EXPECT_EQ(deviceOrder(), (std::vector<unsigned long>{rimUpper, rimLower, rimFirst}));
    EXPECT_EQ(list.GetItemImage(0), SYAdminImages::ImageRIMDevice);

    // An id without a record keeps the name shown before.
    ASSERT_EQ(rim.LoadAppData(9999), 1);
    EXPECT_EQ(TextOf(general, IDC_RIM_APP_NAME), "Mail");
    EXPECT_EQ(TextOf(general, IDC_RIM_TOTAL_CLIENTS), "0");
}

TEST_F(HandheldViews, BlackBerryDetailsShowTheVersionOnlyWhenThereIsOne) {
    SYScriptedModalHost host;
    const struct {
        long app;
        const char* shown;
    } cases[] = {{mailApp, "Mail  [ 4.5 ]"}, {notesApp, "Notes"}};
    for (const auto& c : cases) {
        host.ExpectDialog(IDD_RIM_APP_INST_DETAILS)
            .Inspect([&](CDialog& dialog) {
                EXPECT_EQ(TextOf(dialog, IDC_RIM_APP_NAME), c.shown);
                EXPECT_EQ(TextOf(dialog, IDC_RIM_CLIENT), "aa");
            })
            .PressCancel();
        SYRIMAppInstDetailsDlg details;
        details.SetDatabase(&db);
        details.SetInstInfo(static_cast<std::int32_t>(c.app), static_cast<std::uint32_t>(rimFirst));
        EXPECT_EQ(details.DoModal(), 1);
    }
    SYRIMAppInstDetailsDlg none;
    none.SetInstInfo(static_cast<std::int32_t>(notesApp), static_cast<std::uint32_t>(rimLower));
    none.SetDatabase(&db);
    EXPECT_EQ(none.DoModal(), 2);
    EXPECT_TRUE(host.ScriptDone());
}

} // namespace
