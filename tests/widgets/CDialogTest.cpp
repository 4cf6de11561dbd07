#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <utility>

#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/CDialog.h"
#include "outside/widgets/SYButton.h"
#include "outside/widgets/SYCheckBox.h"
#include "outside/widgets/SYDateTimeEdit.h"
#include "outside/widgets/SYEdit.h"
#include "outside/widgets/SYFileDialog.h"
#include "outside/widgets/SYFontMetrics.h"
#include "outside/widgets/SYGroupBox.h"
#include "outside/widgets/SYIcon.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYMessageBox.h"
#include "outside/widgets/SYRadioButton.h"
#include "outside/widgets/SYStatic.h"
#include "outside/widgets/SYTextWnd.h"
#include "outside/widgets/SYTreeCtrlEx.h"
#include "support/ReportCapture.h"
#include "support/SYScriptedModalHost.h"

namespace {

constexpr int kTemplate = 19901;
enum : unsigned {
    kLabel = 19910,
    kName,
    kNotes,
    kSize,
    kAll,
    kOnly,
    kGroup,
    kDate,
    kTime,
    kText,
    kList,
    kTree,
    kIcon,
    kHiddenField,
    kLocked,
    kCount,
    kOther
};

const SYDialogTemplate& testTemplate() {
    static const SYDialogTemplate dialog{
        kTemplate,
        "Test Dialog",
        240,
        160,
        {
            {kLabel, SYControlKind::Static, "Name:", 4, 4, 40, 8},
            {kName, SYControlKind::Edit, "", 48, 4, 100, 12},
            {kNotes, SYControlKind::MultiLineEdit, "", 48, 20, 100, 24},
            {kSize, SYControlKind::CheckBox, "Size:", 4, 48, 40, 10},
            {kAll, SYControlKind::RadioButton, "All", 4, 60, 60, 10, SYStyleGroupStart},
            {kOnly, SYControlKind::RadioButton, "Only", 4, 72, 60, 10},
            {kOther, SYControlKind::RadioButton, "Other group", 4, 84, 60, 10, SYStyleGroupStart},
            {kGroup, SYControlKind::GroupBox, "File information", 0, 0, 160, 100},
            {kDate, SYControlKind::DateTimeEdit, "", 70, 60, 50, 12},
            {kTime, SYControlKind::DateTimeEdit, "", 124, 60, 50, 12, SYStyleTimeFormat},
            {kText, SYControlKind::TextWindow, "", 4, 100, 100, 30},
            {kList, SYControlKind::ListCtrl, "", 110, 100, 100, 40},
            {kTree, SYControlKind::TreeCtrl, "", 170, 4, 60, 80},
            {kIcon, SYControlKind::Icon, "", 216, 4, 16, 16},
            {kHiddenField, SYControlKind::Static, "secret", 4, 140, 60, 8,
             SYStyleHidden | SYStyleReadOnly},
            {kLocked, SYControlKind::Edit, "fixed", 70, 140, 60, 12, SYStyleDisabled},
            {kCount, SYControlKind::Edit, "", 70, 76, 40, 12},
            {IDOK, SYControlKind::DefaultButton, "OK", 130, 142, 50, 14},
            {IDCANCEL, SYControlKind::Button, "Cancel", 184, 142, 50, 14},
        }};
    SYDialogTemplates::Register(dialog);
    return dialog;
}

class TestDialog : public CDialog {
public:
    TestDialog() : CDialog((testTemplate(), kTemplate)) {}

