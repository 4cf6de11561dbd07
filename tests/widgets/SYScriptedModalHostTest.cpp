#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <functional>

#include "outside/widgets/CDialog.h"
#include "outside/widgets/SYMessageBox.h"
#include "support/SYScriptedModalHost.h"

namespace {

constexpr int kTemplate = 19950;
constexpr unsigned kApply = 19951;

// A dialog of OK, Cancel and a disabled Apply button.
class ButtonsDialog : public CDialog {
public:
    ButtonsDialog() : CDialog(kTemplate) {
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
};

// Every way a script and the code can part fails the test with a message that says how.
TEST(ScriptedHost, FailsWhenTheCodeDoesNotDoWhatTheScriptExpects) {
    const struct {
        const char* failure;
        std::function<void(SYScriptedModalHost&)> run;
    } cases[] = {
        {"unexpected dialog 19950 \"Ask\"",
         [](SYScriptedModalHost&) { EXPECT_EQ(ButtonsDialog().DoModal(), IDCANCEL); }},
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
             EXPECT_EQ(ButtonsDialog().DoModal(), IDCANCEL);
         }},
        {"could not click 19951",
         [](SYScriptedModalHost& host) {
             host.ExpectDialog(kTemplate).Click(kApply).PressCancel();
             ButtonsDialog().DoModal();
         }},
        {"has no control 12345",
         [](SYScriptedModalHost& host) {
             host.ExpectDialog(kTemplate).Type(12345, "x").PressCancel();
             ButtonsDialog().DoModal();
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
