#include <gtest/gtest.h>

#include <tuple>

#include "outside/services/SYPath.h"

namespace {

TEST(SYPath, KeepsBackslashesSplitsOffTheFileNameAndSpotsWildcards) {
    const SYPath path("C:/Program Files/App/app.exe");
    EXPECT_EQ(path.GetPath(), "C:\\Program Files\\App\\app.exe");
    EXPECT_EQ(path.NativePath(), "C:/Program Files/App/app.exe");
    EXPECT_EQ(path.FileName(), "app.exe");
    EXPECT_EQ(path.Subpath(), "C:\\Program Files\\App");
    EXPECT_EQ(SYPath("app.exe").Subpath(), "");
    EXPECT_EQ(SYPath("\\app.exe").Subpath(), "\\");
    EXPECT_TRUE(SYPath("C:\\dir\\app?.dll").IsWildcard());
    EXPECT_TRUE(SYPath::IsWildcard("*.exe"));
    EXPECT_FALSE(SYPath::IsWildcard("[a].exe"));
}

TEST(SYPath, AppendPutsExactlyOneSeparator) {
    for (const auto& [start, part, result] :
         {std::tuple{"C:\\App\\", "x.dll", "C:\\App\\x.dll"},
          std::tuple{"C:\\App", "/sub/x.dll", "C:\\App\\sub\\x.dll"},
          std::tuple{"C:\\App", "", "C:\\App"}, std::tuple{"", "x.dll", "x.dll"}}) {
        SYPath path(start);
        path.Append(part);
        EXPECT_EQ(path.GetPath(), result) << start << " + " << part;
    }
}

TEST(SYPath, SubpathBelowALocationGivesTheRest) {
    const struct {
        const char* path;
        const char* location;
        int below;
        const char* rest;
    } cases[] = {
        {"C:\\App\\sub\\deeper", "c:\\app\\", 1, "\\sub\\deeper"},
        {"C:\\App", "C:\\App", 1, ""},
        {"C:\\Apps\\x", "C:\\App", 0, ""}, // a longer name is no folder below
        {"C:\\A", "C:\\App", 0, ""},
        {"C:\\App", "", 0, ""},
        {"\\x", "\\", 1, "x"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.path) + " in " + c.location);
        std::string rest = "stale";
        EXPECT_EQ(SYPath(c.path).Subpath(SYPath(c.location), rest), c.below);
        EXPECT_EQ(rest, c.rest);
    }
}

} // namespace
