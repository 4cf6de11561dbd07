#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "outside/services/SYStringTable.h"
#include "outside/widgets/SYFontMetrics.h"
#include "outside/widgets/SYListCtrlEx.h"

namespace {

struct Owner : SYWnd {
    Owner() { Create(SYControlKind::Static, 1, "page", {0, 0, 400, 16 * 11}, nullptr); }
};

class ListTest : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(list.Initialize(13204, 4052, 0x808000, 14, &owner));
        ASSERT_EQ(list.AddHeader("Name\t>Size"), 2);
    }
    void Fill(const std::vector<std::string>& names) {
        for (std::size_t i = 0; i < names.size(); ++i) {
            const int row = list.InsertBitmapString(6, -1, names[i] + "\t" + std::to_string(i));
            ASSERT_EQ(row, static_cast<int>(i));
            list.SetItemData(row, static_cast<std::uint32_t>(i));
        }
    }
    std::vector<std::string> Names(const std::vector<int>& rows) {
        std::vector<std::string> texts;
        for (int row : rows)
            texts.push_back(list.GetItemText(row, 0));
        return texts;
    }

    Owner owner;
    SYListCtrlEx list;
};

TEST_F(ListTest, SelectionsSurviveARebuildInAnotherOrder) {
    Fill({"delta", "alpha", "charlie", "bravo"});
    list.SetItemState(0, LVIS_SELECTED, LVIS_SELECTED);
    list.SetItemState(2, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    list.SaveSelections();

    // Rebuilt sorted with redraw off; the item data are row numbers again, as in lists
    // whose rows point into a sorted array, so only "charlie" keeps its word.
    list.SetRedraw(0);
    const int painted = list.PaintedChangeCount();
    const int invalidated = list.InvalidateCount();
    list.DeleteAllItems();
    const std::vector<std::string> sorted{"alpha\t1", "bravo\t3", "charlie\t2", "delta\t0"};
    for (std::size_t i = 0; i < sorted.size(); ++i)
        list.SetItemData(list.InsertBitmapString(6, -1, sorted[i]), static_cast<std::uint32_t>(i));
    EXPECT_EQ(list.PaintedChangeCount(), painted) << "nothing painted during the rebuild";
    list.SetRedraw(1);
    list.Invalidate(0);
    EXPECT_EQ(list.InvalidateCount(), invalidated + 1);

    list.RestoreSelections();
    EXPECT_EQ(Names(list.GetSelectedRows()), (std::vector<std::string>{"charlie", "delta"}));
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), 2);
}

