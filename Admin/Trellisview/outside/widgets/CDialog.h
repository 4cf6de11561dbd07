#pragma once

#include <string>

#include "outside/widgets/SYWnd.h"

class CDataExchange;

// A dialog made from a dialog template. DoModal hands the dialog to the process's modal
// host, which makes the window, runs OnInitDialog, lets the user act until EndDialog and
// destroys the window again; with no host installed DoModal gives IDCANCEL at once. Pages
// make their window without a host, as a child of their sheet or tab window.
class CDialog : public SYWnd {
    SY_DECLARE_DYNAMIC(CDialog)

public:
    explicit CDialog(int templateId = 0, SYWnd* owner = nullptr);
    ~CDialog() override;

    virtual int DoModal();
    void EndDialog(int result);

    int TemplateId() const { return m_templateId; }
    SYWnd* GetOwner() const { return m_owner; }
    void SetOwner(SYWnd* owner) { m_owner = owner; }
    // The title the window takes when it is made (the template's unless set), and at once
    // if the window exists.
    void SetTitle(const std::string& title);
    std::string GetTitle() const;

    // Runs the exchange towards the controls (0) or from them (nonzero). Gives 0 if the
    // exchange failed (the focus then stands on the control that failed) or no window exists.
    int UpdateData(int saveAndValidate = 1);

    virtual int OnInitDialog();
    virtual void OnOK();
    virtual void OnCancel();
    int OnCommand(unsigned wParam, long lParam) override;
    bool IsDialogWindow() const override { return true; }

    // The steps of a modal run, for modal hosts. BeginModal makes the window and runs
    // OnInitDialog, giving 0 if the window cannot be made; the run lasts until IsModalEnded;
    // FinishModal destroys the window and gives the result of EndDialog.
    int BeginModal();
    bool IsModalEnded() const { return m_ended; }
    int FinishModal();

    // Makes the window without a modal run, as a child of parent; OnInitDialog runs.
    int CreateModeless(SYWnd* parent, const SYRect& rect);

protected:
    virtual void DoDataExchange(CDataExchange* dx);
    // Makes the controls of the new window; a dialog without a template makes its own.
    virtual int CreateDialogControls();
    SYRect TemplateRect() const;

private:
    int MakeWindow(SYWnd* parent, const SYRect& rect);

    int m_templateId = 0;
    SYWnd* m_owner = nullptr;
    std::string m_title;
    bool m_titleSet = false;
    bool m_ended = false;
    int m_result = IDCANCEL;
};
