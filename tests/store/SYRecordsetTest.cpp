#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "outside/framework/CException.h"
#include "outside/framework/SYString.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYInventoryWriter.h"
#include "outside/store/SYSWRuleSet.h"
#include "support/StoreQueries.h"

namespace {

using Names = std::vector<std::string>;

struct ScannedFile {
    std::string name;
    std::uint64_t size;
    std::int32_t time;
};

// One PC holding the given files, none of them identified.
struct FileInventory {
    explicit FileInventory(const std::vector<ScannedFile>& files) {
        db.OpenMemory();
        SYInventoryWriter writer(db);
        const auto machine = writer.AddMachine("pc-1", "ann", CTime(0));
        for (const auto& f : files)
            ids.push_back(
                writer.AddFile(0, machine, "C:\\Data", {f.name, f.size, f.time, "", "", ""}));
        writer.Commit();
    }

    Names Find(const std::function<void(SYAppFileSet&)>& filter) {
        SYAppFileSet set(db);
        filter(set);
        set.SortByID();
        return FileNames(set);
    }

    SYDatabase db;
    std::vector<unsigned long> ids;
};

TEST(SYAppFileSet, NamesAreBoundLiterallyAndFoldOnlyAsciiCase) {
    const Names names = {"o'brien.dll",
                         "x\"y.ini",
                         "100%.txt",
                         "100X.txt",
                         "a_b.dll",
                         "axb.dll",
                         "*.*",
                         "a.b",
                         "r\xC3\xA9sum\xC3\xA9.doc",
                         "Robert'); DROP TABLE Files;--"};
    std::vector<ScannedFile> files;
    std::vector<std::pair<std::string, Names>> asked;
    for (const auto& name : names) {
        files.push_back({name, 10, 1000});
        std::string upper = name;
        for (char& c : upper)
            c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
        for (const auto& variant : {name, SYToLower(name), upper})
            asked.emplace_back(variant, Names{name});
    }
    asked.emplace_back("R\xC3\x89SUM\xC3\x89.DOC", Names{});
    FileInventory inv(files);
    for (const auto& [variant, expected] : asked)
        EXPECT_EQ(inv.Find([&](SYAppFileSet& s) { s.FilterForFileName(variant); }), expected)
            << variant;
}

TEST(SYAppFileSet, SizesBeyondFourGigabytesAndTimesAtOrBeforeTheEpoch) {
    const std::vector<ScannedFile> files = {{"small.bin", 5, 600},
                                            {"big.bin", 0x100000005ULL, 600},
                                            {"huge.bin", 0xFFFFFFFFFFFFFFFEULL, 600},
                                            {"untimed.bin", 7, 0},
                                            {"old.bin", 7, -31536000}};
    FileInventory inv(files);
    for (std::size_t i = 0; i < files.size(); ++i) {
        SCOPED_TRACE(files[i].name);
        SYAppFileSet set(inv.db);
        set.FilterForFileID(inv.ids[i]);
        set.Open();
        ASSERT_FALSE(set.IsEOF());
        EXPECT_EQ(set.FileSize(), files[i].size);
        EXPECT_EQ((std::uint64_t{set.FileSizeHi()} << 32) | set.FileSizeLo(), files[i].size);
        EXPECT_EQ(set.FileTime().GetTime(), files[i].time);
    }
    const auto atTime = [](std::int32_t time) {
        return [time](SYAppFileSet& s) { s.FilterForFileTime(CTime(time)); };
    };
    EXPECT_EQ(inv.Find([](SYAppFileSet& s) { s.FilterForFileSize(5, 1); }), Names{"big.bin"});
    EXPECT_EQ(inv.Find(atTime(0)), Names{"untimed.bin"});
    EXPECT_EQ(inv.Find(atTime(-31536000 + 59)), Names{"old.bin"});
    EXPECT_EQ(inv.Find(atTime(659)), (Names{"small.bin", "big.bin", "huge.bin"}));
    EXPECT_EQ(inv.Find(atTime(660)), Names{});
    // The minute of time 30 holds time 0, which is no time and does not match.
    EXPECT_EQ(inv.Find(atTime(30)), Names{});
}

TEST(SYAppFileSet, LifeOfASetWithRequeryOnNewFilterValues) {
    FileInventory inv({{"a.dll", 1, 60}, {"b.dll", 2, 60}, {"b.dll", 3, 60}});
    SYAppFileSet set(inv.db);
    EXPECT_TRUE(set.IsEOF());
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
    set.FilterForFileSize(3, 0);
    set.Requery();
    ASSERT_FALSE(set.IsEOF()) << "a filter more makes another query";
    EXPECT_EQ(set.FileSize(), 3U);
    set.Close();
    EXPECT_FALSE(set.IsOpen());
    EXPECT_THROW(set.Requery(), CDBException);
}

// Sets of one query share the statements the database keeps between runs; none may read
// another's rows, and none may outlive the connection it was prepared on.
TEST(SYRecordset, SetsOfOneQueryReadApartAndSurviveAClosedDatabase) {
    FileInventory inv({{"a.dll", 1, 60}, {"b.dll", 2, 60}, {"c.dll", 3, 60}});
    const auto open = [](SYAppFileSet& set) {
        set.FilterForUnidFiles();
        set.SortByID();
        set.Open();
    };
    SYAppFileSet outer(inv.db);
    open(outer);
    Names pairs;
    for (; !outer.IsEOF(); outer.MoveNext()) {
        SYAppFileSet inner(inv.db); // the same text, while outer stands on its row
        open(inner);
        inner.MoveNext();
        pairs.push_back(outer.FileName() + inner.FileName());
    }
    EXPECT_EQ(pairs, (Names{"a.dllb.dll", "b.dllb.dll", "c.dllb.dll"}));
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

TEST(SYRecordset, TextsRunVerbatimAndFieldsReadByName) {
    SYDatabase db;
    db.OpenMemory();
    db.Exec("INSERT INTO Machines (MachineName) VALUES ('a'), ('b'), ('c')");
    SYRecordset set(db);
    set.Open(SYRecordset::forwardOnly,
             "SELECT Count(MachineID) AS Clients FROM Machines WHERE MachineName <> 'b'");
    std::string count;
    set.GetFieldValue("Clients", count);
    EXPECT_EQ(count, "2");
    EXPECT_THROW(set.GetFieldValue("NoSuchField", count), CDBException);
    set.Close();
    EXPECT_THROW(set.Open(), CInvalidArgException);
    SYDatabase old;
    old.OpenMemory(false);
    SYRecordset oldSet(old);
    EXPECT_THROW(oldSet.Open(2, "SELECT Count(AppID) AS AppCount FROM [RIM Applications]"),
                 CDBException);
}

unsigned long addRule(SYDatabase& db, unsigned char type, const std::string& name,
                      std::optional<std::uint64_t> size, std::int32_t time) {
    SYSWRuleSet rules(db);
    rules.Open();
    rules.AddNew();
    rules.SetRuleState(1);
    rules.SetRuleType(type);
    rules.SetFileName(name);
    if (size)
        rules.SetFileSize(static_cast<unsigned long>(*size & 0xFFFFFFFFU),
                          static_cast<unsigned long>(*size >> 32));
    rules.SetFileTime(CTime(time));
    rules.Update(1);
    rules.Close();
    return rules.RuleID();
}

TEST(SYSWRuleSet, RowsKeepTheirIdReadBackWithOrWithoutSizeAndTimeAndWritesAreGuarded) {
    SYDatabase db;
    db.OpenMemory();
    const auto sized = addRule(db, 1, "setup.exe", 0x200000001ULL, 90);
    const auto plain = addRule(db, 0, "Setup.EXE", {}, 0);
    EXPECT_LT(sized, plain);
    SYSWRuleSet read(db);
    read.FilterForFileName("SETUP.exe");
    read.FilterForNullFileSize();
    read.FilterForNullFileTime();
    read.Open();
    ASSERT_FALSE(read.IsEOF());
    EXPECT_EQ(read.RuleID(), plain);
    EXPECT_FALSE(read.HaveFileSize());
    EXPECT_EQ(read.FileSizeLo(), 0xFFFFFFFFUL);
    EXPECT_EQ(read.FileSizeHi(), 0xFFFFFFFFUL);
    EXPECT_FALSE(read.HaveFileTime());
    EXPECT_EQ(read.FileTime().GetTime(), 0);
    read.Edit(); // retired in place
    read.SetRuleState(3);
    read.Update(1);

    SYSWRuleSet other(db);
    other.FilterForFileSize(1, 2);
    other.FilterForFileTime(CTime(119));
    other.Open();
    ASSERT_FALSE(other.IsEOF());
    EXPECT_EQ(other.RuleID(), sized);
    EXPECT_EQ(other.FileSize(), 0x200000001ULL);
    other.Edit(); // dropped
    other.SetRuleState(3);
    other.Update(0);
    SYSWRuleSet active(db);
    active.FilterForActiveRules();
    active.Open();
    ASSERT_FALSE(active.IsEOF());
    EXPECT_EQ(active.RuleID(), sized);
    active.MoveNext();
    EXPECT_TRUE(active.IsEOF());

    SYSWRuleSet readOnly(db);
    readOnly.Open(SYRecordset::forwardOnly, nullptr, SYRecordset::readOnly);
    EXPECT_THROW(readOnly.AddNew(), CDBException);
    SYSWRuleSet palm(db); // Palm devices have no files, so no rules
    palm.InvDataType = 2;
    EXPECT_THROW(palm.Open(), CInvalidArgException);
    EXPECT_THROW(palm.AddNew(), CInvalidArgException);
}

} // namespace
