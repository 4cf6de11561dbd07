#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <thread>

#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYTransaction.h"
#include "rules/SYSWRule.h"
#include "support/ReportCapture.h"
#include "support/StoreQueries.h"
#include "support/TempDir.h"

namespace {

constexpr int Landed = 0;
constexpr int RefusedBusy = 2;

// Writers in processes of their own on one inventory file, as a second console or a
// scanner would be. The engine's locks live in the process, so children are made while the
// parent has no connection open.
class SYSWRuleWriters : public testing::Test {
protected:
    void SetUp() override {
        std::filesystem::remove(path);
        SYDatabase db;
        db.Create(path);
        SYInventoryWriter writer(db);
        const auto pc = writer.AddMachine("pc", "", CTime(0));
        for (int i = 0; i < 10; ++i)
            writer.AddFile(0, pc, "C:\\App", {Name(i), 1, 60, "Tool", "1", "Acme"});
        // A rule row to read, so that a write which reads first holds a read open.
        SYRuleRow other;
        other.ruleType = 1;
        other.fileName = "other.dll";
        writer.AddUserRule(other);
        writer.Commit();
    }

    static std::string Name(int i) { return "f" + std::to_string(i % 10) + ".dll"; }

    static pid_t Spawn(const std::function<int()>& body) {
        const pid_t pid = fork();
        if (pid == 0)
            _exit(body());
        return pid;
    }
    static int ExitCode(pid_t pid) {
        int status = 0;
        waitpid(pid, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    // A rule added and applied as the library does it: Landed, RefusedBusy when the
    // failure report speaks of a busy inventory, else 1.
    static int AddAndApply(SYDatabase& db, const std::string& name) {
        const ReportCapture reports;
        SYSWRule engine;
        engine.Database = &db;
        SYIdRuleItem rule;
        rule.SetFileName(name);
        rule.SetAppName("App of " + name);
        try {
            if (engine.AddIdRule(rule, 1) != 0) {
                engine.UpdateSamData();
                return Landed;
            }
        } catch (...) {
            return 1;
        }
        return !reports.Empty() && reports.All().front().message.find("busy") != std::string::npos
                   ? RefusedBusy
                   : 1;
    }

    long long Count(const std::string& sql) {
        SYDatabase db;
        db.Open(path);
        return Scalar(db, sql);
    }

    TempDir dir;
    std::string path = dir.File("inventory.db");
};

TEST_F(SYSWRuleWriters, TwoWritersLandEveryRuleAndItsApply) {
    constexpr int adds = 300;
    const auto writer = [&](int which) {
        return Spawn([&, which] {
            SYDatabase db;
            db.Open(path);
            for (int i = 0; i < adds; ++i) {
                if (AddAndApply(db, Name(i + which)) != Landed)
                    return 1;
            }
            return 0;
        });
    };
    const pid_t first = writer(0);
    const pid_t second = writer(1);
    EXPECT_EQ(ExitCode(first), 0);
    EXPECT_EQ(ExitCode(second), 0);
    EXPECT_EQ(Count("SELECT COUNT(*) FROM SWRules WHERE RuleType = 0"), 2 * adds);
    // Every file ends up under its newest rule's application.
    EXPECT_EQ(Count("SELECT COUNT(*) FROM Files f JOIN [Applications] a ON a.AppID = f.AppID "
                    "WHERE a.AppName = 'App of ' || f.FileName"),
              10);
}

// Another connection holds the write lock; the writer waits for it, and gives up only
// past its timeout, with nothing of its own written.
TEST_F(SYSWRuleWriters, AWriterWaitsForALockAndGivesUpPastItsTimeout) {
    const struct {
        int timeoutMs;
        bool released; // the holder commits while the writer waits
        int outcome;
    } cases[] = {{3000, true, Landed}, {100, false, RefusedBusy}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.timeoutMs);
        SetUp();
        int go[2];
        ASSERT_EQ(pipe(go), 0);
        const pid_t child = Spawn([&] {
            char byte = 0;
            if (read(go[0], &byte, 1) != 1)
                return 1;
            SYDatabase db;
            db.SetBusyTimeout(c.timeoutMs);
            db.Open(path);
            return AddAndApply(db, "f1.dll");
        });
        {
            SYDatabase holder;
            holder.Open(path);
            SYTransaction hold(holder);
            holder.Exec("INSERT INTO Machines (MachineName) VALUES ('holder')");
            ASSERT_EQ(write(go[1], "", 1), 1);
            if (c.released) {
                std::this_thread::sleep_for(std::chrono::milliseconds(300));
                hold.Commit();
            }
            EXPECT_EQ(ExitCode(child), c.outcome);
        }
        close(go[0]);
        close(go[1]);
        const long long landed = c.outcome == Landed ? 1 : 0;
        EXPECT_EQ(Count("SELECT COUNT(*) FROM SWRules WHERE RuleType = 0"), landed);
        EXPECT_EQ(Count("SELECT COUNT(*) FROM Files WHERE RuleID <> 0"), landed);
        EXPECT_EQ(Count("SELECT COUNT(*) FROM Machines"), c.released ? 2 : 1);
    }
}

} // namespace
