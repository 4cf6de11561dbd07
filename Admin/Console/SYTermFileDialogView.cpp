#include "SYTermFileDialogView.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "SYTermCanvas.h"
#include "SYTermKeys.h"
#include "SYTermText.h"
#include "outside/widgets/SYFileDialog.h"
#include "outside/widgets/SYWidgetIds.h"

#include <curses.h>

namespace fs = std::filesystem;

namespace {

constexpr int BoxWidth = 72;

std::string commonPrefix(const std::vector<std::string>& names) {
    std::string prefix = names.front();
    for (const std::string& name : names) {
        std::size_t same = 0;
        while (same < prefix.size() && same < name.size() && prefix[same] == name[same])
            ++same;
        prefix.resize(same);
    }
    return prefix;
}

} // namespace

SYTermFileDialogView::SYTermFileDialogView(const SYFileDialog& dialog)
    : m_dialog(dialog), m_path(dialog.InitialFileName()) {
    m_line.MoveToEnd(m_path);
}

void SYTermFileDialogView::Complete() {
    const std::size_t slash = m_path.find_last_of('/');
    const std::string folder = slash == std::string::npos ? "" : m_path.substr(0, slash + 1);
    const std::string start = m_path.substr(folder.size());
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder.empty() ? "." : folder, error)) {
        std::string name = entry.path().filename().string();
        if (name.compare(0, start.size(), start) == 0)
            names.push_back(name + (entry.is_directory(error) ? "/" : ""));
    }
    if (names.empty())
        return;
    m_path = folder + commonPrefix(names);
    m_line.MoveToEnd(m_path);
}

void SYTermFileDialogView::Accept() {
    if (m_path.empty())
        return;
    std::error_code error;
    const bool mustExist = m_dialog.IsOpenDialog() && (m_dialog.Flags() & OFN_FILEMUSTEXIST) != 0;
    if (mustExist && !fs::is_regular_file(m_path, error)) {
        m_problem = "No such file: " + m_path;
        return;
    }
    const fs::path absolute = fs::absolute(m_path, error);
    m_path = error ? m_path : absolute.lexically_normal().string();
    m_answer = IDOK;
}

void SYTermFileDialogView::HandleKey(int key) {
    if (key == SYTermKeys::Esc) {
        m_answer = IDCANCEL;
    } else if (key == '\n' || key == '\r' || key == KEY_ENTER) {
        Accept();
    } else if (key == '\t') {
        Complete();
    } else if (m_line.HandleKey(key, m_path)) {
        m_problem.clear();
    }
}

void SYTermFileDialogView::Draw(SYTermScreen& screen, bool top) {
    const int width = std::min(BoxWidth, screen.Cols());
    SYTermCanvas canvas =
        SYTermCanvas::Box(screen, 7, width, m_dialog.IsOpenDialog() ? "Open" : "Save As");
    const int field = std::max(1, canvas.Cols() - 2);
    canvas.Put(0, 1, "File name:", SYTermAttr::Normal);
    const int first = m_line.FirstShown(m_path, field);
    canvas.Put(1, 1, SYTermText::Fit(SYTermText::Slice(m_path, first, field), field),
               SYTermAttr::Reverse);
    std::string types;
    for (const auto& [description, patterns] : m_dialog.FilterEntries())
        types += (types.empty() ? "" : ", ") + description;
    canvas.Put(2, 1, SYTermText::Slice(types, 0, field), SYTermAttr::Normal);
    canvas.Put(3, 1, SYTermText::Slice(m_problem, 0, field), SYTermAttr::Bold);
    canvas.Put(4, 1, "Enter: open  Tab: complete  Esc: cancel", SYTermAttr::Dim);
    int row = 0;
    int col = 0;
    const bool shown = canvas.ToScreen(1, 1 + m_line.Caret(m_path) - first, row, col);
    if (top)
        screen.SetCursor(row, col, shown);
}

void SYTermFileDialogView::Abandon() {
    m_answer = IDCANCEL;
}
