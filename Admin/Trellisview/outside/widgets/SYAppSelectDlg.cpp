#include "outside/widgets/SYAppSelectDlg.h"

#include <algorithm>

#include "outside/framework/CException.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYReport.h"
#include "outside/services/SYStringTable.h"
#include "outside/store/SYInventoryModel.h"
#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYFontMetrics.h"
#include "outside/widgets/SYWidgetIds.h"

SY_IMPLEMENT_DYNAMIC(SYAppSelectDlg, CDialog)

namespace {

// Column titles belong to the selection dialog itself, as the buttons of a sheet do.
constexpr const char* kColumnTitles = "Name\tVersion\tCompany";

} // namespace

SYAppSelectDlg::SYAppSelectDlg(SYWnd* parent) : CDialog(IDD_APP_SELECT, parent) {
    m_list.SetSingleSelection(1);
    MapNotify(IDC_SELECT_APP_LIST, LVN_ITEMCHANGED, [this] { UpdateControls(); });
    MapNotify(IDC_SELECT_APP_LIST, NM_DBLCLK, [this] { OnOK(); });
}

int SYAppSelectDlg::DoModal() {
    m_appID = 0;
    if (!LoadApps())
        return IDCANCEL;
    return CDialog::DoModal();
}

int SYAppSelectDlg::LoadApps() {
    m_apps.clear();
    try {
        if (m_database == nullptr)
            throw CInvalidArgException("The application list needs a database.");
        SYWaitCursor wait;
        SYInventoryModel(m_database).LoadInstalledApps(InvDataType, m_apps);
        return 1;
    } catch (const CException& exception) {
        m_apps.clear();
        SYExReport(exception, GetOwner());
        return 0;
    }
}

void SYAppSelectDlg::DoDataExchange(CDataExchange* dx) {
    DDX_Control(dx, IDC_SELECT_APP_LIST, m_list);
}

int SYAppSelectDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    FillList();
    UpdateControls();
    return 1;
}

void SYAppSelectDlg::FillList() {
    m_list.AddHeader(kColumnTitles);
    const std::string noCompany = SYStringTable::Get(IDS_NO_COMPANY);
    // Each column as wide as its widest text, title included, so that no name is cut.
    std::vector<int> widths;
    for (int column = 0; column < m_list.GetColumnCount(); ++column)
        widths.push_back(m_list.GetStringWidth(m_list.GetColumnTitle(column)));
    for (const SYInventoryModel::AppRow& app : m_apps) {
        const std::string cells[] = {app.name, app.version,
                                     app.company.empty() ? noCompany : app.company};
        // Cell by cell, so that a tab in a scanned name cannot shift the columns.
        const int row = m_list.InsertBitmapString(-1, -1, "");
        m_list.SetItemData(row, static_cast<std::uint32_t>(app.appID));
        for (std::size_t column = 0; column < widths.size(); ++column) {
            m_list.SetItemText(row, static_cast<int>(column), cells[column]);
            widths[column] = std::max(widths[column], m_list.GetStringWidth(cells[column]));
        }
    }
    for (std::size_t column = 0; column < widths.size(); ++column)
        m_list.SetColWidth(static_cast<int>(column), widths[column] + SYFontMetrics::ColumnPadding);
}

void SYAppSelectDlg::UpdateControls() {
    if (SYWnd* ok = GetDlgItem(IDOK))
        ok->EnableWindow(m_list.GetSelectedItem() != -1);
}

void SYAppSelectDlg::OnOK() {
    const int row = m_list.GetSelectedItem();
    if (row == -1)
        return;
    m_appID = m_list.GetItemData(row);
    EndDialog(IDOK);
}
