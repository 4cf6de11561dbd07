#pragma once

#include <cstdint>
#include <string>

#include "SYCliTreeWnd.h"
#include "details/SYAppTabWnd.h"
#include "details/SYPalmAppTabWnd.h"
#include "details/SYRIMAppTabWnd.h"
#include "navigation/SYInvListCtrl.h"
#include "outside/widgets/SYWnd.h"
#include "rules/SYSWRule.h"

class SYDatabase;
class SYListCtrlEx;

// The console's side of the library, apart from any terminal: it owns the tree, the list and
// the three application views on one open inventory, answers the tree's selection, and runs
// the commands of the library's menus and the console's own. The front end only draws what
// these windows hold and turns keys into calls here.
class SYTermConsole {
public:
    // Which half of the screen a command comes from.
    enum class Pane { Tree, Right };
    // What the right half shows.
    enum class View { List, App, PalmApp, RIMApp };

    // The console's own commands, below the library's numbers.
    enum Command : int {
        CmdRuleConfiguration = 1001,
        CmdPrint,
        CmdSearch,
        CmdSearchNext,
        CmdRefresh,
        CmdHelp,
        CmdQuit,
    };

    explicit SYTermConsole(SYDatabase& database);
    ~SYTermConsole();
    SYTermConsole(const SYTermConsole&) = delete;
    SYTermConsole& operator=(const SYTermConsole&) = delete;

    // Creates the windows on the database, fills the tree and selects its first root.
    int Start();
    // Lays the windows out for a screen of this many character cells.
    void Resize(int cols, int rows, int treeCols);

    SYInvTreeWnd& Tree() { return m_tree; }
    SYTreeCtrlEx& TreeCtrl() { return m_tree.GetTreeCtrl(); }
    SYInvListCtrl& List() { return m_list; }
    SYAppTabWnd& AppView() { return m_appView; }
    View Shown() const { return m_view; }
    // The tab window on the right, or null while the list is shown.
    SYTabWnd* ShownTabWnd();
    // The list the right half shows: the inventory list or the active page's list.
    SYListCtrlEx* RightList();
    // The title over the right half.
    std::string RightTitle();
    // The inventory data type of the tree's selection.
    std::uint8_t SelectedPlatform();

    // Builds a company before it opens, then opens or closes the node.
    void Toggle(HTREEITEM node);
    void Expand(HTREEITEM node);
    // Gives the right half's keyboard focus to its list, so the views answer for it.
    void FocusRight();

    // The library's context menu for the pane's selection, or 0.
    int ContextMenu(Pane pane);
    // What Enter or a double click opens in the right half's list.
    void OpenRight();
    // Runs a command of the library's menus or of the console; 0 if it could not run.
    int Run(int command, Pane pane);
    // Runs what the views posted to the main window (their double clicks).
    void DrainPosted(Pane pane);
    // Refills the tree and what the selection shows.
    void Refresh();

    // Selects the next node below or after the selection that holds the text, or whose
    // contents hold it, opening companies and picking the matching row on the way.
    int Search(const std::string& text);
    const std::string& LastSearch() const { return m_lastSearch; }

    // Prints the right half to a PDF file in the folder; gives its path, empty on failure.
    std::string Print();
    void SetPrintFolder(const std::string& folder) { m_printFolder = folder; }
    // A line for the status bar from the last command (a printed file, a search miss).
    const std::string& Note() const { return m_note; }
    void ClearNote() { m_note.clear(); }

private:
    struct Target {
        std::uint32_t id = 0;
        std::uint8_t platform = 0;
    };

    void OnSelectionChanged();
    void ShowSelection();
    HTREEITEM RootOf(HTREEITEM node) const;
    Target SelectedFile(Pane pane);
    Target SelectedApp(Pane pane);
    int IdentifyFile(Target file);
    int IgnoreFile(Target file);
    // Runs a file's rule dialog on the console's engine and applies what it wrote; nonzero
    // when it closed with OK.
    template <class Dialog> int RunFileRuleDialog(Dialog& dialog, Target file);
    // The views after a file's rule: the tree learns of the application the rule made
    // through a refresh.
    int AfterFileRule();
    int IgnoreApplication(Target app);
    int FileProperties(Target file);
    int InstallationDetails();
    int RuleConfiguration();
    int ViewApplications();
    int ViewApplication();
    // Hands the engine's noted changes to the rule service; 0 if it failed.
    int ApplyRuleChanges();
    void UpdateTree();
    bool SelectMatchingRow(SYListCtrlEx* list, const std::string& lower);
    HTREEITEM NextOutside(HTREEITEM node) const;

    SYDatabase& m_database;
    SYWnd m_frame;
    SYCliTreeWnd m_tree;
    SYInvListCtrl m_list;
    SYAppTabWnd m_appView;
    SYPalmAppTabWnd m_palmView;
    SYRIMAppTabWnd m_rimView;
    SYSWRule m_engine;
    View m_view = View::List;
    std::uint8_t m_appPlatform = 0;
    bool m_updating = false;
    std::string m_lastSearch;
    std::string m_printFolder = ".";
    std::string m_note;
};
