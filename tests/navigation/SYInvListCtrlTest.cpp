#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "navigation/InventoryFixture.h"
#include "navigation/SYInvListCtrl.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYStatement.h"
#include "outside/widgets/SYFontMetrics.h"
#include "rules/SYIdRuleItem.h"
#include "rules/SYIgnoreRuleItem.h"

namespace {

using Strings = std::vector<std::string>;

class TestList : public SYInvListCtrl {
public:
    using SYInvListCtrl::FindApplication;
    using SYInvListCtrl::RemoveMatchingFiles;
    using SYInvListCtrl::SwitchMode;
};

class InvListTest : public InventoryFixture {
protected:
    void SetUp() override {
        InventoryFixture::SetUp();
        ASSERT_EQ(list.Initialize(300, 4052, 0x808000, 14, &host), 1);
        list.SetDatabase(&db);
    }

    Strings rows() const {
        Strings result;
        for (int row = 0; row < list.GetItemCount(); ++row)
            result.push_back(list.GetItemString(row));
        return result;
    }

    Strings column(int col) const {
        Strings result;
        for (int row = 0; row < list.GetItemCount(); ++row)
            result.push_back(list.GetItemText(row, col));
        return result;
    }

    static int padded(const std::string& text) {
        return SYFontMetrics::TextWidth(text) + SYFontMetrics::ColumnPadding;
    }

