#pragma once

#include <string>
#include <vector>

#include "SYTermLayer.h"
#include "outside/widgets/SYMessageBox.h"

// A message box on the terminal: its caption, icon mark and wrapped text over a row of
// buttons. Tab and the arrows move among the buttons, Enter presses the one in focus (at
// first the default), a button's initial letter presses it, and Esc gives Cancel, or No,
// or OK, whichever the box has first.
class SYTermMessageBoxView : public SYTermLayer {
public:
    SYTermMessageBoxView(const SYMessageBoxRequest& request, std::string defaultCaption);

    void Draw(SYTermScreen& screen, bool top) override;
    void HandleKey(int key) override;
    bool Done() const override { return m_answer != 0; }
    void Abandon() override { m_answer = EscapeAnswer(); }
    int Answer() const { return m_answer; }

private:
    int EscapeAnswer() const;

    SYMessageBoxRequest m_request;
    std::string m_caption;
    std::vector<int> m_buttons;
    int m_focus = 0;
    int m_answer = 0;
    // Where the buttons were drawn: row, first column and width on the screen.
    struct Span {
        int row;
        int col;
        int width;
    };
    std::vector<Span> m_spans;
};
