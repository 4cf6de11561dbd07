#include "support/SYScriptedModalHost.h"

#include <gtest/gtest.h>

#include "outside/widgets/CDialog.h"
#include "outside/widgets/CPropertySheet.h"
#include "outside/widgets/SYButton.h"
#include "outside/widgets/SYDateTimeEdit.h"
#include "outside/widgets/SYEdit.h"
#include "outside/widgets/SYFileDialog.h"
#include "outside/widgets/SYListCtrlEx.h"

namespace {

template <class Control> Control* controlOf(CDialog& dialog, unsigned id) {
    SYWnd* found = dialog.FindControl(id);
    if (found == nullptr) {
        ADD_FAILURE() << "the dialog \"" << dialog.GetTitle() << "\" has no control " << id;
        return nullptr;
    }
    auto* control = dynamic_cast<Control*>(found);
    if (control == nullptr)
        ADD_FAILURE() << "control " << id << " is not of the kind the script acts on";
    return control;
}

void expectDone(int done, const std::string& what) {
    if (!done)
        ADD_FAILURE() << "the user could not " << what;
}

} // namespace

SYScriptedModalHost::DialogScript& SYScriptedModalHost::DialogScript::Add(std::string what,
                                                                          Step step) {
    m_steps.emplace_back(std::move(what), std::move(step));
    return *this;
}

SYScriptedModalHost::DialogScript&
SYScriptedModalHost::DialogScript::Type(unsigned id, const std::string& text) {
    const std::string what = "type \"" + text + "\" into " + std::to_string(id);
    return Add(what, [=](CDialog& dialog) {
        if (auto* edit = controlOf<SYEdit>(dialog, id))
            expectDone(edit->TypeText(text), what);
    });
}

SYScriptedModalHost::DialogScript& SYScriptedModalHost::DialogScript::Check(unsigned id,
                                                                            int checked) {
    const std::string what = "set the check of " + std::to_string(id);
    return Add(what, [=](CDialog& dialog) {
        auto* button = controlOf<SYButton>(dialog, id);
        if (button != nullptr && button->GetCheck() != checked)
            expectDone(button->Click(), what);
    });
}

SYScriptedModalHost::DialogScript& SYScriptedModalHost::DialogScript::Click(unsigned id) {
    const std::string what = "click " + std::to_string(id);
    return Add(what, [=](CDialog& dialog) {
        if (auto* button = controlOf<SYButton>(dialog, id))
            expectDone(button->Click(), what);
    });
}

SYScriptedModalHost::DialogScript& SYScriptedModalHost::DialogScript::SelectRow(unsigned id,
                                                                                int row) {
    const std::string what = "select row " + std::to_string(row) + " of " + std::to_string(id);
    return Add(what, [=](CDialog& dialog) {
        if (auto* list = controlOf<SYListCtrlEx>(dialog, id))
            expectDone(list->ClickRow(row), what);
    });
}

SYScriptedModalHost::DialogScript& SYScriptedModalHost::DialogScript::DoubleClickRow(unsigned id,
                                                                                     int row) {
    const std::string what =
        "double-click row " + std::to_string(row) + " of " + std::to_string(id);
    return Add(what, [=](CDialog& dialog) {
        if (auto* list = controlOf<SYListCtrlEx>(dialog, id))
            expectDone(list->DoubleClickRow(row), what);
    });
}

SYScriptedModalHost::DialogScript& SYScriptedModalHost::DialogScript::ClickHeader(unsigned id,
                                                                                  int column) {
    const std::string what = "click header " + std::to_string(column) + " of " + std::to_string(id);
    return Add(what, [=](CDialog& dialog) {
        if (auto* list = controlOf<SYListCtrlEx>(dialog, id))
            expectDone(list->ClickHeader(column), what);
    });
}

SYScriptedModalHost::DialogScript&
SYScriptedModalHost::DialogScript::PickDate(unsigned id, int year, int month, int day, int hour,
                                            int minute, int second) {
    const std::string what = "pick a date in " + std::to_string(id);
    return Add(what, [=](CDialog& dialog) {
        if (auto* editor = controlOf<SYDateTimeEdit>(dialog, id))
            expectDone(editor->PickDateTime(year, month, day, hour, minute, second), what);
    });
}

SYScriptedModalHost::DialogScript& SYScriptedModalHost::DialogScript::SelectPage(int index) {
    const std::string what = "bring page " + std::to_string(index) + " to the front";
    return Add(what, [=](CDialog& dialog) {
        auto* sheet = dynamic_cast<CPropertySheet*>(&dialog);
        if (sheet == nullptr) {
            ADD_FAILURE() << "the dialog \"" << dialog.GetTitle() << "\" has no pages";
            return;
        }
        expectDone(sheet->ClickTab(index), what);
    });
}

