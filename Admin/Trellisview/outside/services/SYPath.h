#pragma once

#include <string>

// A file system path as the console writes it: parts divided by a backslash.
class SYPath {
public:
    SYPath() = default;
    explicit SYPath(std::string path) { Set(std::move(path)); }

    void Set(std::string path);
    const std::string& GetPath() const { return m_path; }
    bool IsEmpty() const { return m_path.empty(); }

    // True if the text holds '*' or '?'.
    bool IsWildcard() const;
    static bool IsWildcard(const std::string& text);

    // Adds one part behind a single separator.
    void Append(const std::string& part);
    // The path without its last part; empty when there is only one part.
    std::string Subpath() const;
    // Gives nonzero if this path is the location or lies below it (compared without regard
    // to case), and hands back what follows the location: empty, or beginning with the
    // separator. Otherwise gives 0 and empties `rest`.
    int Subpath(const SYPath& location, std::string& rest) const;
    // The last part.
    std::string FileName() const;
    // The path with '/' separators, for the local file system.
    std::string NativePath() const;

    static constexpr char Separator = '\\';

private:
    std::string m_path;
};
