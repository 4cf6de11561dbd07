#pragma once

#include <vector>

#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYReport.h"

// The failure reports made during its life: clears the application's list on entry and on
// exit, so no test sees another's reports.
class ReportCapture {
public:
    ReportCapture() { SYGetApp().ClearReports(); }
    ReportCapture(const ReportCapture&) = delete;
    ReportCapture& operator=(const ReportCapture&) = delete;
    ~ReportCapture() { SYGetApp().ClearReports(); }

    const std::vector<SYFailureReport>& All() const { return SYGetApp().Reports(); }
    bool Empty() const { return All().empty(); }
    std::size_t Size() const { return All().size(); }
    void Clear() { SYGetApp().ClearReports(); }
};
