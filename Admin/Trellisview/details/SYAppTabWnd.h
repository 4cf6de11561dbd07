#pragma once

#include <cstdint>
#include <string>

#include "details/SYAppBaseTabWnd.h"

class SYAppViewGeneralPage;
class SYAppViewMachinesPage;
class SYListCtrlEx;

// The detail view of one application of the Windows PC or Windows CE inventory: a
// "General" page (index 0) and a "Clients" page (index 1).
class SYAppTabWnd : public SYAppBaseTabWnd {
    SY_DECLARE_DYNCREATE(SYAppTabWnd)

public:
    int Initialize(unsigned id, SYWnd* parent) override;

    // Fills both pages with the application of the inventory (0 or 1). AppID 0 blanks them
    // and gives 0; a store failure is reported and gives 0, leaving what was read.
    int LoadAppData(std::uint32_t appID, unsigned char invDataType);
    void SetupLayout();

    void AppInfo(std::string& name, std::string& version, std::string& company) const;
    SYListCtrlEx& AppFileList() const;
    SYListCtrlEx* MachineList() const;
    int MachineTotal() const;
    int InstallationTotal() const;

    // The context menu and its default command for the control with the focus; 0 if none.
    int GetContextMenuInfo(unsigned& menuId, unsigned& defaultCommand) const;
    // The file selected on the General page while it is active; else 0.
    std::uint32_t GetSelectedFileID() const;
    // The installation selected on the Clients page while it is active; else 0.
    int GetSelectedInstallation(std::uint32_t& machineID, std::uint32_t& installationID) const;

    void ActivateGeneralPage() { SetActivePage(0); }
    void ActivateMachinesPage() { SetActivePage(1); }

private:
    SYAppViewGeneralPage* GetGeneralPage() const;
    SYAppViewMachinesPage* GetMachinesPage() const;
};
