#pragma once

#include <string>
#include <vector>

// Dialog templates are data: the resources register one per dialog and page, and creating a
// dialog's window makes the controls listed here.
enum class SYControlKind {
    Static, // label or display field
    Edit,   // single-line edit
    MultiLineEdit,
    Button,
    DefaultButton,
    CheckBox,
    RadioButton,
    GroupBox,
    DateTimeEdit,
    TextWindow,
    ListCtrl,
    TreeCtrl,
    TabCtrl,
    Icon,
};

// Style bits a control may carry beyond its kind.
enum SYControlStyle : unsigned {
    SYStyleNone = 0,
    SYStyleReadOnly = 1u << 0,
    SYStyleDisabled = 1u << 1,
    SYStyleHidden = 1u << 2,
    SYStyleGroupStart = 1u << 3,
    SYStyleRightAlign = 1u << 4,
    SYStyleTimeFormat = 1u << 5, // a date/time edit showing the time part
};

struct SYControlTemplate {
    int id; // -1 for an anonymous label
    SYControlKind kind;
    std::string text; // label, button caption or initial text
    int x, y, cx, cy; // rectangle in dialog units
    unsigned style = SYStyleNone;
};

struct SYDialogTemplate {
    int id;
    std::string title;
    int cx, cy; // size in dialog units
    std::vector<SYControlTemplate> controls;
};

// The registry the resources fill; lookups give null for an unknown id.
class SYDialogTemplates {
public:
    static void Register(const SYDialogTemplate& dialog);
    static const SYDialogTemplate* Find(int id);
    static std::vector<int> Ids();
};
