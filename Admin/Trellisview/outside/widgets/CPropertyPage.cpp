#include "outside/widgets/CPropertyPage.h"

#include "outside/widgets/CPropertySheet.h"

SY_IMPLEMENT_DYNAMIC(CPropertyPage, CDialog)

CPropertyPage::CPropertyPage(int templateId) : CDialog(templateId) {}

int CPropertyPage::OnSetActive() {
    if (m_firstActivation) {
        m_firstActivation = false;
        return 1;
    }
    return UpdateData(0);
}

void CPropertyPage::CancelToClose() {
    if (m_sheet != nullptr)
        m_sheet->CancelToClose();
}
