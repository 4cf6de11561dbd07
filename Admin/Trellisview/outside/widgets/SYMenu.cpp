#include "outside/widgets/SYMenu.h"

#include <cctype>
#include <map>

#include "outside/services/SYStringTable.h"

namespace {

std::map<int, SYMenu>& menus() {
    static std::map<int, SYMenu> all;
    return all;
}

bool containsCommand(const std::vector<SYMenuItem>& items, int commandId) {
    for (const SYMenuItem& item : items) {
        if (item.id == commandId || containsCommand(item.popup, commandId))
            return true;
    }
    return false;
}

} // namespace

char SYMenuItem::Accelerator() const {
    for (std::size_t i = 0; i + 1 < text.size(); ++i) {
        if (text[i] != '&')
            continue;
        if (text[i + 1] != '&')
            return static_cast<char>(std::tolower(static_cast<unsigned char>(text[i + 1])));
        ++i;
    }
    return 0;
}

std::string SYMenuItem::PlainText() const {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size())
            ++i;
        plain.push_back(text[i]);
    }
    return plain;
}

int SYMenu::LoadMenu(int id) {
    const SYMenu* found = SYMenus::Find(id);
    if (found == nullptr) {
        *this = SYMenu();
        return 0;
    }
    *this = *found;
    return 1;
}

int SYMenu::GetMenuItemID(int position) const {
    if (position < 0 || position >= GetMenuItemCount())
        return 0;
    return m_items[static_cast<std::size_t>(position)].id;
}

std::string SYMenu::GetMenuString(int position) const {
    if (position < 0 || position >= GetMenuItemCount())
        return {};
    return m_items[static_cast<std::size_t>(position)].text;
}

int SYMenu::FindAccelerator(char key) const {
    const char wanted = static_cast<char>(std::tolower(static_cast<unsigned char>(key)));
    for (const SYMenuItem& item : m_items) {
        if (item.id != 0 && item.Accelerator() == wanted)
            return item.id;
    }
    return 0;
}

bool SYMenu::HasCommand(int commandId) const {
    return commandId != 0 && containsCommand(m_items, commandId);
}

std::string SYMenu::Prompt(int commandId) {
    return SYStringTable::Get(commandId);
}

void SYMenus::Register(const SYMenu& menu) {
    menus()[menu.Id()] = menu;
}

const SYMenu* SYMenus::Find(int id) {
    auto it = menus().find(id);
    return it == menus().end() ? nullptr : &it->second;
}

std::vector<int> SYMenus::Ids() {
    std::vector<int> ids;
    for (const auto& [id, menu] : menus())
        ids.push_back(id);
    return ids;
}
