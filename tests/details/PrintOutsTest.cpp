#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "details/SYAppTabWnd.h"
#include "details/SYPalmAppTabWnd.h"
#include "details/SYRIMAppTabWnd.h"
#include "outside/widgets/SYPrintEngine.h"
#include "support/DetailsInventory.h"
#include "support/TempDir.h"

namespace {

// Lines with runs of blanks made single; empty lines and the rules under headings dropped.
Strings Lines(const std::string& text) {
    Strings lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        std::istringstream words(line);
        std::string joined;
        for (std::string word; words >> word;)
            joined += (joined.empty() ? "" : " ") + word;
        if (joined.find_first_not_of("- ") != std::string::npos)
            lines.push_back(joined);
    }
    return lines;
}

class PrintOuts : public DetailsInventory {
protected:
    // Every page of the view, as the console prints it.
    template <class View> Strings Print(View& view, const std::string& destination = "") {
        SYPrintEngine engine;
        engine.SetDestination(destination.empty() ? dir.File("out.txt") : destination);
        EXPECT_NE(engine.PrintSetup(SYPrintEngine::PrintSetupNoPrompt), 0);
        EXPECT_NE(engine.BeginPrinting(), 0);
        view.SetupLayout();
        EXPECT_NE(view.BeginPrinting(engine.GetDC(), &engine, 1), 0);
        const Strings lines = Lines(engine.RenderText());
        EXPECT_NE(engine.Print(), 0);
        return lines;
    }

    TempDir dir;
};

TEST_F(PrintOuts, WindowsViewPrintsNameVersionCompanyFilesThenTotalsAndClients) {
    SYAppTabWnd view;
    ASSERT_NE(view.Initialize(100, &main), 0);
    view.SetDatabase(&db);
    ASSERT_EQ(view.LoadAppData(toolApp, 0), 1);
    EXPECT_EQ(Print(view),
              (Strings{"Name: Tool", "Version: 2.0", "Company: Acme", "File Size Mod Time",
                       "help.txt 10 Any", "tool.exe 5,000,000,000 1/1/1970 12:10:00 AM",
                       "Total clients: 2", "Total installations: 3", "Client Last Scan Location",
                       "PC-A C:\\Tool", "PC-A D:\\Tool", "pc-b 3/4/2026 C:\\Tool"}));
}

TEST_F(PrintOuts, HandheldViewsPrintTheirOwnOrderAndLeaveExcludedColumnsOut) {
    SYPalmAppTabWnd palm;
    ASSERT_NE(palm.Initialize(100, &main), 0);
    palm.SetDatabase(&db);
    ASSERT_EQ(palm.LoadAppData(clockApp), 1);
    const Strings lines = Print(palm);
    ASSERT_EQ(lines.size(), 7u);
    EXPECT_EQ(Strings(lines.begin(), lines.begin() + 5),
              (Strings{"Database: ClockDB", "Version:", "Creator ID: clck", "Application: Clock",
                       "Total clients: 1"}));
    EXPECT_EQ(lines[5].rfind("Client Where Size Total Size Create Date Backup Date Record", 0), 0u)
        << lines[5];
    EXPECT_EQ(lines[6].rfind("palm-b RAM 0 bytes 0 bytes", 0), 0u) << lines[6];
    SYRIMAppTabWnd rim;
    ASSERT_NE(rim.Initialize(101, &main), 0);
    rim.SetDatabase(&db);
    ASSERT_EQ(rim.LoadAppData(notesApp), 1);
    EXPECT_EQ(Print(rim), (Strings{"Name: Notes", "Version:", "Total clients: 1", "Client", "aa"}));
}

TEST_F(PrintOuts, WindowsViewReadsBackFromPdf) {
#ifndef TV_HAVE_CAIRO
    GTEST_SKIP() << "built without PDF output";
#else
    if (std::system("command -v pdftotext >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "pdftotext is not installed";
    SYAppTabWnd view;
    ASSERT_NE(view.Initialize(100, &main), 0);
    view.SetDatabase(&db);
    ASSERT_EQ(view.LoadAppData(toolApp, 0), 1);
    const std::string pdf = dir.File("tool.pdf");
    const Strings printed = Print(view, pdf);
    const std::string command = "pdftotext -layout '" + pdf + "' '" + dir.File("tool.txt") + "'";
    ASSERT_EQ(std::system(command.c_str()), 0);
    std::ifstream in(dir.File("tool.txt"));
    std::stringstream read;
    read << in.rdbuf();
    EXPECT_EQ(Lines(read.str()), printed);
#endif
}

} // namespace
