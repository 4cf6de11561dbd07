#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYProgress.h"

namespace {

// A piece begun inside another's step fills that step only; the figure never goes back and
// carries the outermost task, and each percent is told once.
TEST(SYProgress, NestedPiecesTellOneGrowingFigureUnderTheOutermostTask) {
    std::vector<std::string> told;
    SYGetApp().SetProgressSink([&](const std::string& task, int percent) {
        told.push_back(task + " " + std::to_string(percent));
    });
    {
        SYProgress outer("Applying rules", 2);
        for (int step = 0; step < 2; ++step) {
            {
                SYProgress inner("Inner", 4);
                for (int i = 0; i < 4; ++i)
                    inner.Step();
            }
            outer.Step();
        }
    }
    SYGetApp().SetProgressSink({});
    EXPECT_EQ(told, (std::vector<std::string>{
                        "Applying rules 0", "Applying rules 12", "Applying rules 25",
                        "Applying rules 37", "Applying rules 50", "Applying rules 62",
                        "Applying rules 75", "Applying rules 87", "Applying rules 100"}));
}

} // namespace
