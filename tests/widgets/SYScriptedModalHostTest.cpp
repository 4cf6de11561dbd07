#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <functional>

#include "outside/widgets/CDialog.h"
#include "outside/widgets/SYMessageBox.h"
#include "support/SYScriptedModalHost.h"

namespace {

constexpr int kTemplate = 19950;
constexpr unsigned kApply = 19951;

// A dialog whose OK asks a question first and closes only on Yes.
class AskingDialog : public CDialog {
public:
    AskingDialog() : CDialog(kTemplate) {
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
    EXPECT_EQ(host.OpenedDialogs(), (std::vector<std::string>{"Ask"}));
}

// Every way a script and the code can part fails the test with a message that says how.
TEST(ScriptedHost, FailsWhenTheCodeDoesNotDoWhatTheScriptExpects) {
    const struct {
        const char* failure;
        std::function<void(SYScriptedModalHost&)> run;
    } cases[] = {
        {"unexpected dialog 19950 \"Ask\"",
         [](SYScriptedModalHost&) { EXPECT_EQ(AskingDialog().DoModal(), IDCANCEL); }},
        {"unexpected message box \"Sure?\"",
         [](SYScriptedModalHost&) {
             EXPECT_EQ(SYMessageBox::Show(nullptr, "Sure?", "", MB_YESNO | MB_DEFBUTTON2), IDNO);
         }},
        {"offers no answer",
         [](SYScriptedModalHost& host) {
             host.ExpectMessageBox(IDYES);
             SYMessageBox::Show(nullptr, "Done.", "", MB_OK);
         }},
        {"never opened",
         [](SYScriptedModalHost& host) { host.ExpectDialog(kTemplate).PressCancel(); }},
        {"still open at the end of its script",
         [](SYScriptedModalHost& host) {
             host.ExpectDialog(kTemplate);
             EXPECT_EQ(AskingDialog().DoModal(), IDCANCEL);
         }},
        {"could not click 19951",
         [](SYScriptedModalHost& host) {
             host.ExpectDialog(kTemplate).Click(kApply).PressCancel();
             AskingDialog().DoModal();
         }},
        {"has no control 12345",
         [](SYScriptedModalHost& host) {
             host.ExpectDialog(kTemplate).Type(12345, "x").PressCancel();
             AskingDialog().DoModal();
         }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.failure);
        EXPECT_NONFATAL_FAILURE(
            {
                SYScriptedModalHost host;
                c.run(host);
            },
            c.failure);
    }
    EXPECT_EQ(SYModalHost::Current(), nullptr) << "each host puts back the one before";
}

} // namespace
