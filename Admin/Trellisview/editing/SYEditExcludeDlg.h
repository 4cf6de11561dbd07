#pragma once

#include "editing/SYEditRuleDlg.h"
#include "outside/widgets/SYEdit.h"
#include "rules/SYIgnoreRuleItem.h"

// "Ignore File": makes or changes an ignore rule, which leaves the files with a name (and,
// if wanted, a size and modify time) out of the inventory's reckoning, with a comment.
class SYEditExcludeDlg : public SYEditRuleDlg<SYIgnoreRuleItem> {
public:
    explicit SYEditExcludeDlg(SYWnd* parent = nullptr);

protected:
    void ExchangeOwnFields(CDataExchange* dx) override;

private:
    SYEdit m_descriptionEdit;
};
