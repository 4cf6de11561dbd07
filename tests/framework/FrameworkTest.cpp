#include <gtest/gtest.h>

#include "outside/framework/CObject.h"
#include "outside/framework/CTime.h"
#include "outside/framework/SYString.h"
#include "outside/framework/SYTimeChecker.h"

namespace {

class SYTestCreatable : public CObject {
    SY_DECLARE_DYNCREATE(SYTestCreatable)
};
SY_IMPLEMENT_DYNCREATE(SYTestCreatable, CObject)

TEST(SYStrICmp, LowersAsciiOnlyAndKeepsTheCLibrarySign) {
    EXPECT_EQ(SYStrICmp("Setup.EXE", "setup.exe"), 0);
    EXPECT_LT(SYStrICmp("abc", "ABD"), 0);
    EXPECT_GT(SYStrICmp("abc", "AB"), 0);
    EXPECT_LT(SYStrICmp("", "a"), 0);
    // '_' lies between the upper and lower case letters: lowering decides the order.
    EXPECT_LT(SYStrICmp("_", "A"), 0);
    // Bytes above 0x7F are not folded and sort after ASCII.
    EXPECT_NE(SYStrICmp("\xC3\x89", "\xC3\xA9"), 0);
    EXPECT_GT(SYStrICmp("\xC3\x89", "z"), 0);
}

TEST(SYTimeChecker, EqualIgnoreSecondsAgreesWithinTheMinuteOnly) {
    const CTime base(2024, 3, 5, 10, 15, 0);
    EXPECT_TRUE(SYTimeChecker::EqualIgnoreSeconds(base, CTime(base.GetTime() + 59)));
    EXPECT_FALSE(SYTimeChecker::EqualIgnoreSeconds(base, CTime(base.GetTime() + 60)));
    EXPECT_FALSE(SYTimeChecker::EqualIgnoreSeconds(base, CTime(base.GetTime() - 1)));
    EXPECT_TRUE(SYTimeChecker::EqualIgnoreSeconds(CTime(0), CTime(0)));
    EXPECT_FALSE(SYTimeChecker::EqualIgnoreSeconds(CTime(0), CTime(30)));
    EXPECT_FALSE(SYTimeChecker::EqualIgnoreSeconds(CTime(30), CTime(0)));
    // Before 1970 the minute still starts at second 0, not at a truncation toward zero.
    EXPECT_TRUE(SYTimeChecker::EqualIgnoreSeconds(CTime(-61), CTime(-120)));
    EXPECT_FALSE(SYTimeChecker::EqualIgnoreSeconds(CTime(-60), CTime(-61)));
}

TEST(CTime, LocalFieldsRoundTrip) {
    const CTime t(1999, 12, 31, 23, 59, 58);
    EXPECT_EQ(t.GetYear(), 1999);
    EXPECT_EQ(t.GetMonth(), 12);
    EXPECT_EQ(t.GetDay(), 31);
    EXPECT_EQ(t.GetHour(), 23);
    EXPECT_EQ(t.GetMinute(), 59);
    EXPECT_EQ(t.GetSecond(), 58);
    EXPECT_EQ(CTime(1969, 12, 31, 23, 59, 59).GetTime(), -1);
    EXPECT_EQ(CTime(2100, 1, 1, 0, 0, 0).GetTime(), 0) << "beyond 32 bits means no time";
}

TEST(SYRuntimeClass, CreatesByNameAndKnowsItsBase) {
    auto object = SYRuntimeClass::CreateObject("SYTestCreatable");
    ASSERT_NE(object, nullptr);
    EXPECT_TRUE(object->IsKindOf(SY_RUNTIME_CLASS(SYTestCreatable)));
    EXPECT_TRUE(object->IsKindOf(SY_RUNTIME_CLASS(CObject)));
    EXPECT_EQ(SYRuntimeClass::CreateObject("NoSuchClass"), nullptr);
    EXPECT_EQ(SYRuntimeClass::CreateObject("CObject"), nullptr) << "the root is not creatable";
}

} // namespace
