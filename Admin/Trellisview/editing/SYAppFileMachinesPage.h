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
    // Each place's cells (client and user, folder), read by LoadData and moved into the list
    // when the page shows, so a long list is held once.
    std::vector<std::vector<std::string>> m_places;
    int m_invDataType = -1;
    SYListCtrlEx m_list;
    int m_clientCount = 0;
};
