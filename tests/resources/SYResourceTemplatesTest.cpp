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
    const auto counts = [](const SYControlTemplate& c) {
        return c.kind != SYControlKind::GroupBox && (c.style & SYStyleHidden) == 0;
    };
    for (const int templateId : SYDialogTemplates::Ids()) {
        const SYDialogTemplate& dialog = *SYDialogTemplates::Find(templateId);
        const SYControlTemplate frame{0, SYControlKind::GroupBox, "", 0, 0, dialog.cx, dialog.cy};
        for (std::size_t i = 0; i < dialog.controls.size(); ++i) {
            const SYControlTemplate& a = dialog.controls[i];
            EXPECT_TRUE(a.cx > 0 && a.cy > 0 && inside(a, frame)) << templateId << ": " << a.id;
            for (std::size_t j = i + 1; j < dialog.controls.size() && counts(a); ++j)
                EXPECT_FALSE(counts(dialog.controls[j]) && overlap(a, dialog.controls[j]))
                    << templateId << ": control " << a.id << " covers " << dialog.controls[j].id;
        }
    }
}

// A terminal cell is 4 dialog units wide and 8 high; captions wrap at blanks. Check boxes
// and radio buttons need "[x] " beside their caption, buttons and group boxes two corners.
TEST(SYResourceTemplates, CaptionsFitTheirControlsInTerminalCells) {
    using K = SYControlKind;
    for (const int templateId : SYDialogTemplates::Ids()) {
        const SYDialogTemplate& dialog = *SYDialogTemplates::Find(templateId);
        EXPECT_LE(printtext::Width(dialog.title) + 4, dialog.cx / 4) << templateId;
        for (const SYControlTemplate& control : dialog.controls) {
            const bool box = control.kind == K::CheckBox || control.kind == K::RadioButton;
            const bool framed = control.kind == K::Button || control.kind == K::DefaultButton ||
                                control.kind == K::GroupBox;
            const int width = control.cx / 4 - (box ? 4 : framed ? 2 : 0);
            const int lines = control.kind == K::GroupBox ? 1 : std::max(1, control.cy / 8);
            const std::string caption = SYMenuItem::Command(0, control.text).PlainText();
            const auto wrapped = printtext::Wrap(caption, width);
            EXPECT_LE(static_cast<int>(wrapped.size()), lines) << templateId << ": " << caption;
            for (const std::string& line : wrapped)
                EXPECT_LE(printtext::Width(line), width) << templateId << ": " << caption;
        }
    }
}

