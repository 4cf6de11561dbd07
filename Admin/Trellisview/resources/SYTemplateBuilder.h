#pragma once

#include <string>
#include <utility>

#include "outside/widgets/SYDialogTemplate.h"
#include "resources/SYResourceIds.h"

// Shorthands for writing dialog templates as tables. Sizes are dialog units: a terminal
// cell is 4 wide and 8 high, so labels take one line and edits and buttons a line and a
// half.
namespace templates {

inline constexpr int LineHeight = 8;
inline constexpr int EditHeight = 12;
inline constexpr int ButtonWidth = 50;
inline constexpr int ButtonHeight = 14;

inline SYControlTemplate Label(int id, std::string text, int x, int y, int cx,
                               unsigned style = SYStyleNone) {
    return {id, SYControlKind::Static, std::move(text), x, y, cx, LineHeight, style};
}

// A read-only text that the code fills.
inline SYControlTemplate Field(int id, int x, int y, int cx, unsigned style = SYStyleNone) {
    return {id, SYControlKind::Static, "", x, y, cx, LineHeight, style};
}

inline SYControlTemplate Edit(int id, int x, int y, int cx, unsigned style = SYStyleNone) {
    return {id, SYControlKind::Edit, "", x, y, cx, EditHeight, style};
}

inline SYControlTemplate Text(int id, std::string text, int x, int y, int cx, int cy) {
    return {id, SYControlKind::Static, std::move(text), x, y, cx, cy, SYStyleNone};
}

inline SYControlTemplate MultiLineEdit(int id, int x, int y, int cx, int cy) {
    return {id, SYControlKind::MultiLineEdit, "", x, y, cx, cy, SYStyleNone};
}

inline SYControlTemplate Button(int id, std::string text, int x, int y, int cx = ButtonWidth,
                                unsigned style = SYStyleNone) {
    return {id, SYControlKind::Button, std::move(text), x, y, cx, ButtonHeight, style};
}

inline SYControlTemplate DefaultButton(int id, std::string text, int x, int y) {
    return {
        id,         SYControlKind::DefaultButton, std::move(text), x, y, ButtonWidth, ButtonHeight,
        SYStyleNone};
}

// The "..." button beside an edit.
inline SYControlTemplate Browse(int id, int x, int y) {
    return {id, SYControlKind::Button, "...", x, y, 24, EditHeight, SYStyleNone};
}

inline SYControlTemplate CheckBox(int id, std::string text, int x, int y, int cx) {
    return {id, SYControlKind::CheckBox, std::move(text), x, y, cx, 10, SYStyleNone};
}

inline SYControlTemplate Radio(int id, std::string text, int x, int y, int cx,
                               unsigned style = SYStyleNone) {
    return {id, SYControlKind::RadioButton, std::move(text), x, y, cx, 10, style};
}

inline SYControlTemplate Group(int id, std::string text, int x, int y, int cx, int cy,
                               unsigned style = SYStyleNone) {
    return {id, SYControlKind::GroupBox, std::move(text), x, y, cx, cy, style};
}

inline SYControlTemplate List(int id, int x, int y, int cx, int cy) {
    return {id, SYControlKind::ListCtrl, "", x, y, cx, cy, SYStyleNone};
}

inline SYControlTemplate DateTime(int id, int x, int y, int cx, unsigned style = SYStyleNone) {
    return {id, SYControlKind::DateTimeEdit, "", x, y, cx, EditHeight, style};
}

} // namespace templates