    TestList list;
};

TEST_F(InvListTest, InitializeDeclaresSixModesWithoutActivatingOne) {
    EXPECT_EQ(list.ActiveMode(), -1);
    EXPECT_EQ(list.GetColumnCount(), 0);
    const std::vector<int> modes{list.CompanyListMode(),   list.AppListMode(),
                                 list.ExcludedFilesMode(), list.UnidFilesMode(),
                                 list.PalmAppListMode(),   list.RIMAppListMode()};
    EXPECT_EQ(modes, (std::vector<int>{0, 1, 2, 3, 4, 5}));
    EXPECT_TRUE(list.ModeColumns(6).empty());

    struct Expect {
        int mode;
        Strings names;
        std::vector<int> formats;
        Strings samples;
    };
    const std::vector<Expect> expected = {
        {0, {"Name"}, {0}, {"SAMPLE2 Software Information Management Group"}},
        {1, {"Name", "Version"}, {0, 0}, {"SAMPLE_X Software SAMPLE1 Client", "8.8.8.8888"}},
        {2,
         {"File", "Size", "Mod Time"},
         {0, 1, 0},
         {"OOOOOOOOOOOOO", "0,000,000", "10/00/0000 12:00 AM"}},
        {3,
         {"File", "Size", "Mod Time"},
         {0, 1, 0},
         {"OOOOOOOOOOOOO", "0,000,000", "10/00/0000 12:00 AM"}},
        {5, {"Name", "Version"}, {0, 0}, {"SAMPLE_X Software SAMPLE1 Client", "8.8.8.8888"}},
    };
    for (const Expect& e : expected) {
        const auto columns = list.ModeColumns(e.mode);
        ASSERT_EQ(columns.size(), e.names.size()) << e.mode;
        for (std::size_t c = 0; c < columns.size(); ++c) {
            EXPECT_EQ(columns[c].Name, e.names[c]);
            EXPECT_EQ(columns[c].Format, e.formats[c]);
            EXPECT_GE(columns[c].Width, padded(e.names[c]));
            EXPECT_EQ(columns[c].Width, std::max(padded(e.names[c]), padded(e.samples[c])));
        }
    }
}

TEST_F(InvListTest, SizeIsRightAlignedInHeaderAndCellsOfBothFileModes) {
    for (auto set : {&SYInvListCtrl::SetExcludedFilesMode, &SYInvListCtrl::SetUnidFilesMode}) {
        (list.*set)(1);
        EXPECT_EQ(list.GetColFormat(1), 1);
        EXPECT_EQ(list.GetHdrFormat(1), 1);
        EXPECT_EQ(list.GetColFormat(0), 0);
    }
}

TEST_F(InvListTest, WidthsLiveOnPerModeButTheSortRestarts) {
    list.SetUnidFilesMode(1);
    list.SetColWidth(0, 333);
    list.ClickHeader(1);
    list.ClickHeader(1);
    EXPECT_EQ(list.SortColumn(), 1);
    EXPECT_EQ(list.SortAscending(), 0);

    // The ignored list reads the same headers but keeps widths of its own.
    list.SetExcludedFilesMode(1);
    EXPECT_NE(list.GetColWidth(0), 333);
    list.SetColWidth(0, 222);
    list.SetAppListMode(1);
    list.SetColWidth(1, 111);
    list.SetPalmAppListMode();
    EXPECT_NE(list.GetColWidth(1), 111);

    list.SetUnidFilesMode(1);
    EXPECT_EQ(list.GetColWidth(0), 333);
    EXPECT_EQ(list.SortColumn(), 0);
    EXPECT_EQ(list.SortAscending(), 1);
    list.SetExcludedFilesMode(1);
    EXPECT_EQ(list.GetColWidth(0), 222);
    list.SetAppListMode(0);
    EXPECT_EQ(list.GetColWidth(1), 111);
}

TEST_F(InvListTest, SameModeForAnotherPlatformChangesOnlyThePlatform) {
    list.SetUnidFilesMode(0);
    list.ClickHeader(2);
    const int invalidations = list.InvalidateCount();
    list.SetUnidFilesMode(1);
    EXPECT_EQ(list.InvDataType(), 1);
    EXPECT_EQ(list.SortColumn(), 2);
    EXPECT_EQ(list.InvalidateCount(), invalidations);
    list.SwitchMode(17);
    EXPECT_EQ(list.ActiveMode(), list.UnidFilesMode());
}

TEST_F(InvListTest, CompaniesListOncePerInternalNameWithNoCompanyFirst) {
    AddApp(1, "Zeta", "zeta", "Z", "1");
    AddApp(1, "Acme Corp.", "acme", "A", "1");
    AddApp(1, "ACME", "ACME", "A2", "1");
    AddApp(1, "Acme Corp.", "acme", "A3", "1");
    AddApp(1, "", "", "Loose", "1");
    AddApp(0, "Windows Only", "windows only", "W", "1");
    list.SetCompanyListMode(1);
    list.BuildCompanies();
    EXPECT_EQ(rows(), (Strings{"(No Company)", "Acme Corp.", "Zeta"}));
    EXPECT_EQ(list.GetItemImage(0), 14);
    list.ClickHeader(0);
    EXPECT_EQ(rows(), (Strings{"Zeta", "Acme Corp.", "(No Company)"}));
    EXPECT_EQ(list.GetSelectedAppID(), 0u);
}

TEST_F(InvListTest, ApplicationsSortByColumnWithAscendingTieBreaks) {
    const auto first = AddApp(1, "Acme", "acme", "Tool", "2.0");
    AddApp(1, "Acme", "acme", "Tool", "10.0");
    AddApp(1, "Acme", "acme", "Editor", "2.0");
    AddApp(1, "Other", "other", "Elsewhere", "1");
    list.SetAppListMode(1);
    list.BuildAppList("ACME");
    EXPECT_EQ(rows(), (Strings{"Editor\t2.0", "Tool\t10.0", "Tool\t2.0"}));
    EXPECT_EQ(list.GetItemImage(0), 15);

    list.ClickHeader(0);
    EXPECT_EQ(rows(), (Strings{"Tool\t10.0", "Tool\t2.0", "Editor\t2.0"}));
    list.ClickHeader(1);
    EXPECT_EQ(rows(), (Strings{"Tool\t10.0", "Editor\t2.0", "Tool\t2.0"}));
    list.ClickHeader(1);
    EXPECT_EQ(rows(), (Strings{"Editor\t2.0", "Tool\t2.0", "Tool\t10.0"}));

    list.SelectItem(2);
    EXPECT_EQ(list.GetItemString(2), "Tool\t10.0");
    list.SelectItem(1);
    EXPECT_EQ(list.GetSelectedAppID(), first);
    EXPECT_EQ(list.FindApplication(first), 1);
}

TEST_F(InvListTest, FileListsReadTheirFilterAndSortDescendingOnSize) {
    AddFile(1, "b.dll", 200, 1000);
    AddFile(1, "a.dll", 200, 2000);
    AddFile(1, "c.dll", 100, 3000);
    AddFile(1, "ignored.tmp", 5, 0, 3);
    AddFile(0, "pc.exe", 5, 0);
    list.SetUnidFilesMode(1);
    list.BuildUnidFiles();
    EXPECT_EQ(column(0), (Strings{"a.dll", "b.dll", "c.dll"}));
    EXPECT_EQ(list.GetItemImage(0), 6);
    list.ClickHeader(1);
    list.ClickHeader(1);
    EXPECT_EQ(column(0), (Strings{"a.dll", "b.dll", "c.dll"})) << "equal sizes stay by name";
    EXPECT_EQ(column(1), (Strings{"200", "200", "100"}));

    list.SetExcludedFilesMode(1);
    list.BuildExcludes();
    EXPECT_EQ(rows(), (Strings{"ignored.tmp\t5\tAny"}));
    list.SelectItem(0);
    EXPECT_NE(list.GetSelectedFileID(), 0u);
}

TEST_F(InvListTest, HandheldListsNameTheirApplications) {
    const auto memo = AddPalmApp("MemoPad", "1.0", "Memos");
    AddPalmApp("Clock", "2", "Clock");
    AddPalmApp("Calc", "", "");
    list.SetPalmAppListMode();
    list.BuildPalmAppList();
    EXPECT_EQ(column(0), (Strings{"Calc", "Clock", "Memos  (MemoPad)"}));
    EXPECT_EQ(column(1), (Strings{"", "2", "1.0"}));
    EXPECT_EQ(list.GetItemImage(0), 12);
    list.SelectItem(2);
    EXPECT_EQ(list.GetSelectedPalmAppID(), memo);
    EXPECT_EQ(list.GetSelectedAppID(), 0u) << "the Palm and BlackBerry reads are separate";
    EXPECT_EQ(list.GetSelectedRIMAppID(), 0);
    EXPECT_EQ(list.FindApplication(memo), -1);

    const auto mail = AddRIMApp("Mail", "4.0");
    list.SetRIMAppListMode();
    list.BuildRIMAppList();
    EXPECT_EQ(rows(), Strings{"Mail\t4.0"});
    EXPECT_EQ(list.GetItemImage(0), 21);
    list.SelectItem(0);
    EXPECT_EQ(list.GetSelectedRIMAppID(), mail);
    list.ClearData();
    EXPECT_EQ(list.Data().GetSize(), 0);
}


class RemoveMatchingTest : public InvListTest {
protected:
    void SetUp() override {
        InvListTest::SetUp();
        for (const char* name : {"a.dll", "b.dll", "keep.dll", "x.dll"})
            AddFile(1, name, 10, 1000);
        AddFile(1, "X.DLL", 20, 1000);
        list.SetUnidFilesMode(1);
        list.BuildUnidFiles();
    }

