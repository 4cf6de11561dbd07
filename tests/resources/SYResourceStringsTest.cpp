#include <gtest/gtest.h>

#include "outside/services/SYStringTable.h"
#include "resources/SYResourceIds.h"

namespace {

// Every string whose number the library's code or the console uses.
constexpr int quotedIds[] = {
    13102, 13103, 13115, 13116, 13503, 13504, 13505, 13506, 13507, 13508, 13509,
    13510, 13511, 13512, 13525, 13529, 13534, 13546, 13547, 13548, 13557, 13558,
    13559, 13560, 13562, 13564, 13800, 13801, 13803, 13808, 13810, 13811,
};

TEST(SYResourceStrings, EveryQuotedNumberResolvesAndKeyTextsAreExact) {
    for (const int id : quotedIds) {
        std::string text;
        EXPECT_NE(SYStringTable::Load(id, text), 0) << id;
        EXPECT_FALSE(text.empty()) << id;
    }
    struct Case {
        int id;
        const char* text;
    };
    const Case cases[] = {
        {13511, "Any"},
        {13503, "%s  [ %s ]"},
        {13560, "%s  (%s)"},
        {13504, "Name\tVersion"},
        {13506, "File\t>Size\tMod Time"},
        {13510, "File\tSize\tMod Time"},
        {13512, "Client\tLast Scan\tLocation"},
        {13525, "File\tSize\tMod Time\tVersion"},
        {13546, "Client\tWhere\tSize\tTotal Size\tCreate Date\tModify Date\tBackup Date\t"
                "Database Count\tRecord Count\tStorage Card Path"},
        {13102, "General"},
        {13557, "ROM"},
        {13529, "Software Inventory Application"},
        {13564, "Software Inventory BlackBerry Application"},
        {13800, "Ignore all of the files that make up this application"},
        {IDS_WILDCARD_REFUSED, "Wildcard rules are not supported.  Please enter a specific "
                               "file name without using wildcard characters."},
        {IDS_OVERWRITE_ID_RULE,
         "An identification rule with the same file information as this rule already "
         "exists:\n\nName:  %s\nVersion:  %s\nCompany:  %s\n\nWould you like to overwrite "
         "the existing rule?"},
        {IDS_OVERWRITE_IGNORE_RULE, "An ignore rule with the same file information as this "
                                    "rule already exists.\n\nWould you like to overwrite the "
                                    "existing rule?"},
        {IDS_ROOT_RIM_APPS, "BlackBerry Applications (%s)"},
        {IDS_ROOT_PALM_APPS, "Palm Applications  (%s)"},
    };
    for (const Case& c : cases)
        EXPECT_EQ(SYStringTable::Get(c.id), c.text) << c.id;
}

TEST(SYResourceStrings, NumbersStayInTheirRanges) {
    for (const int id : SYStringTable::Ids()) {
        const bool tabTitle = id >= 13100 && id < 13200;
        const bool string = id >= 13500 && id < 13800;
        const bool prompt = id >= 13800 && id < 13900;
        EXPECT_TRUE(tabTitle || string || prompt || id == ID_PROPERTIES) << id;
    }
}

} // namespace
