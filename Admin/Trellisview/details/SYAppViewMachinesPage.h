#pragma once

#include <cstdint>

#include "outside/framework/SYListItemArray.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYStatic.h"
#include "outside/widgets/SYTabWndPage.h"

class SYAppMachineItem;

// The "Clients" page of the Windows application view: the two totals and one row for every
// installation of the application.
class SYAppViewMachinesPage : public SYTabWndPage {
    SY_DECLARE_DYNCREATE(SYAppViewMachinesPage)

public:
    SYAppViewMachinesPage();

    // No rows, no totals (the total fields show no text).
    void ClearData();
    void SetTotals(int machineTotal, int installationTotal);
    int MachineTotal() const { return m_machineTotal; }
    int InstallationTotal() const { return m_installationTotal; }

    SYListItemArray* MachineData() { return &m_machineData; }
    SYListCtrlEx* MachineList() { return &m_machineList; }
    // Empties the array; the list's rows stay, unread, until the next BuildMachineList.
    void ClearMachines();
    void AddMachine(const SYAppMachineItem& machine);
    void BuildMachineList(int keepSelection);
    void SetupLayout();
    // The selected row's client and installation, and 1; 0 (references untouched) without.
    int GetSelectedInstallation(std::uint32_t& machineID, std::uint32_t& installationID) const;

    // The list's header-click callback; the argument is the page.
    static void SortMachines(int column, void* page);
    int SortColumn() const { return m_sortColumn; }
    int SortAscending() const { return m_sortAscending; }
    void OnDblclkMachineList();

    void Resize() override;
    void BeginPrinting(CDC* dc, SYPrintEngine* engine) override;

protected:
    void DoDataExchange(CDataExchange* dx) override;
    int OnInitDialog() override;
    void UpdateControls();

private:
    SYStatic m_totalClientsField;
    SYStatic m_totalInstallationsField;
    SYListItemArray m_machineData;
    int m_machineTotal = 0;
    int m_installationTotal = 0;
    SYListCtrlEx m_machineList;
    int m_sortColumn = 0;
    int m_sortAscending = 1;
    bool m_rowsInStep = true;
};
