#pragma once

#include <functional>
#include <string>
#include <vector>

class CException;
class SYStatus;
class SYWnd;

// One failure handed to the console: what kind, its text, and the window it concerns.
struct SYFailureReport {
    std::string kind;
    std::string message;
    const SYWnd* parent = nullptr;
};

// Show a failure; the caller goes on.
void SYExReport(const CException& exception, const SYWnd* parent);
void SYStatusReport(const SYStatus& status, const SYWnd* parent);
