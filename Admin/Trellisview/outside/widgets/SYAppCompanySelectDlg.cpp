#include "outside/widgets/SYAppCompanySelectDlg.h"

#include <algorithm>

#include "outside/framework/CException.h"
#include "outside/framework/SYString.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYReport.h"
#include "outside/store/SYAppNames.h"
#include "outside/store/SYInventoryModel.h"
#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYFontMetrics.h"
#include "outside/widgets/SYWidgetIds.h"

SY_IMPLEMENT_DYNAMIC(SYAppCompanySelectDlg, CDialog)

namespace {

bool beginsWith(const std::string& text, const std::string& prefix) {
    return text.size() >= prefix.size() && SYStrICmp(text.substr(0, prefix.size()), prefix) == 0;
}

} // namespace

SYAppCompanySelectDlg::SYAppCompanySelectDlg(SYWnd* parent)
    : CDialog(IDD_APP_COMPANY_SELECT, parent) {
    m_list.SetSingleSelection(1);
    MapCommand(IDC_SELECT_COMPANY_NAME, EN_CHANGE, [this] { OnNameChanged(); });
    MapNotify(IDC_SELECT_COMPANY_LIST, LVN_ITEMCHANGED, [this] { OnSelectionChanged(); });
    MapNotify(IDC_SELECT_COMPANY_LIST, NM_DBLCLK, [this] { OnOK(); });
}

int SYAppCompanySelectDlg::DoModal() {
    if (!LoadCompanies())
        return IDCANCEL;
    return CDialog::DoModal();
}

int SYAppCompanySelectDlg::LoadCompanies() {
    m_companies.clear();
    try {
        if (m_database == nullptr)
            throw CInvalidArgException("The company list needs a database.");
        SYWaitCursor wait;
        // Applications without a company have nothing to pick: the name stays empty.
        SYInventoryModel(m_database)
            .ForEachCompany(InvDataType, [this](const SYInventoryModel::CompanyRow& company) {
                if (!company.internalName.empty())
                    m_companies.push_back(company);
                return true;
            });
        return 1;
    } catch (const CException& exception) {
        m_companies.clear();
        SYExReport(exception, GetOwner());
        return 0;
    }
}

void SYAppCompanySelectDlg::DoDataExchange(CDataExchange* dx) {
    DDX_Control(dx, IDC_SELECT_COMPANY_NAME, m_nameEdit);
    DDX_Control(dx, IDC_SELECT_COMPANY_LIST, m_list);
}

int SYAppCompanySelectDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    FillList();
    // The edit shows the preset as the caller gave it; its change selects the company.
    m_nameEdit.SetWindowText(m_companyName);
    OnNameChanged();
    return 1;
}

void SYAppCompanySelectDlg::FillList() {
    m_list.AddHeader(IDS_HDR_COMPANY_LIST);
    int width = m_list.GetStringWidth(m_list.GetColumnTitle(0));
    for (std::size_t index = 0; index < m_companies.size(); ++index) {
        const std::string& shown = m_companies[index].DisplayName();
        const int row = m_list.InsertBitmapString(-1, -1, "");
        m_list.SetItemText(row, 0, shown);
        m_list.SetItemData(row, static_cast<std::uint32_t>(index));
        width = std::max(width, m_list.GetStringWidth(shown));
    }
    m_list.SetColWidth(0, width + SYFontMetrics::ColumnPadding);
}

bool SYAppCompanySelectDlg::Names(const SYInventoryModel::CompanyRow& company,
                                  const std::string& text) const {
    if (SYStrICmp(company.internalName, SYAppNames::CompanyKey(text)) == 0)
        return true;
    return std::any_of(company.spellings.begin(), company.spellings.end(),
                       [&](const std::string& spelling) { return SYStrICmp(spelling, text) == 0; });
}

int SYAppCompanySelectDlg::FindCompany(const std::string& text) const {
    if (SYAppNames::Trim(text).empty())
        return -1;
    for (std::size_t index = 0; index < m_companies.size(); ++index) {
        if (Names(m_companies[index], text))
            return static_cast<int>(index);
    }
    for (std::size_t index = 0; index < m_companies.size(); ++index) {
        if (beginsWith(m_companies[index].DisplayName(), text))
            return static_cast<int>(index);
    }
    return -1;
}

void SYAppCompanySelectDlg::OnNameChanged() {
    if (m_following)
        return;
    const int company = FindCompany(m_nameEdit.GetWindowText());
    int found = -1;
    for (int row = 0; row < m_list.GetItemCount() && found == -1; ++row) {
        if (static_cast<int>(m_list.GetItemData(row)) == company)
            found = row;
    }
    m_following = true;
    m_list.SelectItem(found);
    m_following = false;
    if (found != -1)
        m_list.EnsureVisible(found);
    UpdateControls();
}

void SYAppCompanySelectDlg::OnSelectionChanged() {
    if (m_following)
        return;
    const int row = m_list.GetSelectedItem();
    if (row != -1) {
        m_following = true;
        m_nameEdit.SetWindowText(m_companies[m_list.GetItemData(row)].DisplayName());
        m_following = false;
    }
    UpdateControls();
}

void SYAppCompanySelectDlg::UpdateControls() {
    if (SYWnd* ok = GetDlgItem(IDOK))
        ok->EnableWindow(m_list.GetSelectedItem() != -1);
}

void SYAppCompanySelectDlg::OnOK() {
    const int row = m_list.GetSelectedItem();
    if (row == -1)
        return;
    m_companyName = m_companies[m_list.GetItemData(row)].DisplayName();
    EndDialog(IDOK);
}
