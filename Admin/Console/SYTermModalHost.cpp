#include "SYTermModalHost.h"

#include "SYTermDialogView.h"
#include "SYTermFileDialogView.h"
#include "SYTermKeys.h"
#include "SYTermMessageBoxView.h"
#include "SYTermScreen.h"
#include "outside/widgets/CDialog.h"
#include "outside/widgets/SYFileDialog.h"
#include "outside/widgets/SYMessageBox.h"

#include <curses.h>

SYTermModalHost::SYTermModalHost(SYTermScreen& screen, std::string defaultCaption)
    : m_screen(screen), m_defaultCaption(std::move(defaultCaption)) {}

void SYTermModalHost::Redraw() {
    if (m_backdrop)
        m_backdrop();
    else
        m_screen.Fill(0, 0, m_screen.Rows(), m_screen.Cols(), SYTermAttr::Normal);
    for (std::size_t i = 0; i < m_layers.size(); ++i)
        m_layers[i]->Draw(m_screen, i + 1 == m_layers.size());
    m_screen.Refresh();
}

void SYTermModalHost::Run(SYTermLayer& layer) {
    m_layers.push_back(&layer);
    while (!layer.Done()) {
        if (m_quitting) {
            layer.Abandon();
            continue;
        }
        Redraw();
        const int key = m_screen.ReadKey();
        if (key == -1)
            layer.Abandon();
        // Dialogs take no wheel; they scroll to their focus.
        else if (key != KEY_RESIZE && !SYTermKeys::IsWheel(key))
            layer.HandleKey(key);
    }
    m_layers.pop_back();
    if (m_layers.empty())
        m_quitting = false;
}

void SYTermModalHost::AskQuit() {
    if (SYMessageBox::Show(nullptr, "Quit " + m_defaultCaption + "?", "",
                           MB_YESNO | MB_ICONQUESTION) != IDYES)
        return;
    m_quitting = true;
    m_quit();
}

int SYTermModalHost::RunModal(CDialog& dialog) {
    if (!dialog.BeginModal())
        return -1;
    SYTermDialogView view(dialog);
    if (m_quit)
        view.SetQuitRequest([this] { AskQuit(); });
    Run(view);
    return dialog.FinishModal();
}

int SYTermModalHost::MessageBox(const SYMessageBoxRequest& request) {
    SYTermMessageBoxView view(request, m_defaultCaption);
    Run(view);
    return view.Answer();
}

int SYTermModalHost::RunFileDialog(SYFileDialog& dialog) {
    SYTermFileDialogView view(dialog);
    Run(view);
    if (view.Answer() == IDOK)
        dialog.SetPathName(view.Path());
    return view.Answer();
}