// The controls the classes bind, by template and kind, and captions the user reads.
TEST(SYResourceTemplates, CarryTheControlsTheirClassesBind) {
    using K = SYControlKind;
    const struct {
        int templateId;
        SYControlKind kind;
        std::vector<int> controls;
    } bound[] = {
        {13100, K::Static, {13236, 13237, 13238, 13208, 13209, 13200, 13201, 13202, 13206, 13207}},
        {13100, K::GroupBox, {13203}},
        {13100, K::ListCtrl, {13204}},
        {13101, K::Static, {13208, 13209}},
        {13101, K::ListCtrl, {13205}},
        {13102, K::Static, {13267, 13256, 13258, 13254, 13252, 13266, 13253}},
        {13103, K::Static, {13252, 13251}},
        {13103, K::ListCtrl, {13250}},
        {13107, K::Static, {13266, 13259, 13257, 13253}},
        {13107, K::ListCtrl, {13260}},
        {13107, K::DefaultButton, {2}},
        {13108, K::Static, {13200, 13221, 13222}},
        {13108, K::ListCtrl, {13223}},
        {13108, K::DefaultButton, {2}},
        {13115, K::Static, {13272, 13274, 13270, 13271, 13273}},
        {13116, K::ListCtrl, {13268}},
        {13116, K::Static, {13269}},
        {13117, K::Static, {13271, 13277}},
        {13117, K::DefaultButton, {2}},
        {IDD_EDIT_ID_RULE,
         K::Edit,
         {13214, 13218, IDC_RULE_APP_NAME, IDC_RULE_APP_VERSION, IDC_RULE_APP_COMPANY}},
        {IDD_EDIT_ID_RULE, K::Button, {13213, IDC_RULE_BROWSE_APP, IDC_RULE_BROWSE_COMPANY, 2}},
        {IDD_EDIT_ID_RULE, K::RadioButton, {13247, 13248}},
        {IDD_EDIT_ID_RULE, K::CheckBox, {13215, 13217}},
        {IDD_EDIT_ID_RULE, K::DateTimeEdit, {13265, 13216}},
        {IDD_EDIT_ID_RULE, K::Static, {13249}},
        {IDD_EDIT_ID_RULE, K::GroupBox, {IDC_RULE_FILE_GROUP, IDC_RULE_APP_GROUP}},
        {IDD_EDIT_ID_RULE, K::DefaultButton, {1}},
        {IDD_EDIT_EXCLUDE_RULE, K::RadioButton, {13247, 13248}},
        {IDD_EDIT_EXCLUDE_RULE, K::Edit, {13214}},
        {IDD_EDIT_EXCLUDE_RULE, K::MultiLineEdit, {IDC_RULE_DESCRIPTION}},
        {IDD_EDIT_EXCLUDE_RULE, K::DefaultButton, {1}},
        {IDD_IGNORE_APP, K::Icon, {IDC_IGNORE_APP_ICON}},
        {IDD_IGNORE_APP, K::MultiLineEdit, {IDC_IGNORE_APP_COMMENT}},
        {IDD_IGNORE_APP, K::GroupBox, {IDC_IGNORE_APP_FILES_GROUP}},
        {IDD_IGNORE_APP, K::ListCtrl, {IDC_IGNORE_APP_FILE_LIST}},
        {IDD_IGNORE_APP, K::DefaultButton, {1}},
        {IDD_APP_FILE_GENERAL,
         K::Static,
         {IDC_FILE_NAME_LABEL, IDC_FILE_TIME_LABEL, IDC_FILE_SIZE_LABEL}},
        {IDD_APP_FILE_GENERAL, K::GroupBox, {IDC_FILE_RULE_GROUP}},
        {IDD_APP_FILE_GENERAL, K::TextWindow, {IDC_FILE_RULE_TEXT}},
        {IDD_APP_FILE_GENERAL, K::Button, {IDC_FILE_IDENTIFY, IDC_FILE_IGNORE}},
        {IDD_APP_FILE_MACHINES, K::ListCtrl, {IDC_FILE_CLIENT_LIST}},
        {IDD_APP_FILE_MACHINES, K::Static, {IDC_FILE_TOTAL_CLIENTS_LABEL}},
        {IDD_APP_FILE_MACHINES, K::Button, {IDC_FILE_PRINT}},
        {IDD_APP_FILE_RULES, K::GroupBox, {IDC_FILE_ID_RULES_GROUP, IDC_FILE_IGNORE_RULES_GROUP}},
        {IDD_APP_FILE_RULES, K::Button, {IDC_FILE_ID_RULE_REMOVE, IDC_FILE_IGNORE_RULE_ADD}},
        {IDD_SW_ID_RULES, K::Button, {IDC_CONFIG_RULE_ADD}},
        {IDD_SW_IGNORE_RULES, K::Button, {IDC_CONFIG_RULE_DELETE}},
        {IDD_APP_SELECT, K::ListCtrl, {IDC_SELECT_APP_LIST}},
        {IDD_APP_COMPANY_SELECT, K::ListCtrl, {IDC_SELECT_COMPANY_LIST}},
        {IDD_APP_COMPANY_SELECT, K::Edit, {IDC_SELECT_COMPANY_NAME}}};
    std::set<int> templates;
    for (const auto& b : bound) {
        templates.insert(b.templateId);
        const SYDialogTemplate* dialog = SYDialogTemplates::Find(b.templateId);
        ASSERT_NE(dialog, nullptr) << b.templateId;
        for (const int id : b.controls) {
            const SYControlTemplate* control = findControl(*dialog, id);
            ASSERT_NE(control, nullptr) << b.templateId << " lacks " << id;
            EXPECT_EQ(control->kind, b.kind) << b.templateId << "/" << id;
        }
    }
    EXPECT_EQ(SYDialogTemplates::Ids().size(), templates.size()) << "a template nothing binds";
    const struct {
        int templateId;
        int controlId;
        const char* text;
    } captions[] = {
        {13107, 2, "Close"},
        {13108, 2, "Close"},
        {IDD_IGNORE_APP, 1, "Ignore"},
        {IDD_EDIT_ID_RULE, 13247, "Identify all versions of this file"},
        {IDD_EDIT_ID_RULE, 13248, "Identify only files with the following settings:"},
        {IDD_EDIT_EXCLUDE_RULE, 13247, "Ignore all versions of this file"},
        {IDD_EDIT_EXCLUDE_RULE, 13248, "Ignore only files with the following settings:"},
        {IDD_APP_FILE_GENERAL, IDC_FILE_IDENTIFY, "Identify File..."},
        {IDD_APP_FILE_MACHINES, IDC_FILE_PRINT, "&Print"},
        {IDD_SW_ID_RULES, IDC_CONFIG_RULE_ADD, "&Add"}};
    for (const auto& c : captions)
        EXPECT_EQ(findControl(*SYDialogTemplates::Find(c.templateId), c.controlId)->text, c.text)
            << c.templateId << "/" << c.controlId;
}

TEST(SYResourceTemplates, TheRuleDisplayStartsHiddenAndFileFieldsAreReadOnly) {
    const SYDialogTemplate& file = *SYDialogTemplates::Find(IDD_APP_FILE_GENERAL);
    for (const int id : {IDC_FILE_RULE_GROUP, IDC_FILE_USER_APP_LABEL, IDC_FILE_USER_APP,
                         IDC_FILE_USER_VERSION, IDC_FILE_USER_COMPANY, IDC_FILE_RULE_TEXT})
        EXPECT_NE(findControl(file, id)->style & SYStyleHidden, 0u) << id;
    for (const int id : {IDC_FILE_NAME, IDC_FILE_TIME, IDC_FILE_SIZE, IDC_FILE_REPORTED_APP})
        EXPECT_NE(findControl(file, id)->style & SYStyleReadOnly, 0u) << id;
    const SYDialogTemplate& identify = *SYDialogTemplates::Find(IDD_EDIT_ID_RULE);
    for (const int id : {IDC_RULE_FILE_NAME, IDC_RULE_ALL_VERSIONS, IDC_RULE_SIZE, IDC_RULE_DATE})
        EXPECT_TRUE(inside(*findControl(identify, id), *findControl(identify, IDC_RULE_FILE_GROUP)))
            << id;
    EXPECT_NE(findControl(identify, IDC_RULE_TIME)->style & SYStyleTimeFormat, 0u);
}

} // namespace
