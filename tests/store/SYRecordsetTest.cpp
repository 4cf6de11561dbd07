#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "outside/framework/CException.h"
#include "outside/framework/SYString.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYSWRuleSet.h"

namespace {

struct FileSpec {
    std::string name;
    std::uint64_t size;
    std::int32_t time;
};

// An inventory with one PC holding the given files, all unidentified.
class FileInventory {
public:
    explicit FileInventory(const std::vector<FileSpec>& files, bool withRIM = true) {
        db.OpenMemory(withRIM);
        SYInventoryWriter writer(db);
        const auto machine = writer.AddMachine("pc-1", "ann", CTime(1000000));
        for (const auto& f : files)
            ids.push_back(
                writer.AddFile(0, machine, "C:\\Data", {f.name, f.size, f.time, "", "", ""}));
        writer.Commit();
    }

    std::vector<std::string> NamesFor(void (*filter)(SYAppFileSet&)) {
        SYAppFileSet set(db);
        filter(set);
        set.Open();
        std::vector<std::string> names;
        for (; !set.IsEOF(); set.MoveNext())
            names.push_back(set.FileName());
        return names;
    }

    SYDatabase db;
    std::vector<unsigned long> ids;
};

std::string upper(std::string text) {
    for (char& c : text) {
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    }
    return text;
}

const std::vector<std::string> kAwkwardNames = {"o'brien.dll",
                                                "x\"y.ini",
                                                "100%.txt",
                                                "100X.txt",
                                                "a_b.dll",
                                                "axb.dll",
                                                "*.*",
                                                "a.b",
                                                "r\xC3\xA9sum\xC3\xA9.doc",
                                                "Robert'); DROP TABLE Files;--"};

TEST(SYAppFileSet, NamesAreBoundLiterallyAndCompareWithoutAsciiCase) {
    std::vector<FileSpec> files;
    for (const auto& name : kAwkwardNames)
        files.push_back({name, 10, 1000});
    FileInventory inv(files);
    for (const auto& name : kAwkwardNames) {
        for (const auto& asked : {name, SYToLower(name), upper(name)}) {
            SYAppFileSet set(inv.db);
            set.FilterForFileName(asked);
            set.Open();
            ASSERT_FALSE(set.IsEOF()) << asked;
            EXPECT_EQ(set.FileName(), name);
            set.MoveNext();
            EXPECT_TRUE(set.IsEOF()) << asked;
        }
    }
    SYAppFileSet upper(inv.db);
    upper.FilterForFileName("O'BRIEN.DLL");
    upper.Open();
    EXPECT_FALSE(upper.IsEOF());
    // Only ASCII letters fold, as in SYStrICmp.
    const std::string accented = "R\xC3\x89SUM\xC3\x89.DOC";
    EXPECT_NE(SYStrICmp(accented, "r\xC3\xA9sum\xC3\xA9.doc"), 0);
    SYAppFileSet other(inv.db);
    other.FilterForFileName(accented);
    other.Open();
    EXPECT_TRUE(other.IsEOF());
}

TEST(SYAppFileSet, SizesBeyondFourGigabytesAndTimesAtOrBeforeTheEpoch) {
    const std::uint64_t big = 0x100000005ULL;
    const std::uint64_t huge = 0xFFFFFFFFFFFFFFFEULL;
    FileInventory inv({{"small.bin", 5, 600},
                       {"big.bin", big, 600},
                       {"huge.bin", huge, 600},
                       {"untimed.bin", 7, 0},
                       {"old.bin", 7, -31536000}});
    struct Expect {
        unsigned long id;
        std::uint64_t size;
        std::int32_t time;
    };
    const Expect expected[] = {{inv.ids[0], 5, 600},
                               {inv.ids[1], big, 600},
                               {inv.ids[2], huge, 600},
                               {inv.ids[3], 7, 0},
                               {inv.ids[4], 7, -31536000}};
    for (const auto& e : expected) {
        SYAppFileSet set(inv.db);
        set.FilterForFileID(e.id);
        set.Open();
        ASSERT_FALSE(set.IsEOF());
        EXPECT_EQ(set.FileSize(), e.size);
        EXPECT_EQ(set.FileSizeLo(), static_cast<unsigned long>(e.size & 0xFFFFFFFFU));
        EXPECT_EQ(set.FileSizeHi(), static_cast<unsigned long>(e.size >> 32));
        EXPECT_EQ(set.FileTime().GetTime(), e.time);
    }
    SYAppFileSet bySize(inv.db);
    bySize.FilterForFileSize(5, 1);
    bySize.Open();
    ASSERT_FALSE(bySize.IsEOF());
    EXPECT_EQ(bySize.FileName(), "big.bin");
    bySize.MoveNext();
    EXPECT_TRUE(bySize.IsEOF());

    const auto byTime = [&inv](std::int32_t time) {
        SYAppFileSet set(inv.db);
        set.FilterForFileTime(CTime(time));
        set.Open();
        std::vector<std::string> names;
        for (; !set.IsEOF(); set.MoveNext())
            names.push_back(set.FileName());
        return names;
    };
    EXPECT_EQ(byTime(0), std::vector<std::string>{"untimed.bin"});
    EXPECT_EQ(byTime(-31536000 + 59), std::vector<std::string>{"old.bin"});
    EXPECT_EQ(byTime(659).size(), 3U);
    EXPECT_TRUE(byTime(660).empty());
    // The minute of time 30 holds time 0, which is no time and does not match.
    EXPECT_TRUE(byTime(30).empty());
}

TEST(SYAppFileSet, LifeOfASetWithRequeryOnNewFilterValues) {
    FileInventory inv({{"a.dll", 1, 60}, {"b.dll", 2, 60}, {"b.dll", 3, 60}});
    SYAppFileSet set(inv.db);
    EXPECT_TRUE(set.IsEOF());
    EXPECT_FALSE(set.IsOpen());
    set.FilterForFileName("a.dll");
    set.SortByID();
    ASSERT_NE(set.Open(), 0);
    ASSERT_FALSE(set.IsEOF());
    EXPECT_EQ(set.FileSize(), 1U);
    set.FilterForFileName("B.DLL");
    set.Requery();
    std::vector<std::uint64_t> sizes;
    for (; !set.IsEOF(); set.MoveNext())
        sizes.push_back(set.FileSize());
    EXPECT_EQ(sizes, (std::vector<std::uint64_t>{2, 3}));
    EXPECT_THROW(set.MoveNext(), CDBException);
    EXPECT_THROW(set.FileName(), CDBException);
    set.FilterForFileName("none.dll");
    set.Requery();
    EXPECT_TRUE(set.IsEOF());
    set.Close();
    EXPECT_FALSE(set.IsOpen());
    EXPECT_THROW(set.Requery(), CDBException);
}

TEST(SYAppFileSet, UnidentifiedAndJoinedLocationRows) {
    SYDatabase db;
    db.OpenMemory();
    SYInventoryWriter writer(db);
    const auto pc1 = writer.AddMachine("pc-1", "ann", CTime(0));
    const auto pc2 = writer.AddMachine("pc-2", "bob", CTime(0));
    const auto ce = writer.AddDevice(1, "ce-1", "cat", CTime(0));
    const SYScanFile tool{"tool.exe", 100, 120, "Tool", "1.0", "Acme Inc."};
    const SYScanFile loose{"loose.dll", 50, 120, "", "", ""};
    writer.AddFile(0, pc1, "C:\\Tool", tool);
    writer.AddFile(0, pc1, "C:\\Tool\\bin", tool);
    writer.AddFile(0, pc2, "C:\\Tool", tool);
    const auto looseID = writer.AddFile(0, pc2, "C:\\Tmp", loose);
    writer.AddFile(1, ce, "\\Windows", loose);
    writer.Commit();

    SYAppFileSet unid(db);
    unid.FilterForUnidFiles();
    unid.Open();
    ASSERT_FALSE(unid.IsEOF());
    EXPECT_EQ(unid.FileID(), looseID);
    EXPECT_EQ(unid.AppName(), "");
    unid.MoveNext();
    EXPECT_TRUE(unid.IsEOF());

    SYAppFileSet placed(db);
    placed.FilterForFileName("tool.exe");
    placed.JoinLocations();
    placed.SortByID();
    placed.Open();
    std::vector<std::string> rows;
    for (; !placed.IsEOF(); placed.MoveNext()) {
        EXPECT_EQ(placed.AppName(), "Tool");
        EXPECT_EQ(placed.AppCompany(), "Acme Inc.");
        EXPECT_NE(placed.InstallationID(), 0U);
        rows.push_back(std::to_string(placed.MachineID()) + placed.FileLocation());
    }
    EXPECT_EQ(rows, (std::vector<std::string>{std::to_string(pc1) + "C:\\Tool",
                                              std::to_string(pc1) + "C:\\Tool\\bin",
                                              std::to_string(pc2) + "C:\\Tool"}));

    SYAppFileSet ceFiles(db);
    ceFiles.InvDataType = 1;
    ceFiles.FilterForUnidFiles();
    ceFiles.FilterForMachineID(ce);
    ceFiles.Open();
    ASSERT_FALSE(ceFiles.IsEOF());
    EXPECT_EQ(ceFiles.FileLocation(), "\\Windows");
    EXPECT_EQ(ceFiles.InstallationID(), 0U);
}

// Sets of one query share the statements the database keeps between runs; none may read
// another's rows, and none may outlive the connection it was prepared on.
TEST(SYRecordset, SetsOfOneQueryReadApartAndSurviveAClosedDatabase) {
    FileInventory inv({{"a.dll", 1, 60}, {"b.dll", 2, 60}, {"c.dll", 3, 60}});
    const auto open = [&inv](SYAppFileSet& set) {
        set.FilterForUnidFiles();
        set.SortByID();
        set.Open();
    };
    SYAppFileSet outer(inv.db);
    open(outer);
    std::vector<std::string> pairs;
    for (; !outer.IsEOF(); outer.MoveNext()) {
        SYAppFileSet inner(inv.db); // the same text, while outer stands on its row
        open(inner);
        inner.MoveNext();
        pairs.push_back(outer.FileName() + inner.FileName());
    }
    EXPECT_EQ(pairs, (std::vector<std::string>{"a.dllb.dll", "b.dllb.dll", "c.dllb.dll"}));
    outer.Close();
    open(outer);
    EXPECT_EQ(outer.FileName(), "a.dll");

    SYAppFileSet stranded(inv.db);
    open(stranded);
    inv.db.Close();
    stranded.Close(); // its statement goes with the old connection
    inv.db.OpenMemory();
    open(outer);
    EXPECT_TRUE(outer.IsEOF());
}

TEST(SYRecordset, CountTextsRunVerbatim) {
    SYDatabase db;
    db.OpenMemory();
    db.Exec("INSERT INTO [Applications] (AppName, AppNameInternal, AppVersion, AppCompany, "
            "AppCompanyInternal, AppInstalled) VALUES ('A', 'a', '1', 'C', 'c', 1), "
            "('B', 'b', '1', 'C', 'c', 0); INSERT INTO [RIM Applications] (AppName, AppVersion) "
            "VALUES ('R', '1')");
    const std::pair<const char*, const char*> texts[] = {
        {"SELECT Count([Applications].AppID) AS AppCount FROM Applications WHERE "
         "[Applications].AppInstalled=1",
         "1"},
        {"SELECT Count([Palm Applications].AppID) AS AppCount FROM [Palm Applications]", "0"},
        {"SELECT Count([PPC Applications].AppID) AS AppCount FROM [PPC Applications] WHERE "
         "[PPC Applications].AppInstalled=1",
         "0"},
        {"SELECT Count([RIM Applications].AppID) AS AppCount FROM [RIM Applications]", "1"},
    };
    SYRecordset set(db);
    for (const auto& [text, expected] : texts) {
        set.Open(SYRecordset::forwardOnly, text);
        std::string count = "unset";
        set.GetFieldValue("AppCount", count);
        EXPECT_EQ(count, expected) << text;
        EXPECT_THROW(set.GetFieldValue("NoSuchField", count), CDBException);
        set.Close();
    }
    EXPECT_THROW(set.Open(), CInvalidArgException);

    SYDatabase old;
    old.OpenMemory(false);
    SYRecordset oldSet(old);
    EXPECT_THROW(oldSet.Open(2, texts[3].first), CDBException);
}

unsigned long addRule(SYDatabase& db, unsigned char type, const std::string& name,
                      const std::uint64_t* size, std::int32_t time) {
    SYSWRuleSet rules(db);
    rules.Open();
    rules.AddNew();
    rules.SetRuleState(1);
    rules.SetRuleType(type);
    rules.SetFileName(name);
    if (size != nullptr)
        rules.SetFileSize(static_cast<unsigned long>(*size & 0xFFFFFFFFU),
                          static_cast<unsigned long>(*size >> 32));
    else
        rules.ClearFileSize();
    rules.SetFileTime(CTime(time));
    rules.SetAppName("App");
    rules.Update(1);
    rules.Close();
    return rules.RuleID();
}

TEST(SYSWRuleSet, WritesRowsAndReadsThemBackThroughEveryFilter) {
    SYDatabase db;
    db.OpenMemory();
    const std::uint64_t big = 0x200000001ULL;
    const auto nameOnly = addRule(db, 0, "Setup.EXE", nullptr, 0);
    const auto sized = addRule(db, 1, "setup.exe", &big, 0);
    const auto timed = addRule(db, 0, "setup.exe", nullptr, 90);
    const auto other = addRule(db, 0, "100%_*.exe", nullptr, 0);
    EXPECT_LT(nameOnly, sized);
    EXPECT_LT(sized, timed);

    const auto ids = [&db](void (*filter)(SYSWRuleSet&)) {
        SYSWRuleSet set(db);
        filter(set);
        set.Open();
        std::vector<unsigned long> found;
        for (; !set.IsEOF(); set.MoveNext())
            found.push_back(set.RuleID());
        return found;
    };
    using V = std::vector<unsigned long>;
    EXPECT_EQ(ids([](SYSWRuleSet& s) { s.FilterForFileName("SETUP.exe"); }),
              (V{nameOnly, sized, timed}));
    EXPECT_EQ(ids([](SYSWRuleSet& s) { s.FilterForFileName("100%_*.exe"); }), V{other});
    EXPECT_EQ(ids([](SYSWRuleSet& s) { s.FilterForFileName("100x_a.exe"); }), V{});
    EXPECT_EQ(ids([](SYSWRuleSet& s) { s.FilterForFileSize(1, 2); }), V{sized});
    EXPECT_EQ(ids([](SYSWRuleSet& s) {
                  s.FilterForFileName("setup.exe");
                  s.FilterForNullFileSize();
                  s.FilterForNullFileTime();
              }),
              V{nameOnly});
    EXPECT_EQ(ids([](SYSWRuleSet& s) { s.FilterForFileTime(CTime(119)); }), V{timed});
    EXPECT_EQ(ids([](SYSWRuleSet& s) { s.FilterForFileTime(CTime(120)); }), V{});

    SYSWRuleSet read(db);
    read.FilterForRuleID(sized);
    read.Open();
    ASSERT_FALSE(read.IsEOF());
    EXPECT_EQ(read.RuleType(), 1);
    EXPECT_EQ(read.RuleState(), 1);
    EXPECT_EQ(read.FileName(), "setup.exe");
    EXPECT_TRUE(read.HaveFileSize());
    EXPECT_EQ(read.FileSizeLo(), 1U);
    EXPECT_EQ(read.FileSizeHi(), 2U);
    EXPECT_FALSE(read.HaveFileTime());
    EXPECT_EQ(read.FileTime().GetTime(), 0);
    read.FilterForRuleID(nameOnly);
    read.Requery();
    EXPECT_FALSE(read.HaveFileSize());
    EXPECT_EQ(read.FileSizeLo(), 0xFFFFFFFFUL);
    EXPECT_EQ(read.FileSizeHi(), 0xFFFFFFFFUL);

    // Retire one row in place, drop a second edit.
    read.Edit();
    read.SetRuleState(3);
    read.Update(1);
    read.FilterForRuleID(timed);
    read.Requery();
    read.Edit();
    read.SetRuleState(3);
    read.Update(0);
    read.Close();
    EXPECT_EQ(ids([](SYSWRuleSet& s) {
                  s.FilterForActiveRules();
                  s.FilterForFileName("setup.exe");
              }),
              (V{sized, timed}));
}

TEST(SYSWRuleSet, ReadOnlySetsAndOtherInventoriesRefuseWrites) {
    SYDatabase db;
    db.OpenMemory();
    SYSWRuleSet readOnly(db);
    readOnly.Open(SYRecordset::forwardOnly, nullptr, SYRecordset::readOnly);
    EXPECT_THROW(readOnly.AddNew(), CDBException);
    SYSWRuleSet palm(db);
    palm.InvDataType = 2;
    EXPECT_THROW(palm.Open(), CInvalidArgException);
    EXPECT_THROW(palm.AddNew(), CInvalidArgException);
    EXPECT_THROW(palm.Update(1), CDBException);
    SYSWRuleSet ce(db);
    ce.InvDataType = 1;
    ce.AddNew();
    ce.SetRuleState(1);
    ce.SetRuleType(0);
    ce.SetFileName("pocket.exe");
    ce.Update(1);
    SYSWRuleSet windows(db);
    windows.Open();
    EXPECT_TRUE(windows.IsEOF());
    ce.FilterForRuleID(ce.RuleID());
    ce.Open();
    EXPECT_FALSE(ce.IsEOF());
}

} // namespace
