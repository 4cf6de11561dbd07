#pragma once

#include "outside/widgets/CPropertyPage.h"

class SYDatabase;
class SYAdminPropSheet;

// A page of an administration sheet: it reaches the sheet's database and read-only switch.
class SYAdminPropPage : public CPropertyPage {
    SY_DECLARE_DYNAMIC(SYAdminPropPage)

public:
    explicit SYAdminPropPage(int templateId = 0);

    SYAdminPropSheet* GetAdminSheet() const;
    // The sheet's database, null without a sheet.
    SYDatabase* GetDatabase() const;
    // The sheet's switch; a page without a sheet is not read-only.
    int IsReadOnly() const;
    // Checks the page's data after its exchange from the controls; 0 keeps the sheet open.
    virtual int ValidateData() { return 1; }
};
