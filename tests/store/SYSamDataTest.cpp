#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "outside/framework/CException.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYSWRuleSet.h"
#include "outside/store/SYSamData.h"
#include "outside/store/SYSystemRulesWriter.h"
#include "support/StoreDump.h"
#include "support/TempDir.h"

namespace {

constexpr std::int32_t kFileTime = 999977; // 17 seconds into a minute
constexpr std::uint64_t kFileSize = 5000000000ULL;

struct RuleSpec {
    const char* label;
    unsigned char type;
    bool size;         // the file's size
    std::int32_t time; // 0 none
    const char* name = "App.DLL";
    bool removed = false;
    unsigned char invDataType = 0;
    std::uint64_t otherSize = 0; // a size that is not the file's
};

struct PrecedenceCase {
    const char* what;
    std::vector<RuleSpec> user;
    std::vector<RuleSpec> system;
    bool versionInfo;
    bool systemFile;
    const char* expected; // a rule label, "version" or "" for none
    int source;
    int state;
};

void PrintTo(const PrecedenceCase& c, std::ostream* os) {
    *os << c.what;
}

SYRuleRow toRow(const RuleSpec& spec) {
    SYRuleRow row;
    row.invDataType = spec.invDataType;
    row.ruleType = spec.type;
    row.fileName = spec.name;
    if (spec.size)
        row.size = kFileSize;
    if (spec.otherSize != 0)
        row.size = spec.otherSize;
    row.time = CTime(spec.time);
    row.appName = std::string("App of ") + spec.label;
    row.appVersion = "1";
    row.appCompany = "Maker";
    row.comment = std::string("Comment of ") + spec.label;
    return row;
}

void retire(SYDatabase& db, unsigned long ruleID) {
    SYSWRuleSet set(db);
    set.FilterForRuleID(ruleID);
    set.Open();
    set.Edit();
    set.SetRuleState(3);
    set.Update(1);
}

class PrecedenceTest : public testing::TestWithParam<PrecedenceCase> {};

TEST_P(PrecedenceTest, PicksTheEffectiveRuleAndStoresItsVerdict) {
    const auto& c = GetParam();
    TempDir install;
    std::map<std::string, unsigned long> ids;
    if (c.systemFile) {
        SYSystemRulesWriter system(install.File(SYSamData::SystemRulesFileName));
        for (const auto& spec : c.system)
            ids[spec.label] = system.AddRule(toRow(spec));
        system.Commit();
    }
    SYDatabase db;
    db.OpenMemory();
    unsigned long fileID = 0;
    {
        SYInventoryWriter writer(db, install.Path());
        for (const auto& spec : c.user) {
            ids[spec.label] = writer.AddUserRule(toRow(spec));
            if (spec.removed)
                retire(db, ids[spec.label]);
        }
        const auto pc = writer.AddMachine("pc", "", CTime(0));
        SYScanFile file{"app.dll", kFileSize, kFileTime, "", "", ""};
        if (c.versionInfo)
            file = {"app.dll", kFileSize, kFileTime, "Versioned", "9.1", "Vendor"};
        fileID = writer.AddFile(0, pc, "C:\\App", file);
        writer.Commit();
    }
    SYSamData sam(db);
    sam.InvDataType = 0;
    EXPECT_EQ(sam.EstablishSystemRulesDb(install.Path()), c.systemFile ? 1 : 0);
    _SYSAM_RULE_DATA data;
    auto source = SYSamData::RuleSourceUser;
    const int found = sam.FindEffectiveRule(fileID, data, source);
    const std::string expected = c.expected;
    if (expected.empty()) {
        EXPECT_EQ(found, 0);
    } else if (expected == "version") {
        ASSERT_NE(found, 0);
        EXPECT_EQ(data.RuleID, 0U);
        EXPECT_EQ(data.AppName, "Versioned");
        EXPECT_EQ(data.AppCompany, "Vendor");
        EXPECT_EQ(data.AppVersion, "9.1");
    } else {
        ASSERT_NE(found, 0);
        EXPECT_EQ(data.RuleID, ids.at(expected));
        EXPECT_EQ(data.Comment, "Comment of " + expected);
        EXPECT_EQ(data.AppName, "App of " + expected);
    }
    if (found != 0) {
        EXPECT_EQ(static_cast<int>(source), c.source);
    }

    SYAppFileSet stored(db);
    stored.FilterForFileID(fileID);
    stored.Open();
    ASSERT_FALSE(stored.IsEOF());
    EXPECT_EQ(stored.FileState(), c.state);
    EXPECT_EQ(stored.RuleSource(), found != 0 ? c.source : -1);
    EXPECT_EQ(stored.RuleID(), found != 0 ? data.RuleID : 0U);
}

const std::int32_t kSameMinute = kFileTime + 40;
const std::int32_t kOtherMinute = kFileTime + 50;

INSTANTIATE_TEST_SUITE_P(
    SYSamData, PrecedenceTest,
    testing::Values(
        PrecedenceCase{"nothing", {}, {}, false, true, "", -1, 0},
        PrecedenceCase{"version information alone", {}, {}, true, true, "version", 2, 1},
        PrecedenceCase{"system rule before version information",
                       {},
                       {{"sys", 0, false, 0}},
                       true,
                       true,
                       "sys",
                       1,
                       1},
        PrecedenceCase{"user rule before a more specific system rule",
                       {{"user", 1, false, 0}},
                       {{"sys", 0, true, kFileTime}},
                       true,
                       true,
                       "user",
                       0,
                       4},
        PrecedenceCase{"size and time beat size, time and name",
                       {{"both", 0, true, kFileTime},
                        {"size", 0, true, 0},
                        {"time", 0, false, kFileTime},
                        {"name", 0, false, 0}},
                       {},
                       false,
                       true,
                       "both",
                       0,
                       2},
        PrecedenceCase{"size beats a newer time rule",
                       {{"size", 1, true, 0}, {"time", 0, false, kFileTime}},
                       {},
                       false,
                       true,
                       "size",
                       0,
                       4},
        PrecedenceCase{"time beats a newer name rule",
                       {{"time", 0, false, kFileTime}, {"name", 1, false, 0}},
                       {},
                       false,
                       true,
                       "time",
                       0,
                       2},
        PrecedenceCase{"newest of equals",
                       {{"older", 1, false, 0}, {"newer", 0, false, 0}},
                       {},
                       false,
                       true,
                       "newer",
                       0,
                       2},
        PrecedenceCase{"removed user rule gives way to the system",
                       {{"gone", 0, true, 0, "app.dll", true}},
                       {{"sys", 1, false, 0}},
                       false,
                       true,
                       "sys",
                       1,
                       3},
        PrecedenceCase{"other size does not apply",
                       {{"wrong", 0, false, 0, "app.dll", false, 0, 5000000001ULL}},
                       {},
                       false,
                       true,
                       "",
                       -1,
                       0},
        PrecedenceCase{"time in the same minute applies, another minute does not",
                       {{"same", 0, false, kSameMinute}, {"other", 1, false, kOtherMinute}},
                       {},
                       false,
                       true,
                       "same",
                       0,
                       2},
        PrecedenceCase{"rule of the other inventory does not apply",
                       {{"ce", 0, false, 0, "app.dll", false, 1}},
                       {},
                       false,
                       true,
                       "",
                       -1,
                       0},
        PrecedenceCase{"system size rule beats system name rule",
                       {},
                       {{"size", 1, true, 0}, {"name", 0, false, 0}},
                       false,
                       true,
                       "size",
                       1,
                       3},
        PrecedenceCase{
            "no system rules database", {}, {{"sys", 0, false, 0}}, true, false, "version", 2, 1}));

// --- Applying rule changes -------------------------------------------------------------

long long scalar(SYDatabase& db, const std::string& sql) {
    SYStatement statement(db, sql);
    return statement.Step() ? statement.Int64(0) : -1;
}

const std::vector<std::string> kViewerFolders = {"pc-0 C:\\Viewer", "pc-1 C:\\Viewer",
                                                 "pc-2 C:\\Viewer"};
const std::vector<std::string> kViewerPlaces = {"pc-0 C:\\Codecs", "pc-0 C:\\Viewer",
                                                "pc-1 C:\\Viewer", "pc-2 C:\\Viewer"};

class ApplyTest : public testing::Test {
protected:
    void SetUp() override {
        db.OpenMemory();
        SYInventoryWriter writer(db);
        for (int i = 0; i < 3; ++i)
            pcs.push_back(writer.AddMachine("pc-" + std::to_string(i), "", CTime(0)));
        const SYScanFile viewer{"viewer.exe", 300, 600, "Viewer", "2.0", "Acme Corp."};
        const SYScanFile helper{"helper.dll", 40, 600, "", "", ""};
        const SYScanFile codec{"codec.dll", 70, 600, "Viewer", "2.0", "ACME Corporation"};
        for (const auto pc : pcs) {
            viewerID = writer.AddFile(0, pc, "C:\\Viewer", viewer);
            helperID = writer.AddFile(0, pc, "C:\\Viewer", helper);
        }
        codecID = writer.AddFile(0, pcs[0], "C:\\Codecs", codec);
        writer.Commit();
        sam.InvDataType = 0;
        sam.EstablishSystemRulesDb("");
    }

