#include <vector>

#include "resources/SYTemplateBuilder.h"

// The rule dialogs, the pages of the file properties and rule configuration sheets, and
// the selection dialogs they open.

namespace {

using namespace templates;

constexpr int Width = 300;
constexpr int Margin = 7;
constexpr int Inner = 14; // left edge of controls inside a group box

// The "File information" group of the Identify File and Ignore File dialogs; the two
// differ only in the verb of the radio buttons.
std::vector<SYControlTemplate> fileFields(const std::string& verb) {
    return {
        Group(IDC_RULE_FILE_GROUP, "File information", Margin, 7, Width - 2 * Margin, 100),
        Label(IDC_STATIC, "Name:", Inner, 21, 30),
        Edit(IDC_RULE_FILE_NAME, 48, 19, 210),
        Browse(IDC_RULE_BROWSE_FILE, 262, 19),
        Radio(IDC_RULE_ALL_VERSIONS, verb + " all versions of this file", Inner, 37, 240,
              SYStyleGroupStart),
        Radio(IDC_RULE_SOME_VERSIONS, verb + " only files with the following settings:", Inner, 51,
              240),
        CheckBox(IDC_RULE_HAS_TIME, "Modify time:", 22, 67, 66),
        DateTime(IDC_RULE_DATE, 90, 65, 70),
        DateTime(IDC_RULE_TIME, 164, 65, 70, SYStyleTimeFormat),
        CheckBox(IDC_RULE_HAS_SIZE, "Size:", 22, 83, 66),
        Edit(IDC_RULE_SIZE, 90, 81, 90, SYStyleRightAlign),
        Label(IDC_RULE_BYTES_LABEL, "bytes", 184, 83, 30),
    };
}

std::vector<SYControlTemplate> okCancel(int y, const std::string& okText = "OK") {
    return {
        DefaultButton(ID_OK_BUTTON, okText, Width - 2 * (Margin + ButtonWidth), y),
        Button(ID_CANCEL_BUTTON, "Cancel", Width - Margin - ButtonWidth, y),
    };
}

std::vector<SYControlTemplate> joined(std::vector<SYControlTemplate> first,
                                      const std::vector<SYControlTemplate>& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

SYDialogTemplate editIdRule() {
    const std::vector<SYControlTemplate> application = {
        Group(IDC_RULE_APP_GROUP, "Application information", Margin, 113, Width - 2 * Margin, 108),
        Text(IDC_STATIC,
             "Type the application information for the file, or click one of the browse "
             "buttons to match the file with an existing application or company.",
             Inner, 125, 272, 24),
        Label(IDC_STATIC, "Application:", Inner, 155, 50),
        Edit(IDC_RULE_APP_NAME, 66, 153, 192),
        Browse(IDC_RULE_BROWSE_APP, 262, 153),
        Label(IDC_STATIC, "Version:", Inner, 171, 50),
        Edit(IDC_RULE_APP_VERSION, 66, 169, 192),
        Label(IDC_STATIC, "Company:", Inner, 187, 50),
        Edit(IDC_RULE_APP_COMPANY, 66, 185, 192),
        Browse(IDC_RULE_BROWSE_COMPANY, 262, 185),
    };
    return {IDD_EDIT_ID_RULE, "Identify File", Width, 250,
            joined(joined(fileFields("Identify"), application), okCancel(228))};
}

SYDialogTemplate editExcludeRule() {
    const std::vector<SYControlTemplate> description = {
        Label(IDC_STATIC, "Description:", Margin, 113, 60),
        MultiLineEdit(IDC_RULE_DESCRIPTION, Margin, 123, Width - 2 * Margin, 60),
    };
    return {IDD_EDIT_EXCLUDE_RULE, "Ignore File", Width, 212,
            joined(joined(fileFields("Ignore"), description), okCancel(190))};
}

SYDialogTemplate ignoreApp() {
    const std::vector<SYControlTemplate> controls = {
        {IDC_IGNORE_APP_ICON, SYControlKind::Icon, "", Margin, 7, 20, 20, SYStyleNone},
        Text(IDC_STATIC,
             "Ignoring an application causes all of the application's files to be ignored.  "
             "The list of files that will be ignored is shown below.",
             34, 7, 259, 24),
        Text(IDC_STATIC,
             "If you want to include a comment to be attached to each of the ignored files, "
             "please type it here:",
             34, 33, 259, 16),
        MultiLineEdit(IDC_IGNORE_APP_COMMENT, 34, 51, 259, 40),
        Group(IDC_IGNORE_APP_FILES_GROUP, "Files to ignore", Margin, 96, Width - 2 * Margin, 124),
        List(IDC_IGNORE_APP_FILE_LIST, Inner, 108, Width - 2 * Inner, 106),
    };
    return {IDD_IGNORE_APP, "Ignore Application", Width, 250,
            joined(controls, okCancel(228, "Ignore"))};
}

SYDialogTemplate appFileGeneral() {
    constexpr int fieldX = 70;
    constexpr int fieldWidth = Width - Margin - fieldX;
    constexpr int groupFieldX = 78;
    constexpr int groupFieldWidth = Width - Inner - groupFieldX;
    constexpr unsigned hidden = SYStyleHidden;
    return {
        IDD_APP_FILE_GENERAL,
        "General",
        Width,
        206,
        {
            Label(IDC_FILE_NAME_LABEL, "File name:", Margin, 9, 60),
            Edit(IDC_FILE_NAME, fieldX, 7, fieldWidth, SYStyleReadOnly),
            Label(IDC_FILE_TIME_LABEL, "Modify time:", Margin, 23, 60),
            Edit(IDC_FILE_TIME, fieldX, 21, fieldWidth, SYStyleReadOnly),
            Label(IDC_FILE_SIZE_LABEL, "Size:", Margin, 37, 60),
            Edit(IDC_FILE_SIZE, fieldX, 35, fieldWidth, SYStyleReadOnly),
            Group(IDC_FILE_REPORTED_GROUP, "Reported version information", Margin, 52,
                  Width - 2 * Margin, 58),
            Label(IDC_STATIC, "Application:", Inner, 66, 60),
            Edit(IDC_FILE_REPORTED_APP, groupFieldX, 64, groupFieldWidth, SYStyleReadOnly),
            Label(IDC_STATIC, "Version:", Inner, 80, 60),
            Edit(IDC_FILE_REPORTED_VERSION, groupFieldX, 78, groupFieldWidth, SYStyleReadOnly),
            Label(IDC_STATIC, "Company:", Inner, 94, 60),
            Edit(IDC_FILE_REPORTED_COMPANY, groupFieldX, 92, groupFieldWidth, SYStyleReadOnly),
            Group(IDC_FILE_RULE_GROUP, "<Title>", Margin, 116, Width - 2 * Margin, 58, hidden),
            Label(IDC_FILE_USER_APP_LABEL, "Application:", Inner, 130, 60, hidden),
            Edit(IDC_FILE_USER_APP, groupFieldX, 128, groupFieldWidth, SYStyleReadOnly | hidden),
            Label(IDC_FILE_USER_VERSION_LABEL, "Version:", Inner, 144, 60, hidden),
            Edit(IDC_FILE_USER_VERSION, groupFieldX, 142, groupFieldWidth,
                 SYStyleReadOnly | hidden),
            Label(IDC_FILE_USER_COMPANY_LABEL, "Company:", Inner, 158, 60, hidden),
            Edit(IDC_FILE_USER_COMPANY, groupFieldX, 156, groupFieldWidth,
                 SYStyleReadOnly | hidden),
            {IDC_FILE_RULE_TEXT, SYControlKind::TextWindow, "", Inner, 128, Width - 2 * Inner, 40,
             hidden},
            Button(IDC_FILE_IDENTIFY, "Identify File...", Margin, 184, 76),
            Button(IDC_FILE_IGNORE, "Ignore File...", Margin + 80, 184, 76),
        }};
}

SYDialogTemplate appFileMachines() {
    return {IDD_APP_FILE_MACHINES,
            "Clients",
            Width,
            206,
            {
                List(IDC_FILE_CLIENT_LIST, Margin, 7, Width - 2 * Margin, 170),
                Label(IDC_FILE_TOTAL_CLIENTS_LABEL, "Total clients:", Margin, 187, 60),
                Field(IDC_FILE_TOTAL_CLIENTS, 70, 187, 40),
                Button(IDC_FILE_PRINT, "&Print", Width - Margin - ButtonWidth, 184),
            }};
}

// One rule group of the Rules page: a list with Add, Edit and Remove beside it.
std::vector<SYControlTemplate> ruleGroup(int groupId, const std::string& title, int listId,
                                         int addId, int editId, int removeId, int y) {
    constexpr int buttonX = Width - Inner - ButtonWidth;
    return {
        Group(groupId, title, Margin, y, Width - 2 * Margin, 94),
        List(listId, Inner, y + 12, buttonX - Inner - 6, 76),
        Button(addId, "Add", buttonX, y + 12),
        Button(editId, "Edit", buttonX, y + 30),
        Button(removeId, "Remove", buttonX, y + 48),
    };
}

SYDialogTemplate appFileRules() {
    return {
        IDD_APP_FILE_RULES, "Rules", Width, 206,
        joined(ruleGroup(IDC_FILE_ID_RULES_GROUP, "Identification rules", IDC_FILE_ID_RULE_LIST,
                         IDC_FILE_ID_RULE_ADD, IDC_FILE_ID_RULE_EDIT, IDC_FILE_ID_RULE_REMOVE, 7),
               ruleGroup(IDC_FILE_IGNORE_RULES_GROUP, "Ignore rules", IDC_FILE_IGNORE_RULE_LIST,
                         IDC_FILE_IGNORE_RULE_ADD, IDC_FILE_IGNORE_RULE_EDIT,
                         IDC_FILE_IGNORE_RULE_REMOVE, 107))};
}

// The two pages of the rule configuration sheet have the same form.
SYDialogTemplate configRules(int id, const std::string& title) {
    return {id,
            title,
            Width,
            214,
            {
                List(IDC_CONFIG_RULE_LIST, Margin, 7, Width - 2 * Margin, 180),
                Button(IDC_CONFIG_RULE_ADD, "&Add", Margin, 193),
                Button(IDC_CONFIG_RULE_EDIT, "&Edit", Margin + ButtonWidth + 4, 193),
                Button(IDC_CONFIG_RULE_DELETE, "&Delete", Margin + 2 * (ButtonWidth + 4), 193),
            }};
}

SYDialogTemplate appSelect() {
    const std::vector<SYControlTemplate> controls = {
        Label(IDC_SELECT_PROMPT, "Select an application:", Margin, 7, 200),
        List(IDC_SELECT_APP_LIST, Margin, 19, Width - 2 * Margin, 150),
    };
    return {IDD_APP_SELECT, "Select Application", Width, 198, joined(controls, okCancel(176))};
}

SYDialogTemplate companySelect() {
    const std::vector<SYControlTemplate> controls = {
        Label(IDC_SELECT_PROMPT, "Company:", Margin, 9, 40),
        Edit(IDC_SELECT_COMPANY_NAME, 50, 7, Width - Margin - 50),
        List(IDC_SELECT_COMPANY_LIST, Margin, 25, Width - 2 * Margin, 144),
    };
    return {IDD_APP_COMPANY_SELECT, "Select Company", Width, 198, joined(controls, okCancel(176))};
}

[[maybe_unused]] const bool registered = [] {
    for (const SYDialogTemplate& dialog :
         {editIdRule(), editExcludeRule(), ignoreApp(), appFileGeneral(), appFileMachines(),
          appFileRules(), configRules(IDD_SW_ID_RULES, "Identification Rules"),
          configRules(IDD_SW_IGNORE_RULES, "Ignore Rules"), appSelect(), companySelect()})
        SYDialogTemplates::Register(dialog);
    return true;
}();

} // namespace
