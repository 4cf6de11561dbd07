#include <gtest/gtest.h>

#include "rules/RuleStoreFixture.h"

namespace {

using SYSWRuleLookup = RuleStoreTest;

TEST_F(SYSWRuleLookup, FindMatchingRuleComparesFileInformation) {
    const std::uint32_t allVersions = StoreId("Viewer.exe");
    const std::uint32_t sized = StoreIgnore("viewer.exe", std::uint64_t{4'294'967'296});
    const std::uint32_t timed = StoreId("VIEWER.EXE", std::uint64_t{4'294'967'296}, RuleTime);
    const std::uint32_t removed = StoreIgnore("viewer.exe", std::uint64_t{7});
    ASSERT_EQ(engine.RemoveRule(removed, 0), 1);
    StoreId("viewer.exe.bak");

    struct Case {
        const char* what;
        std::optional<std::uint64_t> size;
        std::int32_t time;
        std::uint32_t expected;
        unsigned char type;
    };
    const Case cases[] = {
        // An absent size or time finds only rows without one.
        {"all versions", {}, 0, allVersions, RuleTypeId},
        {"size, no time: not the row with a time", std::uint64_t{4'294'967'296}, 0, sized,
         RuleTypeIgnore},
        {"same minute, seconds apart", std::uint64_t{4'294'967'296}, RuleMinuteEnd, timed,
         RuleTypeId},
        {"next minute", std::uint64_t{4'294'967'296}, RuleTime + 60, 0, 9},
        {"time without size", {}, RuleTime, 0, 9},
        {"removed rules are not found", std::uint64_t{7}, 0, 0, 9},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        SYAppFileItem file;
        SetFileInfo(file, "viewer.EXE", c.size, c.time);
        unsigned char type = 9;
        EXPECT_EQ(engine.FindMatchingRule(file, type), c.expected);
        EXPECT_EQ(type, c.type);
    }
}

TEST_F(SYSWRuleLookup, ARuleDoesNotFindItselfButAFileWithThatNumberDoes) {
    const std::uint32_t first = StoreId("a.dll");
    SYIdRuleItem rule = IdRule("a.dll");
    ASSERT_EQ(engine.AddIdRule(rule, 0), 1);
    unsigned char type = 5;
    EXPECT_EQ(engine.FindMatchingRule(rule, type), first);

    // With two others, the later one the set delivers wins.
    const std::uint32_t second = StoreIgnore("A.DLL");
    EXPECT_EQ(engine.FindMatchingRule(rule, type), second);
    EXPECT_EQ(type, RuleTypeIgnore);

    SYAppFileItem file;
    file.SetFileName("a.dll");
    file.SetFileID(second);
    EXPECT_EQ(engine.FindMatchingRule(file, type), second);
}

TEST_F(SYSWRuleLookup, NamesAreWholeTextsWithoutPatterns) {
    const std::uint32_t star = StoreId("*.dll");
    StoreId("a_b%.dll");
    const char* names[] = {"x.dll", "ab%.dll", "a_b.dll", "a?b%.dll"};
    for (const char* name : names) {
        SYAppFileItem file;
        file.SetFileName(name);
        unsigned char type = 0;
        EXPECT_EQ(engine.FindMatchingRule(file, type), 0U) << name;
    }
    SYAppFileItem literal;
    literal.SetFileName("*.DLL");
    unsigned char type = 0;
    EXPECT_EQ(engine.FindMatchingRule(literal, type), star);
}

TEST_F(SYSWRuleLookup, LookupFillsOnlyFromAnActiveRuleOfItsType) {
    const std::uint32_t id = StoreId("a.exe", std::uint64_t{12}, RuleTime, "Editor");
    SYIgnoreRuleItem ignoreSource = IgnoreRule("b.exe", {}, 0, "why");
    ASSERT_EQ(engine.AddExcludeRule(ignoreSource, 0), 1);
    const std::uint32_t ignore = ignoreSource.FileID();

    SYIdRuleItem idRule = IdRule("untouched");
    idRule.SetItemStatus(ItemStatusChanged);
    idRule.SetItemType(ItemTypeFile);
    EXPECT_EQ(engine.LookupIdRule(ignore, idRule), 0);
    EXPECT_EQ(idRule.FileName(), "untouched");
    ASSERT_EQ(engine.LookupIdRule(id, idRule), 1);
    EXPECT_EQ(idRule.FileID(), id);
    EXPECT_EQ(idRule.FileName(), "a.exe");
    EXPECT_EQ(idRule.FileSize(), 12U);
    EXPECT_EQ(idRule.ModTime().GetTime(), RuleTime);
    EXPECT_EQ(idRule.AppName(), "Editor");
    // Type and status stay as the caller set them.
    EXPECT_EQ(idRule.ItemStatus(), ItemStatusChanged);
    EXPECT_EQ(idRule.ItemType(), ItemTypeFile);

    SYIgnoreRuleItem ignoreRule = IgnoreRule("untouched", std::uint64_t{1}, 5);
    EXPECT_EQ(engine.LookupExcludeRule(id, ignoreRule), 0);
    EXPECT_EQ(ignoreRule.FileName(), "untouched");
    ASSERT_EQ(engine.LookupExcludeRule(ignore, ignoreRule), 1);
    EXPECT_TRUE(ignoreRule == ignoreSource);

    ASSERT_EQ(engine.RemoveRule(ignore, 0), 1);
    EXPECT_EQ(engine.LookupExcludeRule(ignore, ignoreRule), 0);
    EXPECT_EQ(engine.LookupExcludeRule(999, ignoreRule), 0);
}

TEST_F(SYSWRuleLookup, RulesOfTheOtherInventoryStayApart) {
    StoreId("shared.dll");
    engine.InvDataType = 0;
    SYAppFileItem file;
    file.SetFileName("shared.dll");
    unsigned char type = 0;
    EXPECT_EQ(engine.FindMatchingRule(file, type), 0U);
}

} // namespace
