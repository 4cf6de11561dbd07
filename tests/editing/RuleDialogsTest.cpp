#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "editing/SYEditExcludeDlg.h"
#include "editing/SYEditIdRuleDlg.h"
#include "outside/framework/SYListItemArray.h"
#include "outside/services/SYStringTable.h"
#include "outside/widgets/SYButton.h"
#include "outside/widgets/SYDateTimeEdit.h"
#include "resources/SYResourceIds.h"
#include "support/RuleDialogFixture.h"
#include "support/StoreDump.h"
#include "support/TempDir.h"

namespace {

std::string text(CDialog& dialog, unsigned id) {
    return dialog.FindControl(id)->GetWindowText();
}
int checked(CDialog& dialog, unsigned id) {
    return dynamic_cast<SYButton*>(dialog.FindControl(id))->GetCheck();
}
bool enabled(CDialog& dialog, unsigned id) {
    return dialog.FindControl(id)->IsWindowEnabled();
}
// "date time" of the two editors as the seconds they make together.
std::int32_t shownTime(CDialog& dialog) {
    return SYDateTimeEdit::Combine(
               *dynamic_cast<SYDateTimeEdit*>(dialog.FindControl(IDC_RULE_DATE)),
               *dynamic_cast<SYDateTimeEdit*>(dialog.FindControl(IDC_RULE_TIME)))
        .GetTime();
}

// The state of the file fields: radio, the two check boxes, the size text and which of
// size edit, date editor, OK are enabled.
std::string fieldState(CDialog& dialog) {
    return std::to_string(checked(dialog, IDC_RULE_SOME_VERSIONS)) +
           std::to_string(checked(dialog, IDC_RULE_HAS_SIZE)) +
           std::to_string(checked(dialog, IDC_RULE_HAS_TIME)) +
           " size=" + text(dialog, IDC_RULE_SIZE) +
           " enabled=" + std::to_string(enabled(dialog, IDC_RULE_SIZE)) +
           std::to_string(enabled(dialog, IDC_RULE_DATE)) + std::to_string(enabled(dialog, IDOK));
}

std::string ignoreQuestion() {
    return SYStringTable::Get(IDS_OVERWRITE_IGNORE_RULE);
}

class RuleDialogs : public RuleDialogTest {};

TEST_F(RuleDialogs, LoadFillsTheFieldsFromAFileARuleOrNothing) {
    const auto now = CTime(static_cast<std::int32_t>(std::time(nullptr))).GetLocalFields();
    const CTime today(now.year, now.month, now.day, 0, 0, 0);
    struct Case {
        const char* what;
        int templateId;
        std::function<int()> run;
        std::string fields;
        std::string ownText;
        std::int32_t time;
    };
    const std::vector<Case> cases = {
        {"a new rule from a file takes its size, time and reported application", IDD_EDIT_ID_RULE,
         [&] {
             SYEditIdRuleDlg dialog;
             dialog.InvDataType = 1;
             dialog.SetDatabase(&db);
             dialog.SetFileID(setupID);
             return dialog.DoModal();
         },
         "111 size=100 enabled=111", "Setup", FileTime},
        {"an empty rule without defaults shows all versions and today's midnight", IDD_EDIT_ID_RULE,
         [&] {
             SYEditIdRuleDlg dialog;
             dialog.InvDataType = 1;
             dialog.SetDatabase(&db);
             return dialog.DoModal();
         },
         "000 size= enabled=000", "", today.GetTime()},
        {"a stored rule wins over a file; defaults fill the fields it does not use",
         IDD_EDIT_EXCLUDE_RULE,
         [&] {
             SYEditExcludeDlg dialog;
             dialog.InvDataType = 1;
             dialog.SetDatabase(&db);
             dialog.SetFileID(toolID);
             dialog.SetRuleID(junkRuleID);
             dialog.SetDefSize(42);
             dialog.SetDefTime(120);
             return dialog.DoModal();
         },
         "000 size=42 enabled=001", "scratch", 120},
    };
    const std::string before = DumpStore(db);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        SYScriptedModalHost host;
        host.ExpectDialog(c.templateId)
            .Inspect([&](CDialog& d) {
                EXPECT_EQ(fieldState(d), c.fields);
                const unsigned own =
                    c.templateId == IDD_EDIT_ID_RULE ? IDC_RULE_APP_NAME : IDC_RULE_DESCRIPTION;
                EXPECT_EQ(text(d, own), c.ownText);
                EXPECT_EQ(shownTime(d), c.time);
            })
            .PressCancel();
        EXPECT_EQ(c.run(), IDCANCEL);
    }
    EXPECT_EQ(DumpStore(db), before);
}

