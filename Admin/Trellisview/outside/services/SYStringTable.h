#pragma once

#include <string>
#include <vector>

// The numbered strings of the console. The resources register them; an unknown id loads as
// an empty text and a zero result.
class SYStringTable {
public:
    static void Register(int id, const std::string& text);
    static int Load(int id, std::string& text);
    static std::string Get(int id);
    static std::vector<int> Ids();
};
