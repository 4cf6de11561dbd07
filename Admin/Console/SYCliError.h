#pragma once

#include <stdexcept>
#include <string>

// A command that cannot go on: the exit code and the one line that tells why.
class SYCliError : public std::runtime_error {
public:
    enum : int {
        StoreFailed = 1, // the store failed or refused, or an id is unknown
        BadUsage = 2,
        RuleRefused = 3, // the rules refuse the write; nothing changed
    };

    SYCliError(int code, const std::string& message) : std::runtime_error(message), m_code(code) {}
    int Code() const { return m_code; }

private:
    int m_code;
};
