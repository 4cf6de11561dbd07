#include "editing/SYRuleFileFields.h"

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <system_error>

#include "outside/services/SYPath.h"
#include "outside/services/SYStringTable.h"
#include "outside/store/SYAppNames.h"
#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/CDialog.h"
#include "outside/widgets/SYFileDialog.h"
#include "outside/widgets/SYMessageBox.h"
#include "resources/SYResourceIds.h"
#include "rules/SYAppFileItem.h"

namespace {

// A size as the user typed it; text that is no number reads as 0.
std::uint64_t parseSize(const std::string& text) {
    const std::string number = SYAppNames::Trim(text);
    if (number.empty() || number[0] == '-')
        return 0;
    errno = 0;
    const std::uint64_t size = std::strtoull(number.c_str(), nullptr, 10);
    return errno == 0 ? size : 0;
}

CTime startOfToday() {
    const CTime now(static_cast<std::int32_t>(std::time(nullptr)));
    const CTime::LocalFields today = now.GetLocalFields();
    return CTime(today.year, today.month, today.day, 0, 0, 0);
}

} // namespace

SYRuleFileFields::SYRuleFileFields(SYAppFileItem* ruleItem) : m_ruleItem(ruleItem) {}

void SYRuleFileFields::DoDataExchange(CDataExchange* dx) {
    DDX_Control(dx, IDC_RULE_FILE_NAME, m_nameEdit);
    DDX_Control(dx, IDC_RULE_BROWSE_FILE, m_browseButton);
    DDX_Control(dx, IDC_RULE_ALL_VERSIONS, m_allVersions);
    DDX_Control(dx, IDC_RULE_SOME_VERSIONS, m_someVersions);
    DDX_Control(dx, IDC_RULE_HAS_TIME, m_hasTime);
    DDX_Control(dx, IDC_RULE_DATE, m_dateEdit);
    DDX_Control(dx, IDC_RULE_TIME, m_timeEdit);
    DDX_Control(dx, IDC_RULE_HAS_SIZE, m_hasSize);
    DDX_Control(dx, IDC_RULE_SIZE, m_sizeEdit);
    DDX_Control(dx, IDC_RULE_BYTES_LABEL, m_bytesLabel);
    if (dx->m_bSaveAndValidate) {
        FromControls(dx);
        return;
    }
    m_owner = dx->m_pDlgWnd;
    ToControls();
}

void SYRuleFileFields::ToControls() {
    if (!m_allowNameChange) {
        m_nameEdit.SetReadOnly(1);
        m_browseButton.EnableWindow(0);
    }
    m_nameEdit.SetWindowText(m_ruleItem->FileName());
    const bool someVersions = m_ruleItem->HaveFileSize() || m_ruleItem->HaveModTime();
    m_allVersions.SetCheck(someVersions ? 0 : 1);
    m_someVersions.SetCheck(someVersions ? 1 : 0);
    m_hasSize.SetCheck(m_ruleItem->HaveFileSize() ? 1 : 0);
    if (m_ruleItem->HaveFileSize())
        m_sizeEdit.SetWindowText(std::to_string(m_ruleItem->FileSize()));
    else
        ShowDefaultSize();
    m_hasTime.SetCheck(m_ruleItem->HaveModTime() ? 1 : 0);
    if (m_ruleItem->HaveModTime())
        ShowTime(m_ruleItem->ModTime());
    else
        ShowTime(m_defTime.IsNull() ? startOfToday() : m_defTime);
    UpdateControls();
}

void SYRuleFileFields::ShowDefaultSize() {
    m_sizeEdit.SetWindowText(m_defSize != 0 ? std::to_string(m_defSize) : std::string());
}

void SYRuleFileFields::ShowTime(const CTime& time) {
    m_dateEdit.SetTime(time);
    m_timeEdit.SetTime(time);
}

void SYRuleFileFields::FromControls(CDataExchange* dx) {
    m_ruleItem->SetFileName(SYAppNames::Trim(m_nameEdit.GetWindowText()));
    const bool someVersions = m_someVersions.GetCheck() != 0;
    if (someVersions && m_hasTime.GetCheck())
        m_ruleItem->SetModTime(SYDateTimeEdit::Combine(m_dateEdit, m_timeEdit));
    else
        m_ruleItem->ClearModTime();
    if (someVersions && m_hasSize.GetCheck())
        m_ruleItem->SetFileSize(parseSize(m_sizeEdit.GetWindowText()));
    else
        m_ruleItem->ClearFileSize();
    if (!SYPath(m_ruleItem->FileName()).IsWildcard())
        return;
    SYMessageBox::Show(dx->m_pDlgWnd, SYStringTable::Get(IDS_WILDCARD_REFUSED), "",
                       MB_OK | MB_ICONEXCLAMATION);
    dx->PrepareCtrl(IDC_RULE_FILE_NAME);
    dx->Fail();
}

void SYRuleFileFields::UpdateControls() {
    if (!ControlsExist())
        return;
    const int someVersions = m_someVersions.GetCheck();
    for (SYWnd* control : {static_cast<SYWnd*>(&m_hasTime), static_cast<SYWnd*>(&m_hasSize),
                           static_cast<SYWnd*>(&m_bytesLabel)})
        control->EnableWindow(someVersions);
    m_sizeEdit.EnableWindow(someVersions && m_hasSize.GetCheck());
    m_dateEdit.EnableWindow(someVersions && m_hasTime.GetCheck());
    m_timeEdit.EnableWindow(someVersions && m_hasTime.GetCheck());
}

void SYRuleFileFields::Browse() {
    SYFileDialog dialog(1, "", "", OFN_HIDEREADONLY, SYStringTable::Get(IDS_APP_FILE_FILTER),
                        m_owner);
    if (dialog.DoModal() != IDOK)
        return;
    m_nameEdit.SetWindowText(dialog.GetFileName());
    std::uint64_t size = 0;
    CTime time;
    if (!ReadFileOnDisk(dialog.GetPathName(), size, time))
        return;
    m_sizeEdit.SetWindowText(std::to_string(size));
    ShowTime(time);
}

int SYRuleFileFields::ReadFileOnDisk(const std::string& nativePath, std::uint64_t& size,
                                     CTime& time) {
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path path(nativePath);
    const std::uintmax_t bytes = fs::file_size(path, error);
    if (error)
        return 0;
    const fs::file_time_type written = fs::last_write_time(path, error);
    if (error)
        return 0;
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(
        std::chrono::file_clock::to_sys(written).time_since_epoch());
    size = bytes;
    time = CTime(static_cast<std::int32_t>(seconds.count()));
    return 1;
}
