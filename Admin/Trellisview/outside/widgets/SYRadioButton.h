#pragma once

#include "outside/widgets/SYButton.h"

// A radio button. Its group is the run of radio buttons around it among its siblings; a
// button with the group-start style begins a new run. A click checks it and clears the rest.
class SYRadioButton : public SYButton {
public:
    // Checks this button and clears the others of its group, as a click does.
    void CheckInGroup();
    // The group's buttons in order, this one among them.
    std::vector<SYRadioButton*> Group() const;

protected:
    void OnClicked() override { CheckInGroup(); }
};
