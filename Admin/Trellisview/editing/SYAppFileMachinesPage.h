#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "outside/widgets/SYAdminPropPage.h"
#include "outside/widgets/SYListCtrlEx.h"

// The Clients page of a file's properties: every client and folder where the file lies,
// the number of clients, and a print-out of both.
class SYAppFileMachinesPage : public SYAdminPropPage {
public:
    SYAppFileMachinesPage();

    // Reads the file's locations before the page shows; 0 (reported) if the store fails.
    int LoadData(std::uint32_t fileID, unsigned char invDataType);
    int ClientCount() const { return m_clientCount; }

protected:
    int OnInitDialog() override;
    void OnPrint();

private:
    struct Location {
        std::uint32_t machineID;
        std::string machineName;
        std::string machineUser;
        std::string location;
    };

    std::vector<Location> m_locations;
    int m_invDataType = -1;
    SYListCtrlEx m_list;
    int m_clientCount = 0;
};
