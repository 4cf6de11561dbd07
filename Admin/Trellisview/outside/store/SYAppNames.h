#pragma once

#include <string>

// Internal forms of application and company names: the keys that are compared, sorted and
// handed to record sets. Display forms keep the spelling a scan or a rule gave.
class SYAppNames {
public:
    // Lower case (ASCII), white space collapsed and trimmed.
    static std::string NameKey(const std::string& display);
    // As NameKey, and a trailing legal form ("Inc.", ", Ltd", "Corporation", ...) and
    // trailing punctuation dropped, so "Acme Corp." and "ACME Corporation" are one company.
    static std::string CompanyKey(const std::string& display);
    // White space trimmed at both ends.
    static std::string Trim(const std::string& text);
};
