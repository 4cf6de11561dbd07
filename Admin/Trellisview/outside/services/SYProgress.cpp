#include "outside/services/SYProgress.h"

#include <algorithm>

#include "outside/services/SYConsoleApp.h"

SYProgress::SYProgress(std::string task, std::size_t total)
    : m_task(std::move(task)), m_total(total) {
    SYGetApp().BeginProgress(*this);
}

SYProgress::~SYProgress() {
    SYGetApp().EndProgress(*this);
}

void SYProgress::Step(std::size_t count) {
    m_done = std::min(m_total, m_done + count);
    SYGetApp().ProgressMoved();
}

double SYProgress::Done() const {
    return m_total == 0 ? 1.0 : static_cast<double>(m_done) / static_cast<double>(m_total);
}

double SYProgress::StepShare() const {
    return m_total == 0 ? 0.0 : 1.0 / static_cast<double>(m_total);
}