    SYIgnoreRuleItem rule(const std::string& name) {
        SYIgnoreRuleItem item;
        item.SetFileName(name);
        return item;
    }
};

TEST_F(RemoveMatchingTest, RemovedLastSelectedRowPassesTheSelectionUp) {
    ASSERT_EQ(column(0), (Strings{"a.dll", "b.dll", "keep.dll", "x.dll", "X.DLL"}));
    list.SelectItem(4);
    const auto x = rule("x.dll");
    list.RemoveMatchingFiles(&x);
    EXPECT_EQ(column(0), (Strings{"a.dll", "b.dll", "keep.dll"}));
    EXPECT_EQ(list.GetSelectedItem(), 2);
    EXPECT_TRUE(list.IsRedrawOn());
    // The record went with the row: a header click does not bring it back.
    list.ClickHeader(0);
    list.ClickHeader(0);
    EXPECT_EQ(column(0), (Strings{"a.dll", "b.dll", "keep.dll"}));
}

TEST_F(RemoveMatchingTest, TwoSelectedRowsLeaveTheSelectionToTheList) {
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    list.SetItemState(2, LVIS_SELECTED, LVIS_SELECTED);
    const auto a = rule("A.DLL");
    list.RemoveMatchingFiles(&a);
    EXPECT_EQ(column(0), (Strings{"b.dll", "keep.dll", "x.dll", "X.DLL"}));
    EXPECT_EQ(list.GetSelectedRows(), std::vector<int>{1});
}

TEST_F(RemoveMatchingTest, RemovingEveryRowSelectsNothing) {
    list.SelectItem(0);
    for (const char* name : {"a.dll", "b.dll", "keep.dll", "x.dll"}) {
        const auto r = rule(name);
        list.RemoveMatchingFiles(&r);
    }
    EXPECT_EQ(list.GetItemCount(), 0);
    EXPECT_EQ(list.GetSelectedItem(), -1);
    EXPECT_EQ(list.GetSelectedFileID(), 0u);
}

TEST_F(RemoveMatchingTest, RuleChangesOfAnotherPlatformOrModeDoNothing) {
    SYIdRuleItem id;
    id.SetFileName("a.dll");
    list.IdentifyFile(&id, 0);
    list.ExcludeFile(&id, 0);
    list.IgnoreApplication(1, 0);
    EXPECT_EQ(list.GetItemCount(), 5);
    list.IdentifyFile(&id, 1);
    EXPECT_EQ(list.GetItemCount(), 4);
}

TEST_F(InvListTest, ExcludeFileReadsTheRuleFilesByNameAndSizeWhateverTheirTime) {
    AddFile(1, "old.exe", 10, 1000, 3);
    AddFile(1, "new.exe", 10, 1000, 0);
    list.SetExcludedFilesMode(1);
    list.BuildExcludes();
    ASSERT_EQ(column(0), Strings{"old.exe"});

    // The store has since applied the rule: these files are ignored now.
    AddFile(1, "tool.exe", 10, 1000, 3);
    AddFile(1, "tool.exe", 10, 5000, 3);
    AddFile(1, "tool.exe", 99, 1000, 3);
    SYIgnoreRuleItem rule;
    rule.SetFileName("TOOL.EXE");
    rule.SetFileSize(10, 0);
    list.ExcludeFile(&rule, 1);
    EXPECT_EQ(column(0), (Strings{"old.exe", "tool.exe", "tool.exe"}));
    EXPECT_EQ(column(1), (Strings{"10", "10", "10"}));
    EXPECT_TRUE(SYGetApp().Reports().empty());
}

TEST_F(InvListTest, IgnoredApplicationLeavesTheAppListAndCompanyListIsReread) {
    const auto tool = AddApp(1, "Acme", "acme", "Tool", "1");
    AddApp(1, "Acme", "acme", "Editor", "1");
    list.SetAppListMode(1);
    list.BuildAppList("acme");
    list.IgnoreApplication(tool, 1);
    EXPECT_EQ(rows(), Strings{"Editor\t1"});
    list.ClickHeader(0);
    EXPECT_EQ(rows(), Strings{"Editor\t1"});

    list.SetCompanyListMode(1);
    list.BuildCompanies();
    ASSERT_EQ(rows(), Strings{"Acme"});
    SYStatement hide(db, "UPDATE [PPC Applications] SET AppInstalled = 0");
    hide.Execute();
    list.IgnoreApplication(tool, 1);
    EXPECT_EQ(list.GetItemCount(), 0);
}

TEST_F(InvListTest, FailedBuildIsReportedAndMakesNoRows) {
    AddFile(1, "a.dll", 10, 1000);
    list.SetUnidFilesMode(1);
    db.FailStatement(1);
    list.BuildUnidFiles();
    EXPECT_EQ(ReportKinds(), Strings{"CDBException"});
    EXPECT_EQ(list.GetItemCount(), 0);

    list.SetCompanyListMode(1);
    db.FailStatement(1);
    list.BuildCompanies();
    EXPECT_EQ(ReportKinds().size(), 2u);
    EXPECT_TRUE(list.IsRedrawOn());
    EXPECT_EQ(SYGetApp().WaitCursorCount(), 0);
}


} // namespace
