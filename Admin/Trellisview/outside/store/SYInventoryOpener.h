#pragma once

#include <string>

#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryGenerator.h"

// How a program opens its inventory: the default demo inventory, made on first use, or a
// file the user names, made only on request. Nothing is thrown: a refusal is one line that
// names the file and the cause, and the refused file is left as it was. A file whose
// folder or self cannot be written is opened read-only, and the note says so.
class SYInventoryOpener {
public:
    // $XDG_DATA_HOME/trellisview/inventory.db, else under $HOME/.local/share; empty when
    // neither is set.
    static std::string DefaultPath();

    // A file to open instead of the default demo inventory.
    void SetPath(const std::string& path) { m_path = path; }
    // Nonzero: make the demo inventory at the named file when it does not exist.
    void SetCreate(int create) { m_create = create != 0; }
    // Nonzero: run the engine's quick check before the file is used.
    void SetCheck(int check) { m_check = check != 0; }
    void SetMode(SYDatabase::OpenMode mode) { m_mode = mode; }
    // What a demo inventory made here holds; the small demo estate unless set.
    void SetDemoOptions(const SYInventoryGenerator::Options& options) { m_demoOptions = options; }
    void SetBusyTimeout(int milliseconds) { m_busyTimeoutMs = milliseconds; }

    // Nonzero when database is open; 0 with Message() telling why not.
    int Open(SYDatabase& database);

    // The file opened or refused.
    const std::string& Path() const { return m_resolved; }
    // The folder of the system rules database that belongs to the inventory.
    std::string InstallPath() const;
    // The refusal, or a note on an open with a reservation; empty otherwise.
    const std::string& Message() const { return m_message; }
    int CreatedInventory() const { return m_created ? 1 : 0; }
    // A failure met while using the open inventory, as one line that names the file.
    std::string Describe(const std::string& failure) const;

private:
    int MakeDemoIfAbsent();
    std::string ReadOnlyReason() const;
    int Refuse(const std::string& message);

    std::string m_path;
    std::string m_resolved;
    std::string m_message;
    SYDatabase::OpenMode m_mode = SYDatabase::OpenMode::Write;
    SYInventoryGenerator::Options m_demoOptions = SYInventoryGenerator::DemoOptions();
    int m_busyTimeoutMs = SYDatabase::DefaultBusyTimeoutMs;
    bool m_create = false;
    bool m_check = false;
    bool m_created = false;
};
