#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "outside/framework/CException.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYSamData.h"
#include "outside/store/SYSystemRulesWriter.h"
#include "store/StoreQueries.h"
#include "support/StoreDump.h"
#include "support/TempDir.h"

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
        EXPECT_EQ(data.AppName + "|" + data.AppVersion + "|" + data.AppCompany,
                  "Versioned|9.1|Vendor");
    } else if (found != 0) {
        EXPECT_EQ(data.RuleID, ids.at(expected));
        EXPECT_EQ(data.AppName, "App of " + expected);
        EXPECT_EQ(data.Comment, "Comment of " + expected);
    }
    if (found != 0) {
        EXPECT_EQ(static_cast<int>(source), c.source);
    }
    // What the writer stored when the file came in agrees.
    SYAppFileSet stored(db);
    stored.FilterForFileID(fileID);
    stored.Open();
    ASSERT_FALSE(stored.IsEOF());
    EXPECT_EQ(stored.FileState(), c.state);
    EXPECT_EQ(stored.RuleSource(), c.source);
    EXPECT_EQ(stored.RuleID(), found != 0 ? data.RuleID : 0U);
}

INSTANTIATE_TEST_SUITE_P(
    SYSamData, PrecedenceTest,
    testing::Values(
        PrecedenceCase{"nothing", {}, false, "", -1, 0},
        PrecedenceCase{"version information alone", {}, true, "version", 2, 1},
        PrecedenceCase{"system rule before version information", {"s0"}, true, "s0", 1, 1},
        PrecedenceCase{
            "user rule before a more specific system one", {"u1", "s0st"}, true, "u1", 0, 4},
        PrecedenceCase{"size and time beat size, time, name",
                       {"u0st", "u0s", "u0t", "u0"},
                       false,
                       "u0st",
                       0,
                       2},
        PrecedenceCase{"size beats a newer time rule", {"u1s", "u0t"}, false, "u1s", 0, 4},
        PrecedenceCase{"time beats a newer name rule", {"u0t", "u1"}, false, "u0t", 0, 2},
        PrecedenceCase{"newest of equals", {"u1", "u0"}, false, "u0", 0, 2},
        PrecedenceCase{"retired user rule gives way", {"u0sx", "s1"}, false, "s1", 1, 3},
        PrecedenceCase{"other size does not apply", {"u0S"}, false, "", -1, 0},
        PrecedenceCase{"time of another minute does not apply", {"u0T", "u1"}, false, "u1", 0, 4},
        PrecedenceCase{"rule of the other inventory does not apply", {"u0c"}, false, "", -1, 0},
        PrecedenceCase{
            "system size rule beats system name rule", {"s1s", "s0"}, false, "s1s", 1, 3},
        PrecedenceCase{"no system rules file", {"s0"}, true, "version", 2, 1, false}));

// --- Applying rule changes -------------------------------------------------------------

const std::vector<std::string> kViewerFolders = {"pc-0 C:\\Viewer", "pc-1 C:\\Viewer",
                                                 "pc-2 C:\\Viewer"};
const std::vector<std::string> kViewerPlaces = {"pc-0 C:\\Codecs", "pc-0 C:\\Viewer",
                                                "pc-1 C:\\Viewer", "pc-2 C:\\Viewer"};

// Three PCs with Viewer in C:\Viewer beside an unidentified helper.dll; pc-0 also holds a
// codec of Viewer whose company is spelled differently.
class ApplyTest : public testing::Test {
protected:
    void SetUp() override {
        db.OpenMemory();
        SYInventoryWriter writer(db);
        const SYScanFile viewer{"viewer.exe", 300, 600, "Viewer", "2.0", "Acme Corp."};
        const SYScanFile helper{"helper.dll", 40, 600, "", "", ""};
        const SYScanFile codec{"codec.dll", 70, 600, "Viewer", "2.0", "ACME Corporation"};
        for (int i = 0; i < 3; ++i) {
            const auto pc = writer.AddMachine("pc-" + std::to_string(i), "", CTime(0));
            viewerID = writer.AddFile(0, pc, "C:\\Viewer", viewer);
            helperID = writer.AddFile(0, pc, "C:\\Viewer", helper);
            if (i == 0)
                codecID = writer.AddFile(0, pc, "C:\\Codecs", codec);
        }
        writer.Commit();
        sam.InvDataType = 0;
        sam.EstablishSystemRulesDb("");
    }

    unsigned long AppOf(unsigned long fileID) {
        return static_cast<unsigned long>(
            Scalar(db, "SELECT AppID FROM Files WHERE FileID = " + std::to_string(fileID)));
    }

    long long StateOf(unsigned long fileID) {
        return Scalar(db, "SELECT FileState FROM Files WHERE FileID = " + std::to_string(fileID));
    }

    // "client folder" of each installation of the application, in order.
    std::vector<std::string> Places(unsigned long appID) {
        SYStatement places(db, "SELECT m.MachineName || ' ' || i.Location FROM Installations i "
                               "JOIN Machines m ON m.MachineID = i.MachineID WHERE "
                               "i.InvDataType = 0 AND i.AppID = ?1 ORDER BY 1");
        places.Bind(1, static_cast<std::int64_t>(appID));
        std::vector<std::string> found;
        while (places.Step())
            found.push_back(places.Text(0));
        return found;
    }

