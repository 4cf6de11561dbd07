#pragma once

#include "outside/widgets/SYWnd.h"

// A static picture: an icon or image number of the console's resources, 0 for none.
class SYIcon : public SYWnd {
public:
    void SetIcon(int icon) {
        m_icon = icon;
        NoteChange();
    }
    int GetIcon() const { return m_icon; }

private:
    int m_icon = 0;
};
