#include "outside/widgets/SYButton.h"

void SYButton::SetCheck(int check) {
    if (m_check == check)
        return;
    m_check = check;
    NoteChange();
}

int SYButton::Click() {
    if (!IsWindow() || !IsWindowEnabled() || !IsWindowVisible())
        return 0;
    OnClicked();
    SendCommandToParent(BN_CLICKED);
    return 1;
}
