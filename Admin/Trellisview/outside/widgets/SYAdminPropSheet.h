#pragma once

#include <string>

#include "outside/widgets/CPropertySheet.h"
#include "outside/widgets/SYAdminPropPage.h"

class SYDatabase;

// A property sheet of the administration console: it carries the open database (not owned)
// and a read-only switch for its pages. OK goes to the virtual OnOK with the command's two
// arguments, so that a derived sheet can save and then pass the same command on to
// CPropertySheet::OnCommand, which closes the sheet.
class SYAdminPropSheet : public CPropertySheet {
    SY_DECLARE_DYNAMIC(SYAdminPropSheet)

public:
    explicit SYAdminPropSheet(const std::string& title = "", SYWnd* owner = nullptr);

    void SetDatabase(SYDatabase* database) { m_database = database; }
    SYDatabase* GetDatabase() const { return m_database; }
    void SetReadOnly(int readOnly) { m_readOnly = readOnly != 0; }
    int IsReadOnly() const { return m_readOnly ? 1 : 0; }

    void AddPage(SYAdminPropPage* page) { CPropertySheet::AddPage(page); }

    // Runs the exchange of every page whose window exists, towards the controls (0) or from
    // them; gives 0 at the first page that fails, which is then brought to the front.
    int UpdatePageData(int saveAndValidate);
    // Asks every page whose window exists; 0 at the first that refuses.
    virtual int ValidateData();
    virtual int LoadData() { return 1; }
    virtual int SaveData() { return 1; }
    // The OK command. This one saves through UpdatePageData(1), ValidateData and SaveData
    // and closes the sheet if all succeed. Gives 1 if the sheet handled the command (open
    // or closed), 0 if it refused it: the sheet then closes with IDCANCEL, unsaved.
    virtual int OnOK(unsigned wParam, long lParam);

    int OnCommand(unsigned wParam, long lParam) override;

private:
    SYDatabase* m_database = nullptr;
    bool m_readOnly = false;
};
