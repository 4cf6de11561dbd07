#include "outside/widgets/CDataExchange.h"

#include <cerrno>
#include <cstdlib>
#include <limits>

#include "outside/framework/CException.h"
#include "outside/widgets/CDialog.h"
#include "outside/widgets/SYButton.h"
#include "outside/widgets/SYDateTimeEdit.h"
#include "outside/widgets/SYEdit.h"
#include "outside/widgets/SYFontMetrics.h"
#include "outside/widgets/SYMessageBox.h"
#include "outside/widgets/SYRadioButton.h"

namespace {

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" \t");
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// Parses a whole decimal number; false for anything else, a sign where none is allowed,
// or a value out of range.
bool parseSigned(const std::string& text, long long minimum, long long maximum, long long& value) {
    const std::string number = trimmed(text);
    if (number.empty())
        return false;
    char* end = nullptr;
    errno = 0;
    value = std::strtoll(number.c_str(), &end, 10);
    return errno == 0 && *end == '\0' && value >= minimum && value <= maximum;
}

bool parseUnsigned(const std::string& text, std::uint64_t maximum, std::uint64_t& value) {
    const std::string number = trimmed(text);
    if (number.empty() || number[0] == '-' || number[0] == '+')
        return false;
    char* end = nullptr;
    errno = 0;
    value = std::strtoull(number.c_str(), &end, 10);
    return errno == 0 && *end == '\0' && value <= maximum;
}

void refuse(CDataExchange* dx, const std::string& message) {
    SYMessageBox::Show(dx->m_pDlgWnd, message, "", MB_OK | MB_ICONEXCLAMATION);
    dx->Fail();
}

template <class Number> void exchangeUnsigned(CDataExchange* dx, unsigned id, Number& value) {
    SYWnd* control = dx->PrepareCtrl(id);
    if (!dx->m_bSaveAndValidate) {
        control->SetWindowText(std::to_string(value));
        return;
    }
    std::uint64_t parsed = 0;
    if (!parseUnsigned(control->GetWindowText(), std::numeric_limits<Number>::max(), parsed))
        refuse(dx, "Please enter a positive integer.");
    value = static_cast<Number>(parsed);
}

} // namespace

CDataExchange::CDataExchange(CDialog* dialog, int saveAndValidate)
    : m_bSaveAndValidate(saveAndValidate), m_pDlgWnd(dialog) {}

SYWnd* CDataExchange::PrepareCtrl(unsigned id) {
    SYWnd* control = m_pDlgWnd->GetDlgItem(id);
    if (control == nullptr)
        throw CInvalidArgException("The dialog " + std::to_string(m_pDlgWnd->TemplateId()) +
                                   " has no control " + std::to_string(id) + ".");
    m_lastControl = control;
    return control;
}

void CDataExchange::Fail() {
    throw Failure{};
}

void CDataExchange::WrongKind(unsigned id) {
    throw CInvalidArgException("The control " + std::to_string(id) +
                               " is not of the kind the exchange expects.");
}

void DDX_Control(CDataExchange* dx, unsigned id, SYWnd& control) {
    if (control.IsWindow() && control.GetParent() == dx->m_pDlgWnd && control.GetDlgCtrlID() == id)
        return;
    dx->PrepareCtrl(id);
    if (!control.SubclassDlgItem(id, dx->m_pDlgWnd))
        throw CInvalidArgException("The control " + std::to_string(id) +
                                   " is bound to another object already.");
}

void DDX_Text(CDataExchange* dx, unsigned id, std::string& value) {
    SYWnd* control = dx->PrepareCtrl(id);
    if (dx->m_bSaveAndValidate)
        value = control->GetWindowText();
    else
        control->SetWindowText(value);
}

void DDX_Text(CDataExchange* dx, unsigned id, int& value) {
    SYWnd* control = dx->PrepareCtrl(id);
    if (!dx->m_bSaveAndValidate) {
        control->SetWindowText(std::to_string(value));
        return;
    }
    long long parsed = 0;
    if (!parseSigned(control->GetWindowText(), std::numeric_limits<int>::min(),
                     std::numeric_limits<int>::max(), parsed))
        refuse(dx, "Please enter an integer.");
    value = static_cast<int>(parsed);
}

void DDX_Text(CDataExchange* dx, unsigned id, unsigned& value) {
    exchangeUnsigned(dx, id, value);
}

void DDX_Text(CDataExchange* dx, unsigned id, std::uint64_t& value) {
    exchangeUnsigned(dx, id, value);
}

void DDX_Check(CDataExchange* dx, unsigned id, int& value) {
    auto* button = dx->PrepareCtrlOf<SYButton>(id);
    if (dx->m_bSaveAndValidate)
        value = button->GetCheck();
    else
        button->SetCheck(value ? 1 : 0);
}

void DDX_Radio(CDataExchange* dx, unsigned id, int& value) {
    auto* first = dx->PrepareCtrlOf<SYRadioButton>(id);
    const std::vector<SYRadioButton*> group = first->Group();
    if (dx->m_bSaveAndValidate) {
        value = -1;
        for (std::size_t i = 0; i < group.size(); ++i) {
            if (group[i]->GetCheck())
                value = static_cast<int>(i);
        }
        return;
    }
    for (std::size_t i = 0; i < group.size(); ++i)
        group[i]->SetCheck(static_cast<int>(i) == value ? 1 : 0);
}

void DDX_DateTime(CDataExchange* dx, unsigned id, CTime& value) {
    auto* editor = dx->PrepareCtrlOf<SYDateTimeEdit>(id);
    if (dx->m_bSaveAndValidate)
        editor->GetTime(value);
    else
        editor->SetTime(value);
}

void DDV_MaxChars(CDataExchange* dx, const std::string& value, int characters) {
    if (!dx->m_bSaveAndValidate) {
        if (auto* edit = dynamic_cast<SYEdit*>(dx->LastControl()))
            edit->LimitText(characters);
        return;
    }
    if (SYFontMetrics::TextWidth(value) / SYFontMetrics::CharWidth > characters)
        refuse(dx, "Enter no more than " + std::to_string(characters) + " characters.");
}

void DDV_MinMaxInt(CDataExchange* dx, int value, int minimum, int maximum) {
    if (dx->m_bSaveAndValidate && (value < minimum || value > maximum))
        refuse(dx, "Please enter an integer between " + std::to_string(minimum) + " and " +
                       std::to_string(maximum) + ".");
}
