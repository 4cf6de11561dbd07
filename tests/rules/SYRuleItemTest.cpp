#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "outside/framework/SYListItemArray.h"
#include "rules/SYAppFileItem.h"
#include "rules/SYCompanyItem.h"
#include "rules/SYIdRuleItem.h"
#include "rules/SYIgnoreRuleItem.h"

namespace {

// 2021-03-04 13:02:03 UTC
constexpr std::int32_t T0 = 1614862923;

template <class Item>
Item& fill(Item& item, const std::string& name, std::uint64_t size, std::int32_t time,
           const std::string& app = "") {
    item.SetFileName(name);
    item.SetFileSize(size);
    item.SetModTime(time);
    if constexpr (std::is_same_v<Item, SYIdRuleItem>) {
        // One letter of application, one of version, the rest company.
        const auto part = [&](std::size_t at, std::size_t n) {
            return at < app.size() ? app.substr(at, n) : std::string();
        };
        item.SetAppName(part(0, 1));
        item.SetAppVersion(part(1, 1));
        item.SetAppCompany(part(2, std::string::npos));
    }
    return item;
}

template <class Item = SYAppFileItem>
Item* add(SYListItemArray& array, const std::string& name, std::uint64_t size, std::int32_t time,
          const std::string& app = "") {
    return &fill(*new Item(&array), name, size, time, app);
}

std::vector<std::string> sorted(SYListItemArray& array, int column, int ascending,
                                const std::function<std::string(SYListItem*)>& key) {
    array.SortArray(column, ascending);
    std::vector<std::string> keys;
    for (int i = 0; i < array.GetSize(); ++i)
        keys.push_back(key(array.GetAt(i)));
    return keys;
}

std::string nameOf(SYListItem* item) {
    return static_cast<SYAppFileItem*>(item)->FileName();
}

template <class Item> std::string rowText(const Item& item) {
    std::string text;
    item.MakeString(text);
    return text;
}

TEST(SYAppFileItemCompare, FileRowOrdersPerColumnWithAscendingTieBreaks) {
    struct Case {
        int column, ascending;
        std::vector<std::string> expected;
    };
    SYListItemArray rows;
    add(rows, "b", 30, 100);
    add(rows, "A", 10, 200);
    add(rows, "a", 20, 100);
    add(rows, "c", 10, 100);
    add(rows, "B", 10, 100);
    add(rows, "d", SYAppFileItem::NoSize, -100);
    // Name, then time, then size; descending reverses the name only. Size (absent first),
    // then name, then time. Time (signed), then name, then size. Type, then name, size, time.
    const Case cases[] = {
        {0, 1, {"a", "A", "B", "b", "c", "d"}}, {0, 0, {"d", "c", "B", "b", "a", "A"}},
        {1, 1, {"d", "A", "B", "c", "a", "b"}}, {1, 0, {"b", "a", "A", "B", "c", "d"}},
        {2, 1, {"d", "a", "B", "b", "c", "A"}}, {2, 0, {"A", "a", "B", "b", "c", "d"}},
        {3, 1, {"A", "a", "B", "b", "c", "d"}}, {3, 0, {"A", "a", "B", "b", "c", "d"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "column " << c.column << " asc " << c.ascending);
        EXPECT_EQ(sorted(rows, c.column, c.ascending, nameOf), c.expected);
    }
    // Single keys have no tie-breaks.
    EXPECT_EQ(rows.GetAt(0)->CompareTo(rows.GetAt(1), 4, 1), 0);
    // This side's size is absent with either half marked, the partner's only with both.
    SYAppFileItem half, other;
    half.SetFileSize(0xFFFFFFFF, 0);
    other.SetFileSize(0xFFFFFFFF, 0);
    EXPECT_EQ(half.CompareTo(&other, 5, 1), -1);
}

TEST(SYAppFileItemCompare, ArraySortsAsTheComparisonDoesWhateverTheNamesShare) {
    // Names alike in their first 8 or 16 bytes that differ in case or further on, sizes and
    // times that tie often, a name with a zero byte, an absent size and a rule row.
    SYListItemArray rows;
    const std::string names[] = {"setupapi.dll",
                                 "SETUPAPI.DLL",
                                 "setupap",
                                 "Setupapi",
                                 "setupapix",
                                 "setupapi.dlL",
                                 "readme",
                                 "README.TXT",
                                 "a",
                                 "setupapi",
                                 "Setupap",
                                 "readme.txt",
                                 std::string("setup\0zz", 8),
                                 "setupapi.dll",
                                 "microsoft.windows.gdiplus",
                                 "Microsoft.Windows.Common"};
    for (std::size_t i = 0; i < std::size(names); ++i)
        add(rows, names[i], 10 * (i % 3), T0 - static_cast<std::int32_t>(60 * (i % 2)) - 1);
    add(rows, "nosize", SYAppFileItem::NoSize, 0);
    add<SYIgnoreRuleItem>(rows, "setupapi", 10, T0);
    for (int column = 0; column <= 7; ++column) {
        for (int ascending = 0; ascending <= 1; ++ascending) {
            SCOPED_TRACE(testing::Message() << "column " << column << " asc " << ascending);
            std::vector<SYListItem*> expected;
            for (int at = 0; at < rows.GetSize(); ++at)
                expected.push_back(rows.GetAt(at));
            std::stable_sort(expected.begin(), expected.end(), [&](auto* a, auto* b) {
                return a->CompareTo(b, column, ascending) < 0;
            });
            rows.SortArray(column, ascending);
            for (int at = 0; at < rows.GetSize(); ++at)
                EXPECT_EQ(rows.GetAt(at), expected[static_cast<std::size_t>(at)]) << at;
        }
    }
}

TEST(SYAppFileItemCompare, RuleItemsStandBeforeFileItemsOnEveryColumn) {
    SYListItemArray array;
    // The file would come first on every key if types did not count.
    auto* fileRow = add(array, "a", 1, 1);
    SYListItem* rules[] = {add<SYIdRuleItem>(array, "z", 9, 9, "zzz"),
                           add<SYIgnoreRuleItem>(array, "z", 9, 9)};
    for (SYListItem* rule : rules) {
        for (int column = 0; column <= 13; ++column) {
            SCOPED_TRACE(column);
            EXPECT_GT(fileRow->CompareTo(rule, column, 1), 0);
            EXPECT_GT(rule->CompareTo(fileRow, column, 0), 0);
        }
    }
    for (int column = 0; column <= 3; ++column) {
        EXPECT_EQ(sorted(array, column, 1, nameOf).back(), "a") << column;
        EXPECT_EQ(sorted(array, column, 0, nameOf).front(), "a") << column;
    }
}

TEST(SYIdRuleItemCompare, ApplicationColumnsAndTheirTieBreaks) {
    SYListItemArray rules;
    // Same file information; each rule differs from the next in exactly one key.
    for (const char* app : {"b1x", "a2x", "a1y", "a1x", "b2w"})
        add<SYIdRuleItem>(rules, "f", 1, 0, app);
    const auto keys = [](SYListItem* item) {
        auto* r = static_cast<SYIdRuleItem*>(item);
        return r->AppName() + r->AppVersion() + r->AppCompany();
    };
    using V = std::vector<std::string>;
    // File columns tie, then application, version, company; column 0 goes through company.
    EXPECT_EQ(sorted(rules, 0, 1, keys), (V{"b2w", "a1x", "a2x", "b1x", "a1y"}));
    EXPECT_EQ(sorted(rules, 2, 1, keys), (V{"a1x", "a1y", "a2x", "b1x", "b2w"}));
    EXPECT_EQ(sorted(rules, 4, 1, keys), (V{"a1x", "a1y", "a2x", "b1x", "b2w"}));
    EXPECT_EQ(sorted(rules, 4, 0, keys), (V{"b1x", "b2w", "a1x", "a1y", "a2x"}));
    EXPECT_EQ(sorted(rules, 5, 1, keys), (V{"a1x", "a1y", "b1x", "a2x", "b2w"}));
    EXPECT_EQ(sorted(rules, 5, 0, keys), (V{"a2x", "b2w", "a1x", "a1y", "b1x"}));
    EXPECT_EQ(sorted(rules, 6, 1, keys), (V{"b2w", "a1x", "a2x", "b1x", "a1y"}));
    EXPECT_EQ(sorted(rules, 6, 0, keys), (V{"a1y", "a1x", "a2x", "b1x", "b2w"}));
    // Single application keys have no tie-breaks.
    EXPECT_EQ(rules.GetAt(0)->CompareTo(rules.GetAt(1), 11, 1), 0);
}

TEST(SYIdRuleItemCompare, AgainstAnIgnoreRuleAnswersZeroAndAMixedArraySortsSafely) {
    SYListItemArray array;
    std::set<SYListItem*> made;
    for (int i = 0; i < 40; ++i) {
        const std::string name(1, static_cast<char>('a' + (i * 7) % 26));
        if (i % 3 == 0)
            made.insert(add<SYIgnoreRuleItem>(array, name, i, 0));
        else
            made.insert(add<SYIdRuleItem>(array, name, i, 0, std::to_string(i)));
    }
    for (int column = 0; column <= 13; ++column)
        EXPECT_EQ(array.GetAt(1)->CompareTo(array.GetAt(0), column, 1), 0) << column;
    EXPECT_LT(array.GetAt(0)->CompareTo(array.GetAt(1), 0, 1), 0);
    array.Add(nullptr);
    array.SortArray(0, 1);
    ASSERT_EQ(array.GetAt(40), nullptr);
    for (int i = 0; i < 40; ++i)
        made.erase(array.GetAt(i));
    EXPECT_TRUE(made.empty());
}

TEST(SYCompanyItem, OrdersByInternalNameWithoutCaseOnColumnsZeroAndOne) {
    SYCompanyItem a, b;
    a.SetInternalName("acme");
    b.SetInternalName("BETA");
    EXPECT_LT(a.CompareTo(&b, 0, 1), 0);
    EXPECT_GT(a.CompareTo(&b, 1, 0), 0);
    EXPECT_EQ(a.CompareTo(&b, 2, 1), 0);
    b.SetInternalName("ACME");
    EXPECT_EQ(a.CompareTo(&b, 0, 1), 0);
}

TEST(SYAppFileItem, RowText) {
    SYAppFileItem file;
    SYIdRuleItem rule;
    SYIgnoreRuleItem ignore;
    ignore.SetComment("not shown");
    const std::pair<std::string, const char*> cases[] = {
        {rowText(fill(file, "a.dll", SYAppFileItem::NoSize, 0)), "a.dll\tAny\tAny"},
        {rowText(fill(file, "a.dll", 0xFFFFFFFF, 0)), "a.dll\tAny\tAny"},
        {rowText(fill(file, "a.dll", 0xFFFFFFFF'00000000, 0)), "a.dll\tAny\tAny"},
        {rowText(fill(ignore, "a.dll", 0x1'00000000, 0)), "a.dll\t4,294,967,296\tAny"},
        {rowText(fill(rule, "b", 5'000'000'000, T0, "T")),
         "b\t5,000,000,000\t3/4/2021 1:02:03 PM\tT\t\t "},
        {rowText(fill(rule, "b", 0, 0, "T2Maker")), "b\t0\tAny\tT\t2\tMaker"},
    };
    for (const auto& [text, expected] : cases)
        EXPECT_EQ(text, expected);
}

TEST(SYRuleItem, MatchingIgnoresCaseAndSecondsWhereEqualityDoesNot) {
    SYIdRuleItem base;
    fill(base, "App.exe", 10, T0, "A1C");
    const SYAppFileItem file = base;
    struct Case {
        const char* what;
        std::function<void(SYIdRuleItem&)> change;
        int matches;
        bool equal;
    };
    const Case cases[] = {
        {"identifier", [](SYIdRuleItem& r) { r.SetFileID(9); }, 1, true},
        {"name case", [](SYIdRuleItem& r) { r.SetFileName("APP.EXE"); }, 1, false},
        {"other name", [](SYIdRuleItem& r) { r.SetFileName("App.exe2"); }, 0, false},
        {"seconds", [](SYIdRuleItem& r) { r.SetModTime(T0 + 56); }, 1, false},
        {"next minute", [](SYIdRuleItem& r) { r.SetModTime(T0 + 57); }, 0, false},
        {"no time", [](SYIdRuleItem& r) { r.ClearModTime(); }, 1, false},
        {"high half", [](SYIdRuleItem& r) { r.SetFileSize(10, 1); }, 0, false},
        {"no size", [](SYIdRuleItem& r) { r.ClearFileSize(); }, 1, false},
        {"application case", [](SYIdRuleItem& r) { r.SetAppName("a"); }, 1, false},
        {"company", [](SYIdRuleItem& r) { r.SetAppCompany("Co"); }, 1, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        SYIdRuleItem changed = base;
        c.change(changed);
        EXPECT_EQ(changed.MatchesFile(&file), c.matches);
        EXPECT_EQ(changed == base, c.equal);
    }
    // A rule with a time does not cover a file without one.
    SYAppFileItem timeless = file;
    timeless.ClearModTime();
    EXPECT_EQ(base.MatchesFile(&timeless), 0);
    EXPECT_EQ(base.MatchesFile(nullptr), 0);
    SYIgnoreRuleItem a, b;
    a.SetComment("c");
    b.SetComment("C");
    EXPECT_FALSE(a == b);
}

} // namespace