// Runs one dialog in immediate mode, from a file or for a new rule, on the console's engine.
int runDialog(bool identify, SYDatabase& db, SYSWRule& engine, std::uint32_t fileID) {
    auto setUp = [&](auto& dialog) {
        dialog.InvDataType = 1;
        dialog.SetDatabase(&db);
        dialog.SetSWRule(&engine);
        dialog.SetFileID(fileID);
        return dialog.DoModal();
    };
    if (identify) {
        SYEditIdRuleDlg dialog;
        return setUp(dialog);
    }
    SYEditExcludeDlg dialog;
    return setUp(dialog);
}

TEST_F(RuleDialogs, ImmediateSaveRefusesBadInputAndAsksBeforeOverwriting) {
    const std::string junkRule = "1|junk.tmp|-|-||||scratch\n";
    struct Case {
        const char* what;
        bool identify;
        bool fromFile;
        int canEditRules;
        std::function<void(SYSWRule&)> prepare;
        std::function<void(Script&, SYScriptedModalHost&)> play;
        int result;
        std::string rulesAfter; // empty: the store is as it was
    };
    const auto setupIdRule = [](SYSWRule& rules) {
        SYIdRuleItem rule;
        rule.SetFileName("SETUP.exe");
        rule.SetAppName("Setup Wizard");
        rule.SetAppVersion("3");
        rule.SetAppCompany("Acme");
        rules.AddIdRule(rule, 0);
    };
    const std::vector<Case> cases = {
        {"a rule for all versions of a file, its application trimmed", true, true, 1, nullptr,
         [](Script& s, SYScriptedModalHost&) {
             s.Check(IDC_RULE_HAS_SIZE, 0).Check(IDC_RULE_HAS_TIME, 0);
             s.Type(IDC_RULE_APP_NAME, "  Setup Wizard ").PressOK();
         },
         IDOK, junkRule + "0|setup.exe|-|-|Setup Wizard|1.0|Setup Makers|\n"},
        {"a size beyond 4 GB and a name with blanks around it", true, false, 1, nullptr,
         [](Script& s, SYScriptedModalHost&) {
             s.Type(IDC_RULE_FILE_NAME, " big.iso ").Check(IDC_RULE_SOME_VERSIONS);
             s.Check(IDC_RULE_HAS_SIZE).Type(IDC_RULE_SIZE, "5000000000");
             s.Type(IDC_RULE_APP_NAME, "Disk").PressOK();
         },
         IDOK, junkRule + "0|big.iso|5000000000|-|Disk|||\n"},
        {"a wildcard name is refused and the dialog stays open", false, false, 1, nullptr,
         [](Script& s, SYScriptedModalHost& host) {
             s.Type(IDC_RULE_FILE_NAME, "*.tmp").PressOK().PressCancel();
             host.ExpectMessageBox(IDOK, SYStringTable::Get(IDS_WILDCARD_REFUSED));
         },
         IDCANCEL, ""},
        {"blanks alone are no name, and no application leaves OK disabled", true, false, 1, nullptr,
         [](Script& s, SYScriptedModalHost&) {
             s.Type(IDC_RULE_FILE_NAME, "   ").Type(IDC_RULE_APP_NAME, "App");
             s.Inspect([](CDialog& d) { EXPECT_FALSE(enabled(d, IDOK)); });
             s.Type(IDC_RULE_FILE_NAME, "a.exe").Type(IDC_RULE_APP_NAME, " ");
             s.Inspect([](CDialog& d) { EXPECT_FALSE(enabled(d, IDOK)); });
             s.Type(IDC_RULE_APP_NAME, "App").Inspect([](CDialog& d) {
                 EXPECT_TRUE(enabled(d, IDOK));
             });
             s.PressCancel();
         },
         IDCANCEL, ""},
        {"No to overwriting an ignore rule keeps the dialog open", true, false, 1, nullptr,
         [](Script& s, SYScriptedModalHost& host) {
             s.Type(IDC_RULE_FILE_NAME, "JUNK.tmp").Type(IDC_RULE_APP_NAME, "Junk");
             s.PressOK().PressCancel();
             host.ExpectMessageBox(IDNO, ignoreQuestion());
         },
         IDCANCEL, ""},
        {"Yes turns the ignore rule into an identification rule under its id", true, false, 1,
         nullptr,
         [](Script& s, SYScriptedModalHost& host) {
             s.Type(IDC_RULE_FILE_NAME, "junk.tmp").Type(IDC_RULE_APP_NAME, "Junk").PressOK();
             host.ExpectMessageBox(IDYES, ignoreQuestion());
         },
         IDOK, "0|junk.tmp|-|-|Junk|||scratch\n"},
        {"an ignore rule over an identification rule names that rule's application", false, true, 1,
         setupIdRule,
         [](Script& s, SYScriptedModalHost& host) {
             s.Check(IDC_RULE_ALL_VERSIONS).Type(IDC_RULE_DESCRIPTION, "old\nsetup ").PressOK();
             host.ExpectMessageBox(
                 IDYES, "already exists:\n\nName:  Setup Wizard\nVersion:  3\nCompany:  Acme\n\n");
         },
         IDOK, junkRule + "1|setup.exe|-|-|Setup Wizard|3|Acme|old\nsetup\n"},
        {"without the right to edit rules Identify File saves nothing", true, true, 0, nullptr,
         [](Script& s, SYScriptedModalHost&) { s.Type(IDC_RULE_APP_NAME, "X").PressOK(); },
         IDCANCEL, ""},
        {"without it Ignore File still saves", false, true, 0, nullptr,
         [](Script& s, SYScriptedModalHost&) { s.PressOK(); }, IDOK,
         junkRule + "1|setup.exe|100|1614862923||||\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        Rebuild();
        SYGetApp().SetCanEditRules(c.canEditRules);
        if (c.prepare)
            c.prepare(engine);
        const std::string before = DumpStore(db);
        const std::string rulesBefore = ActiveRules();
        const std::int64_t rows = Count("SELECT COUNT(*) FROM SWRules");
        {
            SYScriptedModalHost host;
            c.play(host.ExpectDialog(c.identify ? IDD_EDIT_ID_RULE : IDD_EDIT_EXCLUDE_RULE), host);
            EXPECT_EQ(runDialog(c.identify, db, engine, c.fromFile ? setupID : 0), c.result);
        }
        if (c.rulesAfter.empty()) {
            EXPECT_EQ(DumpStore(db), before);
            continue;
        }
        EXPECT_EQ(ActiveRules(), c.rulesAfter);
        // An overwrite rewrites the existing row in place; a new rule adds one.
        const auto lines = [](const std::string& t) { return std::count(t.begin(), t.end(), '|'); };
        EXPECT_EQ(Count("SELECT COUNT(*) FROM SWRules"),
                  rows + (lines(c.rulesAfter) - lines(rulesBefore)) / 7);
        EXPECT_TRUE(reports.Empty());
    }
}

TEST_F(RuleDialogs, DeferredModeLooksUpConflictsInTheCallersListAndWritesNothing) {
    SYListItemArray list;
    const auto add = [&](auto rule, const char* name, std::uint64_t size, std::int32_t time,
                         std::uint32_t id, unsigned char status) {
        rule.SetFileName(name);
        rule.SetFileSize(size);
        rule.SetModTime(time);
        rule.SetFileID(id);
        rule.SetItemStatus(status);
        list.Add(std::make_unique<decltype(rule)>(rule));
    };
    SYIdRuleItem stored;
    stored.SetAppName("Stored App");
    add(SYIgnoreRuleItem(), "setup.exe", 100, FileTime, 4, ItemStatusRemoved);
    add(SYIgnoreRuleItem(), "other.exe", 100, FileTime, 5, ItemStatusStored);
    add(stored, "Setup.EXE", 100, FileTime + 20, 7, ItemStatusStored);
    list.Add(nullptr);
    add(SYIgnoreRuleItem(), "fresh.exe", 1, FileTime, 0, ItemStatusNew);
    struct Case {
        const char* what;
        std::function<void(Script&, SYScriptedModalHost&)> play;
        int index;
        std::uint32_t id;
    };
    const std::vector<Case> cases = {
        {"case and seconds aside, the stored rule conflicts; Yes takes its id and slot",
         [](Script& s, SYScriptedModalHost& host) {
             s.PressOK();
             host.ExpectMessageBox(IDYES, "Name:  Stored App\n");
         },
         2, 7},
        {"a rule without a size meets no rule with one",
         [](Script& s, SYScriptedModalHost&) { s.Check(IDC_RULE_HAS_SIZE, 0).PressOK(); }, -1, 0},
        {"a fresh rule conflicts with a new entry of id 0",
         [](Script& s, SYScriptedModalHost& host) {
             s.Type(IDC_RULE_FILE_NAME, "fresh.exe").Type(IDC_RULE_SIZE, "1").PressOK();
             host.ExpectMessageBox(IDYES, ignoreQuestion());
         },
         4, 0},
    };
    const std::string before = DumpStore(db);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        SYScriptedModalHost host;
        c.play(host.ExpectDialog(IDD_EDIT_ID_RULE).Type(IDC_RULE_APP_NAME, "New"), host);
        SYEditIdRuleDlg dialog;
        dialog.InvDataType = 1;
        dialog.SetDatabase(&db);
        dialog.SetShouldSaveData(0);
        dialog.SetRuleList(&list);
        dialog.SetFileID(setupID);
        ASSERT_EQ(dialog.DoModal(), IDOK);
        EXPECT_EQ(dialog.ReplacedRuleIndex(), c.index);
        EXPECT_EQ(dialog.RuleItem().FileID(), c.id);
    }
    EXPECT_EQ(DumpStore(db), before);
}

