#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "outside/framework/SYListItemArray.h"
#include "rules/SYAppFileItem.h"
#include "rules/SYCompanyItem.h"
#include "rules/SYIdRuleItem.h"
#include "rules/SYIgnoreRuleItem.h"

namespace {

constexpr std::uint32_t Ones = 0xFFFFFFFF;
// 2021-03-04 13:02:03 UTC
constexpr std::int32_t T0 = 1614862923;

SYAppFileItem file(const std::string& name, std::uint64_t size, std::int32_t time) {
    SYAppFileItem item;
    item.SetFileName(name);
    item.SetFileSize(size);
    item.SetModTime(time);
    return item;
}

TEST(SYAppFileItem, NewItemHasNoSizeNoTimeAndPrintsAny) {
    SYAppFileItem item;
    EXPECT_EQ(item.ItemType(), ItemTypeFile);
    EXPECT_EQ(item.ItemStatus(), ItemStatusStored);
    EXPECT_FALSE(item.HaveFileSize());
    EXPECT_FALSE(item.HaveModTime());
    item.SetFileName("a.dll");
    std::string text;
    item.MakeString(text);
    EXPECT_EQ(text, "a.dll\tAny\tAny");
}

TEST(SYAppFileItem, SizeHalvesAndTheAbsentMarker) {
    struct Case {
        std::uint32_t lo, hi;
        bool have;
        const char* printed;
    };
    const Case cases[] = {
        {0, 0, true, "0"},
        {1234567, 0, true, "1,234,567"},
        {12345, 0, true, "12,345"},
        {0, 1, true, "4,294,967,296"},
        {Ones - 1, Ones - 1, true, "18,446,744,069,414,584,318"},
        {Ones, 0, false, "Any"},
        {0, Ones, false, "Any"},
        {Ones, Ones, false, "Any"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.lo << "/" << c.hi);
        SYAppFileItem rule;
        rule.SetFileName("x");
        rule.SetFileSize(c.lo, c.hi);
        EXPECT_EQ(rule.HaveFileSize(), c.have);
        std::uint32_t lo = 0, hi = 0;
        rule.GetFileSize(lo, hi);
        EXPECT_EQ(lo, c.lo);
        EXPECT_EQ(hi, c.hi);
        EXPECT_EQ(rule.FileSize(), (std::uint64_t{c.hi} << 32) | c.lo);
        std::string text;
        rule.MakeString(text);
        EXPECT_EQ(text, std::string("x\t") + c.printed + "\tAny");
        // A rule without a size covers every size of the name.
        const SYAppFileItem other = file("X", 77, 0);
        EXPECT_EQ(rule.MatchesFile(&other), c.have ? 0 : 1);
    }
}

TEST(SYAppFileItem, RowTextWithTimeAndIdRuleColumns) {
    SYIdRuleItem rule;
    rule.SetFileName("setup.exe");
    rule.SetFileSize(std::uint64_t{5000000000});
    rule.SetModTime(T0);
    rule.SetAppName("Tool");
    std::string text;
    rule.SYAppFileItem::MakeString(text);
    EXPECT_EQ(text, "setup.exe\t5,000,000,000\t3/4/2021 1:02:03 PM");
    rule.MakeString(text);
    EXPECT_EQ(text, "setup.exe\t5,000,000,000\t3/4/2021 1:02:03 PM\tTool\t\t ");
    rule.SetAppVersion("2.0");
    rule.SetAppCompany("Maker");
    rule.MakeString(text);
    EXPECT_EQ(text, "setup.exe\t5,000,000,000\t3/4/2021 1:02:03 PM\tTool\t2.0\tMaker");

    SYIgnoreRuleItem ignore;
    ignore.SetFileName("a.dll");
    ignore.SetComment("noise");
    ignore.MakeString(text);
    EXPECT_EQ(text, "a.dll\tAny\tAny");
}

TEST(SYAppFileItem, MatchesFile) {
    struct Case {
        const char* what;
        SYAppFileItem rule;
        int expected;
    };
    const SYAppFileItem target = file("Report.DOC", 4096, T0);
    SYAppFileItem any;
    any.SetFileName("report.doc");
    const Case cases[] = {
        {"name only, other case", any, 1},
        {"other name", file("report.docx", 4096, T0), 0},
        {"same size, no time", file("REPORT.doc", 4096, 0), 1},
        {"other size", file("report.doc", 4097, T0), 0},
        {"time differs in seconds", file("report.doc", 4096, T0 - 3), 1},
        {"time in the next minute", file("report.doc", 4096, T0 + 60), 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(c.rule.MatchesFile(&target), c.expected);
    }
    // A rule with a time does not cover a file that has none.
    SYAppFileItem timeless = target;
    timeless.ClearModTime();
    EXPECT_EQ(cases[4].rule.MatchesFile(&timeless), 0);
    EXPECT_EQ(any.MatchesFile(nullptr), 0);
}

TEST(SYAppFileItem, CopyAndAssignmentCarryEveryFieldButTheArray) {
    SYListItemArray array;
    auto* owned = new SYIgnoreRuleItem(&array);
    owned->SetFileID(9);
    owned->SetFileName("a");
    owned->SetFileSize(std::uint64_t{12});
    owned->SetModTime(T0);
    owned->SetItemStatus(ItemStatusChanged);
    owned->SetComment("why");

    const SYIgnoreRuleItem copy(*owned);
    EXPECT_EQ(copy.GetArray(), nullptr);
    EXPECT_EQ(copy.FileID(), 9U);
    EXPECT_EQ(copy.ItemType(), ItemTypeRule);
    EXPECT_EQ(copy.ItemStatus(), ItemStatusChanged);
    EXPECT_TRUE(copy == *owned);

    SYIgnoreRuleItem other;
    other.SetComment("other");
    *owned = other;
    EXPECT_EQ(owned->GetArray(), &array);
    EXPECT_EQ(owned->FileID(), 0U);
    EXPECT_FALSE(owned->HaveFileSize());
    EXPECT_EQ(owned->Comment(), "other");
}

TEST(SYRuleItemEquality, CaseAndSecondsCountHereOnly) {
    SYIdRuleItem base;
    base.SetFileName("App.exe");
    base.SetFileSize(std::uint64_t{10});
    base.SetModTime(T0);
    base.SetAppName("App");
    base.SetAppVersion("1");
    base.SetAppCompany("Co");
    base.SetFileID(3);

    struct Case {
        const char* what;
        void (*change)(SYIdRuleItem&);
        bool equal;
    };
    const Case cases[] = {
        {"identifier, type and status",
         [](SYIdRuleItem& r) {
             r.SetFileID(99);
             r.SetItemStatus(ItemStatusNew);
             r.SetItemType(ItemTypeFile);
         },
         true},
        {"name case", [](SYIdRuleItem& r) { r.SetFileName("app.exe"); }, false},
        {"seconds", [](SYIdRuleItem& r) { r.SetModTime(T0 + 1); }, false},
        {"high half", [](SYIdRuleItem& r) { r.SetFileSize(10, 1); }, false},
        {"app name case", [](SYIdRuleItem& r) { r.SetAppName("APP"); }, false},
        {"version", [](SYIdRuleItem& r) { r.SetAppVersion("2"); }, false},
        {"company", [](SYIdRuleItem& r) { r.SetAppCompany(""); }, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        SYIdRuleItem changed = base;
        c.change(changed);
        EXPECT_EQ(changed == base, c.equal);
        EXPECT_EQ(changed != base, !c.equal);
    }
    // What equality tells apart, matching and ordering take together.
    SYIdRuleItem other = base;
    other.SetFileName("APP.EXE");
    other.SetModTime(T0 + 2);
    EXPECT_EQ(other.MatchesFile(&base), 1);
    EXPECT_EQ(other.CompareTo(&base, 4, 1), 0);

    SYIgnoreRuleItem a;
    a.SetFileName("x");
    a.SetComment("c");
    SYIgnoreRuleItem b = a;
    EXPECT_TRUE(a == b);
    b.SetComment("C");
    EXPECT_TRUE(a != b);
}

TEST(SYCompanyItem, OrdersByInternalNameOnly) {
    SYCompanyItem a;
    a.SetInternalName("acme");
    a.SetDisplayName("Zeta");
    SYCompanyItem b;
    b.SetInternalName("BETA");
    b.SetDisplayName("Alpha");
    EXPECT_LT(a.CompareTo(&b, 0, 1), 0);
    EXPECT_LT(a.CompareTo(&b, 1, 1), 0);
    EXPECT_GT(a.CompareTo(&b, 0, 0), 0);
    EXPECT_EQ(a.CompareTo(&b, 2, 1), 0);
    EXPECT_EQ(a.CompareTo(nullptr, 0, 1), 0);
    b.SetInternalName("ACME");
    EXPECT_EQ(a.CompareTo(&b, 0, 1), 0);

    const SYCompanyItem copy(a);
    std::string shown;
    copy.GetDisplayName(shown);
    EXPECT_EQ(shown, "Zeta");
    EXPECT_EQ(copy.InternalName(), "acme");
}

} // namespace
