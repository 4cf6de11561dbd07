#pragma once

#include <string>

#include "outside/widgets/SYPrintEngine.h"

class SYWnd;

// A print job made for one window: it carries the window, which the destination chooser
// can use as the parent of its questions, and the title that heads each page.
class SYWndPrintEngine : public SYPrintEngine {
public:
    SYWndPrintEngine(SYWnd* owner, std::string title) : m_owner(owner) {
        SetTitle(std::move(title));
    }

    SYWnd* Owner() const override { return m_owner; }

private:
    SYWnd* m_owner; // not owned
};
