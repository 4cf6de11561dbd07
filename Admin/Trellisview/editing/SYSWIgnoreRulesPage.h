#pragma once

#include "editing/SYSWRuleConfigPage.h"

// The "Ignore Rules" page of the rule configuration sheet: the ignore rules.
class SYSWIgnoreRulesPage : public SYSWRuleConfigPage {
public:
    explicit SYSWIgnoreRulesPage(SYListItemArray* ruleArray);

protected:
    void SetupList() override;
    void BuildList() override;
    void EditRule(int row) override;
};
