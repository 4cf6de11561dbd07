#pragma once

#include "outside/widgets/SYWnd.h"

// A push button; check boxes and radio buttons derive from it and keep their check state
// here, so a dialog can read any of them through the same class.
class SYButton : public SYWnd {
public:
    // 0 clear, 1 checked.
    void SetCheck(int check);
    int GetCheck() const { return m_check; }

    // What a user's click does; BN_CLICKED goes to the parent. Gives 0 when the button
    // cannot be clicked (no window, disabled or hidden).
    int Click();

protected:
    // The state change of the click, before the parent hears of it.
    virtual void OnClicked() {}

private:
    int m_check = 0;
};
