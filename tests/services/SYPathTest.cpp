#include <gtest/gtest.h>

#include "outside/services/SYPath.h"

namespace {

TEST(SYPath, KeepsBackslashesWhateverSeparatorItWasGiven) {
    const SYPath path("C:/Program Files/App/app.exe");
    EXPECT_EQ(path.GetPath(), "C:\\Program Files\\App\\app.exe");
    EXPECT_EQ(path.NativePath(), "C:/Program Files/App/app.exe");
    EXPECT_EQ(path.FileName(), "app.exe");
    EXPECT_EQ(path.Subpath(), "C:\\Program Files\\App");
}

TEST(SYPath, WildcardsAreStarAndQuestionMark) {
    EXPECT_TRUE(SYPath::IsWildcard("*.exe"));
    EXPECT_TRUE(SYPath::IsWildcard("app?.dll"));
    EXPECT_TRUE(SYPath("C:\\dir\\a*").IsWildcard());
    EXPECT_FALSE(SYPath::IsWildcard("app.exe"));
    EXPECT_FALSE(SYPath::IsWildcard(""));
    EXPECT_FALSE(SYPath::IsWildcard("[a].exe"));
}

TEST(SYPath, AppendPutsExactlyOneSeparator) {
    struct Case {
        const char* start;
        const char* part;
        const char* result;
    };
    const Case cases[] = {
        {"C:\\App", "bin\\x.dll", "C:\\App\\bin\\x.dll"},
        {"C:\\App\\", "x.dll", "C:\\App\\x.dll"},
        {"C:\\App", "\\x.dll", "C:\\App\\x.dll"},
        {"C:\\App", "/sub/x.dll", "C:\\App\\sub\\x.dll"},
        {"C:\\App", "", "C:\\App"},
        {"", "x.dll", "x.dll"},
    };
    for (const Case& c : cases) {
        SYPath path(c.start);
        path.Append(c.part);
        EXPECT_EQ(path.GetPath(), c.result) << c.start << " + " << c.part;
    }
}

TEST(SYPath, SubpathWithoutLocationIsTheParent) {
    EXPECT_EQ(SYPath("app.exe").Subpath(), "");
    EXPECT_EQ(SYPath("\\app.exe").Subpath(), "\\");
    EXPECT_EQ(SYPath("a\\b\\c").Subpath(), "a\\b");
}

TEST(SYPath, SubpathBelowALocationGivesTheRest) {
    struct Case {
        const char* path;
        const char* location;
        int below;
        const char* rest;
    };
    const Case cases[] = {
        {"C:\\App\\sub", "C:\\App", 1, "\\sub"},
        {"C:\\App\\sub\\deeper", "c:\\app\\", 1, "\\sub\\deeper"},
        {"C:\\App", "C:\\App", 1, ""},
        {"C:\\Apps\\x", "C:\\App", 0, ""},
        {"C:\\Other", "C:\\App", 0, ""},
        {"C:\\A", "C:\\App", 0, ""},
        {"C:\\App", "", 0, ""},
        {"\\x", "\\", 1, "x"},
    };
    for (const Case& c : cases) {
        std::string rest = "stale";
        EXPECT_EQ(SYPath(c.path).Subpath(SYPath(c.location), rest), c.below)
            << c.path << " in " << c.location;
        EXPECT_EQ(rest, c.rest) << c.path << " in " << c.location;
    }
}

} // namespace
