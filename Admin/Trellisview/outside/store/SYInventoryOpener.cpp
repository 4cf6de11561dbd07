#include "outside/store/SYInventoryOpener.h"

#include <unistd.h>

#include <cstdlib>
#include <filesystem>

#include "outside/framework/CException.h"
#include "outside/store/SYInventoryGenerator.h"

namespace {

std::string inQuotes(const std::string& text) {
    return "\"" + text + "\"";
}

std::string folderOf(const std::string& path) {
    const auto folder = std::filesystem::path(path).parent_path();
    return folder.empty() ? std::string(".") : folder.string();
}

} // namespace

std::string SYInventoryOpener::DefaultPath() {
    const char* dataHome = std::getenv("XDG_DATA_HOME");
    const char* home = std::getenv("HOME");
    std::filesystem::path base;
    if (dataHome != nullptr && *dataHome != '\0')
        base = dataHome;
    else if (home != nullptr && *home != '\0')
        base = std::filesystem::path(home) / ".local" / "share";
    else
        return {};
    return (base / "trellisview" / "inventory.db").string();
}

std::string SYInventoryOpener::InstallPath() const {
    return (std::filesystem::path(folderOf(m_resolved)) / "installation").string();
}

std::string SYInventoryOpener::Describe(const std::string& failure) const {
    std::string line = failure;
    for (char& c : line) {
        if (c == '\n' || c == '\r')
            c = ' ';
    }
    if (line.find(m_resolved) != std::string::npos)
        return line;
    return "The inventory " + inQuotes(m_resolved) + " cannot be used: " + line;
}

int SYInventoryOpener::Refuse(const std::string& message) {
    m_message = Describe(message);
    return 0;
}

int SYInventoryOpener::Open(SYDatabase& database) {
    database.Close();
    m_message.clear();
    m_created = false;
    const bool demo = m_path.empty();
    m_resolved = demo ? DefaultPath() : m_path;
    if (m_resolved.empty()) {
        m_message = "No place for the demo inventory: neither XDG_DATA_HOME nor HOME is set.";
        return 0;
    }
    try {
        if ((demo || m_create) && MakeDemoIfAbsent() == 0)
            return 0;
        const std::string readOnly = ReadOnlyReason();
        database.SetBusyTimeout(m_busyTimeoutMs);
        database.Open(m_resolved, readOnly.empty() ? m_mode : SYDatabase::OpenMode::ReadOnly,
                      m_check ? 1 : 0);
        if (!readOnly.empty())
            m_message =
                "The inventory " + inQuotes(m_resolved) + " is open read-only: " + readOnly + ".";
        return 1;
    } catch (const CException& e) {
        database.Close();
        return Refuse(e.ErrorMessage());
    } catch (const std::filesystem::filesystem_error& e) {
        database.Close();
        return Refuse(e.code().message() + ".");
    }
}

int SYInventoryOpener::MakeDemoIfAbsent() {
    std::error_code error;
    const bool present = std::filesystem::exists(m_resolved, error);
    if (error)
        return Refuse("The inventory " + inQuotes(m_resolved) +
                      " cannot be reached: " + error.message() + ".");
    if (present)
        return 1;
    const std::string folder = folderOf(m_resolved);
    std::filesystem::create_directories(folder, error);
    if (error)
        return Refuse("Cannot make the folder " + inQuotes(folder) + " for the inventory " +
                      inQuotes(m_resolved) + ": " + error.message() + ".");
    m_created = SYInventoryGenerator::CreateIfAbsent(m_resolved, InstallPath(), m_demoOptions) != 0;
    return 1;
}

// Opened for writing, a file in a folder that cannot be written would fail at its first
// change or, in WAL mode, at its first read.
std::string SYInventoryOpener::ReadOnlyReason() const {
    if (access(folderOf(m_resolved).c_str(), W_OK) != 0)
        return "its folder cannot be written";
    if (access(m_resolved.c_str(), W_OK) != 0)
        return "the file cannot be written";
    return {};
}
