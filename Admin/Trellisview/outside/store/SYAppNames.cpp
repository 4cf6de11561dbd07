#include "outside/store/SYAppNames.h"

#include <array>
#include <string_view>

#include "outside/framework/SYString.h"

namespace {

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

void dropTrailing(std::string& text, std::string_view characters) {
    while (!text.empty() && characters.find(text.back()) != std::string_view::npos)
        text.pop_back();
}

// Removes one trailing legal form that stands as a word of its own; true if one went.
bool dropLegalForm(std::string& key) {
    static constexpr std::array<std::string_view, 14> forms = {
        "incorporated", "corporation", "limited", "company", "gmbh", "inc", "corp",
        "ltd",          "llc",         "co",      "ag",      "sa",   "plc", "bv"};
    for (const auto form : forms) {
        if (key.size() <= form.size() || !key.ends_with(form))
            continue;
        const char before = key[key.size() - form.size() - 1];
        if (before != ' ' && before != ',')
            continue;
        key.resize(key.size() - form.size());
        dropTrailing(key, " ,.");
        return true;
    }
    return false;
}

} // namespace

std::string SYAppNames::Trim(const std::string& text) {
    std::size_t first = 0;
    std::size_t last = text.size();
    while (first < last && isSpace(text[first]))
        ++first;
    while (last > first && isSpace(text[last - 1]))
        --last;
    return text.substr(first, last - first);
}

std::string SYAppNames::NameKey(const std::string& display) {
    std::string key;
    bool pendingSpace = false;
    for (const char c : SYToLower(display)) {
        if (isSpace(c)) {
            pendingSpace = !key.empty();
            continue;
        }
        if (pendingSpace)
            key.push_back(' ');
        pendingSpace = false;
        key.push_back(c);
    }
    return key;
}

std::string SYAppNames::CompanyKey(const std::string& display) {
    std::string key = NameKey(display);
    dropTrailing(key, " ,.");
    const std::string plain = key;
    while (dropLegalForm(key)) {
    }
    return key.empty() ? plain : key;
}
