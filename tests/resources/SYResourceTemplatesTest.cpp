#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "outside/widgets/SYDialogTemplate.h"
#include "outside/widgets/SYMenu.h"
#include "outside/widgets/SYPrintEngineText.h"
#include "resources/SYResourceIds.h"

namespace {

const SYControlTemplate* findControl(const SYDialogTemplate& dialog, int id) {
    for (const SYControlTemplate& control : dialog.controls) {
        if (control.id == id)
            return &control;
    }
    return nullptr;
}

bool overlap(const SYControlTemplate& a, const SYControlTemplate& b) {
    return a.x < b.x + b.cx && b.x < a.x + a.cx && a.y < b.y + b.cy && b.y < a.y + a.cy;
}

bool inside(const SYControlTemplate& inner, const SYControlTemplate& outer) {
    return inner.x >= outer.x && inner.y >= outer.y && inner.x + inner.cx <= outer.x + outer.cx &&
           inner.y + inner.cy <= outer.y + outer.cy;
}

TEST(SYResourceTemplates, EveryDialogAndPageIsRegistered) {
    const std::vector<std::pair<int, const char*>> expected = {
        {13100, "General"},
        {13101, "Clients"},
        {13102, "General"},
        {13103, "Clients"},
        {13107, "View Application Details"},
        {13108, "View Installation Details"},
        {13115, "General"},
        {13116, "Clients"},
        {13117, "View Application Details"},
        {IDD_EDIT_ID_RULE, "Identify File"},
        {IDD_EDIT_EXCLUDE_RULE, "Ignore File"},
        {IDD_IGNORE_APP, "Ignore Application"},
        {IDD_APP_FILE_GENERAL, "General"},
        {IDD_APP_FILE_MACHINES, "Clients"},
        {IDD_APP_FILE_RULES, "Rules"},
        {IDD_SW_ID_RULES, "Identification Rules"},
        {IDD_SW_IGNORE_RULES, "Ignore Rules"},
        {IDD_APP_SELECT, "Select Application"},
        {IDD_APP_COMPANY_SELECT, "Select Company"},
    };
    for (const auto& [id, title] : expected) {
        const SYDialogTemplate* dialog = SYDialogTemplates::Find(id);
        ASSERT_NE(dialog, nullptr) << id;
        EXPECT_EQ(dialog->title, title) << id;
    }
    EXPECT_EQ(SYDialogTemplates::Ids().size(), expected.size());
}

TEST(SYResourceTemplates, ControlIdsAreUniqueAndInRange) {
    for (const int templateId : SYDialogTemplates::Ids()) {
        EXPECT_GE(templateId, 13100);
        EXPECT_LT(templateId, 13200);
        std::set<int> seen;
        for (const SYControlTemplate& control : SYDialogTemplates::Find(templateId)->controls) {
            if (control.id == IDC_STATIC)
                continue;
            EXPECT_TRUE(seen.insert(control.id).second)
                << "template " << templateId << " repeats control " << control.id;
            const bool standard = control.id == ID_OK_BUTTON || control.id == ID_CANCEL_BUTTON;
            EXPECT_TRUE(standard || (control.id >= 13200 && control.id < 13500))
                << "template " << templateId << " control " << control.id;
        }
    }
}

TEST(SYResourceTemplates, ControlsLieInsideTheDialogWithoutCoveringEachOther) {
    for (const int templateId : SYDialogTemplates::Ids()) {
        const SYDialogTemplate& dialog = *SYDialogTemplates::Find(templateId);
        const SYControlTemplate frame{0, SYControlKind::GroupBox, "", 0, 0, dialog.cx, dialog.cy};
        for (std::size_t i = 0; i < dialog.controls.size(); ++i) {
            const SYControlTemplate& a = dialog.controls[i];
            EXPECT_GT(a.cx, 0);
            EXPECT_GT(a.cy, 0);
            EXPECT_TRUE(inside(a, frame)) << "template " << templateId << ": " << a.text;
            if (a.kind == SYControlKind::GroupBox || (a.style & SYStyleHidden) != 0)
                continue;
            for (std::size_t j = i + 1; j < dialog.controls.size(); ++j) {
                const SYControlTemplate& b = dialog.controls[j];
                if (b.kind == SYControlKind::GroupBox || (b.style & SYStyleHidden) != 0)
                    continue;
                EXPECT_FALSE(overlap(a, b))
                    << "template " << templateId << ": control " << a.id << " '" << a.text
                    << "' covers " << b.id << " '" << b.text << "'";
            }
        }
    }
}

// Characters a control needs beside its caption in a terminal: a check box's "[x] ", a
// button's brackets, a group box's corners.
int decoration(SYControlKind kind) {
    switch (kind) {
    case SYControlKind::CheckBox:
    case SYControlKind::RadioButton:
        return 4;
    case SYControlKind::Button:
    case SYControlKind::DefaultButton:
    case SYControlKind::GroupBox:
        return 2;
    default:
        return 0;
    }
}

// A cell of the terminal is 4 dialog units wide and 8 high; captions wrap at blanks.
TEST(SYResourceTemplates, CaptionsFitTheirControlsInTerminalCells) {
    for (const int templateId : SYDialogTemplates::Ids()) {
        const SYDialogTemplate& dialog = *SYDialogTemplates::Find(templateId);
        EXPECT_LE(printtext::Width(dialog.title) + 4, dialog.cx / 4) << templateId;
        for (const SYControlTemplate& control : dialog.controls) {
            if (control.text.empty())
                continue;
            const std::string caption = SYMenuItem::Command(0, control.text).PlainText();
            const int width = control.cx / 4 - decoration(control.kind);
            const int lines =
                control.kind == SYControlKind::GroupBox ? 1 : std::max(1, control.cy / 8);
            const auto wrapped = printtext::Wrap(caption, width);
            EXPECT_LE(static_cast<int>(wrapped.size()), lines)
                << "template " << templateId << ": '" << caption << "' in " << width << " x "
                << lines;
            for (const std::string& line : wrapped)
                EXPECT_LE(printtext::Width(line), width) << templateId << ": " << caption;
        }
    }
}

// The controls each template must carry, with the label text where code reads it.
TEST(SYResourceTemplates, CarryTheControlsTheirClassesBind) {
    struct Expect {
        int templateId;
        int controlId;
        SYControlKind kind;
        const char* text; // null: not checked
    };
    using K = SYControlKind;
    const Expect cases[] = {
        {13100, 13236, K::Static, "Name:"},
        {13100, 13237, K::Static, "Version:"},
        {13100, 13238, K::Static, "Company:"},
        {13100, 13208, K::Static, "Total clients:"},
        {13100, 13209, K::Static, "Total installations:"},
        {13100, 13200, K::Static, nullptr},
        {13100, 13201, K::Static, nullptr},
        {13100, 13202, K::Static, nullptr},
        {13100, 13206, K::Static, nullptr},
        {13100, 13207, K::Static, nullptr},
        {13100, 13203, K::GroupBox, "Application files"},
        {13100, 13204, K::ListCtrl, nullptr},
        {13101, 13208, K::Static, "Total clients:"},
        {13101, 13209, K::Static, "Total installations:"},
        {13101, 13205, K::ListCtrl, nullptr},
        {13102, 13267, K::Static, "Application:"},
        {13102, 13256, K::Static, "Version:"},
        {13102, 13258, K::Static, "Creator ID:"},
        {13102, 13254, K::Static, "Database:"},
        {13102, 13252, K::Static, "Total clients:"},
        {13102, 13266, K::Static, nullptr},
        {13102, 13253, K::Static, nullptr},
        {13103, 13252, K::Static, "Total clients:"},
        {13103, 13251, K::Static, nullptr},
        {13103, 13250, K::ListCtrl, nullptr},
        {13107, 13266, K::Static, nullptr},
        {13107, 13259, K::Static, nullptr},
        {13107, 13257, K::Static, nullptr},
        {13107, 13253, K::Static, nullptr},
        {13107, 13260, K::ListCtrl, nullptr},
        {13107, 2, K::DefaultButton, "Close"},
        {13108, 13200, K::Static, nullptr},
        {13108, 13221, K::Static, nullptr},
        {13108, 13222, K::Static, nullptr},
        {13108, 13223, K::ListCtrl, nullptr},
        {13108, 2, K::DefaultButton, "Close"},
        {13115, 13272, K::Static, "Name:"},
        {13115, 13274, K::Static, "Version:"},
        {13115, 13270, K::Static, "Total clients:"},
        {13115, 13271, K::Static, nullptr},
        {13115, 13273, K::Static, nullptr},
        {13116, 13268, K::ListCtrl, nullptr},
        {13116, 13269, K::Static, nullptr},
        {13117, 13271, K::Static, nullptr},
        {13117, 13277, K::Static, nullptr},
        {13117, 2, K::DefaultButton, "Close"},
        {IDD_EDIT_ID_RULE, 13214, K::Edit, nullptr},
        {IDD_EDIT_ID_RULE, 13213, K::Button, "..."},
        {IDD_EDIT_ID_RULE, 13247, K::RadioButton, "Identify all versions of this file"},
        {IDD_EDIT_ID_RULE, 13248, K::RadioButton,
         "Identify only files with the following settings:"},
        {IDD_EDIT_ID_RULE, 13215, K::CheckBox, "Modify time:"},
        {IDD_EDIT_ID_RULE, 13265, K::DateTimeEdit, nullptr},
        {IDD_EDIT_ID_RULE, 13216, K::DateTimeEdit, nullptr},
        {IDD_EDIT_ID_RULE, 13217, K::CheckBox, "Size:"},
        {IDD_EDIT_ID_RULE, 13218, K::Edit, nullptr},
        {IDD_EDIT_ID_RULE, 13249, K::Static, "bytes"},
        {IDD_EDIT_ID_RULE, IDC_RULE_FILE_GROUP, K::GroupBox, "File information"},
        {IDD_EDIT_ID_RULE, IDC_RULE_APP_GROUP, K::GroupBox, "Application information"},
        {IDD_EDIT_ID_RULE, IDC_RULE_APP_NAME, K::Edit, nullptr},
        {IDD_EDIT_ID_RULE, IDC_RULE_APP_VERSION, K::Edit, nullptr},
        {IDD_EDIT_ID_RULE, IDC_RULE_APP_COMPANY, K::Edit, nullptr},
        {IDD_EDIT_ID_RULE, IDC_RULE_BROWSE_APP, K::Button, "..."},
        {IDD_EDIT_ID_RULE, IDC_RULE_BROWSE_COMPANY, K::Button, "..."},
        {IDD_EDIT_ID_RULE, 1, K::DefaultButton, "OK"},
        {IDD_EDIT_ID_RULE, 2, K::Button, "Cancel"},
        {IDD_EDIT_EXCLUDE_RULE, 13247, K::RadioButton, "Ignore all versions of this file"},
        {IDD_EDIT_EXCLUDE_RULE, 13248, K::RadioButton,
         "Ignore only files with the following settings:"},
        {IDD_EDIT_EXCLUDE_RULE, 13214, K::Edit, nullptr},
        {IDD_EDIT_EXCLUDE_RULE, IDC_RULE_DESCRIPTION, K::MultiLineEdit, nullptr},
        {IDD_EDIT_EXCLUDE_RULE, 1, K::DefaultButton, "OK"},
        {IDD_IGNORE_APP, IDC_IGNORE_APP_ICON, K::Icon, nullptr},
        {IDD_IGNORE_APP, IDC_IGNORE_APP_COMMENT, K::MultiLineEdit, nullptr},
        {IDD_IGNORE_APP, IDC_IGNORE_APP_FILES_GROUP, K::GroupBox, "Files to ignore"},
        {IDD_IGNORE_APP, IDC_IGNORE_APP_FILE_LIST, K::ListCtrl, nullptr},
        {IDD_IGNORE_APP, 1, K::DefaultButton, "Ignore"},
        {IDD_APP_FILE_GENERAL, IDC_FILE_NAME_LABEL, K::Static, "File name:"},
        {IDD_APP_FILE_GENERAL, IDC_FILE_TIME_LABEL, K::Static, "Modify time:"},
        {IDD_APP_FILE_GENERAL, IDC_FILE_SIZE_LABEL, K::Static, "Size:"},
        {IDD_APP_FILE_GENERAL, IDC_FILE_RULE_GROUP, K::GroupBox, "<Title>"},
        {IDD_APP_FILE_GENERAL, IDC_FILE_RULE_TEXT, K::TextWindow, nullptr},
        {IDD_APP_FILE_GENERAL, IDC_FILE_IDENTIFY, K::Button, "Identify File..."},
        {IDD_APP_FILE_GENERAL, IDC_FILE_IGNORE, K::Button, "Ignore File..."},
        {IDD_APP_FILE_MACHINES, IDC_FILE_CLIENT_LIST, K::ListCtrl, nullptr},
        {IDD_APP_FILE_MACHINES, IDC_FILE_TOTAL_CLIENTS_LABEL, K::Static, "Total clients:"},
        {IDD_APP_FILE_MACHINES, IDC_FILE_PRINT, K::Button, "&Print"},
        {IDD_APP_FILE_RULES, IDC_FILE_ID_RULES_GROUP, K::GroupBox, "Identification rules"},
        {IDD_APP_FILE_RULES, IDC_FILE_IGNORE_RULES_GROUP, K::GroupBox, "Ignore rules"},
        {IDD_APP_FILE_RULES, IDC_FILE_ID_RULE_REMOVE, K::Button, "Remove"},
        {IDD_APP_FILE_RULES, IDC_FILE_IGNORE_RULE_ADD, K::Button, "Add"},
        {IDD_SW_ID_RULES, IDC_CONFIG_RULE_ADD, K::Button, "&Add"},
        {IDD_SW_IGNORE_RULES, IDC_CONFIG_RULE_DELETE, K::Button, "&Delete"},
    };
    for (const Expect& c : cases) {
        const SYDialogTemplate* dialog = SYDialogTemplates::Find(c.templateId);
        ASSERT_NE(dialog, nullptr) << c.templateId;
        const SYControlTemplate* control = findControl(*dialog, c.controlId);
        ASSERT_NE(control, nullptr) << c.templateId << " lacks " << c.controlId;
        EXPECT_EQ(control->kind, c.kind) << c.templateId << "/" << c.controlId;
        if (c.text != nullptr) {
            EXPECT_EQ(control->text, c.text) << c.templateId << "/" << c.controlId;
        }
    }
}

TEST(SYResourceTemplates, ListsSitInTheirGroupsAndTheRuleDisplayStartsHidden) {
    const SYDialogTemplate& general = *SYDialogTemplates::Find(IDD_APP_VIEW_GENERAL);
    EXPECT_TRUE(inside(*findControl(general, IDC_APP_FILE_LIST),
                       *findControl(general, IDC_APP_FILES_GROUP)));

    const SYDialogTemplate& file = *SYDialogTemplates::Find(IDD_APP_FILE_GENERAL);
    for (const int id : {IDC_FILE_RULE_GROUP, IDC_FILE_USER_APP_LABEL, IDC_FILE_USER_APP,
                         IDC_FILE_USER_VERSION, IDC_FILE_USER_COMPANY, IDC_FILE_RULE_TEXT})
        EXPECT_NE(findControl(file, id)->style & SYStyleHidden, 0u) << id;
    EXPECT_TRUE(
        inside(*findControl(file, IDC_FILE_RULE_TEXT), *findControl(file, IDC_FILE_RULE_GROUP)));
    for (const int id : {IDC_FILE_NAME, IDC_FILE_TIME, IDC_FILE_SIZE, IDC_FILE_REPORTED_APP})
        EXPECT_NE(findControl(file, id)->style & SYStyleReadOnly, 0u) << id;

    const SYDialogTemplate& identify = *SYDialogTemplates::Find(IDD_EDIT_ID_RULE);
    for (const int id : {IDC_RULE_FILE_NAME, IDC_RULE_ALL_VERSIONS, IDC_RULE_SIZE, IDC_RULE_DATE})
        EXPECT_TRUE(inside(*findControl(identify, id), *findControl(identify, IDC_RULE_FILE_GROUP)))
            << id;
    EXPECT_NE(findControl(identify, IDC_RULE_TIME)->style & SYStyleTimeFormat, 0u);
}

} // namespace
