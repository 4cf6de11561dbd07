#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <thread>

#include "outside/store/SYInventoryOpener.h"
#include "outside/store/SYInventorySchema.h"
#include "outside/store/SYInventorySummary.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYTransaction.h"
#include "support/CommandRunner.h"
#include "support/StoreQueries.h"
#include "support/TempDir.h"

namespace {

bool haveSideFiles(const std::string& path) {
    return std::filesystem::exists(path + "-wal") || std::filesystem::exists(path + "-shm");
}

// An inventory with a few hundred files, closed in WAL mode or in the rollback journal.
void makeInventory(const std::string& path, bool wal) {
    SYDatabase db;
    db.Create(path);
    SYInventoryWriter writer(db);
    const auto pc = writer.AddMachine("pc", "", CTime(0));
    for (int i = 0; i < 300; ++i)
        writer.AddFile(0, pc, "C:\\App", {"file" + std::to_string(i) + ".dll", 1, 60, "", "", ""});
    writer.Commit();
    if (!wal)
        db.Exec("PRAGMA journal_mode = DELETE");
}

// Overwrites the file's pages from the one at index first (0 is the header's) to its end.
void damage(const std::string& path, std::uintmax_t first) {
    constexpr std::uintmax_t page = 4096;
    const auto size = std::filesystem::file_size(path);
    std::fstream file(path, std::ios::in | std::ios::out | std::ios::binary);
    file.seekp(static_cast<std::streamoff>(first * page));
    file << std::string(size - first * page, '\x5A');
}

std::string journalMode(const std::string& path) {
    SYDatabase db;
    db.Open(path, SYDatabase::OpenMode::Read);
    SYStatement mode(db, "PRAGMA journal_mode");
    return mode.Step() ? mode.Text(0) : "";
}

// A connection that holds the whole file locked, as a writer of another program does.
std::unique_ptr<SYDatabase> lockExclusively(const std::string& path) {
    auto holder = std::make_unique<SYDatabase>();
    holder->Open(path, SYDatabase::OpenMode::Read);
    holder->Exec("BEGIN EXCLUSIVE");
    return holder;
}

TEST(SYInventoryOpener, RefusesInOneLineNamingFileAndCauseAndLeavesTheFileAsItWas) {
    const std::string inventoryStamp =
        "PRAGMA application_id = " + std::to_string(SYInventorySchema::ApplicationID);
    const auto stamped = [&](const std::string& pragmas) {
        return [=](const std::string& path) {
            SYDatabase maker;
            maker.CreateSystemRules(path);
            maker.Exec(inventoryStamp + "; " + pragmas);
            return std::unique_ptr<SYDatabase>();
        };
    };
    const struct {
        const char* label;
        std::function<std::unique_ptr<SYDatabase>(const std::string&)> make;
        bool check;
        const char* cause;
    } cases[] = {
        {"missing", [](const std::string&) { return std::unique_ptr<SYDatabase>(); }, false,
         "does not exist"},
        {"text",
         [](const std::string& path) {
             std::ofstream(path) << "CREATE TABLE not_an_inventory (x);\n";
             return std::unique_ptr<SYDatabase>();
         },
         false, "not a Trellisview inventory"},
        {"foreign",
         [](const std::string& path) {
             SYDatabase maker;
             maker.CreateSystemRules(path);
             maker.Exec("PRAGMA application_id = 1234");
             return std::unique_ptr<SYDatabase>();
         },
         false, "not a Trellisview inventory"},
        {"no version", stamped("PRAGMA user_version = 0"), false, "without a schema version"},
        {"newer", stamped("PRAGMA user_version = 99"), false, "newer than this program"},
        // A version-1 stamp on a file without the tables an upgrade works on.
        {"upgrade fails", stamped("PRAGMA user_version = 1"), false, "cannot be upgraded"},
        {"damaged",
         [](const std::string& path) {
             makeInventory(path, false);
             damage(path, std::filesystem::file_size(path) / 4096 - 1);
             return std::unique_ptr<SYDatabase>();
         },
         true, "is damaged"},
        {"locked",
         [](const std::string& path) {
             makeInventory(path, false);
             return lockExclusively(path);
         },
         false, "is busy"},
    };
    TempDir dir;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        const std::string path = dir.File(std::string(c.label) + ".db");
        const auto holder = c.make(path);
        const std::string before = readFile(path);
        SYInventoryOpener opener;
        opener.SetPath(path);
        opener.SetCheck(c.check ? 1 : 0);
        opener.SetBusyTimeout(100);
        SYDatabase db;
        EXPECT_EQ(opener.Open(db), 0);
        EXPECT_FALSE(db.IsOpen());
        const std::string& message = opener.Message();
        EXPECT_NE(message.find("\"" + path + "\""), std::string::npos) << message;
        EXPECT_NE(message.find(c.cause), std::string::npos) << message;
        EXPECT_EQ(message.find('\n'), std::string::npos) << message;
        for (const char* sql : {"CREATE", "SELECT", "PRAGMA", "INSERT"})
            EXPECT_EQ(message.find(sql), std::string::npos) << message;
        EXPECT_EQ(readFile(path), before);
        EXPECT_FALSE(haveSideFiles(path));
    }
    EXPECT_FALSE(std::filesystem::exists(dir.File("missing.db")));
}

