#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYSystemRulesWriter.h"
#include "support/TempDir.h"
#include "support/ToolInventory.h"

namespace {

constexpr std::int32_t kFileTime = 999977; // 17 seconds into a minute
constexpr std::uint64_t kFileSize = 5000000000ULL;

// A rule for the file app.dll written as a short code: 'u' (user) or 's' (system), the
// rule type, then flags: 's' the file's size, 'S' another size, 't' a time in the file's
// minute, 'T' a time in the next minute, 'x' retired, 'c' of the Windows CE inventory.
SYRuleRow ruleOf(const std::string& code) {
    const auto has = [&code](char flag) { return code.find(flag, 2) != std::string::npos; };
    SYRuleRow row;
    row.invDataType = has('c') ? 1 : 0;
    row.ruleType = static_cast<unsigned char>(code[1] - '0');
    row.fileName = "App.DLL";
    if (has('s') || has('S'))
        row.size = has('s') ? kFileSize : kFileSize + 1;
    row.time = CTime(has('t') ? kFileTime + 40 : has('T') ? kFileTime + 50 : 0);
    row.appName = "App of " + code;
    row.comment = "Comment of " + code;
    return row;
}

struct PrecedenceCase {
    const char* what;
    std::vector<std::string> rules;
    bool versionInfo;
    const char* expected; // a rule code, "version" or "" for none
    int source;
    int state;
    bool systemFile = true;
};

void PrintTo(const PrecedenceCase& c, std::ostream* os) {
    *os << c.what;
}

class PrecedenceTest : public testing::TestWithParam<PrecedenceCase> {};

TEST_P(PrecedenceTest, PicksTheEffectiveRuleAndStoresItsVerdict) {
    const auto& c = GetParam();
    TempDir install;
    std::map<std::string, unsigned long> ids;
    if (c.systemFile) {
        SYSystemRulesWriter system(install.File(SYSamData::SystemRulesFileName));
        for (const auto& code : c.rules) {
            if (code[0] == 's')
                ids[code] = system.AddRule(ruleOf(code));
        }
        system.Commit();
    }
    SYDatabase db;
    db.OpenMemory();
    SYInventoryWriter writer(db, install.Path());
    for (const auto& code : c.rules) {
        if (code[0] == 'u')
            ids[code] = writer.AddUserRule(ruleOf(code));
        if (code.find('x') != std::string::npos)
            RetireRule(db, ids[code]);
    }
    SYScanFile file{"app.dll", kFileSize, kFileTime, "", "", ""};
    if (c.versionInfo)
        file = {"app.dll", kFileSize, kFileTime, "Versioned", "9.1", "Vendor"};
    const auto fileID = writer.AddFile(0, writer.AddMachine("pc", "", CTime(0)), "C:\\App", file);
    writer.Commit();

    SYSamData sam(db);
    sam.InvDataType = 0;
    EXPECT_EQ(sam.EstablishSystemRulesDb(install.Path()), c.systemFile ? 1 : 0);
    _SYSAM_RULE_DATA data;
    auto source = SYSamData::RuleSourceUser;
    const int found = sam.FindEffectiveRule(fileID, data, source);
    const std::string expected = c.expected;
    ASSERT_EQ(found != 0, !expected.empty());
    if (expected == "version") {
        EXPECT_EQ(data.RuleID, 0U);
        EXPECT_EQ(data.AppName + data.AppVersion + data.AppCompany, "Versioned9.1Vendor");
    } else if (found != 0) {
        EXPECT_EQ(data.RuleID, ids.at(expected));
        EXPECT_EQ(data.AppName + "|" + data.Comment,
                  "App of " + expected + "|Comment of " + expected);
    }
    EXPECT_EQ(found != 0 ? static_cast<int>(source) : -1, c.source);
    // What the writer stored when the file came in agrees.
    SYAppFileSet stored(db);
    stored.FilterForFileID(fileID);
    stored.Open();
    ASSERT_FALSE(stored.IsEOF());
    EXPECT_EQ(stored.FileState(), c.state);
    EXPECT_EQ(stored.RuleSource(), c.source);
    EXPECT_EQ(stored.RuleID(), found != 0 ? data.RuleID : 0U);
}

const PrecedenceCase kPrecedence[] = {
    {"nothing", {}, false, "", -1, 0},
    {"version information alone", {}, true, "version", 2, 1},
    {"system rule before version information", {"s0"}, true, "s0", 1, 1},
    {"user rule before a more specific system one", {"u1", "s0st"}, true, "u1", 0, 4},
    {"size and time beat each alone", {"u0st", "u0s", "u0t", "u0"}, false, "u0st", 0, 2},
    {"size beats a newer time rule", {"u1s", "u0t"}, false, "u1s", 0, 4},
    {"time beats a newer name rule", {"u0t", "u1"}, false, "u0t", 0, 2},
    {"newest of equals", {"u1", "u0"}, false, "u0", 0, 2},
    {"retired user rule gives way", {"u0sx", "s1"}, false, "s1", 1, 3},
    {"other size does not apply", {"u0S"}, false, "", -1, 0},
    {"time of another minute does not apply", {"u0T", "u1"}, false, "u1", 0, 4},
    {"rule of the other inventory does not apply", {"u0c"}, false, "", -1, 0},
    {"system size rule beats system name rule", {"s1s", "s0"}, false, "s1s", 1, 3},
    {"no system rules file", {"s0"}, true, "version", 2, 1, false},
};
INSTANTIATE_TEST_SUITE_P(SYSamData, PrecedenceTest, testing::ValuesIn(kPrecedence));

// --- Applying rule changes -------------------------------------------------------------

using ApplyTest = ToolInventory;

TEST_F(ApplyTest, IdentifyingAFileMakesItsApplicationWhereTheFileLies) {
    Apply(0, "README.TXT", "  Helper  Kit ", "Helpful, Inc.", "1.5");
    const auto app = AppOf(readmeID);
    ASSERT_NE(app, 0U);
    ASSERT_NE(app, toolApp);
    EXPECT_EQ(StateOf(readmeID), 2);
    EXPECT_EQ(Places(app), std::vector<std::string>{"pc-1 C:\\Tool"});
    EXPECT_EQ(Installed(app), 1);
    SYStatement names(db, "SELECT AppName || '|' || AppNameInternal || '|' || AppCompany || '|' "
                          "|| AppCompanyInternal || '|' || AppVersion FROM Applications WHERE "
                          "AppID = " +
                              std::to_string(app));
    ASSERT_TRUE(names.Step());
    EXPECT_EQ(names.Text(0), "Helper  Kit|helper kit|Helpful, Inc.|helpful|1.5");
}

TEST_F(ApplyTest, IgnoringFilesUninstallsAnApplicationOnlyWhereNothingIsLeft) {
    Apply(1, "tool.exe");
    EXPECT_EQ(AppOf(toolID), 0U);
    EXPECT_EQ(Places(toolApp), (std::vector<std::string>{"pc-1 C:\\Tool", "pc-2 C:\\Tool"}));
    EXPECT_EQ(Installed(toolApp), 1);
    Apply(1, "toolhelp.dll");
    EXPECT_TRUE(Places(toolApp).empty());
    EXPECT_EQ(Installed(toolApp), 0);
    SYAppFileSet ignored(db);
    ignored.FilterForExcludedFiles();
    ignored.SortByID();
    EXPECT_EQ(FileNames(ignored), (std::vector<std::string>{"tool.exe", "toolhelp.dll"}));
}

// Each call decides the files of both names again (a retired row keeps its name), in one
// transaction.
TEST_F(ApplyTest, EachCallMovesVerdictsAtOnceOrNotAtAll) {
    const auto identify = AddUserRule(db, 0, "readme.txt", "Readme", "Docs", "1");
    ExpectAtomic([&] { sam.AddRule(identify); });
    const auto readmeApp = AppOf(readmeID);
    EXPECT_EQ(Places(readmeApp), std::vector<std::string>{"pc-1 C:\\Tool"});

    RetireRule(db, identify);
    const auto ignore = AddUserRule(db, 1, "tool.exe");
    ExpectAtomic([&] { sam.ModifyRule(identify, ignore); });
    EXPECT_EQ(StateOf(readmeID), 0);
    EXPECT_EQ(StateOf(toolID), 4);
    EXPECT_EQ(Installed(readmeApp), 0);
    EXPECT_EQ(Places(toolApp).size(), 2U);

    RetireRule(db, ignore);
    ExpectAtomic([&] { sam.DeleteRule(ignore); });
    EXPECT_EQ(StateOf(toolID), 1);
    EXPECT_EQ(Places(toolApp).size(), 3U);

    // A repeated call and rows that do not exist are borne and change nothing.
    const std::string after = DumpStore(db);
    sam.DeleteRule(ignore);
    sam.AddRule(0);
    sam.AddRule(987654);
    sam.ModifyRule(987654, 0);
    EXPECT_EQ(DumpStore(db), after);
}

} // namespace