    std::string name = "start";
    int count = 7;
    int size = 0;
    int choice = 0;
    int initCount = 0;
    SYEdit nameEdit;

protected:
    int OnInitDialog() override {
        ++initCount;
        return CDialog::OnInitDialog();
    }
    void DoDataExchange(CDataExchange* dx) override {
        DDX_Control(dx, kName, nameEdit);
        DDX_Text(dx, kName, name);
        DDV_MaxChars(dx, name, 10);
        DDX_Text(dx, kCount, count);
        DDX_Check(dx, kSize, size);
        DDX_Radio(dx, kAll, choice);
    }
};

template <class Kind> bool isKind(SYWnd* wnd) {
    return dynamic_cast<Kind*>(wnd) != nullptr;
}

TEST(DialogTemplate, EveryControlOfTheTemplateIsMade) {
    const SYDialogTemplate& dialogTemplate = testTemplate();
    CDialog dialog(kTemplate);
    ASSERT_TRUE(dialog.CreateModeless(nullptr, {0, 0, 480, 320}));
    ASSERT_EQ(dialog.Children().size(), dialogTemplate.controls.size());
    for (std::size_t i = 0; i < dialogTemplate.controls.size(); ++i) {
        const SYControlTemplate& control = dialogTemplate.controls[i];
        SCOPED_TRACE(control.id);
        SYWnd* made = dialog.Children()[i];
        EXPECT_EQ(dialog.GetDlgItem(static_cast<unsigned>(control.id)), made);
        EXPECT_EQ(made->GetDlgCtrlID(), static_cast<unsigned>(control.id));
        EXPECT_EQ(made->Kind(), control.kind);
        EXPECT_EQ(made->GetWindowText(), control.text);
        EXPECT_EQ(made->Style(), control.style);
        const int x = SYFontMetrics::DialogUnitX, y = SYFontMetrics::DialogUnitY;
        EXPECT_EQ(made->GetWindowRect(),
                  (SYRect{control.x * x, control.y * y, (control.x + control.cx) * x,
                          (control.y + control.cy) * y}));
        EXPECT_EQ(made->IsWindowEnabled(), (control.style & SYStyleDisabled) == 0);
        EXPECT_EQ(made->IsWindowVisible(), (control.style & SYStyleHidden) == 0);
        EXPECT_EQ(made->IsReadOnly(), (control.style & SYStyleReadOnly) != 0);
    }
    EXPECT_TRUE(isKind<SYStatic>(dialog.GetDlgItem(kLabel)));
    EXPECT_TRUE(isKind<SYEdit>(dialog.GetDlgItem(kName)));
    EXPECT_TRUE(static_cast<SYEdit*>(dialog.GetDlgItem(kNotes))->IsMultiLine());
    EXPECT_TRUE(isKind<SYCheckBox>(dialog.GetDlgItem(kSize)));
    EXPECT_TRUE(isKind<SYRadioButton>(dialog.GetDlgItem(kAll)));
    EXPECT_TRUE(isKind<SYGroupBox>(dialog.GetDlgItem(kGroup)));
    EXPECT_TRUE(isKind<SYDateTimeEdit>(dialog.GetDlgItem(kDate)));
    EXPECT_TRUE(static_cast<SYDateTimeEdit*>(dialog.GetDlgItem(kTime))->ShowsTime());
    EXPECT_TRUE(isKind<SYTextWnd>(dialog.GetDlgItem(kText)));
    EXPECT_TRUE(isKind<SYListCtrlEx>(dialog.GetDlgItem(kList)));
    EXPECT_TRUE(isKind<SYTreeCtrlEx>(dialog.GetDlgItem(kTree)));
    EXPECT_TRUE(isKind<SYIcon>(dialog.GetDlgItem(kIcon)));
    EXPECT_TRUE(isKind<SYButton>(dialog.GetDlgItem(IDOK)));
    EXPECT_EQ(dialog.GetWindowText(), "Test Dialog");
}

TEST(DialogTemplate, AMemberControlTakesThePlaceOfTheTemplatesControl) {
    TestDialog dialog;
    ASSERT_TRUE(dialog.CreateModeless(nullptr, {}));
    EXPECT_EQ(dialog.Children()[1], &dialog.nameEdit) << "in the template's place";
    EXPECT_EQ(dialog.nameEdit.GetWindowText(), "start");
    EXPECT_EQ(dialog.nameEdit.GetLimitText(), 10);
    dialog.nameEdit.SetFocus();
    dialog.DestroyWindow();
    EXPECT_FALSE(dialog.nameEdit.IsWindow());
    EXPECT_EQ(SYWnd::GetFocus(), nullptr) << "focus goes with its window";
    ASSERT_TRUE(dialog.CreateModeless(nullptr, {}));
    EXPECT_EQ(dialog.GetDlgItem(kName), &dialog.nameEdit) << "a new window binds it again";
}

TEST(DialogTemplate, AMissingTemplateIsReportedAndMakesNoWindow) {
    const ReportCapture reports;
    CDialog dialog(19999);
    EXPECT_FALSE(dialog.CreateModeless(nullptr, {}));
    EXPECT_FALSE(dialog.IsWindow());
    ASSERT_EQ(reports.Size(), 1U);
    EXPECT_EQ(reports.All().front().message, "The dialog template 19999 does not exist.");
}

TEST(Dialog, AFailedExchangeKeepsTheDialogOpen) {
    SYScriptedModalHost host;
    TestDialog dialog;
    host.ExpectDialog(kTemplate)
        .Type(kName, "a name longer than ten")
        .Type(kCount, "12x")
        .Check(kSize)
        .Check(kOnly)
        .PressOK()
        .Inspect([&](CDialog& open) {
            EXPECT_FALSE(open.IsModalEnded());
            EXPECT_EQ(SYWnd::GetFocus(), open.GetDlgItem(kCount));
            EXPECT_EQ(dialog.count, 7) << "the member keeps its value";
        })
        .Type(kCount, " 42 ")
        .PressOK();
    host.ExpectMessageBox(IDOK, "Please enter an integer.");

    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(dialog.count, 42);
    EXPECT_EQ(dialog.name, "a name lon") << "typing stops at the limit";
    EXPECT_EQ(dialog.size, 1);
    EXPECT_EQ(dialog.choice, 1);
    EXPECT_EQ(dialog.initCount, 1);
    EXPECT_EQ(host.MessageBoxes().at(0).icon, MB_ICONEXCLAMATION);
}

TEST(Dialog, CancelLeavesTheMembersAlone) {
    SYScriptedModalHost host;
    TestDialog dialog;
    host.ExpectDialog("Test Dialog").Type(kCount, "99").PressCancel();
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.count, 7);
}

