#pragma once

#include <cstdint>
#include <string>

#include "outside/framework/CTime.h"

class CDialog;
class SYWnd;

// One run of a dialog's data exchange: towards the controls or, with save and validate,
// from them. A typed exchange that cannot convert a control's content tells the user,
// and Fail ends the run: UpdateData then gives 0 and the dialog stays open.
class CDataExchange {
public:
    // Thrown by Fail and caught by UpdateData.
    struct Failure {};

    CDataExchange(CDialog* dialog, int saveAndValidate);

    int m_bSaveAndValidate;
    CDialog* m_pDlgWnd;

    // The dialog's control with this id, which failures then put the focus on. A missing
    // control is a programming error: it throws CInvalidArgException.
    SYWnd* PrepareCtrl(unsigned id);
    template <class Control> Control* PrepareCtrlOf(unsigned id);
    SYWnd* LastControl() const { return m_lastControl; }
    [[noreturn]] void Fail();

private:
    [[noreturn]] static void WrongKind(unsigned id);

    SYWnd* m_lastControl = nullptr;
};

template <class Control> Control* CDataExchange::PrepareCtrlOf(unsigned id) {
    auto* control = dynamic_cast<Control*>(PrepareCtrl(id));
    if (control == nullptr)
        WrongKind(id);
    return control;
}

// Binds a member control object to the dialog's control with this id; a control that
// another object holds already is a programming error (CInvalidArgException).
void DDX_Control(CDataExchange* dx, unsigned id, SYWnd& control);
// Texts of edits and statics, and numbers typed in edits.
void DDX_Text(CDataExchange* dx, unsigned id, std::string& value);
void DDX_Text(CDataExchange* dx, unsigned id, int& value);
void DDX_Text(CDataExchange* dx, unsigned id, unsigned& value);
void DDX_Text(CDataExchange* dx, unsigned id, std::uint64_t& value);
// Check state of a check box or radio button: 0 or 1.
void DDX_Check(CDataExchange* dx, unsigned id, int& value);
// Index of the checked button in the radio group that starts at id; -1 for none.
void DDX_Radio(CDataExchange* dx, unsigned id, int& value);
// The whole date and time of a date/time editor.
void DDX_DateTime(CDataExchange* dx, unsigned id, CTime& value);
// Towards the controls: limits the edit last prepared. From them: refuses a longer text.
void DDV_MaxChars(CDataExchange* dx, const std::string& value, int characters);
void DDV_MinMaxInt(CDataExchange* dx, int value, int minimum, int maximum);
