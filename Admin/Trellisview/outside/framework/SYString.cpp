#include "outside/framework/SYString.h"

#include <algorithm>
#include <cstring>

namespace {

int lowerByte(unsigned char c) {
    return (c >= 'A' && c <= 'Z') ? c + ('a' - 'A') : c;
}

} // namespace

int SYStrICmp(const char* a, const char* b) {
    const auto* pa = reinterpret_cast<const unsigned char*>(a);
    const auto* pb = reinterpret_cast<const unsigned char*>(b);
    int ca = 0;
    int cb = 0;
    do {
        ca = lowerByte(*pa++);
        cb = lowerByte(*pb++);
    } while (ca != 0 && ca == cb);
    return ca - cb;
}

int SYStrICmp(const std::string& a, const std::string& b) {
    return SYStrICmp(a.c_str(), b.c_str());
}

std::string SYToLower(const std::string& text) {
    std::string result = text;
    for (char& c : result)
        c = static_cast<char>(lowerByte(static_cast<unsigned char>(c)));
    return result;
}

bool SYStrIPrefix(const std::string& text, std::uint64_t* words, int count) {
    // The compare stops at the first zero byte, so the packing does too.
    const std::size_t end = std::min(text.size(), std::strlen(text.c_str()));
    std::size_t at = 0;
    for (int w = 0; w < count; ++w) {
        std::uint64_t word = 0;
        for (int b = 0; b < 8; ++b, ++at) {
            const std::uint64_t byte =
                at < end
                    ? static_cast<std::uint64_t>(lowerByte(static_cast<unsigned char>(text[at])))
                    : 0;
            word = (word << 8) | byte;
        }
        words[w] = word;
    }
    return end <= at;
}
