#include "outside/widgets/SYFileDialog.h"

#include "outside/widgets/SYModalHost.h"
#include "outside/widgets/SYWidgetIds.h"

SYFileDialog::SYFileDialog(int openFileDialog, const std::string& defaultExtension,
                           const std::string& fileName, unsigned flags, const std::string& filter,
                           const SYWnd* owner)
    : m_open(openFileDialog != 0), m_defaultExtension(defaultExtension),
      m_initialFileName(fileName), m_flags(flags), m_filter(filter), m_owner(owner) {}

int SYFileDialog::DoModal() {
    SYModalHost* host = SYModalHost::Current();
    if (host == nullptr)
        return IDCANCEL;
    m_pathName.clear();
    const int result = host->RunFileDialog(*this);
    return result == IDOK && !m_pathName.empty() ? IDOK : IDCANCEL;
}

std::vector<std::pair<std::string, std::string>> SYFileDialog::FilterEntries() const {
    std::vector<std::string> parts;
    std::string part;
    for (char c : m_filter) {
        if (c == '|') {
            parts.push_back(part);
            part.clear();
        } else {
            part += c;
        }
    }
    if (!part.empty())
        parts.push_back(part);
    std::vector<std::pair<std::string, std::string>> entries;
    for (std::size_t i = 0; i + 1 < parts.size(); i += 2) {
        if (!parts[i].empty())
            entries.emplace_back(parts[i], parts[i + 1]);
    }
    return entries;
}

std::string SYFileDialog::GetFileName() const {
    const auto slash = m_pathName.find_last_of("/\\");
    return slash == std::string::npos ? m_pathName : m_pathName.substr(slash + 1);
}
