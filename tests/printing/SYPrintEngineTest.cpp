#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <unistd.h>

#include "outside/widgets/CDC.h"
#include "outside/widgets/SYPrintEngine.h"
#include "outside/widgets/SYPrintEngineText.h"
#include "outside/widgets/SYPrintableList.h"
#include "outside/widgets/SYWndPrintEngine.h"
#include "support/TempDir.h"

namespace {

class FakeList : public SYPrintableList {
public:
    std::vector<Column> columns;
    std::vector<std::vector<std::string>> rows;

    std::vector<Column> PrintColumns() const override { return columns; }
    std::vector<std::vector<std::string>> PrintRows() const override { return rows; }
};

FakeList clients(int count) {
    FakeList list;
    list.columns = {{"Client", 100, 0}, {"Size", 60, 1}};
    for (int i = 1; i <= count; ++i)
        list.rows.push_back({"PC" + std::to_string(i), std::to_string(i * 100)});
    return list;
}

// Removes the installed chooser and the scratch files, whatever a test did.
class PrintEngineTest : public ::testing::Test {
protected:
    void SetUp() override { std::filesystem::create_directories(m_dir); }
    void TearDown() override {
        SYPrintEngine::SetDestinationChooser(nullptr);
        std::filesystem::remove_all(m_dir);
    }
    std::filesystem::path Scratch(const std::string& name) { return m_dir / name; }

private:
    std::filesystem::path m_dir =
        std::filesystem::path(::testing::TempDir()) / ("tv-print-" + std::to_string(::getpid()));
};

TEST_F(PrintEngineTest, LabelledDataLinesUpLabelsAndRightJustifiedNumbers) {
    SYWndPrintEngine engine(nullptr, "Application File Client List");
    EXPECT_EQ(engine.AddList(FakeList(), nullptr), 0) << "no printable columns, nothing added";
    EXPECT_TRUE(engine.IsEmpty());
    SYPeDataLabeledList* data = engine.AddLabeledDataList(engine.GetDC());
    data->AddData("File name:", "app.exe", 0);
    data->AddData("Total clients:", "7", 1);
    data->AddData("Total installations:", "1,024", 1);
    engine.AddBreak();
    ASSERT_NE(engine.AddList(clients(2), engine.GetDC()), 0);

    EXPECT_EQ(engine.RenderText(), "Application File Client List\n"
                                   "\n"
                                   "File name:            app.exe\n"
                                   "Total clients:              7\n"
                                   "Total installations:    1,024\n"
                                   "\n"
                                   "Client  Size\n"
                                   "------  ----\n"
                                   "PC1      100\n"
                                   "PC2      200\n");
}

TEST_F(PrintEngineTest, LongTablesRepeatTitleAndHeadingOnEveryPage) {
    SYPrintEngine engine;
    engine.SetTitle("Devices");
    CDC dc;
    // Ten lines a page: title, blank, heading (2) and six rows.
    ASSERT_NE(dc.SetPageSize(CDC::LetterWidth, 72 + 10 * dc.LineHeight()), 0);
    engine.AddList(clients(13), &dc);

    const auto pages = engine.Paginate();
    ASSERT_EQ(pages.size(), 3u);
    for (const auto& page : pages) {
        ASSERT_GE(page.size(), 5u);
        EXPECT_EQ(page[0], "Devices");
        EXPECT_EQ(page[2], "Client  Size");
        EXPECT_LE(page.size(), 10u);
    }
    EXPECT_EQ(pages[1][4], "PC7      700");
    EXPECT_EQ(pages[2].back(), "PC13    1300");
    const std::string text = engine.RenderText();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\f'), 2);
}

TEST_F(PrintEngineTest, AHeadingIsNotLeftAloneAtTheFootOfAPage) {
    SYPrintEngine engine;
    CDC dc;
    // Five lines a page: after three, the heading's two would fit but not its row.
    ASSERT_NE(dc.SetPageSize(CDC::LetterWidth, 72 + 5 * dc.LineHeight()), 0);
    SYPeDataLabeledList* data = engine.AddLabeledDataList(&dc);
    for (const char* label : {"a", "b", "c"})
        data->AddData(label, "1", 0);
    engine.AddList(clients(1), &dc);

    const auto pages = engine.Paginate();
    ASSERT_EQ(pages.size(), 2u);
    EXPECT_EQ(pages[0].size(), 3u);
    EXPECT_EQ(pages[1], (std::vector<std::string>{"Client  Size", "------  ----", "PC1      100"}));
}

TEST_F(PrintEngineTest, PageBreaksStartANewPageOnlyAfterContent) {
    SYPrintEngine engine;
    engine.AddPageBreak();
    engine.AddLabeledDataList(nullptr)->AddData("first", "1", 0);
    engine.AddPageBreak();
    engine.AddPageBreak();
    engine.AddLabeledDataList(nullptr)->AddData("second", "2", 0);
    EXPECT_EQ(engine.RenderText(), "first  1\n\fsecond  2\n");
}

TEST_F(PrintEngineTest, NarrowPagesShrinkTheWidestColumnAndWrapValues) {
    SYPrintEngine engine;
    CDC dc;
    ASSERT_NE(dc.SetPageSize(72 + 20 * dc.CharWidth(), CDC::LetterHeight), 0);
    FakeList list;
    list.columns = {{"Location", 0, 0}, {"N", 0, 1}};
    list.rows = {{"C:\\Program Files\\Application", "12"}};
    engine.AddList(list, &dc);
    engine.AddLabeledDataList(&dc)->AddData("Path:", "one two three four five", 0);
    EXPECT_EQ(engine.RenderText(), "Location           N\n"
                                   "----------------  --\n"
                                   "C:\\Program Fi...  12\n"
                                   "Path:  one two three\n"
                                   "       four five\n");
}

TEST_F(PrintEngineTest, AJobNeedsADestinationAndStartsEmpty) {
    SYWndPrintEngine engine(nullptr, "Client List");
    EXPECT_EQ(engine.BeginPrinting(), 0);
    EXPECT_EQ(engine.PrintSetup(SYPrintEngine::PrintSetupNoPrompt), 0);
    EXPECT_EQ(engine.Print(), 0);

    const auto path = Scratch("list.txt");
    std::string asked;
    SYPrintEngine::SetDestinationChooser([&](const SYPrintEngine& job) {
        asked = job.Title();
        return asked.empty() ? std::string() : path.string();
    });
    ASSERT_NE(engine.PrintSetup(0), 0);
    EXPECT_EQ(asked, "Client List");
    engine.AddLabeledDataList(nullptr)->AddData("stale", "x", 0);
    ASSERT_NE(engine.BeginPrinting(), 0);
    engine.AddLabeledDataList(engine.GetDC())->AddData("Total clients:", "3", 1);
    ASSERT_NE(engine.Print(), 0);
    EXPECT_EQ(readFile(path), "Client List\n\nTotal clients:  3\n");
    EXPECT_EQ(engine.Print(), 0) << "the job has ended";

    SYPrintEngine::SetDestinationChooser([](const SYPrintEngine&) { return std::string(); });
    EXPECT_EQ(engine.PrintSetup(0), 0) << "the user cancelled";
    EXPECT_EQ(engine.BeginPrinting(), 0);
    engine.SetDestination((Scratch("none") / "missing" / "out.txt").string());
    ASSERT_NE(engine.PrintSetup(SYPrintEngine::PrintSetupNoPrompt), 0);
    ASSERT_NE(engine.BeginPrinting(), 0);
    EXPECT_EQ(engine.Print(), 0) << "an unwritable destination";
}

TEST_F(PrintEngineTest, PdfReadsBackWithItsLinesAndPages) {
#ifndef TV_HAVE_CAIRO
    GTEST_SKIP() << "built without PDF output";
#else
    if (std::system("command -v pdftotext >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "pdftotext is not installed";
    const auto pdf = Scratch("clients.PDF");
    const auto text = Scratch("clients.txt");
    SYWndPrintEngine engine(nullptr, "Application File Client List");
    engine.SetDestination(pdf.string());
    ASSERT_NE(engine.PrintSetup(SYPrintEngine::PrintSetupNoPrompt), 0);
    ASSERT_NE(engine.BeginPrinting(), 0);
    CDC dc;
    ASSERT_NE(dc.SetPageSize(CDC::A4Width, 72 + 12 * dc.LineHeight()), 0);
    engine.AddLabeledDataList(&dc)->AddData("Total clients:", "12", 1);
    engine.AddBreak();
    engine.AddList(clients(20), &dc);
    ASSERT_NE(engine.Print(), 0);

    const std::string command = "pdftotext -layout '" + pdf.string() + "' '" + text.string() + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    const std::string read = readFile(text);
    // pdftotext's spacing need not match ours: compare lines with single blanks.
    std::vector<std::string> lines;
    std::istringstream stream(read);
    for (std::string line; std::getline(stream, line);) {
        std::istringstream words(line);
        std::string joined;
        for (std::string word; words >> word;)
            joined += (joined.empty() ? "" : " ") + word;
        if (!joined.empty())
            lines.push_back(joined);
    }
    EXPECT_EQ(std::count(read.begin(), read.end(), '\f'), 3);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "Application File Client List"), 3);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "Client Size"), 3);
    EXPECT_EQ(lines[1], "Total clients: 12");
    EXPECT_EQ(lines.back(), "PC20 2000");
