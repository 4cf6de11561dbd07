#pragma once

#include <string>

#include "outside/widgets/SYWnd.h"

// A label or a read-only display field.
class SYStatic : public SYWnd {
public:
    void SetText(const std::string& text) { SetWindowText(text); }
    const std::string& GetText() const { return GetWindowText(); }
};

// The display fields of the detail views are statics that take their text through SetText.
using SYDisplayField = SYStatic;