TEST(Dialog, WithoutAHostNothingShowsAndDefaultsAnswer) {
    ASSERT_EQ(SYModalHost::Current(), nullptr);
    TestDialog dialog;
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    EXPECT_EQ(dialog.initCount, 0);
    for (const auto& [type, answer] :
         {std::pair{MB_OK | MB_ICONEXCLAMATION, IDOK},
          std::pair{MB_OKCANCEL | MB_DEFBUTTON2, IDCANCEL}, std::pair{MB_YESNO, IDYES},
          std::pair{MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2, IDNO}})
        EXPECT_EQ(SYMessageBox::Show(nullptr, "?", "", type), answer) << type;
    EXPECT_EQ(SYFileDialog(1, "", "", OFN_HIDEREADONLY, "").DoModal(), IDCANCEL);
}

TEST(Dialog, TheFileDialogGivesThePickedPath) {
    SYScriptedModalHost host;
    host.ExpectFileDialog("/tmp/apps/setup.exe");
    host.ExpectFileDialog("");
    SYFileDialog files(1, "", "", OFN_HIDEREADONLY,
                       "Application Files (*.exe;*.com)|*.exe;*.com||");
    EXPECT_EQ(files.FilterEntries(), (std::vector<std::pair<std::string, std::string>>{
                                         {"Application Files (*.exe;*.com)", "*.exe;*.com"}}));
    ASSERT_EQ(files.DoModal(), IDOK);
    EXPECT_EQ(files.GetFileName(), "setup.exe");
    EXPECT_EQ(files.DoModal(), IDCANCEL);
}

class Controls : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(dialog.CreateModeless(nullptr, {})); }
    template <class Control> Control& item(unsigned id) {
        return dynamic_cast<Control&>(*dialog.GetDlgItem(id));
    }
    CDialog dialog{(testTemplate(), kTemplate)};
};

TEST_F(Controls, RadioGroupsAreExclusiveWithinTheirRunOnly) {
    item<SYRadioButton>(kOther).Click();
    item<SYRadioButton>(kAll).Click();
    item<SYRadioButton>(kOnly).Click();
    EXPECT_EQ(item<SYRadioButton>(kAll).GetCheck(), 0);
    EXPECT_EQ(item<SYRadioButton>(kOnly).GetCheck(), 1);
    EXPECT_EQ(item<SYRadioButton>(kOther).GetCheck(), 1);
}

TEST_F(Controls, EditsTellTheirParentOfEveryChangeAndRefuseTypingWhenLocked) {
    int changes = 0;
    dialog.MapCommand(kName, EN_CHANGE, [&] { ++changes; });
    auto& edit = item<SYEdit>(kName);
    edit.SetWindowText("a");
    edit.SetWindowText("a");
    EXPECT_TRUE(edit.TypeText("b"));
    EXPECT_EQ(changes, 2);
    EXPECT_FALSE(item<SYEdit>(kLocked).TypeText("x"));
    edit.SetReadOnly(1);
    EXPECT_FALSE(edit.TypeText("c"));
    EXPECT_EQ(edit.GetWindowText(), "b");
}

TEST_F(Controls, TheTextWindowWrapsAtItsWidth) {
    SYTextWnd text;
    ASSERT_TRUE(text.CreateFromControl(kText, &dialog, 1));
    EXPECT_FALSE(SYTextWnd().CreateFromControl(kText, &dialog, 1)) << "already taken";
    text.MoveWindow({0, 0, 12 * SYFontMetrics::CharWidth, 40});
    text.AddText("This file is being ignored\nby a user rule.");
    text.LayoutText();
    EXPECT_EQ(text.Lines(),
              (std::vector<std::string>{"This file is", "being", "ignored", "by a user", "rule."}));
}

TEST(DateTimeEdit, DateAndTimeEditorsMakeOneTimeAndRefuseImpossibleDates) {
    SYDateTimeEdit date;
    SYDateTimeEdit time;
    ASSERT_TRUE(date.SetTime(CTime(2024, 2, 29, 23, 59, 58)));
    ASSERT_TRUE(time.SetDateTime(1999, 1, 1, 7, 8, 9));
    EXPECT_EQ(SYDateTimeEdit::Combine(date, time), CTime(2024, 2, 29, 7, 8, 9));
    EXPECT_FALSE(date.SetTime(CTime()));
    for (const auto& [year, month, day, hour, minute] :
         {std::tuple{2023, 2, 29, 0, 0}, std::tuple{2024, 13, 1, 0, 0},
          std::tuple{2024, 4, 31, 0, 0}, std::tuple{2024, 1, 1, 24, 0},
          std::tuple{2024, 1, 1, 0, 60}, std::tuple{2024, 1, 0, 0, 0}})
        EXPECT_FALSE(date.SetDateTime(year, month, day, hour, minute, 0))
            << year << "-" << month << "-" << day << " " << hour << ":" << minute;
    EXPECT_EQ(date.Day(), 29) << "a refused date changes nothing";
}

} // namespace