#endif
}

TEST(CDC, MeasuresCharactersAndRefusesPagesWithoutRoom) {
    CDC dc;
    EXPECT_EQ(dc.CharsPerLine(), 90);
    EXPECT_EQ(dc.LinesPerPage(), 60);
    EXPECT_EQ(dc.GetTextExtent("Größe"), 5 * dc.CharWidth());
    EXPECT_EQ(dc.SetMargins(300, 36, 312, 36), 0);
    EXPECT_EQ(dc.SetPageSize(72, 72), 0);
    EXPECT_EQ(dc.CharsPerLine(), 90);
    ASSERT_NE(dc.SetFontSize(9), 0);
    EXPECT_EQ(dc.CharWidth(), 6); // rounded up, so a line never overruns its margin
}

TEST(PrintText, FitsCutsAndWrapsWholeCharacters) {
    EXPECT_EQ(printtext::Fit("ab", 5, 1), "   ab");
    EXPECT_EQ(printtext::Fit("ab", 5, 2), " ab  ");
    EXPECT_EQ(printtext::Fit("abcdefg", 3, 0), "abc");
    EXPECT_EQ(printtext::Fit("ÄÖÜäöü", 5, 0), "ÄÖ...");
    EXPECT_EQ(printtext::Wrap("abcdefghij", 4), (std::vector<std::string>{"abcd", "efgh", "ij"}));
}

} // namespace
