#pragma once

#include "outside/widgets/SYListCtrlEx.h"

class SYDatabase;

// Base of the inventory list: the open database the console stores before the first
// Build operation. Not owned.
class SYInvBaseListCtrl : public SYListCtrlEx {
public:
    SYDatabase* Database() const { return m_database; }
    void SetDatabase(SYDatabase* database) { m_database = database; }

private:
    SYDatabase* m_database = nullptr;
};
