#pragma once

#include <string>
#include <vector>

#include "outside/store/SYInventoryModel.h"
#include "outside/store/SYSWInvObject.h"
#include "outside/widgets/CDialog.h"
#include "outside/widgets/SYEdit.h"
#include "outside/widgets/SYListCtrlEx.h"

class SYDatabase;

// Lets the user pick a company of the installed applications of the Windows PC or
// Windows CE inventory. Each company shows once, under the spelling most applications use.
// SetCompanyName presets the choice: the company it names (case and legal form aside) is
// selected when the dialog opens, and CompanyName keeps the preset unless the dialog ends
// with IDOK. Typing in the name edit selects the company it names or begins.
class SYAppCompanySelectDlg : public CDialog, public SYSWInvObject {
    SY_DECLARE_DYNAMIC(SYAppCompanySelectDlg)

public:
    explicit SYAppCompanySelectDlg(SYWnd* parent = nullptr);

    void SetDatabase(SYDatabase* database) { m_database = database; }
    void SetInvDataType(unsigned char invDataType) { InvDataType = invDataType; }
    void SetCompanyName(const std::string& name) { m_companyName = name; }
    int DoModal() override;
    // The chosen company's display name, or the preset.
    const std::string& CompanyName() const { return m_companyName; }

protected:
    void DoDataExchange(CDataExchange* dx) override;
    int OnInitDialog() override;
    void OnOK() override;

private:
    int LoadCompanies();
    void FillList();
    // The company that text names, by a spelling or its key; else the first whose shown
    // name begins with text; -1 for none or an empty text.
    int FindCompany(const std::string& text) const;
    bool Names(const SYInventoryModel::CompanyRow& company, const std::string& text) const;
    void OnNameChanged();
    void OnSelectionChanged();
    void UpdateControls();

    SYDatabase* m_database = nullptr;
    std::string m_companyName;
    std::vector<SYInventoryModel::CompanyRow> m_companies;
    SYEdit m_nameEdit;
    SYListCtrlEx m_list;
    // Set while the edit follows the list, so the edit's change does not search again.
    bool m_following = false;
};
