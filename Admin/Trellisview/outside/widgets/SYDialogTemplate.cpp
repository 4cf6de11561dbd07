#include "outside/widgets/SYDialogTemplate.h"

#include <map>

namespace {

std::map<int, SYDialogTemplate>& templates() {
    static std::map<int, SYDialogTemplate> all;
    return all;
}

} // namespace

void SYDialogTemplates::Register(const SYDialogTemplate& dialog) {
    templates()[dialog.id] = dialog;
}

const SYDialogTemplate* SYDialogTemplates::Find(int id) {
    auto it = templates().find(id);
    return it == templates().end() ? nullptr : &it->second;
}

std::vector<int> SYDialogTemplates::Ids() {
    std::vector<int> ids;
    for (const auto& [id, dialog] : templates())
        ids.push_back(id);
    return ids;
}
