#include "details/SYAppTabWnd.h"

#include "details/SYAppMachineItem.h"
#include "details/SYAppViewGeneralPage.h"
#include "details/SYAppViewMachinesPage.h"
#include "outside/framework/CException.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYProgress.h"
#include "outside/services/SYReport.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYAppInstallationSet.h"
#include "outside/store/SYAppSet.h"
#include "outside/store/SYHandheldSet.h"
#include "outside/store/SYMachineDataSet.h"
#include "resources/SYResourceIds.h"
#include "rules/SYAppFileItem.h"

SY_IMPLEMENT_DYNCREATE(SYAppTabWnd, SYAppBaseTabWnd)

namespace {

constexpr unsigned long Placeholder = 1;
constexpr unsigned long SoftwareInventoryResource = 1;

// A client's last scan, from one open set that each lookup requeries: the device's last
// software scan for Windows CE, the inventory record of a PC otherwise.
class LastScanReader {
public:
    LastScanReader(SYDatabase* database, unsigned char invDataType)
        : m_handheld(invDataType == InvDataPPC), m_devices(database), m_machines(database) {
        if (m_handheld) {
            m_devices.FilterForDeviceID(Placeholder);
            m_devices.Open();
        } else {
            m_machines.FilterForMachine(Placeholder);
            m_machines.FilterForResource(SoftwareInventoryResource);
            m_machines.Open();
        }
    }

    CTime Of(unsigned long machineID) {
        if (m_handheld) {
            m_devices.FilterForDeviceID(machineID);
            m_devices.Requery();
            return !m_devices.IsEOF() && m_devices.HaveLastSWInvTime() != 0
                       ? m_devices.LastSWInvTime()
                       : CTime();
        }
        m_machines.FilterForMachine(machineID);
        m_machines.Requery();
        return !m_machines.IsEOF() ? m_machines.CreationTime() : CTime();
    }

    void Close() {
        m_devices.Close();
        m_machines.Close();
    }

private:
    bool m_handheld;
    SYHandheldSet m_devices;
    SYMachineDataSet m_machines;
};

void loadGeneral(SYAppViewGeneralPage& page, SYDatabase* database, std::uint32_t appID,
                 unsigned char invDataType) {
    SYAppSet apps(database);
    apps.InvDataType = invDataType;
    apps.FilterForAppID(appID);
    apps.Open();
    if (!apps.IsEOF())
        page.SetAppInfo(apps.AppName(), apps.AppVersion(), apps.AppCompany());
    apps.Close();

    SYAppFileItem file;
    page.ClearFiles();
    SYAppFileSet files(database);
    files.InvDataType = invDataType;
    files.JoinLocations();
    files.FilterForAppID(appID);
    files.SortByID(0);
    files.ReadFileFieldsOnly();
    files.Open();
    // A file comes once for every place it lies, on adjacent rows.
    unsigned long lastFileID = 0;
    for (; !files.IsEOF(); files.MoveNext()) {
        if (files.FileID() == lastFileID)
            continue;
        file.SetFileID(files.FileID());
        file.SetFileName(files.FileName());
        file.SetFileSize(static_cast<std::uint32_t>(files.FileSizeLo()),
                         static_cast<std::uint32_t>(files.FileSizeHi()));
        file.SetModTime(files.FileTime());
        page.AddFile(file);
        lastFileID = files.FileID();
    }
    files.Close();
    page.BuildFileList(0);
}

// Gives the totals: clients and installations.
std::pair<int, int> loadMachines(SYAppViewMachinesPage& page, SYDatabase* database,
                                 std::uint32_t appID, unsigned char invDataType) {
    SYAppMachineItem machine;
    int machineTotal = 0;
    int installationTotal = 0;
    unsigned long lastMachineID = 0;
    page.ClearMachines();
    SYAppInstallationSet installations(database);
    installations.InvDataType = invDataType;
    installations.JoinMachines();
    installations.SortByMachineID();
    installations.FilterForAppID(appID);
    installations.Open();
    LastScanReader lastScan(database, invDataType);
    machine.SetInvDataType(invDataType);
    for (; !installations.IsEOF(); installations.MoveNext()) {
        const unsigned long machineID = installations.MachineID();
        machine.SetMachineID(static_cast<std::uint32_t>(machineID));
        machine.SetInstallationID(static_cast<std::uint32_t>(installations.InstallationID()));
        machine.SetMachineName(installations.MachineName());
        machine.SetLocation(installations.Location());
        machine.SetLastScan(lastScan.Of(machineID));
        page.AddMachine(machine);
        if (machineID != lastMachineID) {
            ++machineTotal;
            lastMachineID = machineID;
        }
        ++installationTotal;
    }
    lastScan.Close();
    installations.Close();
    page.BuildMachineList(0);
    return {machineTotal, installationTotal};
}

} // namespace

