#pragma once

#include "editing/SYSWRuleConfigPage.h"

// The "Identification Rules" page of the rule configuration sheet: the identification rules.
class SYSWIdRulesPage : public SYSWRuleConfigPage {
public:
    explicit SYSWIdRulesPage(SYListItemArray* ruleArray);

protected:
    void SetupList() override;
    void BuildList() override;
    void EditRule(int row) override;
};
