#pragma once

#include "outside/widgets/CDialog.h"

class CPropertySheet;

// A page of a property sheet, made on a dialog template. Its window is made the first time
// the page comes to the front; each later time it runs its load exchange again.
class CPropertyPage : public CDialog {
    SY_DECLARE_DYNAMIC(CPropertyPage)

public:
    explicit CPropertyPage(int templateId = 0);

    CPropertySheet* GetSheet() const { return m_sheet; }
    void SetSheet(CPropertySheet* sheet) { m_sheet = sheet; }

    // The page comes to the front; gives 0 to refuse. The first time its window has just
    // run the load exchange in OnInitDialog, so only later times run it here.
    virtual int OnSetActive();
    // The page goes to the back; gives 0 to stay.
    virtual int OnKillActive() { return 1; }
    // Turns the sheet's Cancel button into Close: what was done cannot be undone.
    void CancelToClose();

private:
    CPropertySheet* m_sheet = nullptr;
    bool m_firstActivation = true;

    friend class CPropertySheet;
};
