#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "outside/widgets/SYMessageBox.h"
#include "outside/widgets/SYModalHost.h"

class CDialog;

// A modal host for tests. It is installed for its lifetime and plays a script: for each
// dialog, sheet, message box and file dialog expected, in the order they will open, what
// the user does there. Anything that opens unexpected, or out of order, fails the test (the
// dialog gets IDCANCEL without showing, a message box its default answer), and so does an
// expectation left unused when the host goes. Every message box is logged.
class SYScriptedModalHost : public SYModalHost {
public:
    // What the user does in one dialog, in order. Each step that the user could not do
    // (no such control, a disabled control, a closed dialog) fails the test.
    class DialogScript {
    public:
        DialogScript& Type(unsigned id, const std::string& text);
        // Clicks a check box or radio button if its state is not already the one asked.
        DialogScript& Check(unsigned id, int checked = 1);
        DialogScript& Click(unsigned id);
        DialogScript& SelectRow(unsigned id, int row);
        DialogScript& DoubleClickRow(unsigned id, int row);
        DialogScript& ClickHeader(unsigned id, int column);
        DialogScript& PickDate(unsigned id, int year, int month, int day, int hour = 0,
                               int minute = 0, int second = 0);
        // Brings a page of a property sheet to the front.
        DialogScript& SelectPage(int index);
        // Looks at the open dialog, to assert on its state in the middle of the script.
        DialogScript& Inspect(std::function<void(CDialog&)> check);
        DialogScript& PressOK() { return Click(IDOK); }
        DialogScript& PressCancel() { return Click(IDCANCEL); }

    private:
        friend class SYScriptedModalHost;
        using Step = std::function<void(CDialog&)>;
        DialogScript& Add(std::string what, Step step);

        std::vector<std::pair<std::string, Step>> m_steps;
    };

    struct MessageBoxRecord {
        std::string text;
        std::string caption;
        unsigned buttons = 0;
        unsigned icon = 0;
        int defaultResult = 0;
        int answer = 0;
    };

    SYScriptedModalHost();
    SYScriptedModalHost(const SYScriptedModalHost&) = delete;
    SYScriptedModalHost& operator=(const SYScriptedModalHost&) = delete;
    ~SYScriptedModalHost() override;

    // A dialog made on this template, or a sheet or dialog with this title.
    DialogScript& ExpectDialog(int templateId);
    DialogScript& ExpectDialog(const std::string& title);
    // A message box answered so; with a text, its text must contain it.
    void ExpectMessageBox(int answer, const std::string& textContains = "");
    // A file dialog in which this path is picked; an empty path cancels.
    void ExpectFileDialog(const std::string& path);

    const std::vector<MessageBoxRecord>& MessageBoxes() const { return m_messageBoxes; }
    // Titles of the dialogs that opened, in order.
    const std::vector<std::string>& OpenedDialogs() const { return m_openedDialogs; }
    bool ScriptDone() const { return m_expected.empty(); }

    int RunModal(CDialog& dialog) override;
    int MessageBox(const SYMessageBoxRequest& request) override;
    int RunFileDialog(SYFileDialog& dialog) override;

private:
    enum class Kind { Dialog, MessageBox, FileDialog };
    struct Expectation {
        Kind kind;
        int templateId = 0;
        std::string title;
        DialogScript script;
        int answer = 0;
        std::string text;
    };

    static std::string Describe(const Expectation& expectation);

    std::deque<Expectation> m_expected;
    std::vector<MessageBoxRecord> m_messageBoxes;
    std::vector<std::string> m_openedDialogs;
    SYModalHostScope m_scope;
};
