#include "editing/SYIgnoreAppDlg.h"

#include <algorithm>
#include <memory>

#include "outside/framework/CException.h"
#include "outside/framework/SYStatus.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYReport.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYAppNames.h"
#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYAdminImages.h"
#include "outside/widgets/SYFontMetrics.h"
#include "resources/SYResourceIds.h"
#include "rules/SYSWRule.h"

namespace {

// The system's exclamation icon.
constexpr int ExclamationIcon = 32515;
constexpr int ColumnFile = 0;
constexpr int ColumnSize = 1;
constexpr int ColumnTime = 2;

} // namespace

SYIgnoreAppDlg::SYIgnoreAppDlg(SYWnd* parent) : CDialog(IDD_IGNORE_APP, parent) {
    m_list.SetSingleSelection(1);
}

int SYIgnoreAppDlg::DoModal() {
    if (!LoadData())
        return IDCANCEL;
    return CDialog::DoModal();
}

int SYIgnoreAppDlg::LoadData() {
    if (m_database == nullptr || m_appID == 0 || m_swRule == nullptr)
        return 0;
    SYWaitCursor wait;
    m_fileList.RemoveAll();
    try {
        SYAppFileSet set(m_database);
        set.InvDataType = m_swRule->InvDataType;
        set.JoinLocations();
        set.FilterForAppID(m_appID);
        set.SortByID();
        set.Open();
        unsigned long previousID = 0;
        for (; !set.IsEOF(); set.MoveNext()) {
            if (set.FileID() == previousID)
                continue;
            previousID = set.FileID();
            auto file = std::make_unique<SYAppFileItem>();
            file->SetFileID(static_cast<std::uint32_t>(set.FileID()));
            file->SetFileName(set.FileName());
            file->SetFileSize(static_cast<std::uint32_t>(set.FileSizeLo()),
                              static_cast<std::uint32_t>(set.FileSizeHi()));
            file->SetModTime(set.FileTime());
            m_fileList.Add(std::move(file));
        }
    } catch (const CException& exception) {
        SYExReport(exception, nullptr);
        return 0;
    }
    m_fileList.SortArray(0, 1);
    return 1;
}

int SYIgnoreAppDlg::OnInitDialog() {
    CDialog::OnInitDialog();
    m_icon.SubclassDlgItem(IDC_IGNORE_APP_ICON, this);
    m_icon.SetIcon(ExclamationIcon);
    return 1;
}

void SYIgnoreAppDlg::DoDataExchange(CDataExchange* dx) {
    SYWnd* comment = dx->PrepareCtrl(IDC_IGNORE_APP_COMMENT);
    if (dx->m_bSaveAndValidate) {
        m_comment = SYAppNames::Trim(comment->GetWindowText());
        return;
    }
    if (!m_listReady) {
        SetupList();
        m_listReady = 1;
    }
    BuildFileList();
}

void SYIgnoreAppDlg::SetupList() {
    m_list.Initialize(IDC_IGNORE_APP_FILE_LIST, SYAdminImages::InventoryBitmap,
                      SYAdminImages::MaskColour, SYAdminImages::ImageWidth, this);
    m_list.SetHeaderClickable(0);
    m_list.AddHeader(IDS_HDR_IGNORE_APP_FILES);
    const int sizeWidth = m_list.GetStringWidth("0,000,000") + SYFontMetrics::ColumnPadding;
    const int timeWidth =
        m_list.GetStringWidth("10/00/0000 12:00 AM") + SYFontMetrics::ColumnPadding;
    const int fileMinimum = m_list.GetStringWidth("OOOOOOOOOOOOO") + SYFontMetrics::ColumnPadding;
    const int fileWidth =
        m_list.GetClientRect().Width() - sizeWidth - timeWidth - SYFontMetrics::ScrollBarWidth;
    m_list.SetColWidth(ColumnFile, std::max(fileWidth, fileMinimum));
    m_list.SetColWidth(ColumnSize, sizeWidth);
    m_list.SetColWidth(ColumnTime, timeWidth);
    for (const int column : {ColumnFile, ColumnTime}) {
        m_list.SetColFormat(column, SYAlignLeft);
        m_list.SetHdrFormat(column, SYAlignLeft);
    }
    m_list.SetColFormat(ColumnSize, SYAlignRight);
    m_list.SetHdrFormat(ColumnSize, SYAlignRight);
}

void SYIgnoreAppDlg::BuildFileList() {
    m_list.DeleteAllItems();
    for (int index = 0; index < m_fileList.GetSize(); ++index) {
        const auto* file = dynamic_cast<const SYAppFileItem*>(m_fileList.GetAt(index));
        if (file == nullptr)
            continue;
        std::string text;
        file->MakeString(text);
        m_list.InsertBitmapString(SYAdminImages::ImageAppFile, -1, text);
    }
}

void SYIgnoreAppDlg::OnOK() {
    if (UpdateData(1) && SaveData())
        EndDialog(IDOK);
}

int SYIgnoreAppDlg::SaveData() {
    SYIgnoreRuleItem rule;
    try {
        for (int index = 0; index < m_fileList.GetSize(); ++index) {
            const auto* file = dynamic_cast<const SYAppFileItem*>(m_fileList.GetAt(index));
            if (file == nullptr)
                continue;
            rule.SetFileName(file->FileName());
            rule.SetFileSize(file->FileSize());
            rule.SetModTime(file->ModTime());
            rule.SetComment(m_comment);
            if (!m_swRule->AddExcludeRule(rule, 1) || !m_swRule->RemoveMatchingRules(rule))
                return 0;
        }
    } catch (const CException& exception) {
        SYExReport(exception, nullptr);
        return 0;
    } catch (const SYStatus& status) {
        SYStatusReport(status, nullptr);
        return 0;
    }
    return 1;
}
