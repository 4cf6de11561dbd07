#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

#include "outside/services/SYStringTable.h"
#include "outside/widgets/SYMenu.h"
#include "resources/SYResourceIds.h"

namespace {

using Entry = std::pair<int, const char*>; // command and caption; {0, ""} is a separator

std::vector<Entry> entries(const SYMenu& menu) {
    std::vector<Entry> result;
    for (const SYMenuItem& item : menu.Items())
        result.emplace_back(item.id, item.text.c_str());
    return result;
}

TEST(SYResourceMenus, EachMenuHoldsItsCommandsInOrder) {
    const Entry identify{13801, "&Identify File..."};
    const Entry ignore{13803, "I&gnore File..."};
    const Entry separator{0, ""};
    const Entry properties{2001, "&Properties"};
    const Entry viewApp{13811, "&View Application"};
    const Entry ignoreApp{13800, "&Ignore Application"};
    const Entry details{13808, "&View Installation Details"};
    const std::vector<std::pair<int, std::vector<Entry>>> expected = {
        {13000, {ignoreApp}},
        {13001, {identify, ignore, separator, properties}},
        {13002, {details}},
        {13003, {identify, separator, properties}},
        {13004, {identify, ignore, separator, properties}},
        {13005, {details}},
        {13006, {viewApp}},
        {13007, {viewApp, separator, ignoreApp}},
        {13008, {{13810, "&View Applications"}}},
        {13009, {details}},
        {13010, {viewApp}},
    };
    for (const auto& [id, items] : expected) {
        SYMenu menu;
        ASSERT_NE(menu.LoadMenu(id), 0) << id;
        const std::vector<Entry> actual = entries(menu);
        ASSERT_EQ(actual.size(), items.size()) << id;
        for (std::size_t i = 0; i < items.size(); ++i) {
            EXPECT_EQ(actual[i].first, items[i].first) << id << " item " << i;
            EXPECT_STREQ(actual[i].second, items[i].second) << id << " item " << i;
        }
    }
    EXPECT_EQ(SYMenus::Ids().size(), expected.size());
}

TEST(SYResourceMenus, EveryCommandHasAPromptAndAUniqueAccelerator) {
    for (const int id : SYMenus::Ids()) {
        const SYMenu* menu = SYMenus::Find(id);
        std::set<char> keys;
        for (const SYMenuItem& item : menu->Items()) {
            if (item.IsSeparator())
                continue;
            EXPECT_FALSE(SYMenu::Prompt(item.id).empty()) << item.id;
            EXPECT_NE(item.Accelerator(), 0) << item.text;
            EXPECT_TRUE(keys.insert(item.Accelerator()).second) << id << ": " << item.text;
        }
    }
}

TEST(SYResourceMenus, AcceleratorsFindTheirCommands) {
    SYMenu menu;
    ASSERT_NE(menu.LoadMenu(IDM_APP_FILE), 0);
    EXPECT_EQ(menu.FindAccelerator('i'), ID_IDENTIFY_FILE);
    EXPECT_EQ(menu.FindAccelerator('G'), ID_IGNORE_FILE);
    EXPECT_EQ(menu.FindAccelerator('p'), ID_PROPERTIES);
    EXPECT_EQ(menu.FindAccelerator('x'), 0);
    EXPECT_EQ(menu.GetMenuItemID(2), 0);
    EXPECT_EQ(menu.GetMenuItemID(4), 0);
    EXPECT_EQ(menu.GetMenuString(1), "I&gnore File...");
    EXPECT_TRUE(menu.HasCommand(ID_PROPERTIES));
    EXPECT_FALSE(menu.HasCommand(ID_VIEW_APPLICATION));
}

TEST(SYMenu, CaptionsLoseTheirMarksButKeepALiteralAmpersand) {
    EXPECT_EQ(SYMenuItem::Command(1, "I&gnore File...").PlainText(), "Ignore File...");
    EXPECT_EQ(SYMenuItem::Command(1, "Save && &Close").PlainText(), "Save & Close");
    EXPECT_EQ(SYMenuItem::Command(1, "Save && &Close").Accelerator(), 'c');
    EXPECT_EQ(SYMenuItem::Command(1, "A && B").Accelerator(), 0);
    EXPECT_EQ(SYMenuItem::Command(1, "Trailing&").Accelerator(), 0);
}

TEST(SYMenu, PopupsAreSearchedForCommands) {
    const SYMenu menu(1, {SYMenuItem::Popup("&File", {SYMenuItem::Command(7, "&Open")})});
    EXPECT_TRUE(menu.HasCommand(7));
    EXPECT_FALSE(menu.HasCommand(0));
    EXPECT_TRUE(menu.Items()[0].IsPopup());
    EXPECT_EQ(menu.FindAccelerator('o'), 0); // only the top level answers keys
}

TEST(SYMenu, UnknownMenuLoadsEmpty) {
    SYMenu menu;
    ASSERT_NE(menu.LoadMenu(IDM_APP_FILE), 0);
    EXPECT_EQ(menu.LoadMenu(12999), 0);
    EXPECT_EQ(menu.GetMenuItemCount(), 0);
    EXPECT_EQ(menu.GetMenuString(0), "");
}

} // namespace
