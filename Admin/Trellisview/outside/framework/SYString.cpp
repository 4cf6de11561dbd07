#include "outside/framework/SYString.h"

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
