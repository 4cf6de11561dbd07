#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "outside/widgets/CDialog.h"
#include "outside/widgets/SYMessageBox.h"
#include "support/SYScriptedModalHost.h"

namespace {

constexpr int kTemplate = 19950;
constexpr unsigned kApply = 19951;

void registerTemplate() {
    SYDialogTemplates::Register(
        {kTemplate,
         "Ask",
         100,
         50,
         {
             {kApply, SYControlKind::Button, "Apply", 4, 30, 40, 14, SYStyleDisabled},
             {IDOK, SYControlKind::DefaultButton, "OK", 50, 30, 40, 14},
             {IDCANCEL, SYControlKind::Button, "Cancel", 50, 30, 40, 14},
         }});
}

// A dialog whose OK asks a question first and closes only on Yes.
class AskingDialog : public CDialog {
public:
    AskingDialog() : CDialog(kTemplate) { registerTemplate(); }
    void OnOK() override {
        if (SYMessageBox::Show(this, "Overwrite?", "",
                               MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES)
            EndDialog(IDOK);
    }
};

TEST(ScriptedHost, PlaysNestedMessageBoxesInOrder) {
    SYScriptedModalHost host;
    host.ExpectDialog("Ask").PressOK().PressOK();
    host.ExpectMessageBox(IDNO, "Overwrite");
    host.ExpectMessageBox(IDYES);
    AskingDialog dialog;
    EXPECT_EQ(dialog.DoModal(), IDOK);
    ASSERT_EQ(host.MessageBoxes().size(), 2u);
    EXPECT_EQ(host.MessageBoxes()[0].answer, IDNO);
    EXPECT_EQ(host.MessageBoxes()[1].defaultResult, IDNO);
    EXPECT_EQ(host.MessageBoxes()[1].icon, MB_ICONQUESTION);
    EXPECT_EQ(host.MessageBoxes()[1].buttons, MB_YESNO);
    EXPECT_TRUE(host.ScriptDone());
    EXPECT_EQ(host.OpenedDialogs(), (std::vector<std::string>{"Ask"}));
}

TEST(ScriptedHost, FailsOnAnUnexpectedDialogAndCancelsIt) {
    EXPECT_NONFATAL_FAILURE(
        {
            SYScriptedModalHost host;
            AskingDialog dialog;
            EXPECT_EQ(dialog.DoModal(), IDCANCEL);
            EXPECT_FALSE(dialog.IsWindow());
        },
        "unexpected dialog 19950 \"Ask\"");
}

TEST(ScriptedHost, FailsOnADialogOutOfOrder) {
    EXPECT_NONFATAL_FAILURE(
        {
            SYScriptedModalHost host;
            host.ExpectMessageBox(IDOK);
            AskingDialog dialog;
            dialog.DoModal();
            SYMessageBox::Show(nullptr, "fine");
        },
        "expected a message box");
}

TEST(ScriptedHost, FailsOnAnUnexpectedMessageBoxAndAnswersTheDefault) {
    int answer = 0;
    EXPECT_NONFATAL_FAILURE(
        {
            SYScriptedModalHost host;
            answer = SYMessageBox::Show(nullptr, "Sure?", "", MB_YESNO | MB_DEFBUTTON2);
        },
        "unexpected message box \"Sure?\"");
    EXPECT_EQ(answer, IDNO);
}

TEST(ScriptedHost, FailsOnAnAnswerTheBoxDoesNotOffer) {
    EXPECT_NONFATAL_FAILURE(
        {
            SYScriptedModalHost host;
            host.ExpectMessageBox(IDYES);
            SYMessageBox::Show(nullptr, "Done.", "", MB_OK);
        },
        "offers no answer");
}

TEST(ScriptedHost, FailsOnAnExpectationThatNeverOpened) {
    EXPECT_NONFATAL_FAILURE(
        {
            SYScriptedModalHost host;
            host.ExpectDialog(kTemplate).PressCancel();
        },
        "never opened");
}

TEST(ScriptedHost, FailsWhenTheScriptLeavesTheDialogOpen) {
    EXPECT_NONFATAL_FAILURE(
        {
            SYScriptedModalHost host;
            host.ExpectDialog(kTemplate);
            AskingDialog dialog;
            EXPECT_EQ(dialog.DoModal(), IDCANCEL);
        },
        "still open at the end of its script");
}

TEST(ScriptedHost, FailsOnAStepTheUserCouldNotDo) {
    EXPECT_NONFATAL_FAILURE(
        {
            SYScriptedModalHost host;
            host.ExpectDialog(kTemplate).Click(kApply).PressCancel();
            AskingDialog dialog;
            dialog.DoModal();
        },
        "could not click 19951");
    EXPECT_NONFATAL_FAILURE(
        {
            SYScriptedModalHost host;
            host.ExpectDialog(kTemplate).Type(12345, "x").PressCancel();
            AskingDialog dialog;
            dialog.DoModal();
        },
        "has no control 12345");
}

TEST(ScriptedHost, PutsBackTheHostBefore) {
    SYModalHost* before = SYModalHost::Current();
    {
        SYScriptedModalHost host;
        EXPECT_EQ(SYModalHost::Current(), &host);
    }
    EXPECT_EQ(SYModalHost::Current(), before);
}

} // namespace
