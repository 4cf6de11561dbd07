#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <string>

#include "outside/framework/CException.h"
#include "outside/store/SYInventorySchema.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYTransaction.h"
#include "support/StoreQueries.h"
#include "support/TempDir.h"

namespace {

void addMachine(SYDatabase& db, const std::string& name) {
    db.Exec("INSERT INTO Machines (MachineName) VALUES ('" + name + "')");
}

// Kind of the Installations object and schema version, read past Open, which upgrades.
std::string kindAndVersion(const std::string& path) {
    SYDatabase probe; // an in-memory connection would attach in memory too
    std::filesystem::remove(path + ".probe");
    probe.CreateSystemRules(path + ".probe");
    SYStatement attach(probe, "ATTACH ?1 AS old");
    attach.Bind(1, path).Execute();
    SYStatement kind(probe, "SELECT type FROM old.sqlite_master WHERE name = 'Installations'");
    SYStatement version(probe, "PRAGMA old.user_version");
    return (kind.Step() ? kind.Text(0) : "none") + " " + (version.Step() ? version.Text(0) : "");
}

struct OldStore {
    int version;
    const char* change;          // what turns a store of today into one of that version
    std::int64_t installationID; // the id its installation has after the upgrade
};

void upgradeFrom(const OldStore& old) {
    SCOPED_TRACE("version " + std::to_string(old.version));
    TempDir dir;
    const std::string path = dir.File("old.db");
    {
        SYDatabase db;
        db.Create(path, false);
        SYInventoryWriter writer(db);
        const auto pc = writer.AddMachine("pc", "", CTime(0));
        writer.AddFile(0, pc, "C:\\Tool", {"tool.exe", 1, 60, "Tool", "1", "Acme"});
        writer.AddFile(0, pc, "C:\\Tool", {"tool.dll", 1, 60, "Tool", "1", "Acme"});
        writer.Commit();
        // Location ids apart from the ids the writer gave, to tell which the upgrade keeps.
        db.Exec(std::string("UPDATE FileLocations SET LocationID = LocationID + 40; ") +
                old.change + "; PRAGMA user_version = " + std::to_string(old.version));
    }
    const std::string current = "table " + std::to_string(SYInventorySchema::Version);
    const std::string before = kindAndVersion(path);
    int failures = 0;
    bool upgraded = false; // a failure past the upgrade's commit keeps the upgrade
    for (int nth = 1; nth < 50; ++nth) {
        SYDatabase db;
        db.FailStatement(nth);
        try {
            db.Open(path);
        } catch (const CDBException&) {
            ++failures;
            // A failure after the upgrade committed (the journal switch) leaves it upgraded,
            // never half done.
            const std::string state = kindAndVersion(path);
            upgraded |= state == current;
            EXPECT_EQ(state, upgraded ? current : before) << "failure at statement " << nth;
            continue;
        }
        db.ClearFault();
        SYStatement rows(db, "SELECT InstallationID, Location FROM Installations");
        ASSERT_TRUE(rows.Step());
        EXPECT_EQ(rows.Int64(0), old.installationID);
        EXPECT_EQ(rows.Text(1), "C:\\Tool");
        EXPECT_FALSE(rows.Step());
        SYStatement indexes(db, "SELECT group_concat(name) FROM sqlite_master WHERE name IN "
                                "('SWRulesActiveByName', 'InstallationsByMachine')");
        ASSERT_TRUE(indexes.Step());
        EXPECT_EQ(indexes.Text(0), "SWRulesActiveByName");
        EXPECT_FALSE(db.HaveTable("RIM Applications"));
        break;
    }
    EXPECT_EQ(kindAndVersion(path), current);
    EXPECT_GT(failures, 2);
    EXPECT_THROW(SYDatabase().Create(path), CDBException);
}

// Version 1 kept installations in a table its writers let go stale, version 2 derived them
// in a view; opening either makes the table again from the files, under the lowest
// location of the application there. Version 3 stored them as today, with an index by
// client besides: its installations keep their ids. Each upgrade is one step that a
// failure leaves undone.
TEST(SYDatabase, CreatedStoreOfAnOlderVersionOpensUpgraded) {
    const OldStore olds[] = {
        {1,
         "DROP TABLE Installations; DROP INDEX SWRulesActiveByName; CREATE TABLE Installations "
         "(InstallationID INTEGER PRIMARY KEY, InvDataType INTEGER NOT NULL, AppID INTEGER NOT "
         "NULL, MachineID INTEGER NOT NULL, Location TEXT NOT NULL); INSERT INTO Installations "
         "VALUES (7, 0, 1, 1, 'C:\\Tool'), (8, 0, 99, 1, 'C:\\Stale')",
         41},
        {2,
         "DROP TABLE Installations; DROP INDEX SWRulesActiveByName; CREATE VIEW Installations "
         "AS SELECT MIN(l.LocationID) AS InstallationID, f.InvDataType AS InvDataType, f.AppID "
         "AS AppID, l.MachineID AS MachineID, l.Location AS Location FROM Files f JOIN "
         "FileLocations l ON l.FileID = f.FileID WHERE f.AppID <> 0 GROUP BY f.InvDataType, "
         "f.AppID, l.MachineID, l.Location",
         41},
        {3,
         "UPDATE Installations SET InstallationID = 7; CREATE INDEX InstallationsByMachine ON "
         "Installations (MachineID)",
         7},
    };
    for (const auto& old : olds)
        upgradeFrom(old);
}

TEST(SYTransaction, OnlyCommittedWorkStaysAndInnerOnesUndoAlone) {
    SYDatabase db;
    db.OpenMemory();
    {
        SYTransaction outer(db);
        addMachine(db, "kept");
        {
            SYTransaction inner(db);
            addMachine(db, "undone");
        }
        SYTransaction inner(db);
        addMachine(db, "kept too");
        inner.Commit();
        outer.Commit();
    }
    {
        SYTransaction dropped(db);
        db.Exec("DELETE FROM Machines");
    }
    {
        SYTransaction failing(db);
        db.FailStatement(2, 13); // the fault hook strikes the commit, once
        addMachine(db, "lost");
        try {
            failing.Commit();
            ADD_FAILURE() << "committed";
        } catch (const CDBException& e) {
            EXPECT_EQ(e.Code(), 13);
            EXPECT_NE(e.ErrorMessage().find("COMMIT"), std::string::npos);
        }
    }
    addMachine(db, "after");
    EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM Machines"), 3);
    EXPECT_FALSE(db.InTransaction());
}

} // namespace
