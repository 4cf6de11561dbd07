#include "editing/SYSWIdRulesPage.h"

#include "editing/SYEditIdRuleDlg.h"
#include "resources/SYResourceIds.h"

namespace {

constexpr const char* ColumnSamples =
    "OOOOOOOOOOOOO\t0,000,000\t10/00/0000 12:00 AM\tSAMPLE_X Software SAMPLE1 Client\t"
    "8.8.8.8888\tSAMPLE2 Software, Inc.";
constexpr int SizeColumn = 1;

} // namespace

SYSWIdRulesPage::SYSWIdRulesPage(SYListItemArray* ruleArray)
    : SYSWRuleConfigPage(IDD_SW_ID_RULES, ruleArray) {}

void SYSWIdRulesPage::SetupList() {
    SYSWRuleConfigPage::SetupList();
    List().AddHeader(IDS_HDR_CONFIG_ID_RULES);
    List().SetupColumnsFromString(ColumnSamples);
    List().SetColFormat(SizeColumn, SYAlignRight);
    List().SetHdrFormat(SizeColumn, SYAlignRight);
}

void SYSWIdRulesPage::BuildList() {
    BuildRows<SYIdRuleItem>();
}

void SYSWIdRulesPage::EditRule(int row) {
    EditRuleWith<SYEditIdRuleDlg, SYIdRuleItem>(row);
}
