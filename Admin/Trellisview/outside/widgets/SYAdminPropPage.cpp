#include "outside/widgets/SYAdminPropPage.h"

#include "outside/widgets/SYAdminPropSheet.h"

SY_IMPLEMENT_DYNAMIC(SYAdminPropPage, CPropertyPage)

SYAdminPropPage::SYAdminPropPage(int templateId) : CPropertyPage(templateId) {}

SYAdminPropSheet* SYAdminPropPage::GetAdminSheet() const {
    return dynamic_cast<SYAdminPropSheet*>(GetSheet());
}

SYDatabase* SYAdminPropPage::GetDatabase() const {
    SYAdminPropSheet* sheet = GetAdminSheet();
    return sheet != nullptr ? sheet->GetDatabase() : nullptr;
}

int SYAdminPropPage::IsReadOnly() const {
    SYAdminPropSheet* sheet = GetAdminSheet();
    return sheet != nullptr ? sheet->IsReadOnly() : 0;
}
