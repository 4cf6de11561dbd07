#pragma once

#include <string>

#include "SYTermLayer.h"
#include "SYTermLineEdit.h"

class SYFileDialog;

// The file dialog on the terminal: one line to type a path in, with Tab completing it
// from the folder it names. Enter takes the path (an open dialog that wants an existing
// file says so and stays), Esc cancels.
class SYTermFileDialogView : public SYTermLayer {
public:
    explicit SYTermFileDialogView(const SYFileDialog& dialog);

    void Draw(SYTermScreen& screen, bool top) override;
    void HandleKey(int key) override;
    bool Done() const override { return m_answer != 0; }
    void Abandon() override;
    // IDOK or IDCANCEL once done.
    int Answer() const { return m_answer; }
    // The picked path, made absolute.
    const std::string& Path() const { return m_path; }

private:
    void Complete();
    void Accept();

    const SYFileDialog& m_dialog;
    std::string m_path;
    std::string m_problem;
    SYTermLineEdit m_line;
    int m_answer = 0;
};
