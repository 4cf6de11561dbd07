#include "outside/widgets/SYAdminPropSheet.h"

SY_IMPLEMENT_DYNAMIC(SYAdminPropSheet, CPropertySheet)

SYAdminPropSheet::SYAdminPropSheet(const std::string& title, SYWnd* owner)
    : CPropertySheet(title, owner) {}

int SYAdminPropSheet::UpdatePageData(int saveAndValidate) {
    for (int i = 0; i < GetPageCount(); ++i) {
        CPropertyPage* page = GetPage(i);
        if (page->IsWindow() && !page->UpdateData(saveAndValidate)) {
            SetActivePage(i);
            return 0;
        }
    }
    return 1;
}

int SYAdminPropSheet::ValidateData() {
    for (int i = 0; i < GetPageCount(); ++i) {
        auto* page = dynamic_cast<SYAdminPropPage*>(GetPage(i));
        if (page != nullptr && page->IsWindow() && !page->ValidateData()) {
            SetActivePage(i);
            return 0;
        }
    }
    return 1;
}

int SYAdminPropSheet::OnOK(unsigned wParam, long lParam) {
    if (!UpdatePageData(1) || !ValidateData() || !SaveData())
        return 1;
    return CPropertySheet::OnCommand(wParam, lParam);
}

int SYAdminPropSheet::OnCommand(unsigned wParam, long lParam) {
    if (SYCommandId(wParam) != IDOK || SYCommandCode(wParam) != BN_CLICKED)
        return CPropertySheet::OnCommand(wParam, lParam);
    if (!OnOK(wParam, lParam))
        EndDialog(IDCANCEL);
    return 1;
}
