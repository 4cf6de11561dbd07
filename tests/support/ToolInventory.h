#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "outside/framework/CException.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYSamData.h"
#include "support/StoreDump.h"
#include "support/StoreQueries.h"

// Two PCs with Tool, its company scanned as "Acme" and as "ACME Corporation", in several
// folders, and beside it on pc-1 a readme.txt of no application; a Windows CE device holds
// a readme.txt too.
class ToolInventory : public testing::Test {
protected:
    void SetUp() override {
        db.OpenMemory();
        SYInventoryWriter writer(db);
        pc1 = writer.AddMachine("pc-1", "", CTime(0));
        pc2 = writer.AddMachine("pc-2", "", CTime(0));
        const SYScanFile tool{"tool.exe", 10, 600, "Tool", "1.0", "Acme"};
        const SYScanFile helper{"toolhelp.dll", 20, 600, "Tool", "1.0", "ACME Corporation"};
        const SYScanFile readme{"readme.txt", 30, 600, "", "", ""};
        toolID = writer.AddFile(0, pc1, "C:\\Tool", tool);
        readmeID = writer.AddFile(0, pc1, "C:\\Tool", readme);
        helperID = writer.AddFile(0, pc1, "C:\\Tool", helper);
        writer.AddFile(0, pc2, "C:\\Tool", helper);
        writer.AddFile(0, pc2, "C:\\Tool", tool);
        writer.AddFile(0, pc2, "D:\\Other", tool);
        ce = writer.AddDevice(1, "ce-1", "", CTime(0));
        writer.AddFile(1, ce, "\\Windows", readme);
        writer.Commit();
        sam.InvDataType = 0;
        toolApp = AppOf(toolID);
    }

    unsigned long AppOf(unsigned long fileID) {
        return static_cast<unsigned long>(
            Scalar(db, "SELECT AppID FROM Files WHERE FileID = " + std::to_string(fileID)));
    }
    long long StateOf(unsigned long fileID) {
        return Scalar(db, "SELECT FileState FROM Files WHERE FileID = " + std::to_string(fileID));
    }
    long long Installed(unsigned long appID) {
        return Scalar(db, "SELECT AppInstalled FROM Applications WHERE AppID = " +
                              std::to_string(appID));
    }

    unsigned long Location(unsigned long machine, const std::string& folder,
                           const std::string& name) {
        SYStatement find(db, "SELECT l.LocationID FROM FileLocations l JOIN Files f ON "
                             "f.FileID = l.FileID WHERE l.MachineID = ?1 AND l.Location = ?2 "
                             "AND f.FileName = ?3 AND f.InvDataType = 0");
        find.Bind(1, static_cast<std::int64_t>(machine)).Bind(2, folder).Bind(3, name);
        return find.Step() ? static_cast<unsigned long>(find.Int64(0)) : 0;
    }

    // Installation id by "client folder" of every installation of the application.
    std::map<std::string, unsigned long> InstallationsOf(unsigned long appID) {
        SYStatement rows(db, "SELECT m.MachineName || ' ' || i.Location, i.InstallationID FROM "
                             "Installations i JOIN Machines m ON m.MachineID = i.MachineID "
                             "WHERE i.InvDataType = 0 AND i.AppID = ?1");
        rows.Bind(1, static_cast<std::int64_t>(appID));
        std::map<std::string, unsigned long> found;
        while (rows.Step())
            found[rows.Text(0)] = static_cast<unsigned long>(rows.Int64(1));
        return found;
    }
    std::vector<std::string> Places(unsigned long appID) {
        std::vector<std::string> places;
        for (const auto& [place, id] : InstallationsOf(appID))
            places.push_back(place);
        return places;
    }

    void Apply(unsigned char type, const std::string& name, const std::string& app = "",
               const std::string& company = "", const std::string& version = "") {
        sam.AddRule(AddUserRule(db, type, name, app, company, version));
    }

    // Fails call at its first, second, ... statement until it runs through: every failure
    // must leave the store as it was.
    void ExpectAtomic(const std::function<void()>& call) {
        const std::string before = DumpStore(db);
        int failures = 0;
        for (int nth = 1; nth < 500; ++nth) {
            db.FailStatement(nth);
            try {
                call();
            } catch (const CDBException&) {
                ++failures;
                ASSERT_EQ(DumpStore(db), before) << "failure at statement " << nth;
                ASSERT_FALSE(db.InTransaction());
                continue;
            }
            break;
        }
        db.ClearFault();
        EXPECT_GT(failures, 2);
    }

    SYDatabase db;
    SYSamData sam{db};
    unsigned long pc1 = 0;
    unsigned long pc2 = 0;
    unsigned long ce = 0;
    unsigned long toolID = 0;
    unsigned long readmeID = 0;
    unsigned long helperID = 0;
    unsigned long toolApp = 0;
};
