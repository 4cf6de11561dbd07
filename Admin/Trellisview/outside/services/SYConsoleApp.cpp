#include "outside/services/SYConsoleApp.h"

#include <algorithm>

#include "outside/services/SYProgress.h"

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

void SYConsoleApp::BeginProgress(const SYProgress& piece) {
    if (m_progress.empty())
        m_percentShown = -1;
    m_progress.push_back(&piece);
    ProgressMoved();
}

void SYConsoleApp::EndProgress(const SYProgress& piece) {
    m_progress.erase(std::remove(m_progress.begin(), m_progress.end(), &piece), m_progress.end());
}

// Each piece's share done counts within the one step of the piece around it.
void SYConsoleApp::ProgressMoved() {
    if (m_progress.empty() || !m_progressSink)
        return;
    double done = 0.0;
    double scale = 1.0;
    for (const SYProgress* piece : m_progress) {
        done += scale * piece->Done();
        scale *= piece->StepShare();
    }
    const int percent = std::clamp(static_cast<int>(done * 100.0), 0, 100);
    if (percent <= m_percentShown)
        return;
    m_percentShown = percent;
    m_progressSink(m_progress.front()->Task(), percent);
}

SYConsoleApp& SYGetApp() {
    static SYConsoleApp app;
    return app;
}