SYScriptedModalHost::DialogScript&
SYScriptedModalHost::DialogScript::Inspect(std::function<void(CDialog&)> check) {
    return Add("look at the dialog", std::move(check));
}

SYScriptedModalHost::SYScriptedModalHost() : m_scope(this) {}

SYScriptedModalHost::~SYScriptedModalHost() {
    for (const Expectation& left : m_expected)
        ADD_FAILURE() << "the script expected " << Describe(left) << ", which never opened";
}

std::string SYScriptedModalHost::Describe(const Expectation& expectation) {
    switch (expectation.kind) {
    case Kind::Dialog:
        return expectation.title.empty() ? "dialog " + std::to_string(expectation.templateId)
                                         : "dialog \"" + expectation.title + "\"";
    case Kind::MessageBox:
        return "a message box \"" + expectation.text + "\"";
    case Kind::FileDialog:
        return "a file dialog";
    }
    return {};
}

SYScriptedModalHost::DialogScript& SYScriptedModalHost::ExpectDialog(int templateId) {
    m_expected.push_back({Kind::Dialog, templateId, {}, {}, 0, {}});
    return m_expected.back().script;
}

SYScriptedModalHost::DialogScript& SYScriptedModalHost::ExpectDialog(const std::string& title) {
    m_expected.push_back({Kind::Dialog, 0, title, {}, 0, {}});
    return m_expected.back().script;
}

void SYScriptedModalHost::ExpectMessageBox(int answer, const std::string& textContains) {
    m_expected.push_back({Kind::MessageBox, 0, {}, {}, answer, textContains});
}

void SYScriptedModalHost::ExpectFileDialog(const std::string& path) {
    m_expected.push_back({Kind::FileDialog, 0, {}, {}, 0, path});
}

int SYScriptedModalHost::RunModal(CDialog& dialog) {
    const std::string title = dialog.GetTitle();
    m_openedDialogs.push_back(title);
    const bool matches =
        !m_expected.empty() && m_expected.front().kind == Kind::Dialog &&
        (m_expected.front().title.empty() ? m_expected.front().templateId == dialog.TemplateId()
                                          : m_expected.front().title == title);
    if (!matches) {
        ADD_FAILURE() << "unexpected dialog " << dialog.TemplateId() << " \"" << title << "\""
                      << (m_expected.empty() ? "" : "; expected " + Describe(m_expected.front()));
        return IDCANCEL;
    }
    const DialogScript script = std::move(m_expected.front().script);
    m_expected.pop_front();
    if (!dialog.BeginModal()) {
        ADD_FAILURE() << "the dialog \"" << title << "\" could not be made";
        return -1;
    }
    for (const auto& [what, step] : script.m_steps) {
        if (dialog.IsModalEnded()) {
            ADD_FAILURE() << "the dialog \"" << title << "\" closed before the step: " << what;
            break;
        }
        step(dialog);
    }
    if (!dialog.IsModalEnded()) {
        ADD_FAILURE() << "the dialog \"" << title << "\" was still open at the end of its script";
        dialog.EndDialog(IDCANCEL);
    }
    return dialog.FinishModal();
}

int SYScriptedModalHost::MessageBox(const SYMessageBoxRequest& request) {
    MessageBoxRecord record{request.text,   request.caption,         request.Buttons(),
                            request.Icon(), request.DefaultResult(), request.DefaultResult()};
    if (m_expected.empty() || m_expected.front().kind != Kind::MessageBox) {
        ADD_FAILURE() << "unexpected message box \"" << request.text << "\""
                      << (m_expected.empty() ? "" : "; expected " + Describe(m_expected.front()));
    } else {
        const Expectation expected = m_expected.front();
        m_expected.pop_front();
        if (request.text.find(expected.text) == std::string::npos)
            ADD_FAILURE() << "message box \"" << request.text << "\" lacks \"" << expected.text
                          << "\"";
        if (request.Offers(expected.answer))
            record.answer = expected.answer;
        else
            ADD_FAILURE() << "message box \"" << request.text << "\" offers no answer "
                          << expected.answer;
    }
    m_messageBoxes.push_back(record);
    return record.answer;
}

int SYScriptedModalHost::RunFileDialog(SYFileDialog& dialog) {
    if (m_expected.empty() || m_expected.front().kind != Kind::FileDialog) {
        ADD_FAILURE() << "unexpected file dialog"
                      << (m_expected.empty() ? "" : "; expected " + Describe(m_expected.front()));
        return IDCANCEL;
    }
    const std::string path = m_expected.front().text;
    m_expected.pop_front();
    if (path.empty())
        return IDCANCEL;
    dialog.SetPathName(path);
    return IDOK;
}
