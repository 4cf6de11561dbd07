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
    const std::size_t limit = 8 * static_cast<std::size_t>(count);
    // The compare stops at the first zero byte, so the packing does too; no need to look
    // for one past the bytes that count.
    const char* data = text.data();
    const void* zero = std::memchr(data, 0, std::min(text.size(), limit + 1));
    const std::size_t end = zero != nullptr
                                ? static_cast<std::size_t>(static_cast<const char*>(zero) - data)
                                : text.size();
    for (std::size_t w = 0, at = 0; w < static_cast<std::size_t>(count); ++w, at += 8) {
        unsigned char bytes[8] = {};
        if (end > at)
            std::memcpy(bytes, data + at, std::min<std::size_t>(8, end - at));
        std::uint64_t word = 0;
        for (const unsigned char byte : bytes)
            word = (word << 8) | static_cast<std::uint64_t>(lowerByte(byte));
        words[w] = word;
    }
    return end <= limit;
}
