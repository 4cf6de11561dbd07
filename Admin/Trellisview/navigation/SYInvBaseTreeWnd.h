#pragma once

#include "outside/widgets/SYTreeHeaderWnd.h"

class SYDatabase;

// Base of the inventory tree: the open database the console stores before the first
// update. Not owned; the console keeps it open for the window's life.
class SYInvBaseTreeWnd : public SYTreeHeaderWnd {
public:
    SYDatabase* Database() const { return m_database; }
    void SetDatabase(SYDatabase* database) { m_database = database; }

private:
    SYDatabase* m_database = nullptr;
};