int SYAppTabWnd::Initialize(unsigned id, SYWnd* parent) {
    const int result = SYAppBaseTabWnd::Initialize(id, parent);
    if (result != 0) {
        AddPage(IDS_TAB_GENERAL, SY_RUNTIME_CLASS(SYAppViewGeneralPage));
        AddPage(IDS_TAB_CLIENTS, SY_RUNTIME_CLASS(SYAppViewMachinesPage));
    }
    return result;
}

SYAppViewGeneralPage* SYAppTabWnd::GetGeneralPage() const {
    return dynamic_cast<SYAppViewGeneralPage*>(GetPage(0));
}

SYAppViewMachinesPage* SYAppTabWnd::GetMachinesPage() const {
    return dynamic_cast<SYAppViewMachinesPage*>(GetPage(1));
}

int SYAppTabWnd::LoadAppData(std::uint32_t appID, unsigned char invDataType) {
    SYAppViewGeneralPage* general = GetGeneralPage();
    SYAppViewMachinesPage* machines = GetMachinesPage();
    if (appID == 0) {
        if (general != nullptr)
            general->ClearData();
        if (machines != nullptr)
            machines->ClearData();
        return 0;
    }
    SYWaitCursor wait;
    // An application on every client reads a row per place of each file: say how far it got.
    SYProgress progress(SYProgress::OpeningApplication, 2);
    try {
        if (general != nullptr)
            loadGeneral(*general, Database(), appID, invDataType);
        progress.Step();
        if (machines != nullptr) {
            const auto [machineTotal, installationTotal] =
                loadMachines(*machines, Database(), appID, invDataType);
            machines->SetTotals(machineTotal, installationTotal);
            if (general != nullptr)
                general->SetTotals(machineTotal, installationTotal);
        }
        progress.Step();
        return 1;
    } catch (const CException& exception) {
        SYExReport(exception, nullptr);
        return 0;
    }
}

void SYAppTabWnd::SetupLayout() {
    if (SYAppViewGeneralPage* general = GetGeneralPage(); general != nullptr && general->IsWindow())
        general->SetupLayout();
    if (SYAppViewMachinesPage* machines = GetMachinesPage();
        machines != nullptr && machines->IsWindow())
        machines->SetupLayout();
}

void SYAppTabWnd::AppInfo(std::string& name, std::string& version, std::string& company) const {
    GetGeneralPage()->AppInfo(name, version, company);
}

SYListCtrlEx& SYAppTabWnd::AppFileList() const {
    return GetGeneralPage()->AppFileList();
}

SYListCtrlEx* SYAppTabWnd::MachineList() const {
    return GetMachinesPage()->MachineList();
}

int SYAppTabWnd::MachineTotal() const {
    return GetMachinesPage()->MachineTotal();
}

int SYAppTabWnd::InstallationTotal() const {
    return GetMachinesPage()->InstallationTotal();
}

int SYAppTabWnd::GetContextMenuInfo(unsigned& menuId, unsigned& defaultCommand) const {
    SYAppViewGeneralPage* general = GetGeneralPage();
    SYAppViewMachinesPage* machines = GetMachinesPage();
    if (GetActiveIndex() == 0 && general != nullptr && general->AppFileList().HasFocus()) {
        menuId = IDM_APP_FILE;
        defaultCommand = ID_PROPERTIES;
        return 1;
    }
    if (GetActiveIndex() == 1 && machines != nullptr && machines->MachineList()->HasFocus()) {
        menuId = IDM_APP_INSTALLATION;
        defaultCommand = ID_VIEW_INSTALLATION_DETAILS;
        return 1;
    }
    return 0;
}

std::uint32_t SYAppTabWnd::GetSelectedFileID() const {
    if (GetActiveIndex() != 0)
        return 0;
    return GetGeneralPage()->GetSelectedFileID();
}

int SYAppTabWnd::GetSelectedInstallation(std::uint32_t& machineID,
                                         std::uint32_t& installationID) const {
    SYAppViewMachinesPage* machines = GetMachinesPage();
    if (GetActiveIndex() != 1 || machines == nullptr || !machines->IsWindow())
        return 0;
    return machines->GetSelectedInstallation(machineID, installationID);
}
