#pragma once

#include <cstdint>
#include <string>

// The one case-insensitive compare: ASCII lower-casing byte by byte, as the C library's
// _stricmp does. Bytes above 0x7F compare by value. The sign is what callers use.
int SYStrICmp(const std::string& a, const std::string& b);
int SYStrICmp(const char* a, const char* b);

std::string SYToLower(const std::string& text);

// The first 8 * count bytes of text as SYStrICmp sees them, packed high byte first into
// words, so that two texts whose packed words differ order as SYStrICmp orders them. True
// when the words hold the entire text: two such texts whose words agree compare equal.
bool SYStrIPrefix(const std::string& text, std::uint64_t* words, int count);
