#include "outside/services/SYTextFormat.h"

std::string SYFormatText(const std::string& format, std::initializer_list<std::string_view> args) {
    // No reserve: most results are short enough to stay inside the string itself.
    std::string text;
    auto arg = args.begin();
    for (std::size_t i = 0; i < format.size(); ++i) {
        const bool mark = format[i] == '%' && i + 1 < format.size();
        if (mark && format[i + 1] == 's') {
            if (arg != args.end())
                text += *arg++;
            ++i;
        } else if (mark && format[i + 1] == '%') {
            text += '%';
            ++i;
        } else {
            text += format[i];
        }
    }
    return text;
}