// Reading leaves the file as it was kept; opening for writing switches it to WAL; a lock
// held for a while is waited for, not taken for a foreign file.
TEST(SYInventoryOpener, ReadingKeepsTheFileAndALockIsWaitedFor) {
    TempDir dir;
    const std::string path = dir.File("rollback.db");
    makeInventory(path, false);
    const std::string before = readFile(path);
    auto holder = lockExclusively(path);
    std::thread release([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
        holder->Exec("ROLLBACK");
    });
    SYInventoryOpener opener;
    opener.SetPath(path);
    opener.SetMode(SYDatabase::OpenMode::Read);
    SYDatabase db;
    const int opened = opener.Open(db);
    release.join();
    holder.reset();
    ASSERT_EQ(opened, 1) << opener.Message();
    EXPECT_EQ(opener.Message(), "");
    SYInventorySummary summary;
    summary.Load(db);
    EXPECT_EQ(summary.Of(0).files, 300);
    db.Close();
    EXPECT_EQ(readFile(path), before);
    EXPECT_EQ(journalMode(path), "delete");
    opener.SetMode(SYDatabase::OpenMode::Write);
    ASSERT_EQ(opener.Open(db), 1);
    db.Close();
    EXPECT_EQ(journalMode(path), "wal");
}

TEST(SYInventoryOpener, MakesTheDemoOnlyAtItsDefaultPlaceOrOnRequest) {
    TempDir dir;
    const char* saved = std::getenv("XDG_DATA_HOME");
    const std::string savedValue = saved != nullptr ? saved : "";
    setenv("XDG_DATA_HOME", dir.Path().c_str(), 1);
    SYInventoryOpener opener;
    SYDatabase db;
    ASSERT_EQ(opener.Open(db), 1) << opener.Message();
    EXPECT_EQ(opener.Path(), dir.File("trellisview/inventory.db"));
    EXPECT_EQ(opener.CreatedInventory(), 1);
    EXPECT_TRUE(std::filesystem::exists(dir.File("trellisview/installation/SystemRules.db")));
    ASSERT_EQ(opener.Open(db), 1);
    EXPECT_EQ(opener.CreatedInventory(), 0);
    const std::string named = dir.File("more/named.db");
    opener.SetPath(named);
    opener.SetCreate(1);
    ASSERT_EQ(opener.Open(db), 1) << opener.Message();
    EXPECT_EQ(opener.CreatedInventory(), 1);
    db.Close();
    // Folders that cannot be made end in a refusal, not in an exception.
    opener.SetPath(named + "/under/a/file.db");
    EXPECT_EQ(opener.Open(db), 0);
    EXPECT_NE(opener.Message().find("Cannot make the folder"), std::string::npos);
    if (saved != nullptr)
        setenv("XDG_DATA_HOME", savedValue.c_str(), 1);
    else
        unsetenv("XDG_DATA_HOME");
}

// Run as a user who cannot write the folder (root writes everywhere, so the check drops to
// an unprivileged user in a child process).
TEST(SYInventoryOpener, AFolderThatCannotBeWrittenIsReadReadOnlyAndLeftClean) {
    TempDir dir;
    const std::string folder = dir.File("shelf");
    std::filesystem::create_directory(folder);
    const std::string path = folder + "/inventory.db";
    makeInventory(path, true);
    const std::string before = readFile(path);
    chmod(dir.Path().c_str(), 0755);
    chmod(folder.c_str(), 0555);
    const pid_t pid = fork();
    if (pid == 0) {
        if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0))
            _exit(3);
        SYInventoryOpener opener;
        opener.SetPath(path);
        SYDatabase db;
        if (opener.Open(db) == 0) {
            std::fprintf(stderr, "%s\n", opener.Message().c_str());
            _exit(1);
        }
        SYInventorySummary summary;
        summary.Load(db);
        const bool told = opener.Message().find("read-only") != std::string::npos;
        _exit(db.IsReadOnly() && told && summary.Of(0).files == 300 ? 0 : 2);
    }
    int status = 0;
    waitpid(pid, &status, 0);
    chmod(folder.c_str(), 0755);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(readFile(path), before);
    EXPECT_FALSE(haveSideFiles(path));
}

// The console's exit code and its one line on stderr.
TEST(SYInventoryOpener, ConsoleExitsWithTheRefusal) {
    TempDir dir;
    const std::string good = dir.File("good.db");
    makeInventory(good, true);
    std::ofstream(dir.File("text.db")) << "text";
    // Only the header page is whole: the file opens, and the first read meets the damage.
    makeInventory(dir.File("damaged.db"), false);
    damage(dir.File("damaged.db"), 1);
    const struct {
        std::vector<std::string> arguments;
        int exitCode;
        const char* said;
    } cases[] = {
        {{"--db", good}, 0, ""},
        {{"--db", dir.File("absent.db")}, 1, "does not exist"},
        {{"--db", dir.File("text.db")}, 1, "not a Trellisview inventory"},
        {{"--db", good, "--bogus"}, 2, "Usage"},
        {{"--db", dir.File("damaged.db")}, 1, "is damaged"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.said);
        const CommandResult result = runCommand(dir.Path(), c.arguments);
        EXPECT_EQ(result.code, c.exitCode);
        EXPECT_NE(result.err.find(c.said), std::string::npos) << result.err;
        // Bad usage adds the usage lines after its one-line reason.
        if (c.exitCode != 2) {
            EXPECT_LE(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
        }
    }
    EXPECT_FALSE(std::filesystem::exists(dir.File("absent.db")));
}

} // namespace
