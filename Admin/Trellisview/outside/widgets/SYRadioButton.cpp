#include "outside/widgets/SYRadioButton.h"

#include <algorithm>

namespace {

SYRadioButton* asRadio(SYWnd* wnd) {
    return dynamic_cast<SYRadioButton*>(wnd);
}

bool startsGroup(const SYWnd* wnd) {
    return (wnd->Style() & SYStyleGroupStart) != 0;
}

} // namespace

std::vector<SYRadioButton*> SYRadioButton::Group() const {
    if (GetParent() == nullptr)
        return {const_cast<SYRadioButton*>(this)};
    const auto& siblings = GetParent()->Children();
    const auto self = std::find(siblings.begin(), siblings.end(), this);
    auto first = self;
    while (!startsGroup(*first) && first != siblings.begin() && asRadio(*(first - 1)) != nullptr)
        --first;
    std::vector<SYRadioButton*> group{asRadio(*first)};
    for (auto it = first + 1; it != siblings.end() && asRadio(*it) != nullptr && !startsGroup(*it);
         ++it)
        group.push_back(asRadio(*it));
    return group;
}

void SYRadioButton::CheckInGroup() {
    for (SYRadioButton* button : Group())
        button->SetCheck(button == this ? 1 : 0);
}
