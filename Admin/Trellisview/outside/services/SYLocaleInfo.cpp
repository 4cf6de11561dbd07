#include "outside/services/SYLocaleInfo.h"

#include <charconv>

std::string SYLocaleInfo::FormatUnsigned(std::uint64_t value) {
    std::string digits = std::to_string(value);
    std::string result;
    result.reserve(digits.size() + digits.size() / 3);
    for (std::size_t i = 0; i < digits.size(); ++i) {
        // A comma goes before every digit that has a multiple of three digits behind it.
        if (i != 0 && (digits.size() - i) % 3 == 0)
            result.push_back(',');
        result.push_back(digits[i]);
    }
    return result;
}

std::string SYLocaleInfo::FormatSigned(std::int64_t value) {
    if (value >= 0)
        return FormatUnsigned(static_cast<std::uint64_t>(value));
    // Negate in unsigned arithmetic so the smallest value stays defined.
    const std::uint64_t magnitude = 0 - static_cast<std::uint64_t>(value);
    std::string text(1, '-');
    text += FormatUnsigned(magnitude);
    return text;
}

namespace {

// Lists format a date for every row, so the digits are written by hand rather than through
// printf. width pads with zeros.
void appendNumber(std::string& text, int value, int width = 1) {
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    for (auto length = end - digits; length < width; ++length)
        text += '0';
    text.append(digits, end);
}

void appendDate(std::string& text, const CTime::LocalFields& local) {
    appendNumber(text, local.month);
    text += '/';
    appendNumber(text, local.day);
    text += '/';
    appendNumber(text, local.year, 4);
}

void appendTime(std::string& text, const CTime::LocalFields& local) {
    appendNumber(text, local.hour % 12 == 0 ? 12 : local.hour % 12);
    text += ':';
    appendNumber(text, local.minute, 2);
    text += ':';
    appendNumber(text, local.second, 2);
    text += local.hour < 12 ? " AM" : " PM";
}

} // namespace

std::string SYLocaleInfo::FormatDate(const CTime& time, int /*flags*/) {
    std::string text;
    if (!time.IsNull())
        appendDate(text, time.GetLocalFields());
    return text;
}

std::string SYLocaleInfo::FormatTime(const CTime& time, int /*flags*/) {
    std::string text;
    if (!time.IsNull())
        appendTime(text, time.GetLocalFields());
    return text;
}

// One local-time conversion per call: lists format a date for every row.
std::string SYLocaleInfo::FormatDateAndTime(const CTime& time, int /*dateFlags*/,
                                            int /*timeFlags*/) {
    if (time.IsNull())
        return {};
    const CTime::LocalFields local = time.GetLocalFields();
    std::string text;
    appendDate(text, local);
    text += ' ';
    appendTime(text, local);
    return text;
}
