#include "outside/services/SYConsoleApp.h"

void SYMainWindow::PostMessage(unsigned message, unsigned long wParam, long lParam) {
    m_queue.push_back({message, wParam, lParam});
}

bool SYMainWindow::TakePostedCommand(SYPostedCommand& command) {
    if (m_queue.empty())
        return false;
    command = m_queue.front();
    m_queue.pop_front();
    return true;
}

void SYConsoleApp::EndWaitCursor() {
    if (m_waitCount > 0)
        --m_waitCount;
}

void SYConsoleApp::Report(const SYFailureReport& report) {
    m_reports.push_back(report);
    if (m_reporter)
        m_reporter(report);
}

SYConsoleApp& SYGetApp() {
    static SYConsoleApp app;
    return app;
}
