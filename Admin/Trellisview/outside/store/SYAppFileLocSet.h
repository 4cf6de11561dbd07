#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "outside/store/SYRecordset.h"

// The places where files of inventory 0 or 1 lie: one row per file, client and folder.
// JoinMachines adds the client's name and user (a PC or a Windows CE device).
class SYAppFileLocSet : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    void FilterForFileID(unsigned long fileID) { m_fileID = fileID; }
    void JoinMachines() { m_joinMachines = true; }
    // By client name, keeping the rows of one client together, then by folder.
    void SortByMachineAndLocation() { m_sorted = true; }

    unsigned long MachineID() const;
    // Valid until the set moves.
    std::string_view MachineName() const;
    std::string_view MachineUser() const;
    std::string Location() const;

protected:
    void BuildQuery(SYSelect& select) const override;

private:
    std::optional<unsigned long> m_fileID;
    bool m_joinMachines = false;
    bool m_sorted = false;
};
