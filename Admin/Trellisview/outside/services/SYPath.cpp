#include "outside/services/SYPath.h"

#include <algorithm>

#include "outside/framework/SYString.h"

void SYPath::Set(std::string path)
{
    std::replace(path.begin(), path.end(), '/', Separator);
    m_path = std::move(path);
}

bool SYPath::IsWildcard(const std::string& text)
{
    return text.find_first_of("*?") != std::string::npos;
}

bool SYPath::IsWildcard() const
{
    return IsWildcard(m_path);
}

void SYPath::Append(const std::string& part)
{
    std::string tail = part;
    std::replace(tail.begin(), tail.end(), '/', Separator);
    while (!tail.empty() && tail.front() == Separator)
        tail.erase(tail.begin());
    if (tail.empty())
        return;
    if (!m_path.empty() && m_path.back() != Separator)
        m_path.push_back(Separator);
    m_path += tail;
}

std::string SYPath::Subpath() const
{
    const auto pos = m_path.find_last_of(Separator);
    if (pos == std::string::npos)
        return {};
    return pos == 0 ? m_path.substr(0, 1) : m_path.substr(0, pos);
}

int SYPath::Subpath(const SYPath& location, std::string& rest) const
{
    rest.clear();
    std::string base = location.m_path;
    while (base.size() > 1 && base.back() == Separator)
        base.pop_back();
    if (base.empty() || m_path.size() < base.size())
        return 0;
    if (SYStrICmp(m_path.substr(0, base.size()), base) != 0)
        return 0;
    std::string tail = m_path.substr(base.size());
    // "C:\App" is no location of "C:\Apps\x".
    if (!tail.empty() && tail.front() != Separator && base.back() != Separator)
        return 0;
    rest = std::move(tail);
    return 1;
}

std::string SYPath::FileName() const
{
    const auto pos = m_path.find_last_of(Separator);
    return pos == std::string::npos ? m_path : m_path.substr(pos + 1);
}

std::string SYPath::NativePath() const
{
    std::string native = m_path;
    std::replace(native.begin(), native.end(), Separator, '/');
    return native;
}
