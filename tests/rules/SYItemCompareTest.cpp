#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "outside/framework/SYListItemArray.h"
#include "rules/SYAppFileItem.h"
#include "rules/SYIdRuleItem.h"
#include "rules/SYIgnoreRuleItem.h"

namespace {

constexpr std::uint32_t Ones = 0xFFFFFFFF;

int sign(int value) {
    return (value > 0) - (value < 0);
}

template <class Item>
Item* add(SYListItemArray& array, const std::string& name, std::uint64_t size, std::int32_t time) {
    auto* item = new Item(&array);
    item->SetFileName(name);
    item->SetFileSize(size);
    item->SetModTime(time);
    return item;
}

SYIdRuleItem* addId(SYListItemArray& array, const std::string& name, const std::string& app,
                    const std::string& version, const std::string& company) {
    auto* rule = add<SYIdRuleItem>(array, name, 1, 0);
    rule->SetAppName(app);
    rule->SetAppVersion(version);
    rule->SetAppCompany(company);
    return rule;
}

std::vector<std::string> names(const SYListItemArray& array) {
    std::vector<std::string> result;
    for (int i = 0; i < array.GetSize(); ++i)
        result.push_back(static_cast<SYAppFileItem*>(array.GetAt(i))->FileName());
    return result;
}

std::vector<std::string> sorted(SYListItemArray& array, int column, int ascending) {
    array.SortArray(column, ascending);
    return names(array);
}

TEST(SYAppFileItemCompare, FileRowOrdersPerColumnWithTieBreaks) {
    // Names carry the expected position; keys are chosen so each column's tie-breaks decide.
    struct Case {
        int column;
        int ascending;
        std::vector<std::string> expected;
    };
    SYListItemArray rows;
    add<SYAppFileItem>(rows, "b", 30, 100);
    add<SYAppFileItem>(rows, "A", 10, 200);
    add<SYAppFileItem>(rows, "a", 20, 100);
    add<SYAppFileItem>(rows, "c", 10, 100);
    add<SYAppFileItem>(rows, "B", 10, 100);
    const Case cases[] = {
        // Name, then time, then size: "a"/"A" tie on name, "a" is older.
        {0, 1, {"a", "A", "B", "b", "c"}},
        // Descending reverses the name only; the time tie-break stays ascending.
        {0, 0, {"c", "B", "b", "a", "A"}},
        // Size, then name, then time.
        {1, 1, {"A", "B", "c", "a", "b"}},
        {1, 0, {"b", "a", "A", "B", "c"}},
        // Time, then name, then size.
        {2, 1, {"a", "B", "b", "c", "A"}},
        {2, 0, {"A", "a", "B", "b", "c"}},
        // Item type, then name, size, time.
        {3, 1, {"A", "a", "B", "b", "c"}},
        {3, 0, {"A", "a", "B", "b", "c"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << "column " << c.column << " asc " << c.ascending);
        EXPECT_EQ(sorted(rows, c.column, c.ascending), c.expected);
    }
}

TEST(SYAppFileItemCompare, SingleKeysHaveNoTieBreaks) {
    SYListItemArray rows;
    SYAppFileItem* a = add<SYAppFileItem>(rows, "a", 5, 100);
    SYAppFileItem* b = add<SYAppFileItem>(rows, "A", 6, 200);
    EXPECT_EQ(a->CompareTo(b, 4, 1), 0);
    EXPECT_EQ(a->CompareTo(b, 5, 1), -1);
    EXPECT_EQ(a->CompareTo(b, 6, 0), 1);
    EXPECT_EQ(a->CompareTo(b, 7, 1), 0);
    for (int column : {-1, 8, 11})
        EXPECT_EQ(a->CompareTo(b, column, 1), 0) << column;
    EXPECT_EQ(a->CompareTo(nullptr, 0, 1), 0);
    // The name key passes the byte difference through unchanged.
    SYAppFileItem* c = add<SYAppFileItem>(rows, "d", 5, 100);
    EXPECT_EQ(a->CompareTo(c, 4, 1), 'a' - 'd');
    EXPECT_EQ(a->CompareTo(c, 4, 0), 'd' - 'a');
}

TEST(SYAppFileItemCompare, AbsentSizesSortFirstAndThePartnerNeedsBothHalves) {
    struct Case {
        std::uint32_t lo, hi, otherLo, otherHi;
        int expected;
    };
    const Case cases[] = {
        {Ones, Ones, 0, 0, -1},
        {0, 0, Ones, Ones, 1},
        {Ones, Ones, Ones, Ones, 0},
        // Only this side's size is judged by HaveFileSize: one marked half makes it absent,
        // while on the partner's side the same value is a real size.
        {Ones, 0, Ones, 0, -1},
        {0, Ones, 0, Ones, -1},
        {Ones, 0, Ones, Ones, 0},
        {5, 1, 6, 0, 1},
        {6, 0, 5, 1, -1},
        {7, 7, 7, 7, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message()
                     << c.lo << "/" << c.hi << " vs " << c.otherLo << "/" << c.otherHi);
        SYAppFileItem a;
        a.SetFileSize(c.lo, c.hi);
        SYAppFileItem b;
        b.SetFileSize(c.otherLo, c.otherHi);
        EXPECT_EQ(a.CompareTo(&b, 5, 1), c.expected);
        EXPECT_EQ(a.CompareTo(&b, 5, 0), -c.expected);
    }
}

TEST(SYAppFileItemCompare, NegativeAndAbsentTimesOrderAsSignedValues) {
    SYAppFileItem before;
    before.SetModTime(-100);
    SYAppFileItem none;
    SYAppFileItem after;
    after.SetModTime(100);
    EXPECT_EQ(before.CompareTo(&none, 6, 1), -1);
    EXPECT_EQ(none.CompareTo(&after, 6, 1), -1);
    EXPECT_EQ(after.CompareTo(&before, 6, 1), 1);
}

TEST(SYAppFileItemCompare, RuleItemsStandBeforeFileItemsOnEveryColumn) {
    SYListItemArray array;
    // The file would come first on every key if types did not count.
    auto* fileRow = add<SYAppFileItem>(array, "a", 1, 1);
    SYListItem* rules[] = {add<SYIdRuleItem>(array, "z", 9, 9),
                           add<SYIgnoreRuleItem>(array, "z", 9, 9)};
    for (SYListItem* rule : rules) {
        for (int column = 0; column <= 13; ++column) {
            SCOPED_TRACE(column);
            EXPECT_EQ(sign(fileRow->CompareTo(rule, column, 1)), 1);
            EXPECT_EQ(sign(fileRow->CompareTo(rule, column, 0)), -1);
            EXPECT_EQ(sign(rule->CompareTo(fileRow, column, 0)), 1);
        }
        EXPECT_EQ(sign(rule->CompareTo(fileRow, 3, 1)), -1);
    }
    for (int column = 0; column <= 3; ++column) {
        EXPECT_EQ(sorted(array, column, 1).front(), "z") << column;
        EXPECT_EQ(sorted(array, column, 0).back(), "z") << column;
        EXPECT_EQ(sorted(array, column, 0).front(), "a") << column;
    }
}

TEST(SYIdRuleItemCompare, EffectiveKeyOrders) {
    SYListItemArray rules;
    // Each rule differs from the next in exactly one key, so each order below is decided by
    // the key sequence of its column.
    addId(rules, "f", "b", "1", "x");
    addId(rules, "f", "a", "2", "x");
    addId(rules, "f", "a", "1", "y");
    addId(rules, "f", "a", "1", "x");
    addId(rules, "f", "b", "2", "w");
    const auto order = [&](int column, int ascending) {
        rules.SortArray(column, ascending);
        std::vector<std::string> keys;
        for (int i = 0; i < rules.GetSize(); ++i) {
            auto* r = static_cast<SYIdRuleItem*>(rules.GetAt(i));
            keys.push_back(r->AppName() + r->AppVersion() + r->AppCompany());
        }
        return keys;
    };
    using V = std::vector<std::string>;
    // Column 0: name, company, application, version.
    EXPECT_EQ(order(0, 1), (V{"b2w", "a1x", "a2x", "b1x", "a1y"}));
    // Columns 1-3: their key ties, then application, version, company.
    for (int column = 1; column <= 3; ++column)
        EXPECT_EQ(order(column, 1), (V{"a1x", "a1y", "a2x", "b1x", "b2w"})) << column;
    // Column 4: application, version, company; descending reverses the application only.
    EXPECT_EQ(order(4, 1), (V{"a1x", "a1y", "a2x", "b1x", "b2w"}));
    EXPECT_EQ(order(4, 0), (V{"b1x", "b2w", "a1x", "a1y", "a2x"}));
    // Column 5: version, application, company.
    EXPECT_EQ(order(5, 1), (V{"a1x", "a1y", "b1x", "a2x", "b2w"}));
    EXPECT_EQ(order(5, 0), (V{"a2x", "b2w", "a1x", "a1y", "b1x"}));
    // Column 6: company, application, version.
    EXPECT_EQ(order(6, 1), (V{"b2w", "a1x", "a2x", "b1x", "a1y"}));
    EXPECT_EQ(order(6, 0), (V{"a1y", "a1x", "a2x", "b1x", "b2w"}));
}

TEST(SYIdRuleItemCompare, SizeOrTimeAloneDoNotSplitColumnZero) {
    SYListItemArray rules;
    SYIdRuleItem* a = addId(rules, "f.dll", "A", "1", "C");
    SYIdRuleItem* b = addId(rules, "F.DLL", "a", "1", "c");
    b->SetFileSize(std::uint64_t{99});
    b->SetModTime(12345);
    EXPECT_EQ(a->CompareTo(b, 0, 1), 0);
    EXPECT_EQ(a->CompareTo(b, 0, 0), 0);
    // Single keys and columns outside both tables.
    EXPECT_EQ(a->CompareTo(b, 11, 1), 0);
    b->SetAppVersion("2");
    EXPECT_EQ(a->CompareTo(b, 12, 1), -1);
    EXPECT_EQ(a->CompareTo(b, 12, 0), 1);
    EXPECT_EQ(a->CompareTo(b, 14, 1), 0);
    EXPECT_EQ(a->CompareTo(b, 8, 1), 0);
}

TEST(SYIdRuleItemCompare, AgainstAnIgnoreRuleTheTwoDirectionsDisagree) {
    SYListItemArray array;
    SYIdRuleItem* id = addId(array, "b", "x", "1", "c");
    auto* ignore = add<SYIgnoreRuleItem>(array, "a", 1, 0);
    for (int column = 0; column <= 13; ++column)
        EXPECT_EQ(id->CompareTo(ignore, column, 1), 0) << column;
    EXPECT_LT(ignore->CompareTo(id, 0, 1), 0);
    // Ignore rules order by name, time, size.
    auto* later = add<SYIgnoreRuleItem>(array, "A", 0, 50);
    auto* smaller = add<SYIgnoreRuleItem>(array, "a", 0, 0);
    EXPECT_LT(ignore->CompareTo(later, 0, 1), 0);
    EXPECT_GT(ignore->CompareTo(smaller, 0, 1), 0);
}

TEST(SYIdRuleItemCompare, MixedArraySortsSafely) {
    SYListItemArray array;
    std::vector<SYListItem*> made;
    for (int i = 0; i < 41; ++i) {
        const std::string name(1, static_cast<char>('a' + (i * 7) % 26));
        if (i % 3 == 0)
            made.push_back(add<SYIgnoreRuleItem>(array, name, i, 0));
        else
            made.push_back(addId(array, name, "app", std::to_string(i), ""));
    }
    array.Add(nullptr);
    array.SortArray(0, 1);
    ASSERT_EQ(array.GetSize(), 42);
    EXPECT_EQ(array.GetAt(41), nullptr);
    for (SYListItem* item : made)
        EXPECT_NE(array.Find(item), -1);
}

} // namespace