    unsigned long AddRule(unsigned char type, const std::string& name, const std::string& app,
                          const std::string& company, const std::string& version) {
        SYSWRuleSet rules(db);
        rules.AddNew();
        rules.SetRuleState(1);
        rules.SetRuleType(type);
        rules.SetFileName(name);
        rules.SetAppName(app);
        rules.SetAppCompany(company);
        rules.SetAppVersion(version);
        rules.Update(1);
        return rules.RuleID();
    }

    unsigned long AppOf(unsigned long fileID) {
        SYAppFileSet set(db);
        set.FilterForFileID(fileID);
        set.Open();
        return set.AppID();
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
        return scalar(db, "SELECT AppInstalled FROM Applications WHERE AppID = " +
                              std::to_string(appID));
    }

    SYDatabase db;
    SYSamData sam{db};
    std::vector<unsigned long> pcs;
    unsigned long viewerID = 0;
    unsigned long helperID = 0;
    unsigned long codecID = 0;
};

TEST_F(ApplyTest, ScannedSpellingsOfOneCompanyShareOneApplication) {
    EXPECT_EQ(AppOf(viewerID), AppOf(codecID));
    EXPECT_EQ(scalar(db, "SELECT COUNT(*) FROM Applications"), 1);
    EXPECT_EQ(Places(AppOf(viewerID)), kViewerPlaces);
    EXPECT_EQ(AppOf(helperID), 0U);
}

TEST_F(ApplyTest, IdentifyingAFileMakesItsApplicationAndInstallations) {
    const auto rule = AddRule(0, "HELPER.DLL", "  Helper  Kit ", "Helpful, Inc.", "1.5");
    sam.AddRule(rule);
    const auto app = AppOf(helperID);
    ASSERT_NE(app, 0U);
    EXPECT_EQ(Places(app), kViewerFolders);
    EXPECT_EQ(Installed(app), 1);
    SYStatement names(db, "SELECT AppName, AppNameInternal, AppCompany, AppCompanyInternal, "
                          "AppVersion FROM Applications WHERE AppID = " +
                              std::to_string(app));
    ASSERT_TRUE(names.Step());
    EXPECT_EQ(names.Text(0), "Helper  Kit");
    EXPECT_EQ(names.Text(1), "helper kit");
    EXPECT_EQ(names.Text(2), "Helpful, Inc.");
    EXPECT_EQ(names.Text(3), "helpful");
    EXPECT_EQ(names.Text(4), "1.5");
    SYAppFileSet unid(db);
    unid.FilterForUnidFiles();
    unid.Open();
    EXPECT_TRUE(unid.IsEOF());
}

TEST_F(ApplyTest, IdentificationUnderAnotherSpellingJoinsTheExistingApplication) {
    const auto viewerApp = AppOf(viewerID);
    sam.AddRule(AddRule(0, "helper.dll", "viewer", "acme corporation", "2.0"));
    EXPECT_EQ(AppOf(helperID), viewerApp);
    EXPECT_EQ(scalar(db, "SELECT COUNT(*) FROM Applications"), 1);
    EXPECT_EQ(Places(viewerApp), kViewerPlaces);
}

TEST_F(ApplyTest, IgnoringFilesUninstallsAnApplicationOnlyWhereNothingIsLeft) {
    const auto viewerApp = AppOf(viewerID);
    sam.AddRule(AddRule(1, "viewer.exe", "", "", ""));
    EXPECT_EQ(AppOf(viewerID), 0U);
    EXPECT_EQ(Places(viewerApp), std::vector<std::string>{"pc-0 C:\\Codecs"});
    EXPECT_EQ(Installed(viewerApp), 1);
    sam.AddRule(AddRule(1, "codec.dll", "", "", ""));
    EXPECT_TRUE(Places(viewerApp).empty());
    EXPECT_EQ(Installed(viewerApp), 0);
    SYAppFileSet ignored(db);
    ignored.FilterForExcludedFiles();
    ignored.Open();
    int count = 0;
    for (; !ignored.IsEOF(); ignored.MoveNext())
        ++count;
    EXPECT_EQ(count, 2);
}

TEST_F(ApplyTest, RenameAndRemovalCarryBothNamesBack) {
    const auto first = AddRule(1, "helper.dll", "", "", "");
    sam.AddRule(first);
    // The rule moves to another name: the old row is retired, a new one takes its place.
    retire(db, first);
    const auto second = AddRule(1, "viewer.exe", "", "", "");
    sam.ModifyRule(first, second);
    EXPECT_EQ(scalar(db, "SELECT FileState FROM Files WHERE FileID = " + std::to_string(helperID)),
              0);
    EXPECT_EQ(scalar(db, "SELECT FileState FROM Files WHERE FileID = " + std::to_string(viewerID)),
              4);
    retire(db, second);
    sam.DeleteRule(second);
    EXPECT_EQ(scalar(db, "SELECT FileState FROM Files WHERE FileID = " + std::to_string(viewerID)),
              1);
    EXPECT_EQ(Places(AppOf(viewerID)), kViewerPlaces);
}

TEST_F(ApplyTest, UnknownAndRepeatedRulesAreBorne) {
    const std::string before = DumpStore(db);
    sam.AddRule(0);
    sam.AddRule(987654);
    sam.ModifyRule(987654, 0);
    sam.DeleteRule(987654);
    EXPECT_EQ(DumpStore(db), before);
    const auto rule = AddRule(1, "helper.dll", "", "", "");
    retire(db, rule);
    sam.DeleteRule(rule);
    sam.DeleteRule(rule);
    EXPECT_EQ(scalar(db, "SELECT FileState FROM Files WHERE FileID = " + std::to_string(helperID)),
              0);
}

TEST_F(ApplyTest, AFailureAnywhereLeavesTheInventoryAsItWas) {
    const auto rule = AddRule(0, "helper.dll", "Helper", "Helpful", "1");
    const std::string before = DumpStore(db);
    int failures = 0;
    for (int nth = 1; nth < 200; ++nth) {
        db.FailStatement(nth);
        try {
            sam.AddRule(rule);
        } catch (const CDBException&) {
            ++failures;
            EXPECT_EQ(DumpStore(db), before) << "failure at statement " << nth;
            EXPECT_FALSE(db.InTransaction());
            continue;
        }
        db.ClearFault();
        break;
    }
    EXPECT_GT(failures, 5);
    EXPECT_NE(AppOf(helperID), 0U);
    EXPECT_EQ(Places(AppOf(helperID)), kViewerFolders);
}

} // namespace
