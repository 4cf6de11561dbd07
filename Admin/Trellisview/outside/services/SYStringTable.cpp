#include "outside/services/SYStringTable.h"

#include <map>

namespace {

std::map<int, std::string>& strings() {
    static std::map<int, std::string> all;
    return all;
}

} // namespace

void SYStringTable::Register(int id, const std::string& text) {
    strings()[id] = text;
}

int SYStringTable::Load(int id, std::string& text) {
    auto it = strings().find(id);
    if (it == strings().end()) {
        text.clear();
        return 0;
    }
    text = it->second;
    return 1;
}

std::string SYStringTable::Get(int id) {
    std::string text;
    Load(id, text);
    return text;
}

std::vector<int> SYStringTable::Ids() {
    std::vector<int> ids;
    for (const auto& [id, text] : strings())
        ids.push_back(id);
    return ids;
}
