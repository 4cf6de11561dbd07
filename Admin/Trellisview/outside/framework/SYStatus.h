#pragma once

#include <string>

// A failure of the rule service. Deliberately not a CException: callers catch exactly the
// kinds their behaviour names.
class SYStatus {
public:
    SYStatus(long code, std::string message);

    long Code() const { return m_code; }
    const std::string& Message() const { return m_message; }

private:
    long m_code;
    std::string m_message;
};
