#pragma once

#include <string>

#include "outside/widgets/SYWidgetIds.h"

class SYWnd;

// What a message box asks: its text, title (empty: the console's default title), buttons,
// icon and default button, in the MB_ style bits.
struct SYMessageBoxRequest {
    const SYWnd* owner = nullptr;
    std::string text;
    std::string caption;
    unsigned type = MB_OK;

    unsigned Buttons() const { return type & MB_TYPEMASK; }
    unsigned Icon() const { return type & MB_ICONMASK; }
    // The answer of the default button: IDOK, IDCANCEL, IDYES or IDNO.
    int DefaultResult() const;
    // Whether a result is one of the buttons this box shows.
    bool Offers(int result) const;
};

// Shows a message box through the modal host. Without a host the default button answers.
class SYMessageBox {
public:
    static int Show(const SYWnd* owner, const std::string& text, const std::string& caption = "",
                    unsigned type = MB_OK);
};
