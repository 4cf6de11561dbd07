#pragma once

#include <string>
#include <utility>
#include <vector>

class SYWnd;

inline constexpr unsigned OFN_HIDEREADONLY = 0x4;
inline constexpr unsigned OFN_FILEMUSTEXIST = 0x1000;

// The file-open (or save) dialog, run by the modal host. The filter has the form
// "Description|patterns|Description|patterns||", patterns divided by ";".
class SYFileDialog {
public:
    explicit SYFileDialog(int openFileDialog, const std::string& defaultExtension = "",
                          const std::string& fileName = "", unsigned flags = OFN_HIDEREADONLY,
                          const std::string& filter = "", const SYWnd* owner = nullptr);

    // IDOK with a picked path, else IDCANCEL; IDCANCEL without a host.
    int DoModal();

    bool IsOpenDialog() const { return m_open; }
    const std::string& DefaultExtension() const { return m_defaultExtension; }
    const std::string& InitialFileName() const { return m_initialFileName; }
    unsigned Flags() const { return m_flags; }
    const std::string& Filter() const { return m_filter; }
    // The filter's (description, patterns) pairs.
    std::vector<std::pair<std::string, std::string>> FilterEntries() const;
    const SYWnd* Owner() const { return m_owner; }

    // For the host: the path the user picked, in the local file system's form.
    void SetPathName(const std::string& path) { m_pathName = path; }
    const std::string& GetPathName() const { return m_pathName; }
    // The picked file's name without its folders.
    std::string GetFileName() const;

private:
    bool m_open;
    std::string m_defaultExtension;
    std::string m_initialFileName;
    unsigned m_flags;
    std::string m_filter;
    const SYWnd* m_owner;
    std::string m_pathName;
};
