#pragma once

// Numbers the widgets share with the code that drives them: dialog results, message box
// styles, notification codes and control state bits. They keep the values of the common
// controls the library was written against, since stored settings and callers use them.

// Dialog and message box results.
inline constexpr int IDOK = 1;
inline constexpr int IDCANCEL = 2;
inline constexpr int IDYES = 6;
inline constexpr int IDNO = 7;

// Message box buttons, icons and default button.
inline constexpr unsigned MB_OK = 0x0;
inline constexpr unsigned MB_OKCANCEL = 0x1;
inline constexpr unsigned MB_YESNO = 0x4;
inline constexpr unsigned MB_ICONSTOP = 0x10;
inline constexpr unsigned MB_ICONQUESTION = 0x20;
inline constexpr unsigned MB_ICONEXCLAMATION = 0x30;
inline constexpr unsigned MB_ICONINFORMATION = 0x40;
inline constexpr unsigned MB_DEFBUTTON2 = 0x100;
inline constexpr unsigned MB_TYPEMASK = 0xF;
inline constexpr unsigned MB_ICONMASK = 0xF0;
inline constexpr unsigned MB_DEFMASK = 0xF00;

// Command notification codes (high word of a command's first argument).
inline constexpr int BN_CLICKED = 0;
inline constexpr int EN_CHANGE = 0x300;

// Notification codes a list or tree sends to its parent.
inline constexpr int NM_DBLCLK = -3;
inline constexpr int LVN_ITEMCHANGED = -101;
inline constexpr int LVN_COLUMNCLICK = -108;
inline constexpr int TVN_SELCHANGED = -402;
inline constexpr int TVN_ITEMEXPANDING = -405;
inline constexpr int TVN_ITEMEXPANDED = -406;
inline constexpr int DTN_DATETIMECHANGE = -759;

// List row states.
inline constexpr unsigned LVIS_FOCUSED = 0x1;
inline constexpr unsigned LVIS_SELECTED = 0x2;
// List GetNextItem flags.
inline constexpr unsigned LVNI_ALL = 0x0;
inline constexpr unsigned LVNI_FOCUSED = 0x1;
inline constexpr unsigned LVNI_SELECTED = 0x2;

// Tree node states.
inline constexpr unsigned TVIS_SELECTED = 0x2;
inline constexpr unsigned TVIS_EXPANDED = 0x20;
inline constexpr unsigned TVIS_EXPANDEDONCE = 0x40;

// Tree GetNextItem codes.
inline constexpr unsigned TVGN_ROOT = 0;
inline constexpr unsigned TVGN_NEXT = 1;
inline constexpr unsigned TVGN_PREVIOUS = 2;
inline constexpr unsigned TVGN_PARENT = 3;
inline constexpr unsigned TVGN_CHILD = 4;
inline constexpr unsigned TVGN_CARET = 9;

// Tree Expand codes.
inline constexpr unsigned TVE_COLLAPSE = 1;
inline constexpr unsigned TVE_EXPAND = 2;
inline constexpr unsigned TVE_TOGGLE = 3;

// The selection dialogs' own template, controls and strings. The resource tables fill
// them under these numbers, which keep their places in the library's resource ranges
// (resources/SYResourceIds.h).
inline constexpr int IDD_APP_SELECT = 13114;
inline constexpr int IDD_APP_COMPANY_SELECT = 13118;
inline constexpr int IDC_SELECT_APP_LIST = 13371;
inline constexpr int IDC_SELECT_COMPANY_NAME = 13372;
inline constexpr int IDC_SELECT_COMPANY_LIST = 13373;
inline constexpr int IDS_HDR_COMPANY_LIST = 13505;
inline constexpr int IDS_NO_COMPANY = 13550; // "(No Company)"

// Column and cell alignment.
inline constexpr int SYAlignLeft = 0;
inline constexpr int SYAlignRight = 1;
inline constexpr int SYAlignCentre = 2;

// A command's first argument: control id in the low word, notification code in the high.
constexpr unsigned SYMakeCommand(unsigned id, int code) {
    return (id & 0xFFFFu) | (static_cast<unsigned>(code & 0xFFFF) << 16);
}
constexpr unsigned SYCommandId(unsigned wParam) {
    return wParam & 0xFFFFu;
}
constexpr int SYCommandCode(unsigned wParam) {
    return static_cast<int>(wParam >> 16);
}
