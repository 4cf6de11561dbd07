#include <gtest/gtest.h>

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "outside/widgets/SYMenu.h"
#include "resources/SYResourceIds.h"

namespace {

TEST(SYResourceMenus, EachMenuHoldsItsCommandsInOrder) {
    const std::map<int, std::string> captions = {
        {0, ""}, // a separator
        {13800, "&Ignore Application"},
        {13801, "&Identify File..."},
        {13803, "I&gnore File..."},
        {13808, "&View Installation Details"},
        {13810, "&View Applications"},
        {13811, "&View Application"},
        {2001, "&Properties"},
    };
    const std::vector<std::pair<int, std::vector<int>>> menus = {{13000, {13800}},
                                                                 {13001, {13801, 13803, 0, 2001}},
                                                                 {13002, {13808}},
                                                                 {13003, {13801, 0, 2001}},
                                                                 {13004, {13801, 13803, 0, 2001}},
                                                                 {13005, {13808}},
                                                                 {13006, {13811}},
                                                                 {13007, {13811, 0, 13800}},
                                                                 {13008, {13810}},
                                                                 {13009, {13808}},
                                                                 {13010, {13811}}};
    for (const auto& [id, commands] : menus) {
        SCOPED_TRACE(id);
        SYMenu menu;
        ASSERT_NE(menu.LoadMenu(id), 0);
        std::vector<int> loaded;
        for (const SYMenuItem& item : menu.Items()) {
            loaded.push_back(item.id);
            EXPECT_EQ(item.text, captions.at(item.id));
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
