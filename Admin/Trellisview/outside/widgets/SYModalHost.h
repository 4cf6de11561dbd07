#pragma once

class CDialog;
class SYFileDialog;
struct SYMessageBoxRequest;

// Runs what is modal: dialogs and sheets, message boxes and the file-open dialog. One host
// is installed for the process: the console installs the terminal's, tests a scripted one.
class SYModalHost {
public:
    virtual ~SYModalHost() = default;

    // Runs the dialog from BeginModal to FinishModal; gives the dialog's result.
    virtual int RunModal(CDialog& dialog) = 0;
    // Gives the answer: IDOK, IDCANCEL, IDYES or IDNO.
    virtual int MessageBox(const SYMessageBoxRequest& request) = 0;
    // Sets the picked path on the dialog; gives IDOK, or IDCANCEL when nothing was picked.
    virtual int RunFileDialog(SYFileDialog& dialog) = 0;

    static SYModalHost* Current();
    // Installs a host (null: none); gives the one it replaces.
    static SYModalHost* Install(SYModalHost* host);
};

// Installs a host for the life of the object, then puts back the one before.
class SYModalHostScope {
public:
    explicit SYModalHostScope(SYModalHost* host) : m_previous(SYModalHost::Install(host)) {}
    SYModalHostScope(const SYModalHostScope&) = delete;
    SYModalHostScope& operator=(const SYModalHostScope&) = delete;
    ~SYModalHostScope() { SYModalHost::Install(m_previous); }

private:
    SYModalHost* m_previous;
};
