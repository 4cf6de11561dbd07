#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "outside/services/SYPath.h"
#include "outside/services/SYReport.h"

class SYProgress;

// A command posted to the main window; the console drains the queue.
struct SYPostedCommand {
    unsigned message = 0;
    unsigned long wParam = 0;
    long lParam = 0;
};

class SYMainWindow {
public:
    void PostMessage(unsigned message, unsigned long wParam = 0, long lParam = 0);
    bool HavePostedCommand() const { return !m_queue.empty(); }
    // Takes the oldest posted command; false when the queue is empty.
    bool TakePostedCommand(SYPostedCommand& command);

private:
    std::deque<SYPostedCommand> m_queue;
};

// The console's application object, one per process.
class SYConsoleApp {
public:
    using Reporter = std::function<void(const SYFailureReport&)>;
    // Told the task of the outermost piece of long work and the whole percent done, each
    // time that percent changes.
    using ProgressSink = std::function<void(const std::string& task, int percent)>;

    void BeginWaitCursor() { ++m_waitCount; }
    void EndWaitCursor();
    int WaitCursorCount() const { return m_waitCount; }

    SYMainWindow& MainWindow() { return m_mainWindow; }

    int CanEditRules() const { return m_canEditRules; }
    void SetCanEditRules(int canEdit) { m_canEditRules = canEdit; }

    const SYPath& InstallPath() const { return m_installPath; }
    void SetInstallPath(const std::string& path) { m_installPath.Set(path); }

    // Every report is kept; a reporter, when set, also shows it.
    void Report(const SYFailureReport& report);
    void SetReporter(Reporter reporter) { m_reporter = std::move(reporter); }
    const std::vector<SYFailureReport>& Reports() const { return m_reports; }
    void ClearReports() { m_reports.clear(); }

    void SetProgressSink(ProgressSink sink) { m_progressSink = std::move(sink); }
    const ProgressSink& GetProgressSink() const { return m_progressSink; }
    // Kept by SYProgress: the pieces of work under way, the outermost first.
    void BeginProgress(const SYProgress& piece);
    void EndProgress(const SYProgress& piece);
    void ProgressMoved();

private:
    int m_waitCount = 0;
    int m_canEditRules = 1;
    SYMainWindow m_mainWindow;
    SYPath m_installPath;
    Reporter m_reporter;
    std::vector<SYFailureReport> m_reports;
    ProgressSink m_progressSink;
    std::vector<const SYProgress*> m_progress;
    int m_percentShown = -1;
};

SYConsoleApp& SYGetApp();

// Shows the wait cursor for the life of the object.
class SYWaitCursor {
public:
    SYWaitCursor() { SYGetApp().BeginWaitCursor(); }
    SYWaitCursor(const SYWaitCursor&) = delete;
    SYWaitCursor& operator=(const SYWaitCursor&) = delete;
    ~SYWaitCursor() { SYGetApp().EndWaitCursor(); }
};

// Where the installation (and so the system rules database) lies.
class SYInstallation {
public:
    static SYPath Path() { return SYGetApp().InstallPath(); }
};
