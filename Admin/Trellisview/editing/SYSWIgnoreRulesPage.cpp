#include "editing/SYSWIgnoreRulesPage.h"

#include "editing/SYEditExcludeDlg.h"
#include "resources/SYResourceIds.h"

namespace {

constexpr const char* ColumnSamples = "OOOOOOOOOOOOO\t0,000,000\t10/00/0000 12:00 AM";
constexpr int SizeColumn = 1;

} // namespace

SYSWIgnoreRulesPage::SYSWIgnoreRulesPage(SYListItemArray* ruleArray)
    : SYSWRuleConfigPage(IDD_SW_IGNORE_RULES, ruleArray) {}

void SYSWIgnoreRulesPage::SetupList() {
    SYSWRuleConfigPage::SetupList();
    List().AddHeader(IDS_HDR_CONFIG_IGNORE_RULES);
    List().SetupColumnsFromString(ColumnSamples);
    List().SetColFormat(SizeColumn, SYAlignRight);
    List().SetHdrFormat(SizeColumn, SYAlignRight);
}

void SYSWIgnoreRulesPage::BuildList() {
    BuildRows<SYIgnoreRuleItem>();
}

void SYSWIgnoreRulesPage::EditRule(int row) {
    EditRuleWith<SYEditExcludeDlg, SYIgnoreRuleItem>(row);
}
