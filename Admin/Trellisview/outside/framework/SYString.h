#pragma once

#include <string>

// The one case-insensitive compare: ASCII lower-casing byte by byte, as the C library's
// _stricmp does. Bytes above 0x7F compare by value. The sign is what callers use.
int SYStrICmp(const std::string& a, const std::string& b);
int SYStrICmp(const char* a, const char* b);

std::string SYToLower(const std::string& text);
