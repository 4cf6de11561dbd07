#pragma once

#include <array>
#include <string>

// The platform words of the command line, indexed by inventory data type.
namespace SYCliPlatform {

inline constexpr std::array<const char*, 4> Words{"pc", "ce", "palm", "rim"};
inline constexpr std::array<const char*, 4> Names{"Windows PCs", "Windows CE", "Palm",
                                                  "BlackBerry"};

// The data type of a word; the word was checked by the parser.
inline unsigned char Parse(const std::string& word) {
    for (unsigned char type = 0; type < Words.size(); ++type) {
        if (word == Words[type])
            return type;
    }
    return 0;
}

} // namespace SYCliPlatform