    long long Installed(unsigned long appID) {
        return Scalar(db, "SELECT AppInstalled FROM Applications WHERE AppID = " +
                              std::to_string(appID));
    }

    // Fails call at its first, second, ... statement until it runs through: every failure
    // must leave the store as it was.
    void ExpectAtomic(const std::function<void()>& call) {
        const std::string before = DumpStore(db);
        int failures = 0;
        for (int nth = 1; nth < 500; ++nth) {
            db.FailStatement(nth);
            try {
                call();
            } catch (const CDBException&) {
                ++failures;
                ASSERT_EQ(DumpStore(db), before) << "failure at statement " << nth;
                ASSERT_FALSE(db.InTransaction());
                continue;
            }
            break;
        }
        db.ClearFault();
        EXPECT_GT(failures, 2);
    }

    SYDatabase db;
    SYSamData sam{db};
    unsigned long viewerID = 0;
    unsigned long helperID = 0;
    unsigned long codecID = 0;
};

TEST_F(ApplyTest, SpellingsOfOneCompanyShareOneApplication) {
    const auto viewerApp = AppOf(viewerID);
    EXPECT_EQ(AppOf(codecID), viewerApp);
    EXPECT_EQ(Places(viewerApp), kViewerPlaces);
    sam.AddRule(AddUserRule(db, 0, "helper.dll", "viewer", "acme corporation", "2.0"));
    EXPECT_EQ(AppOf(helperID), viewerApp);
    EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM Applications"), 1);
}

TEST_F(ApplyTest, IdentifyingAFileMakesItsApplicationAndInstallations) {
    sam.AddRule(AddUserRule(db, 0, "HELPER.DLL", "  Helper  Kit ", "Helpful, Inc.", "1.5"));
    const auto app = AppOf(helperID);
    ASSERT_NE(app, 0U);
    EXPECT_EQ(Places(app), kViewerFolders);
    EXPECT_EQ(Installed(app), 1);
    SYStatement names(db, "SELECT AppName || '|' || AppNameInternal || '|' || AppCompany || '|' "
                          "|| AppCompanyInternal || '|' || AppVersion FROM Applications WHERE "
                          "AppID = " +
                              std::to_string(app));
    ASSERT_TRUE(names.Step());
    EXPECT_EQ(names.Text(0), "Helper  Kit|helper kit|Helpful, Inc.|helpful|1.5");
    EXPECT_EQ(StateOf(helperID), 2);
}

TEST_F(ApplyTest, IgnoringFilesUninstallsAnApplicationOnlyWhereNothingIsLeft) {
    const auto viewerApp = AppOf(viewerID);
    sam.AddRule(AddUserRule(db, 1, "viewer.exe"));
    EXPECT_EQ(AppOf(viewerID), 0U);
    EXPECT_EQ(Places(viewerApp), std::vector<std::string>{"pc-0 C:\\Codecs"});
    EXPECT_EQ(Installed(viewerApp), 1);
    sam.AddRule(AddUserRule(db, 1, "codec.dll"));
    EXPECT_TRUE(Places(viewerApp).empty());
    EXPECT_EQ(Installed(viewerApp), 0);
    SYAppFileSet ignored(db);
    ignored.FilterForExcludedFiles();
    ignored.SortByID();
    EXPECT_EQ(FileNames(ignored), (std::vector<std::string>{"viewer.exe", "codec.dll"}));
}

TEST_F(ApplyTest, UnknownAndRepeatedRulesAreBorne) {
    const std::string before = DumpStore(db);
    sam.AddRule(0);
    sam.AddRule(987654);
    sam.ModifyRule(987654, 0);
    sam.DeleteRule(987654);
    EXPECT_EQ(DumpStore(db), before);
    const auto rule = AddUserRule(db, 1, "helper.dll");
    RetireRule(db, rule);
    sam.DeleteRule(rule);
    sam.DeleteRule(rule);
    EXPECT_EQ(StateOf(helperID), 0);
}

// Each call decides the files of both names again (a retired row keeps its name), in one
// transaction.
TEST_F(ApplyTest, EachCallMovesVerdictsAtOnceOrNotAtAll) {
    const auto identify = AddUserRule(db, 0, "helper.dll", "Helper", "Helpful", "1");
    ExpectAtomic([&] { sam.AddRule(identify); });
    EXPECT_EQ(Places(AppOf(helperID)), kViewerFolders);

    RetireRule(db, identify);
    const auto ignore = AddUserRule(db, 1, "viewer.exe");
    ExpectAtomic([&] { sam.ModifyRule(identify, ignore); });
    EXPECT_EQ(StateOf(helperID), 0);
    EXPECT_EQ(StateOf(viewerID), 4);
    EXPECT_EQ(Scalar(db, "SELECT COUNT(*) FROM Applications WHERE AppInstalled = 1"), 1);

    RetireRule(db, ignore);
    ExpectAtomic([&] { sam.DeleteRule(ignore); });
    EXPECT_EQ(StateOf(viewerID), 1);
    EXPECT_EQ(Places(AppOf(viewerID)), kViewerPlaces);
}

} // namespace
