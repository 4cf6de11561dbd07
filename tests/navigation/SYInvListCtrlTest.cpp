#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "outside/services/SYConsoleApp.h"
#include "outside/widgets/SYAdminImages.h"
#include "outside/widgets/SYFontMetrics.h"
#include "rules/SYIdRuleItem.h"
#include "rules/SYIgnoreRuleItem.h"
#include "support/FaultSweep.h"
#include "support/InventoryFixture.h"

namespace {

using InvListTest = InventoryFixture;

int padded(const std::string& text) {
    return SYFontMetrics::TextWidth(text) + SYFontMetrics::ColumnPadding;
}

TEST_F(InvListTest, EachModeShowsItsColumnsAtLeastAsWideAsTheirSamples) {
    struct Mode {
        int mode;
        Strings titles;
        std::vector<int> formats;
        Strings samples;
    };
    const Strings app{"SAMPLE_X Software SAMPLE1 Client", "8.8.8.8888"};
    const Strings file{"OOOOOOOOOOOOO", "0,000,000", "10/00/0000 12:00 AM"};
    const std::vector<Mode> modes = {
        {list.CompanyListMode(), {"Name"}, {0}, {"SAMPLE2 Software Information Management Group"}},
        {list.AppListMode(), {"Name", "Version"}, {0, 0}, app},
        {list.ExcludedFilesMode(), {"File", "Size", "Mod Time"}, {0, 1, 0}, file},
        {list.UnidFilesMode(), {"File", "Size", "Mod Time"}, {0, 1, 0}, file},
        {list.PalmAppListMode(), {"Name", "Version"}, {0, 0}, app},
        {list.RIMAppListMode(), {"Name", "Version"}, {0, 0}, app},
    };
    for (const Mode& m : modes) {
        SCOPED_TRACE(m.mode);
        list.SwitchMode(m.mode);
        ASSERT_EQ(list.GetColumnCount(), static_cast<int>(m.titles.size()));
        for (int c = 0; c < list.GetColumnCount(); ++c) {
            const auto i = static_cast<std::size_t>(c);
            EXPECT_EQ(list.GetColumnTitle(c), m.titles[i]);
            EXPECT_EQ(list.GetColFormat(c), m.formats[i]);
            EXPECT_EQ(list.GetHdrFormat(c), m.formats[i]);
            EXPECT_EQ(list.GetColWidth(c), std::max(padded(m.titles[i]), padded(m.samples[i])));
        }
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

    // The same mode for another platform changes only the platform.
    list.ClickHeader(1);
    list.SetAppListMode(1);
    EXPECT_EQ(list.InvDataType(), 1);
    EXPECT_EQ(list.SortColumn(), 1);
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
    EXPECT_EQ(Rows(), (Strings{"(No Company)", "Acme Corp.", "Zeta"}));
    EXPECT_EQ(list.GetItemImage(0), SYAdminImages::ImagePPCCompany);
    list.ClickHeader(0);
    EXPECT_EQ(Rows(), (Strings{"Zeta", "Acme Corp.", "(No Company)"}));
    list.SelectItem(0);
    EXPECT_EQ(list.GetSelectedAppID(), 0u);
}

TEST_F(InvListTest, ApplicationsSortByColumnWithAscendingTieBreaks) {
    const auto first = AddApp(1, "Acme", "acme", "Tool", "2.0");
    AddApp(1, "Acme", "acme", "Tool", "10.0");
    AddApp(1, "Acme", "acme", "Editor", "2.0");
    AddApp(1, "Other", "other", "Elsewhere", "1");
    list.SetAppListMode(1);
    list.BuildAppList("ACME");
    EXPECT_EQ(Rows(), (Strings{"Editor\t2.0", "Tool\t10.0", "Tool\t2.0"}));
    EXPECT_EQ(list.GetItemImage(0), SYAdminImages::ImagePPCApp);

    list.ClickHeader(0);
    EXPECT_EQ(Rows(), (Strings{"Tool\t10.0", "Tool\t2.0", "Editor\t2.0"}));
    list.ClickHeader(1);
    EXPECT_EQ(Rows(), (Strings{"Tool\t10.0", "Editor\t2.0", "Tool\t2.0"}));
    list.ClickHeader(1);
    EXPECT_EQ(Rows(), (Strings{"Editor\t2.0", "Tool\t2.0", "Tool\t10.0"}));

    list.SelectItem(1);
    EXPECT_EQ(list.GetSelectedAppID(), first);
    EXPECT_EQ(list.GetSelectedPalmAppID(), 0);
    EXPECT_EQ(list.FindApplication(first), 1);
}

TEST_F(InvListTest, FileListsReadTheirFilterAndSortDescendingOnSize) {
    AddFile(1, "b.dll", 200, 1000);
    AddFile(1, "a.dll", 200, 2000);
    AddFile(1, "c.dll", 100, 3000);
    const auto ignored = AddFile(1, "ignored.tmp", 5, 0, 3);
    AddFile(0, "pc.exe", 5, 0);
    list.SetUnidFilesMode(1);
    list.BuildUnidFiles();
    EXPECT_EQ(Column(0), (Strings{"a.dll", "b.dll", "c.dll"}));
    EXPECT_EQ(list.GetItemImage(0), SYAdminImages::ImageFile);
    list.ClickHeader(1);
    list.ClickHeader(1);
    EXPECT_EQ(Column(0), (Strings{"a.dll", "b.dll", "c.dll"})) << "equal sizes stay by name";
    EXPECT_EQ(Column(1), (Strings{"200", "200", "100"}));

    list.SetExcludedFilesMode(1);
    list.BuildExcludes();
    EXPECT_EQ(Rows(), (Strings{"ignored.tmp\t5\tAny"}));
    list.SelectItem(0);
    EXPECT_EQ(list.GetSelectedFileID(), ignored);
    EXPECT_EQ(list.GetSelectedAppID(), 0u);
}

TEST_F(InvListTest, ASortMovesEachRowWithItsRecordAndSelection) {
    const auto big = AddFile(1, "a.dll", 300, 1000);
    AddFile(1, "b.dll", 200, 3000);
    AddFile(1, "c.dll", 100, 2000);
    list.SetUnidFilesMode(1);
    list.BuildUnidFiles();
    list.SelectItem(0);
    const std::vector<std::pair<int, Strings>> clicks = {
        {1, {"c.dll", "b.dll", "a.dll"}},
        {1, {"a.dll", "b.dll", "c.dll"}},
        {2, {"a.dll", "c.dll", "b.dll"}},
    };
    for (const auto& [column, names] : clicks) {
        list.ClickHeader(column);
        ASSERT_EQ(Column(0), names);
        for (int row = 0; row < list.GetItemCount(); ++row) {
            const auto* file = dynamic_cast<const SYAppFileItem*>(
                list.Data()[static_cast<int>(list.GetItemData(row))]);
            ASSERT_NE(file, nullptr);
            EXPECT_EQ(file->FileName(), names[static_cast<std::size_t>(row)]) << "row " << row;
        }
        EXPECT_EQ(list.GetSelectedCount(), 1);
        EXPECT_EQ(list.GetSelectedFileID(), big);
    }
}

TEST_F(InvListTest, HandheldListsNameTheirApplications) {
    const auto memo = AddPalmApp("MemoPad", "1.0", "Memos");
    AddPalmApp("Clock", "2", "Clock");
    AddPalmApp("Calc", "", "");
    list.SetPalmAppListMode();
    list.BuildPalmAppList();
    EXPECT_EQ(Rows(), (Strings{"Calc", "Clock\t2", "Memos  (MemoPad)\t1.0"}));
    EXPECT_EQ(list.GetItemImage(0), SYAdminImages::ImagePalmApp);
    list.SelectItem(2);
    EXPECT_EQ(list.GetSelectedPalmAppID(), memo);
    EXPECT_EQ(list.GetSelectedAppID(), 0u);
    EXPECT_EQ(list.GetSelectedRIMAppID(), 0);
    EXPECT_EQ(list.FindApplication(memo), -1);

    const auto mail = AddRIMApp("Mail", "4.0");
    list.SetRIMAppListMode();
    list.BuildRIMAppList();
    EXPECT_EQ(Rows(), Strings{"Mail\t4.0"});
    EXPECT_EQ(list.GetItemImage(0), SYAdminImages::ImageRIMApp);
    list.SelectItem(0);
    EXPECT_EQ(list.GetSelectedRIMAppID(), mail);
    list.ClearData();
    EXPECT_EQ(list.GetItemCount() + list.Data().GetSize(), 0);
}

TEST_F(InvListTest, RemovingMatchingFilesKeepsTheSelectionNumber) {
    for (const char* name : {"a.dll", "b.dll", "keep.dll", "x.dll"})
        AddFile(1, name, 10, 1000);
    AddFile(1, "X.DLL", 20, 1000);
    list.SetUnidFilesMode(1);
    struct Case {
        std::vector<int> selected;
        Strings rules;
        Strings left;
        std::vector<int> selectedAfter;
    };
    const std::vector<Case> cases = {
        {{1}, {"a.dll"}, {"b.dll", "keep.dll", "x.dll", "X.DLL"}, {1}},
        {{4}, {"x.dll"}, {"a.dll", "b.dll", "keep.dll"}, {2}},
        {{0, 2}, {"A.DLL"}, {"b.dll", "keep.dll", "x.dll", "X.DLL"}, {1}},
        {{0}, {"a.dll", "b.dll", "keep.dll", "x.dll"}, {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.rules.front());
        list.BuildUnidFiles();
        ASSERT_EQ(Column(0), (Strings{"a.dll", "b.dll", "keep.dll", "x.dll", "X.DLL"}));
        for (int row : c.selected)
            list.SetItemState(row, LVIS_SELECTED, LVIS_SELECTED);
        for (const std::string& name : c.rules) {
            SYIgnoreRuleItem rule;
            rule.SetFileName(name);
            list.RemoveMatchingFiles(&rule);
        }
        EXPECT_EQ(Column(0), c.left);
        EXPECT_EQ(list.GetSelectedRows(), c.selectedAfter);
        EXPECT_TRUE(list.IsRedrawOn());
        // The records went with the rows: a redisplay does not bring them back.
        list.ClickHeader(0);
        list.ClickHeader(0);
        EXPECT_EQ(Column(0), c.left);
    }
}

TEST_F(InvListTest, FileRuleChangesReachOnlyFileListsOfTheirPlatform) {
    AddFile(1, "a.dll", 10, 1000);
    AddFile(1, "a.dll", 10, 2000, 3);
    SYIdRuleItem id;
    id.SetFileName("a.dll");
    SYIgnoreRuleItem ignore;
    ignore.SetFileName("A.DLL");
    list.SetUnidFilesMode(1);
    list.BuildUnidFiles();
    list.IdentifyFile(&id, 0);
    list.ExcludeFile(&ignore, 0);
    EXPECT_EQ(list.GetItemCount(), 1) << "another platform's rules";
    list.ExcludeFile(&ignore, 1);
    EXPECT_EQ(list.GetItemCount(), 0) << "the unidentified list only loses";
    list.SetExcludedFilesMode(1);
    list.BuildExcludes();
    list.IdentifyFile(&id, 1);
    EXPECT_EQ(list.GetItemCount(), 0);
}

TEST_F(InvListTest, ExcludeFileReadsTheRuleFilesByItsNameSizeAndTime) {
    AddFile(1, "old.exe", 10, 1000, 3);
    AddFile(1, "new.exe", 10, 1000, 0);
    list.SetExcludedFilesMode(1);
    list.BuildExcludes();
    ASSERT_EQ(Column(0), Strings{"old.exe"});

    // The store has since applied the rule: these files are ignored now.
    AddFile(1, "tool.exe", 10, 1000, 3);
    AddFile(1, "tool.exe", 10, 5000, 3);
    AddFile(1, "tool.exe", 99, 1000, 3);
    SYIgnoreRuleItem rule;
    rule.SetFileName("TOOL.EXE");
    rule.SetFileSize(10, 0);
    list.ExcludeFile(&rule, 1);
    EXPECT_EQ(Column(0), (Strings{"old.exe", "tool.exe", "tool.exe"}));
    EXPECT_EQ(Column(1), (Strings{"10", "10", "10"}));
    SYIgnoreRuleItem timed;
    timed.SetFileName("tool.exe");
    timed.SetModTime(CTime(5000));
    list.ExcludeFile(&timed, 1);
    EXPECT_EQ(Column(1), (Strings{"10", "10", "10"})) << "the time filters too";
    EXPECT_TRUE(reports.Empty());
}

TEST_F(InvListTest, IgnoredApplicationLeavesTheAppListAndCompanyListIsReread) {
    const auto tool = AddApp(1, "Acme", "acme", "Tool", "1");
    AddApp(1, "Acme", "acme", "Editor", "1");
    list.SetAppListMode(1);
    list.BuildAppList("acme");
    list.IgnoreApplication(tool, 0);
    EXPECT_EQ(list.GetItemCount(), 2) << "another platform's application";
    list.IgnoreApplication(tool, 1);
    EXPECT_EQ(Rows(), Strings{"Editor\t1"});
    list.ClickHeader(0);
    EXPECT_EQ(Rows(), Strings{"Editor\t1"});

    list.SetCompanyListMode(1);
    list.BuildCompanies();
    ASSERT_EQ(Rows(), Strings{"Acme"});
    Run("UPDATE [PPC Applications] SET AppInstalled = 0");
    list.IgnoreApplication(tool, 1);
    EXPECT_EQ(list.GetItemCount(), 0);
}

TEST_F(InvListTest, EveryFailedBuildIsReportedAndMakesNoRows) {
    AddApp(1, "Acme", "acme", "Tool", "1");
    AddFile(1, "a.dll", 10, 1000);
    AddFile(1, "b.dll", 10, 1000, 3);
    AddPalmApp("MemoPad", "1.0");
    AddRIMApp("Mail", "4.0");
    using Build = std::function<void()>;
    const std::vector<std::pair<Build, Build>> builds = {
        {[&] { list.SetCompanyListMode(1); }, [&] { list.BuildCompanies(); }},
        {[&] { list.SetAppListMode(1); }, [&] { list.BuildAppList("acme"); }},
        {[&] { list.SetExcludedFilesMode(1); }, [&] { list.BuildExcludes(); }},
        {[&] { list.SetUnidFilesMode(1); }, [&] { list.BuildUnidFiles(); }},
        {[&] { list.SetPalmAppListMode(); }, [&] { list.BuildPalmAppList(); }},
        {[&] { list.SetRIMAppListMode(); }, [&] { list.BuildRIMAppList(); }},
    };
    for (std::size_t i = 0; i < builds.size(); ++i) {
        SCOPED_TRACE(i);
        builds[i].first();
        for (FaultSweep sweep(db); sweep.Next();) {
            reports.Clear();
            sweep.Arm();
            builds[i].second();
            const bool failed = sweep.Fired();
            EXPECT_EQ(ReportKinds(), failed ? Strings{"CDBException"} : Strings{});
            EXPECT_EQ(list.GetItemCount(), failed ? 0 : 1) << "every build reads its row";
            EXPECT_TRUE(list.IsRedrawOn());
            EXPECT_EQ(SYGetApp().WaitCursorCount(), 0);
        }
    }
}

} // namespace
