#include "outside/widgets/SYFontMetrics.h"

int SYFontMetrics::TextWidth(const std::string& text) {
    int points = 0;
    for (unsigned char c : text) {
        if ((c & 0xC0) != 0x80)
            ++points;
    }
    return points * CharWidth;
}
