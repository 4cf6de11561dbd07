#pragma once

#include <string>
#include <vector>

#include "outside/store/SYInventoryModel.h"
#include "outside/store/SYSWInvObject.h"
#include "outside/widgets/CDialog.h"
#include "outside/widgets/SYListCtrlEx.h"

class SYDatabase;

// Lets the user pick one installed application of the Windows PC or Windows CE inventory.
// Set the database and the inventory, DoModal; after IDOK, AppID names the choice.
// The applications are read before the dialog shows: a store failure is reported and
// DoModal gives IDCANCEL without showing anything.
class SYAppSelectDlg : public CDialog, public SYSWInvObject {
    SY_DECLARE_DYNAMIC(SYAppSelectDlg)

public:
    explicit SYAppSelectDlg(SYWnd* parent = nullptr);

    void SetDatabase(SYDatabase* database) { m_database = database; }
    void SetInvDataType(unsigned char invDataType) { InvDataType = invDataType; }
    int DoModal() override;
    // The chosen application; 0 until the dialog ended with IDOK.
    unsigned long AppID() const { return m_appID; }

protected:
    void DoDataExchange(CDataExchange* dx) override;
    int OnInitDialog() override;
    void OnOK() override;

private:
    // Reads the applications in the store's order: company, then name, then version.
    int LoadApps();
    void FillList();
    void UpdateControls();

    SYDatabase* m_database = nullptr;
    std::vector<SYInventoryModel::AppRow> m_apps;
    SYListCtrlEx m_list;
    unsigned long m_appID = 0;
};
