#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "outside/widgets/CDC.h"
#include "outside/widgets/SYPeDataLabeledList.h"

class SYPrintableList;
class SYWnd;

// Builds a print-out as a document of blocks (labelled data, blank lines, tables) and
// prints it to a file: a PDF when the destination ends in ".pdf", plain text otherwise,
// with form feeds between pages. A job runs PrintSetup, BeginPrinting, the Add calls, Print.
class SYPrintEngine {
public:
    // PrintSetup flag: take the destination already set and ask no one.
    static constexpr int PrintSetupNoPrompt = 1;

    // Asked by PrintSetup for the file to print to; an empty answer cancels the job. The
    // console installs one that asks the user, tests one that names a scratch file.
    using DestinationChooser = std::function<std::string(const SYPrintEngine&)>;
    static void SetDestinationChooser(DestinationChooser chooser);

    SYPrintEngine() = default;
    virtual ~SYPrintEngine() = default;
    SYPrintEngine(const SYPrintEngine&) = delete;
    SYPrintEngine& operator=(const SYPrintEngine&) = delete;

    // The heading of every page; none when empty.
    void SetTitle(std::string title) { m_title = std::move(title); }
    const std::string& Title() const { return m_title; }
    // The window the job is printed for, if any.
    virtual SYWnd* Owner() const { return nullptr; }

    // The engine's device context. A device context handed to an Add call sets the page
    // for the whole document.
    CDC* GetDC() { return &m_dc; }
    const CDC& DC() const { return m_dc; }

    void SetDestination(std::string path) { m_destination = std::move(path); }
    const std::string& Destination() const { return m_destination; }

    // Settles the destination: the chooser's answer, or without a chooser (or with
    // PrintSetupNoPrompt) the one already set. Gives 0 if there is none.
    int PrintSetup(int flags);
    // Starts a new, empty document. Gives 0 unless PrintSetup succeeded.
    int BeginPrinting();
    // Writes the document to the destination and ends the job. Gives 0 if no job was begun
    // or the file could not be written.
    int Print();

    // A new labelled data block at the end of the document; the engine owns it.
    SYPeDataLabeledList* AddLabeledDataList(CDC* dc);
    // A blank line.
    void AddBreak();
    // The next block starts on a new page.
    void AddPageBreak();
    // A table of the list's printable columns and rows, its heading repeated on each page
    // it runs over. Gives 0, adding nothing, for a list without printable columns.
    int AddList(const SYPrintableList& list, CDC* dc);
    bool IsEmpty() const { return m_blocks.empty(); }

    // The document set in pages of lines for the engine's device context.
    std::vector<std::vector<std::string>> Paginate() const;
    // The pages as text: lines end in "\n", pages are divided by "\f".
    std::string RenderText() const;
    int WriteText(const std::string& path) const;
    // Gives 0 if the file cannot be written or PDF output is not built in.
    int WritePdf(const std::string& path) const;

private:
    struct Table {
        std::vector<std::string> titles;
        std::vector<int> formats;
        std::vector<std::vector<std::string>> rows;
    };
    struct Block {
        enum class Kind { Data, Break, PageBreak, Table } kind;
        std::unique_ptr<SYPeDataLabeledList> data;
        Table table;
    };
    class Paginator;

    void TakePage(const CDC* dc);
    std::vector<std::string> LayoutTable(const Table& table, int width,
                                         std::vector<std::string>& heading) const;

    static DestinationChooser& chooser();

    std::string m_title;
    CDC m_dc;
    std::string m_destination;
    bool m_setUp = false;
    bool m_begun = false;
    std::vector<Block> m_blocks;
};
