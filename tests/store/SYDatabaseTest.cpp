#include <gtest/gtest.h>
#include <sqlite3.h>

#include <fstream>
#include <iterator>
#include <string>

#include "outside/framework/CException.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventorySchema.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYTransaction.h"
#include "support/TempDir.h"

namespace {

std::string readBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void writeBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

long long count(SYDatabase& db, const std::string& table) {
    SYStatement statement(db, "SELECT COUNT(*) FROM " + table);
    statement.Step();
    return statement.Int64(0);
}

// Makes a plain SQLite file, then lets the caller stamp it.
void makeDatabase(const std::string& path, const std::string& sql) {
    SYDatabase db;
    db.CreateSystemRules(path);
    db.Exec(sql);
}

struct RefusedFile {
    const char* label;
    void (*make)(const std::string& path);
    const char* messagePart;
};

TEST(SYDatabase, RefusesFilesThatAreNoReadableInventoryAndLeavesThemUntouched) {
    const RefusedFile cases[] = {
        {"text file", [](const std::string& p) { writeBytes(p, "just some notes\n"); },
         "is not a Trellisview inventory"},
        {"empty file", [](const std::string& p) { writeBytes(p, ""); },
         "is not a Trellisview inventory"},
        {"other database",
         [](const std::string& p) { makeDatabase(p, "PRAGMA application_id = 1234"); },
         "is not a Trellisview inventory"},
        {"newer schema",
         [](const std::string& p) {
             makeDatabase(
                 p, "PRAGMA application_id = " + std::to_string(SYInventorySchema::ApplicationID) +
                        "; PRAGMA user_version = 99");
         },
         "schema version 99, newer"},
        {"no version",
         [](const std::string& p) {
             makeDatabase(
                 p, "PRAGMA application_id = " + std::to_string(SYInventorySchema::ApplicationID) +
                        "; PRAGMA user_version = 0");
         },
         "without a schema version"},
    };
    TempDir dir;
    for (const auto& c : cases) {
        const std::string path = dir.File(std::string(c.label) + ".db");
        c.make(path);
        const std::string before = readBytes(path);
        SYDatabase db;
        try {
            db.Open(path);
            ADD_FAILURE() << c.label << " was opened";
        } catch (const CDBException& e) {
            EXPECT_NE(e.ErrorMessage().find(c.messagePart), std::string::npos)
                << c.label << ": " << e.ErrorMessage();
            EXPECT_NE(e.ErrorMessage().find(path), std::string::npos) << c.label;
        }
        EXPECT_FALSE(db.IsOpen()) << c.label;
        EXPECT_EQ(readBytes(path), before) << c.label;
    }
}

TEST(SYDatabase, OpenDoesNotCreateAMissingFile) {
    TempDir dir;
    SYDatabase db;
    EXPECT_THROW(db.Open(dir.File("absent.db")), CDBException);
    EXPECT_FALSE(std::filesystem::exists(dir.File("absent.db")));
}

TEST(SYDatabase, CreatedInventoryOpensAgainInWalModeAndCreateRefusesToOverwrite) {
    TempDir dir;
    const std::string path = dir.File("inv.db");
    {
        SYDatabase db;
        ASSERT_NE(db.Create(path, false), 0);
        db.Exec("INSERT INTO Machines (MachineName) VALUES ('pc-1')");
    }
    SYDatabase db;
    ASSERT_NE(db.Open(path), 0);
    EXPECT_EQ(count(db, "Machines"), 1);
    EXPECT_FALSE(db.HaveTable("RIM Applications"));
    EXPECT_TRUE(db.HaveTable("Palm Applications"));
    SYStatement mode(db, "PRAGMA journal_mode");
    ASSERT_TRUE(mode.Step());
    EXPECT_EQ(mode.Text(0), "wal");
    SYDatabase other;
    EXPECT_THROW(other.Create(path), CDBException);
}

// A version 1 store kept installations as rows of a table; opening it derives them from
// the files instead, in one step that a failure leaves undone.
TEST(SYDatabase, OpeningAVersion1StoreDerivesItsInstallations) {
    TempDir dir;
    const std::string path = dir.File("old.db");
    {
        SYDatabase db;
        db.Create(path);
        SYInventoryWriter writer(db);
        const auto pc = writer.AddMachine("pc", "", CTime(0));
        writer.AddFile(0, pc, "C:\\Tool", {"tool.exe", 1, 60, "Tool", "1", "Acme"});
        writer.AddFile(0, pc, "C:\\Tool", {"tool.dll", 1, 60, "Tool", "1", "Acme"});
        writer.Commit();
        db.Exec("DROP VIEW Installations; DROP INDEX SWRulesActiveByName; CREATE TABLE "
                "Installations (InstallationID INTEGER "
                "PRIMARY KEY, InvDataType INTEGER NOT NULL, AppID INTEGER NOT NULL, MachineID "
                "INTEGER NOT NULL, Location TEXT NOT NULL); INSERT INTO Installations VALUES "
                "(7, 0, 1, 1, 'C:\\Tool'), (8, 0, 99, 1, 'C:\\Stale'); PRAGMA user_version = 1");
    }
    // Read past the store's own Open, which would upgrade.
    const auto kindAndVersion = [&path] {
        sqlite3* raw = nullptr;
        sqlite3_open_v2(path.c_str(), &raw, SQLITE_OPEN_READONLY, nullptr);
        std::string found;
        const auto text = [&](const char* sql) {
            sqlite3_stmt* statement = nullptr;
            sqlite3_prepare_v2(raw, sql, -1, &statement, nullptr);
            if (sqlite3_step(statement) == SQLITE_ROW)
                found += reinterpret_cast<const char*>(sqlite3_column_text(statement, 0));
            sqlite3_finalize(statement);
        };
        text("SELECT type FROM sqlite_master WHERE name = 'Installations'");
        found += " ";
        text("PRAGMA user_version");
        sqlite3_close_v2(raw);
        return found;
    };
    int failures = 0;
    for (int nth = 1; nth < 50; ++nth) {
        SYDatabase db;
        db.FailStatement(nth);
        try {
            db.Open(path);
        } catch (const CDBException&) {
            ++failures;
            EXPECT_EQ(kindAndVersion(), "table 1") << "failure at statement " << nth;
            continue;
        }
        db.ClearFault();
        EXPECT_EQ(kindAndVersion(), "view 2");
        SYStatement rows(db, "SELECT InstallationID, AppID, Location FROM Installations");
        ASSERT_TRUE(rows.Step());
        EXPECT_EQ(rows.Int64(0), 1); // the lowest location of the application there
        EXPECT_EQ(rows.Text(2), "C:\\Tool");
        EXPECT_FALSE(rows.Step());
        EXPECT_EQ(count(db, "sqlite_master WHERE name = 'SWRulesActiveByName'"), 1);
        break;
    }
    EXPECT_GT(failures, 2);
}

TEST(SYDatabase, FaultHookFailsTheNthStatementOnceWithItsCode) {
    SYDatabase db;
    db.OpenMemory();
    db.FailStatement(2, 13);
    db.Exec("INSERT INTO Machines (MachineName) VALUES ('a')");
    try {
        db.Exec("INSERT INTO Machines (MachineName) VALUES ('b')");
        ADD_FAILURE() << "second statement ran";
    } catch (const CDBException& e) {
        EXPECT_EQ(e.Code(), 13);
        EXPECT_NE(e.ErrorMessage().find("'b'"), std::string::npos);
    }
    db.Exec("INSERT INTO Machines (MachineName) VALUES ('c')");
    EXPECT_EQ(count(db, "Machines"), 2);
}

TEST(SYDatabase, TransactionsRollBackUnlessCommittedAndNestAsSavepoints) {
    SYDatabase db;
    db.OpenMemory();
    {
        SYTransaction outer(db);
        db.Exec("INSERT INTO Machines (MachineName) VALUES ('kept')");
        {
            SYTransaction inner(db);
            db.Exec("INSERT INTO Machines (MachineName) VALUES ('undone')");
        }
        {
            SYTransaction inner(db);
            db.Exec("INSERT INTO Machines (MachineName) VALUES ('kept too')");
            inner.Commit();
        }
        outer.Commit();
    }
    EXPECT_EQ(count(db, "Machines"), 2);
    {
        SYTransaction dropped(db);
        db.Exec("DELETE FROM Machines");
    }
    EXPECT_EQ(count(db, "Machines"), 2);
    EXPECT_FALSE(db.InTransaction());
}

TEST(SYDatabase, FailedCommitLeavesNothingBehind) {
    SYDatabase db;
    db.OpenMemory();
    {
        SYTransaction transaction(db);
        db.Exec("INSERT INTO Machines (MachineName) VALUES ('x')");
        db.FailStatement(1);
        EXPECT_THROW(transaction.Commit(), CDBException);
    }
    EXPECT_EQ(count(db, "Machines"), 0);
    EXPECT_FALSE(db.InTransaction());
}

TEST(SYDatabase, SystemRulesAttachOnlyFromASystemRulesFile) {
    TempDir dir;
    SYDatabase db;
    db.OpenMemory();
    EXPECT_FALSE(db.AttachSystemRules(dir.File("missing.db")));
    writeBytes(dir.File("junk.db"), "not a database at all, not at all, not at all, no");
    EXPECT_THROW(db.AttachSystemRules(dir.File("junk.db")), CDBException);
    EXPECT_FALSE(db.HaveSystemRules());
    {
        SYDatabase rules;
        rules.CreateSystemRules(dir.File("odd name's %rules#?.db"));
    }
    EXPECT_TRUE(db.AttachSystemRules(dir.File("odd name's %rules#?.db")));
    EXPECT_TRUE(db.HaveSystemRules());
    EXPECT_EQ(count(db, "sysrules.SystemRules"), 0);
}

} // namespace
