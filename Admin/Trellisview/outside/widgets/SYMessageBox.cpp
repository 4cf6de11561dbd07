#include "outside/widgets/SYMessageBox.h"

#include "outside/widgets/SYModalHost.h"

int SYMessageBoxRequest::DefaultResult() const {
    const bool second = (type & MB_DEFMASK) == MB_DEFBUTTON2;
    switch (Buttons()) {
    case MB_OKCANCEL:
        return second ? IDCANCEL : IDOK;
    case MB_YESNO:
        return second ? IDNO : IDYES;
    default:
        return IDOK;
    }
}

bool SYMessageBoxRequest::Offers(int result) const {
    switch (Buttons()) {
    case MB_OKCANCEL:
        return result == IDOK || result == IDCANCEL;
    case MB_YESNO:
        return result == IDYES || result == IDNO;
    default:
        return result == IDOK;
    }
}

int SYMessageBox::Show(const SYWnd* owner, const std::string& text, const std::string& caption,
                       unsigned type) {
    const SYMessageBoxRequest request{owner, text, caption, type};
    SYModalHost* host = SYModalHost::Current();
    if (host == nullptr)
        return request.DefaultResult();
    return host->MessageBox(request);
}