TEST_F(ListTest, SelectionsFollowItemDataWhenTextsRepeatAndSingleSelectionHoldsOne) {
    list.SetItemData(list.InsertBitmapString(6, -1, "same\t0"), 100);
    list.SetItemData(list.InsertBitmapString(6, -1, "same\t0"), 200);
    list.SetItemState(1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    list.SaveSelections();
    list.DeleteAllItems();
    list.SetItemData(list.InsertBitmapString(6, -1, "other\t2"), 300);
    list.SetItemData(list.InsertBitmapString(6, -1, "same\t0"), 100);
    list.SetItemData(list.InsertBitmapString(6, -1, "same\t0"), 200);
    list.RestoreSelections();
    EXPECT_EQ(list.GetSelectedRows(), (std::vector<int>{2}));
    EXPECT_EQ(list.GetNextItem(-1, LVNI_FOCUSED), 2);

    list.SetItemState(0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    EXPECT_EQ(list.GetSelectedCount(), 2);
    EXPECT_EQ(list.GetItemState(2, LVIS_FOCUSED), 0u) << "one focused row";
    list.SetSingleSelection(1);
    list.SetItemState(1, LVIS_SELECTED, LVIS_SELECTED);
    EXPECT_EQ(list.GetSelectedRows(), (std::vector<int>{1}));
}

// The callback a page hands its list, with the page as argument.
void recordSort(int column, void* argument) {
    static_cast<std::vector<int>*>(argument)->push_back(column);
}

TEST_F(ListTest, HeaderClicksGoToTheCallbackOrToTheListsOwnSort) {
    Fill({"b", "C", "a"});
    EXPECT_TRUE(list.ClickHeader(0));
    EXPECT_EQ(Names({0, 1, 2}), (std::vector<std::string>{"a", "b", "C"}));
    EXPECT_TRUE(list.ClickHeader(0));
    EXPECT_EQ(Names({0, 1, 2}), (std::vector<std::string>{"C", "b", "a"}));
    EXPECT_EQ(list.GetItemData(0), 1u) << "item data move with their rows";

    std::vector<int> sorted;
    list.SetSortCallback(&recordSort, &sorted);
    EXPECT_TRUE(list.ClickHeader(1));
    EXPECT_TRUE(list.ClickHeader(1));
    EXPECT_FALSE(list.ClickHeader(2));
    EXPECT_EQ(sorted, (std::vector<int>{1, 1}));
    EXPECT_EQ(Names({0, 1, 2}), (std::vector<std::string>{"C", "b", "a"})) << "the callback sorts";

    list.SetHeaderClickable(0);
    EXPECT_FALSE(list.ClickHeader(0));
    EXPECT_EQ(sorted.size(), 2u);
}

TEST_F(ListTest, DoubleClickSelectsTheRowAndTellsTheOwner) {
    Fill({"a", "b"});
    int doubleClicks = 0;
    owner.MapNotify(13204, NM_DBLCLK, [&] {
        ++doubleClicks;
        EXPECT_EQ(list.GetSelectedItem(), 1);
    });
    EXPECT_TRUE(list.DoubleClickRow(1));
    EXPECT_FALSE(list.DoubleClickRow(5));
    EXPECT_EQ(doubleClicks, 1);
}

TEST_F(ListTest, ColumnsFromHeaderStringsAndSamples) {
    SYStringTable::Register(13999, "File\t>Size\t*Mod Time\t<120Path");
    SYListCtrlEx other;
    ASSERT_TRUE(other.Initialize(6, &owner));
    ASSERT_EQ(other.AddHeader(13999), 4);
    EXPECT_EQ(other.AddHeader(13998), 0) << "an unknown string adds nothing";
    const int pad = SYFontMetrics::ColumnPadding;
    EXPECT_EQ(other.GetColumnTitle(1), "Size");
    EXPECT_EQ(other.GetHdrFormat(1), SYAlignRight);
    EXPECT_EQ(other.GetHdrFormat(2), SYAlignCentre);
    EXPECT_EQ(other.GetColWidth(3), 120);
    other.SetupColumnsFromString("OOOOOOOOOOOOO\t0,000,000");
    EXPECT_EQ(other.GetColWidth(0), SYFontMetrics::TextWidth("OOOOOOOOOOOOO") + pad);
    EXPECT_EQ(other.GetColWidth(2), SYFontMetrics::TextWidth("Mod Time") + pad);
}

TEST_F(ListTest, ScrollingKeepsTheLastPageFullAndRowNumbersAreChecked) {
    for (int i = 0; i < 30; ++i)
        list.InsertBitmapString(-1, -1, "row " + std::to_string(i));
    ASSERT_EQ(list.GetCountPerPage(), 10);
    SYRect rect;
    ASSERT_TRUE(list.GetItemRect(0, rect));
    list.Scroll(0, rect.Height() * 100);
    EXPECT_EQ(list.GetTopIndex(), 20);
    list.EnsureVisible(3);
    EXPECT_EQ(list.GetTopIndex(), 3);
    list.EnsureVisible(25);
    EXPECT_EQ(list.GetTopIndex(), 16);

    EXPECT_EQ(list.InsertBitmapString(-1, 70, "end"), 30) << "past the end appends";
    EXPECT_FALSE(list.SetItemString(31, "x"));
    EXPECT_FALSE(list.DeleteItem(-1));
    EXPECT_EQ(SYListCtrlEx().InsertBitmapString(-1, -1, "x"), -1) << "no window, no rows";
}

TEST_F(ListTest, CellsGivenApartStayAsGivenAtTheirRow) {
    list.InsertBitmapString(-1, -1, "b\t2");
    EXPECT_EQ(list.InsertBitmapString(3, 0, std::vector<std::string>{"a\tb", "1"}), 0);
    EXPECT_EQ(list.GetItemText(0, 0), "a\tb") << "a tab inside a cell divides nothing";
    EXPECT_EQ(list.GetItemText(1, 0), "b");
}

TEST_F(ListTest, CsvQuotesWhatNeedsItAndLeavesOutHiddenColumns) {
    list.InsertColumn(2, "Note");
    list.InsertColumn(3, "Hidden", SYAlignLeft, 0);
    list.InsertBitmapString(-1, -1, "Acme, Inc.\t1,024\tsays \"hi\"\tsecret");
    list.InsertBitmapString(-1, -1, "plain\t2\t two\nlines");
    const std::string csv = "Name,Size,Note\r\n"
                            "\"Acme, Inc.\",\"1,024\",\"says \"\"hi\"\"\"\r\n"
                            "plain,2,\" two\nlines\"\r\n";
    EXPECT_EQ(list.MakeCsv(), csv);

    const std::string path = ::testing::TempDir() + "list.csv";
    ASSERT_TRUE(list.ExportCsv(path));
    std::ifstream file(path, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), csv);
    std::remove(path.c_str());
    EXPECT_FALSE(list.ExportCsv(::testing::TempDir() + "no/such/folder/list.csv"));
}

TEST_F(ListTest, PrintingLeavesOutExcludedAndHiddenColumns) {
    list.InsertColumn(2, "Hidden", SYAlignLeft, 0);
    list.InsertColumn(3, "Where");
    list.ExcludeColumnFromPrinting(0);
    list.InsertBitmapString(-1, -1, "a\t1\tx\tRAM");
    const auto columns = list.PrintColumns();
    ASSERT_EQ(columns.size(), 2u);
    EXPECT_EQ(columns[0].title, "Size");
    EXPECT_EQ(columns[0].format, SYAlignRight);
    EXPECT_EQ(list.PrintRows(), (std::vector<std::vector<std::string>>{{"1", "RAM"}}));
}

} // namespace
