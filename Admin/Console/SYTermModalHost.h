#pragma once

#include <functional>
#include <string>
#include <vector>

#include "outside/widgets/SYModalHost.h"

class SYTermLayer;
class SYTermScreen;

// The console's modal host: dialogs, property sheets, message boxes and the file dialog
// drawn on a terminal screen and driven by its keys, one above the other as they open.
// The screen is redrawn after every key and when the terminal changes size. Should the
// keys run out (the screen's ReadKey gives -1), whatever is open closes as by Esc.
class SYTermModalHost : public SYModalHost {
public:
    explicit SYTermModalHost(SYTermScreen& screen, std::string defaultCaption = "Trellisview");

    // Draws what lies below the dialogs, the console's main screen; by default a blank one.
    void SetBackdrop(std::function<void()> backdrop) { m_backdrop = std::move(backdrop); }
    // How the program quits; while one is set, q on a property sheet asks whether to quit,
    // and a Yes closes everything open as Esc would before it quits.
    void SetQuit(std::function<void()> quit) { m_quit = std::move(quit); }
    // Draws the backdrop and everything open, the last one on top.
    void Redraw();
    int OpenCount() const { return static_cast<int>(m_layers.size()); }

    int RunModal(CDialog& dialog) override;
    int MessageBox(const SYMessageBoxRequest& request) override;
    int RunFileDialog(SYFileDialog& dialog) override;

private:
    void Run(SYTermLayer& layer);
    void AskQuit();

    SYTermScreen& m_screen;
    std::string m_defaultCaption;
    std::function<void()> m_backdrop;
    std::function<void()> m_quit;
    bool m_quitting = false;
    std::vector<SYTermLayer*> m_layers;
};
