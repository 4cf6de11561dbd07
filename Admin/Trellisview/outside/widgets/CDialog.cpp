#include "outside/widgets/CDialog.h"

#include "outside/framework/CException.h"
#include "outside/services/SYReport.h"
#include "outside/widgets/CDataExchange.h"
#include "outside/widgets/SYFontMetrics.h"
#include "outside/widgets/SYModalHost.h"

SY_IMPLEMENT_DYNAMIC(CDialog, SYWnd)

CDialog::CDialog(int templateId, SYWnd* owner) : m_templateId(templateId), m_owner(owner) {}

CDialog::~CDialog() {
    DestroyWindow();
}

int CDialog::DoModal() {
    SYModalHost* host = SYModalHost::Current();
    if (host == nullptr)
        return IDCANCEL;
    return host->RunModal(*this);
}

void CDialog::EndDialog(int result) {
    m_result = result;
    m_ended = true;
}

void CDialog::SetTitle(const std::string& title) {
    m_title = title;
    m_titleSet = true;
    if (IsWindow())
        SetWindowText(title);
}

std::string CDialog::GetTitle() const {
    if (IsWindow())
        return GetWindowText();
    if (m_titleSet)
        return m_title;
    const SYDialogTemplate* dialogTemplate = SYDialogTemplates::Find(m_templateId);
    return dialogTemplate != nullptr ? dialogTemplate->title : std::string();
}

int CDialog::UpdateData(int saveAndValidate) {
    if (!IsWindow())
        return 0;
    CDataExchange dx(this, saveAndValidate);
    try {
        DoDataExchange(&dx);
        return 1;
    } catch (const CDataExchange::Failure&) {
        if (SYWnd* control = dx.LastControl())
            control->SetFocus();
        return 0;
    } catch (const CException& exception) {
        SYExReport(exception, this);
        return 0;
    }
}

void CDialog::DoDataExchange(CDataExchange* /*dx*/) {}

int CDialog::OnInitDialog() {
    UpdateData(0);
    return 1;
}

void CDialog::OnOK() {
    if (UpdateData(1))
        EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

int CDialog::OnCommand(unsigned wParam, long lParam) {
    if (SYWnd::OnCommand(wParam, lParam))
        return 1;
    if (SYCommandCode(wParam) != BN_CLICKED)
        return 0;
    if (SYCommandId(wParam) == IDOK) {
        OnOK();
        return 1;
    }
    if (SYCommandId(wParam) == IDCANCEL) {
        OnCancel();
        return 1;
    }
    return 0;
}

SYRect CDialog::TemplateRect() const {
    const SYDialogTemplate* dialogTemplate = SYDialogTemplates::Find(m_templateId);
    if (dialogTemplate == nullptr)
        return {};
    return {0, 0, dialogTemplate->cx * SYFontMetrics::DialogUnitX,
            dialogTemplate->cy * SYFontMetrics::DialogUnitY};
}

int CDialog::CreateDialogControls() {
    return CreateControls(SYDialogTemplates::Find(m_templateId));
}

int CDialog::MakeWindow(SYWnd* parent, const SYRect& rect) {
    if (IsWindow())
        return 0;
    if (!Create(SYControlKind::Static, static_cast<unsigned>(m_templateId), GetTitle(), rect,
                parent))
        return 0;
    if (!CreateDialogControls()) {
        SYExReport(CInvalidArgException("The dialog template " + std::to_string(m_templateId) +
                                        " does not exist."),
                   m_owner);
        DestroyWindow();
        return 0;
    }
    m_ended = false;
    m_result = IDCANCEL;
    OnInitDialog();
    return 1;
}

int CDialog::BeginModal() {
    return MakeWindow(nullptr, TemplateRect());
}

int CDialog::FinishModal() {
    DestroyWindow();
    return m_result;
}

int CDialog::CreateModeless(SYWnd* parent, const SYRect& rect) {
    return MakeWindow(parent, rect);
}