TEST_F(RuleDialogs, BrowseFillsTheControlsFromAFileOnDisk) {
    TempDir dir;
    const std::string path = dir.Path() + "/picked.exe";
    std::ofstream(path) << "0123456789";
    const std::int32_t written = 1700000000;
    std::filesystem::last_write_time(
        path,
        std::chrono::file_clock::from_sys(std::chrono::sys_seconds(std::chrono::seconds(written))));
    struct Case {
        const char* what;
        std::string pick;
        std::string name;
        std::string size;
        std::int32_t time;
    };
    const std::vector<Case> cases = {
        {"a file that exists gives its name, size and time", path, "picked.exe", "10", written},
        {"a file that vanished gives its name only", dir.Path() + "/gone.exe", "gone.exe", "100",
         FileTime},
        {"cancel changes nothing", "", "setup.exe", "100", FileTime},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        SYScriptedModalHost host;
        host.ExpectDialog(IDD_EDIT_EXCLUDE_RULE)
            .Click(IDC_RULE_BROWSE_FILE)
            .Inspect([&](CDialog& d) {
                EXPECT_EQ(text(d, IDC_RULE_FILE_NAME), c.name);
                EXPECT_EQ(text(d, IDC_RULE_SIZE), c.size);
                EXPECT_EQ(shownTime(d), c.time);
            })
            .PressCancel();
        host.ExpectFileDialog(c.pick);
        SYEditExcludeDlg dialog;
        dialog.InvDataType = 1;
        dialog.SetDatabase(&db);
        dialog.SetFileID(setupID);
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    }
}

} // namespace
