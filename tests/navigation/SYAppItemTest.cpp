#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "navigation/SYAppItem.h"
#include "outside/framework/SYListItemArray.h"

namespace {

SYAppItem makeApp(const std::string& internal, const std::string& version, std::uint8_t type,
                  const std::string& shown = "") {
    SYAppItem item;
    item.SetAppNameInternal(internal);
    item.SetAppName(shown.empty() ? internal : shown);
    item.SetAppVersion(version);
    item.SetAppType(type);
    return item;
}

int sign(int value) {
    return (value > 0) - (value < 0);
}

struct CompareCase {
    const char* what;
    SYAppItem left;
    SYAppItem right;
    int column;
    int ascending;
    int expected; // sign
};

TEST(SYAppItem, ComparesByColumnWithAscendingTieBreaks) {
    const std::vector<CompareCase> cases = {
        {"other display names do not count", makeApp("word", "1.0", 0, "Word"),
         makeApp("word", "1.0", 0, "Writer"), 0, 1, 0},
        {"case of the internal name ties, version decides", makeApp("WORD", "2.0", 0),
         makeApp("word", "1.0", 0), 0, 1, 1},
        {"version compares as text", makeApp("a", "10.0", 0), makeApp("a", "9.0", 0), 0, 1, -1},
        {"type is the last key", makeApp("a", "1", 2), makeApp("a", "1", 0), 0, 1, 1},
        {"descending reverses the name", makeApp("a", "1", 0), makeApp("b", "1", 0), 0, 0, 1},
        {"descending keeps the version ascending", makeApp("a", "1", 0), makeApp("a", "2", 0), 0, 0,
         -1},
        {"column 1 by version first", makeApp("b", "1", 0), makeApp("a", "2", 0), 1, 1, -1},
        {"column 1 equal versions fall back on the name", makeApp("b", "1", 0),
         makeApp("a", "1", 0), 1, 1, 1},
        {"column 1 descending keeps the name ascending", makeApp("b", "1", 0), makeApp("a", "1", 0),
         1, 0, 1},
        {"column 2 by type as unsigned", makeApp("z", "9", 1), makeApp("a", "1", 3), 2, 1, -1},
        {"column 2 ties go to the name", makeApp("z", "1", 1), makeApp("a", "1", 1), 2, 1, 1},
        {"bare name key ignores the version", makeApp("a", "1", 0), makeApp("A", "2", 0), 3, 1, 0},
        {"bare version key", makeApp("a", "1", 0), makeApp("b", "2", 0), 4, 0, 1},
        {"bare type key", makeApp("a", "1", 3), makeApp("a", "1", 1), 5, 1, 1},
        {"column above 5", makeApp("a", "1", 0), makeApp("b", "2", 1), 6, 1, 0},
        {"negative column", makeApp("a", "1", 0), makeApp("b", "2", 1), -1, 1, 0},
    };
    for (const CompareCase& c : cases)
        EXPECT_EQ(sign(c.left.CompareTo(&c.right, c.column, c.ascending)), c.expected) << c.what;
}

TEST(SYAppItem, NullPartnerComparesEqualBothWays) {
    const SYAppItem item = makeApp("a", "1", 0);
    EXPECT_EQ(item.CompareTo(nullptr, 0, 1), 0);
    EXPECT_EQ(item.CompareTo(nullptr, 0, 0), 0);
}

TEST(SYAppItem, DescendingSortOfAnArrayReversesNamesOnly) {
    SYListItemArray array;
    for (const auto& [name, version] : std::vector<std::pair<std::string, std::string>>{
             {"alpha", "2"}, {"beta", "1"}, {"alpha", "1"}, {"beta", "3"}})
        array.Add(std::make_unique<SYAppItem>(makeApp(name, version, 0)));
    array.SortArray(0, 0);
    std::vector<std::string> rows;
    for (int i = 0; i < array.GetSize(); ++i) {
        std::string row;
        static_cast<SYAppItem*>(array[i])->MakeString(row);
        rows.push_back(row);
    }
    EXPECT_EQ(rows, (std::vector<std::string>{"beta\t1", "beta\t3", "alpha\t1", "alpha\t2"}));
}

TEST(SYAppItem, RowTextEndsWithTabWhenVersionIsEmpty) {
    std::string text = "old";
    makeApp("x", "", 0, "Shown").MakeString(text);
    EXPECT_EQ(text, "Shown\t");
}

TEST(SYAppItem, CopyIsEqualAndIndependent) {
    SYListItemArray owner;
    auto* source = new SYAppItem(&owner);
    source->SetAppID(0xFFFFFFFFu);
    source->SetAppType(SYAppItem::AppTypeRIM);
    source->SetAppName("Name");
    source->SetAppVersion("1.2");
    source->SetAppNameInternal("name");

    SYAppItem copy(*source);
    EXPECT_EQ(copy.GetArray(), nullptr);
    EXPECT_EQ(copy.AppID(), 0xFFFFFFFFu);
    EXPECT_EQ(copy.AppType(), SYAppItem::AppTypeRIM);
    EXPECT_EQ(copy.AppName(), "Name");
    EXPECT_EQ(copy.AppVersion(), "1.2");
    EXPECT_EQ(copy.AppNameInternal(), "name");

    source->SetAppName("Changed");
    EXPECT_EQ(copy.AppName(), "Name");
    EXPECT_EQ(copy.CompareTo(source, 0, 1), 0);
}

} // namespace
