#pragma once

#include "outside/widgets/SYButton.h"

// A check box: a click toggles it.
class SYCheckBox : public SYButton {
protected:
    void OnClicked() override { SetCheck(GetCheck() ? 0 : 1); }
};
