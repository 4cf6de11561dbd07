#pragma once

#include <optional>
#include <string>

#include "outside/store/SYRecordset.h"

// Installations of the Windows PC or Windows CE inventory (InvDataType 0 or 1): one
// application in one folder on one client. JoinMachines adds the client's name, from the
// PCs for inventory 0 and from the Windows CE devices for 1.
class SYAppInstallationSet : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    void FilterForAppID(unsigned long appID);
    void FilterForMachineID(unsigned long machineID);
    void FilterForInstallationID(unsigned long installationID);
    void JoinMachines();
    // By client, then folder.
    void SortByMachineID();

    unsigned long InstallationID() const;
    unsigned long AppID() const;
    unsigned long MachineID() const;
    std::string Location() const;
    // With JoinMachines; empty for a client that is gone.
    std::string MachineName() const;

protected:
    void BuildQuery(SYSelect& select) const override;

private:
    std::optional<unsigned long> m_appID;
    std::optional<unsigned long> m_machineID;
    std::optional<unsigned long> m_installationID;
    bool m_joinMachines = false;
    bool m_sortByMachine = false;
};
