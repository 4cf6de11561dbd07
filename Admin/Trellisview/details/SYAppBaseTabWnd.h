#pragma once

#include "outside/widgets/SYTabWnd.h"

class SYDatabase;

// Base of the three application views: the open database the console stores before the
// first load and keeps open for the window's life. Not owned.
class SYAppBaseTabWnd : public SYTabWnd {
    SY_DECLARE_DYNAMIC(SYAppBaseTabWnd)

public:
    SYDatabase* Database() const { return m_database; }
    void SetDatabase(SYDatabase* database) { m_database = database; }

private:
    SYDatabase* m_database = nullptr;
};
