#pragma once

#include <cstddef>
#include <string>

// How far a long piece of work has come, told to the application object's progress sink so
// that a front end can show it beside the wait cursor. Pieces nest: one begun inside
// another's step counts as a share of that step, so the figure shown only grows.
class SYProgress {
public:
    // The long work the library tells of.
    static constexpr const char* ApplyingRules = "Applying rules";
    static constexpr const char* FillingList = "Filling the list";
    static constexpr const char* OpeningCompany = "Opening the company";
    static constexpr const char* OpeningApplication = "Opening the application";

    // task: what the user is told is going on; total: the steps the work takes.
    SYProgress(std::string task, std::size_t total);
    ~SYProgress();
    SYProgress(const SYProgress&) = delete;
    SYProgress& operator=(const SYProgress&) = delete;

    // Counts steps done; a step that holds pieces of its own is counted after they ended.
    void Step(std::size_t count = 1);

    const std::string& Task() const { return m_task; }
    // The share of this piece done, 0 to 1.
    double Done() const;
    // The share one step of this piece stands for.
    double StepShare() const;

private:
    std::string m_task;
    std::size_t m_total;
    std::size_t m_done = 0;
};
