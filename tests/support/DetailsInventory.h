#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYWnd.h"
#include "support/ReportCapture.h"

using Strings = std::vector<std::string>;

inline Strings Rows(const SYListCtrlEx& list) {
    Strings rows;
    for (int row = 0; row < list.GetItemCount(); ++row)
        rows.push_back(list.GetItemString(row));
    return rows;
}

inline std::string TextOf(const SYWnd& window, unsigned id) {
    const SYWnd* control = window.FindControl(id);
    return control != nullptr ? control->GetWindowText() : "<missing " + std::to_string(id) + ">";
}

// A small inventory written as a scanner would, with a main window for the views:
// - Windows PCs: Tool 2.0 on PC-A (never scanned) in C:\Tool and D:\Tool and on pc-b
//   (scanned) in C:\Tool; tool.exe is over 4 GB, help.txt (no time) only on PC-A C:\Tool.
// - Windows CE: CE Tool on ce-1 (scanned) and ce-2 (not).
// - Palm: MemoDB (no name, version 1.1) in ROM on palm-b, in RAM on palm-a, on a storage
//   card on palm-c; Clock (no version) on palm-b only.
// - BlackBerry: Mail 4.5 on "bb", "BB" and "aa"; Notes (no version) on "aa".
class DetailsInventory : public testing::Test {
protected:
    void SetUp() override {
        db.OpenMemory();
        SYInventoryWriter writer(db);
        pcB = writer.AddMachine("pc-b", "", scanned);
        pcA = writer.AddMachine("PC-A", "", CTime());
        const SYScanFile tool{"tool.exe", 5'000'000'000ULL, 600, "Tool", "2.0", "Acme"};
        const SYScanFile help{"help.txt", 10, 0, "Tool", "2.0", "Acme"};
        writer.AddFile(0, pcA, "D:\\Tool", tool);
        writer.AddFile(0, pcA, "C:\\Tool", tool);
        writer.AddFile(0, pcA, "C:\\Tool", help);
        writer.AddFile(0, pcB, "C:\\Tool", tool);
        ce1 = writer.AddDevice(1, "ce-1", "", ceScanned);
        ce2 = writer.AddDevice(1, "ce-2", "", CTime());
        const SYScanFile ceTool{"cetool.exe", 50, 600, "CE Tool", "1.0", "Acme"};
        writer.AddFile(1, ce1, "\\Program Files\\CE Tool", ceTool);
        writer.AddFile(1, ce2, "\\Program Files\\CE Tool", ceTool);

        palmB = writer.AddDevice(2, "palm-b", "", CTime());
        palmA = writer.AddDevice(2, "palm-a", "", CTime());
        palmC = writer.AddDevice(2, "palm-c", "", CTime());
        memoApp = writer.AddPalmApplication({"", "1.1", "MemoDB", "memo", ""});
        clockApp = writer.AddPalmApplication({"Clock", "", "ClockDB", "clck", ""});
        writer.AddPalmInstallation(memoApp, palmB,
                                   {true, 2048, 4096, created, 0, 0, 3, 7, "/card"});
        writer.AddPalmInstallation(memoApp, palmA, {false, 100, 200, 0, 0, 0, 1, 2, ""});
        writer.AddPalmInstallation(memoApp, palmC, {false, 100, 200, 0, 0, 0, 1, 2, "/card/memo"});
        writer.AddPalmInstallation(clockApp, palmB, {});

        rimLower = writer.AddDevice(3, "bb", "", CTime());
        rimUpper = writer.AddDevice(3, "BB", "", CTime());
        rimFirst = writer.AddDevice(3, "aa", "", CTime());
        mailApp = writer.AddRIMApplication("Mail", "4.5");
        notesApp = writer.AddRIMApplication("Notes", "");
        for (const unsigned long device : {rimLower, rimUpper, rimFirst})
            writer.AddRIMInstallation(mailApp, device);
        writer.AddRIMInstallation(notesApp, rimFirst);
        writer.Commit();

        toolApp = Id("SELECT AppID FROM Files WHERE FileName = 'tool.exe'");
        ceToolApp = Id("SELECT AppID FROM Files WHERE FileName = 'cetool.exe'");
        main.Create(SYControlKind::Static, 1, "main", {0, 0, 800, 600}, nullptr);
        reports.Clear();
        DrainCommands();
    }

    unsigned long Id(const std::string& sql) {
        SYStatement statement(db, sql);
        return statement.Step() ? static_cast<unsigned long>(statement.Int64(0)) : 0;
    }
    unsigned long InstallationAt(unsigned long machine, const std::string& location) {
        return Id(
            "SELECT InstallationID FROM Installations WHERE InvDataType = 0 AND MachineID = " +
            std::to_string(machine) + " AND Location = '" + location + "'");
    }
    static void DrainCommands() {
        SYPostedCommand ignored;
        while (SYGetApp().MainWindow().TakePostedCommand(ignored)) {
        }
    }
    static std::vector<unsigned> PostedCommands() {
        std::vector<unsigned> commands;
        SYPostedCommand command;
        while (SYGetApp().MainWindow().TakePostedCommand(command))
            commands.push_back(command.message);
        return commands;
    }

    const CTime scanned{2026, 3, 4, 10, 30, 0};
    const CTime ceScanned{2026, 5, 6, 8, 0, 0};
    const CTime created{2025, 1, 2, 9, 15, 0};
    ReportCapture reports;
    SYDatabase db;
    SYWnd main;
    unsigned long pcA = 0, pcB = 0, ce1 = 0, ce2 = 0;
    unsigned long palmA = 0, palmB = 0, palmC = 0;
    unsigned long rimLower = 0, rimUpper = 0, rimFirst = 0;
    unsigned long toolApp = 0, ceToolApp = 0;
    long memoApp = 0, clockApp = 0, mailApp = 0, notesApp = 0;
};
