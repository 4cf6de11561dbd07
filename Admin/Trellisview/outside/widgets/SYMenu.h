#pragma once

#include <string>
#include <vector>

// One entry of a menu: a command, a separator or a popup with entries of its own.
struct SYMenuItem {
    int id = 0;       // the command; 0 for a separator or a popup
    std::string text; // the caption, "&" before the accelerator letter
    std::vector<SYMenuItem> popup;

    static SYMenuItem Command(int id, std::string text) { return {id, std::move(text), {}}; }
    static SYMenuItem Separator() { return {}; }
    static SYMenuItem Popup(std::string text, std::vector<SYMenuItem> items) {
        return {0, std::move(text), std::move(items)};
    }

    bool IsSeparator() const { return id == 0 && text.empty() && popup.empty(); }
    bool IsPopup() const { return !popup.empty(); }
    // The letter behind the single "&", lower-cased; 0 when there is none ("&&" is a
    // literal ampersand).
    char Accelerator() const;
    // The caption as shown: without the accelerator marks.
    std::string PlainText() const;
};

// A menu of the resources, as the console loads it to show a context menu.
class SYMenu {
public:
    SYMenu() = default;
    SYMenu(int id, std::vector<SYMenuItem> items) : m_id(id), m_items(std::move(items)) {}

    // Copies the registered menu; gives 0 and leaves this menu empty for an unknown id.
    int LoadMenu(int id);

    int Id() const { return m_id; }
    const std::vector<SYMenuItem>& Items() const { return m_items; }
    int GetMenuItemCount() const { return static_cast<int>(m_items.size()); }
    // The command at a position; 0 for a separator, a popup or a position out of range.
    int GetMenuItemID(int position) const;
    // The caption at a position, with its "&"; empty out of range.
    std::string GetMenuString(int position) const;
    // The command whose accelerator is the key, searched at the top level; 0 if none.
    int FindAccelerator(char key) const;
    // True if the command stands anywhere in the menu, popups included.
    bool HasCommand(int commandId) const;

    // The text the status line shows for a command: the string of the same number.
    static std::string Prompt(int commandId);

private:
    int m_id = 0;
    std::vector<SYMenuItem> m_items;
};

// The registry the resources fill; lookups give null for an unknown id.
class SYMenus {
public:
    static void Register(const SYMenu& menu);
    static const SYMenu* Find(int id);
    static std::vector<int> Ids();
};
