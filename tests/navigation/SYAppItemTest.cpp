#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "navigation/SYAppItem.h"

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

TEST(SYAppItem, ComparesByColumnWithAscendingTieBreaks) {
    struct Case {
        const char* what;
        SYAppItem left;
        SYAppItem right;
        int column;
        int ascending;
        int expected; // sign
    };
    const std::vector<Case> cases = {
        {"display names do not count", makeApp("word", "1", 0, "Word"),
         makeApp("word", "1", 0, "Writer"), 0, 1, 0},
        {"case of the internal name ties, version decides", makeApp("WORD", "2.0", 0),
         makeApp("word", "1.0", 0), 0, 1, 1},
        {"version compares as text", makeApp("a", "10.0", 0), makeApp("a", "9.0", 0), 0, 1, -1},
        {"type is the last key", makeApp("a", "1", 2), makeApp("a", "1", 0), 0, 1, 1},
        {"descending reverses the name", makeApp("a", "1", 0), makeApp("b", "1", 0), 0, 0, 1},
        {"descending keeps the version ascending", makeApp("a", "1", 0), makeApp("a", "2", 0), 0, 0,
         -1},
        {"column 1 by version first", makeApp("b", "1", 0), makeApp("a", "2", 0), 1, 1, -1},
        {"column 1 descending keeps the name ascending", makeApp("b", "1", 0), makeApp("a", "1", 0),
         1, 0, 1},
        {"column 2 by type", makeApp("z", "9", 1), makeApp("a", "1", 3), 2, 1, -1},
        {"column 2 ties go to the name", makeApp("z", "1", 1), makeApp("a", "1", 1), 2, 1, 1},
        {"bare name key ignores the version", makeApp("a", "1", 0), makeApp("A", "2", 0), 3, 1, 0},
        {"bare version key", makeApp("a", "1", 0), makeApp("b", "2", 0), 4, 0, 1},
        {"column above 5", makeApp("a", "1", 0), makeApp("b", "2", 1), 6, 1, 0},
        {"negative column", makeApp("a", "1", 0), makeApp("b", "2", 1), -1, 1, 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(sign(c.left.CompareTo(&c.right, c.column, c.ascending)), c.expected) << c.what;
    EXPECT_EQ(makeApp("a", "1", 0).CompareTo(nullptr, 0, 0), 0);
}

TEST(SYAppItem, RowIsTheShownNameTabVersion) {
    std::string text = "old";
    makeApp("x", "1.0", 0, "Shown").MakeString(text);
    EXPECT_EQ(text, "Shown\t1.0");
    makeApp("x", "", 0, "Shown").MakeString(text);
    EXPECT_EQ(text, "Shown\t");
}

} // namespace
