#include "editing/SYAppFilePropSheet.h"

#include "outside/services/SYStringTable.h"
#include "outside/services/SYTextFormat.h"
#include "resources/SYResourceIds.h"

SYAppFilePropSheet::SYAppFilePropSheet(SYWnd* parent) : SYAdminPropSheet("", parent) {}

void SYAppFilePropSheet::SetFileID(std::uint32_t fileID, unsigned char invDataType) {
    m_fileID = fileID;
    m_invDataType = invDataType;
}

int SYAppFilePropSheet::DoModal() {
    if (m_fileID == 0)
        return IDCANCEL;
    m_appFile.SetDatabase(GetDatabase());
    if (GetPageCount() == 0) {
        AddPage(&m_generalPage);
        AddPage(&m_machinesPage);
        AddPage(&m_rulesPage);
    }
    m_generalPage.SetAppFile(&m_appFile);
    m_rulesPage.SetAppFile(&m_appFile);
    if (!m_appFile.LoadData(m_fileID, m_invDataType))
        return IDCANCEL;
    if (!m_machinesPage.LoadData(m_fileID, m_invDataType))
        return IDCANCEL;
    SetTitle(SYFormatText(SYStringTable::Get(IDS_FILE_PROPERTIES_TITLE), {m_appFile.FileName()}));
    return SYAdminPropSheet::DoModal();
}

void SYAppFilePropSheet::GetPrintData(unsigned labelId, unsigned valueId, std::string& label,
                                      std::string& value) const {
    const SYWnd* labelControl = m_generalPage.GetDlgItem(labelId);
    const SYWnd* valueControl = m_generalPage.GetDlgItem(valueId);
    label = labelControl != nullptr ? labelControl->GetWindowText() : std::string();
    value = valueControl != nullptr ? valueControl->GetWindowText() : std::string();
}

void SYAppFilePropSheet::GetFileNamePrintData(std::string& label, std::string& value) const {
    GetPrintData(IDC_FILE_NAME_LABEL, IDC_FILE_NAME, label, value);
}

void SYAppFilePropSheet::GetFileTimePrintData(std::string& label, std::string& value) const {
    GetPrintData(IDC_FILE_TIME_LABEL, IDC_FILE_TIME, label, value);
}

void SYAppFilePropSheet::GetFileSizePrintData(std::string& label, std::string& value) const {
    GetPrintData(IDC_FILE_SIZE_LABEL, IDC_FILE_SIZE, label, value);
}
