#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "outside/widgets/SYMenu.h"
#include "resources/SYResourceIds.h"

namespace {

// What each context menu offers, in order; 0 is a separator.
TEST(SYResourceMenus, EachMenuOffersItsCommandsInOrder) {
    const int fileCommands[] = {ID_IDENTIFY_FILE, ID_IGNORE_FILE, 0, ID_PROPERTIES};
    const std::vector<std::pair<int, std::vector<int>>> menus = {
        {IDM_APPLICATION, {ID_IGNORE_APPLICATION}},
        {IDM_APP_FILE, {std::begin(fileCommands), std::end(fileCommands)}},
        {IDM_UNIDENTIFIED_FILE, {std::begin(fileCommands), std::end(fileCommands)}},
        {IDM_IGNORED_FILE, {ID_IDENTIFY_FILE, 0, ID_PROPERTIES}},
        {IDM_APP_INSTALLATION, {ID_VIEW_INSTALLATION_DETAILS}},
        {IDM_PALM_INSTALLATION, {ID_VIEW_INSTALLATION_DETAILS}},
        {IDM_RIM_INSTALLATION, {ID_VIEW_INSTALLATION_DETAILS}},
        {IDM_DEVICE_APPLICATION, {ID_VIEW_APPLICATION}},
        {IDM_RIM_APPLICATION, {ID_VIEW_APPLICATION}},
        {IDM_APPLICATION_VIEW_IGNORE, {ID_VIEW_APPLICATION, 0, ID_IGNORE_APPLICATION}},
        {IDM_COMPANY, {ID_VIEW_APPLICATIONS}}};
    // A command reads the same in every menu that offers it.
    std::map<int, std::string> captions;
    for (const auto& [id, commands] : menus) {
        SCOPED_TRACE(id);
        SYMenu menu;
        ASSERT_NE(menu.LoadMenu(id), 0);
        std::vector<int> loaded;
        for (const SYMenuItem& item : menu.Items()) {
            loaded.push_back(item.id);
            EXPECT_EQ(captions.try_emplace(item.id, item.text).first->second, item.text);
        }
        EXPECT_EQ(loaded, commands);
    }
    EXPECT_EQ(SYMenus::Ids().size(), menus.size());
}

TEST(SYResourceMenus, EveryCommandHasAPromptAndAUniqueAccelerator) {
    for (const int id : SYMenus::Ids()) {
        std::set<char> keys;
        for (const SYMenuItem& item : SYMenus::Find(id)->Items()) {
            if (item.IsSeparator())
                continue;
            EXPECT_FALSE(SYMenu::Prompt(item.id).empty()) << item.id;
            EXPECT_NE(item.Accelerator(), 0) << item.text;
            EXPECT_TRUE(keys.insert(item.Accelerator()).second) << id << ": " << item.text;
        }
    }
    SYMenu menu;
    ASSERT_NE(menu.LoadMenu(IDM_APP_FILE), 0);
    EXPECT_EQ(menu.FindAccelerator('G'), ID_IGNORE_FILE) << "keys ignore case";
    EXPECT_EQ(menu.FindAccelerator('x'), 0);
    EXPECT_EQ(menu.LoadMenu(12999), 0);
    EXPECT_EQ(menu.GetMenuItemCount(), 0) << "an unknown menu loads empty";
}

TEST(SYMenu, CaptionsLoseTheirMarksButKeepALiteralAmpersand) {
    EXPECT_EQ(SYMenuItem::Command(1, "Save && &Close").PlainText(), "Save & Close");
    EXPECT_EQ(SYMenuItem::Command(1, "Save && &Close").Accelerator(), 'c');
    EXPECT_EQ(SYMenuItem::Command(1, "A && B").Accelerator(), 0);
    EXPECT_EQ(SYMenuItem::Command(1, "Trailing&").Accelerator(), 0);
    const SYMenu menu(1, {SYMenuItem::Popup("&File", {SYMenuItem::Command(7, "&Open")})});
    EXPECT_TRUE(menu.HasCommand(7)) << "popups are searched for commands";
    EXPECT_EQ(menu.FindAccelerator('o'), 0) << "only the top level answers keys";
}

} // namespace
