#include "editing/SYEditExcludeDlg.h"

#include "outside/store/SYAppNames.h"
#include "outside/widgets/CDataExchange.h"
#include "resources/SYResourceIds.h"

SYEditExcludeDlg::SYEditExcludeDlg(SYWnd* parent)
    : SYEditRuleDlg<SYIgnoreRuleItem>(IDD_EDIT_EXCLUDE_RULE, parent) {}

void SYEditExcludeDlg::ExchangeOwnFields(CDataExchange* dx) {
    DDX_Control(dx, IDC_RULE_DESCRIPTION, m_descriptionEdit);
    if (dx->m_bSaveAndValidate)
        EditedItem().SetComment(SYAppNames::Trim(m_descriptionEdit.GetWindowText()));
    else
        m_descriptionEdit.SetWindowText(RuleItem().Comment());
}
