#include "SYCliRules.h"

#include <fstream>
#include <map>
#include <sstream>
#include <vector>

#include "SYCliError.h"
#include "SYCliTable.h"
#include "outside/framework/SYListItemArray.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYPath.h"
#include "outside/services/SYStringTable.h"
#include "outside/store/SYAppFileSet.h"
#include "outside/store/SYAppSet.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYRuleChangeReport.h"
#include "resources/SYResourceIds.h"
#include "rules/SYIdRuleItem.h"
#include "rules/SYIgnoreRuleItem.h"
#include "rules/SYSWRule.h"

namespace {

using Rows = std::vector<std::vector<std::string>>;

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

[[noreturn]] void refuse(const std::string& why) {
    throw SYCliError(SYCliError::RuleRefused, why);
}

// The failure the library reported last, as one line.
std::string lastReport() {
    const auto& reports = SYGetApp().Reports();
    return reports.empty() ? std::string("the rule write failed") : reports.back().message;
}

// RFC 4180: quoted fields may hold commas, quotes (doubled) and line breaks.
Rows readCsv(const std::string& text, const std::string& path) {
    Rows rows(1);
    std::string field;
    bool quoted = false;
    bool wasQuoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quoted) {
            if (c == '"' && i + 1 < text.size() && text[i + 1] == '"') {
                field += '"';
                ++i;
            } else if (c == '"') {
                quoted = false;
            } else {
                field += c;
            }
        } else if (c == '"' && field.empty() && !wasQuoted) {
            quoted = wasQuoted = true;
        } else if (c == ',') {
            rows.back().push_back(std::move(field));
            field.clear();
            wasQuoted = false;
        } else if (c == '\n' || c == '\r') {
            if (c == '\r' && i + 1 < text.size() && text[i + 1] == '\n')
                ++i;
            rows.back().push_back(std::move(field));
            field.clear();
            wasQuoted = false;
            rows.emplace_back();
        } else {
            field += c;
        }
    }
    if (quoted)
        throw SYCliError(SYCliError::BadUsage, path + ": a quoted field is not closed");
    if (!field.empty() || !rows.back().empty())
        rows.back().push_back(std::move(field));
    if (rows.back().empty())
        rows.pop_back();
    return rows;
}

// One rule of the import, filled from its row; fields that are absent stay empty.
std::unique_ptr<SYSWRuleItem> ruleOf(const std::map<std::string, std::string>& row,
                                     const std::string& where) {
    auto field = [&](const char* key) {
        const auto it = row.find(key);
        return it == row.end() ? std::string() : it->second;
    };
    std::unique_ptr<SYSWRuleItem> rule;
    const std::string type = field("type");
    if (type == "identify") {
        auto identify = std::make_unique<SYIdRuleItem>();
        identify->SetAppName(field("app"));
        identify->SetAppVersion(field("version"));
        identify->SetAppCompany(field("company"));
        rule = std::move(identify);
    } else if (type == "ignore") {
        auto ignore = std::make_unique<SYIgnoreRuleItem>();
        ignore->SetComment(field("comment"));
        rule = std::move(ignore);
    } else {
        throw SYCliError(SYCliError::BadUsage, where + ": unknown rule type \"" + type + "\"");
    }
    rule->SetItemType(ItemTypeRule);
    rule->SetFileName(field("file_name"));
    if (!field("size").empty()) {
        try {
            rule->SetFileSize(static_cast<std::uint64_t>(std::stoull(field("size"))));
        } catch (const std::exception&) {
            throw SYCliError(SYCliError::BadUsage, where + ": bad size \"" + field("size") + "\"");
        }
    }
    if (!field("time").empty()) {
        CTime time;
        if (!SYCliTable::ParseIsoTime(field("time"), time))
            throw SYCliError(SYCliError::BadUsage, where + ": bad time \"" + field("time") + "\"");
        rule->SetModTime(time);
    }
    return rule;
}

} // namespace

int SYCliRules::Save(SYSWRule& engine, SYSWRuleItem& rule) {
    rule.SetFileName(trimmed(rule.FileName()));
    if (rule.FileName().empty())
        refuse("a rule needs a file name");
    if (SYPath::IsWildcard(rule.FileName()))
        refuse(SYStringTable::Get(IDS_WILDCARD_REFUSED));
    auto* identify = dynamic_cast<SYIdRuleItem*>(&rule);
    if (identify != nullptr) {
        identify->SetAppName(trimmed(identify->AppName()));
        identify->SetAppVersion(trimmed(identify->AppVersion()));
        identify->SetAppCompany(trimmed(identify->AppCompany()));
        if (identify->AppName().empty())
            refuse("an identification rule needs an application name");
    }
    unsigned char existingType = 0;
    const std::uint32_t existing = engine.FindMatchingRule(rule, existingType);
    if (existing != 0) {
        if (!m_settings.replace)
            refuse("rule " + std::to_string(existing) + " has the same file information as " +
                   rule.FileName() + "; --replace overwrites it");
        // As a Yes to the dialogs' question: the new rule takes the existing rule's place.
        if (rule.FileID() == 0)
            rule.SetFileID(existing);
    }
    if (engine.RemoveMatchingRules(rule) == 0)
        return 0;
    if (identify != nullptr)
        return rule.FileID() != 0 ? engine.ModifyIdRule(*identify) : engine.AddIdRule(*identify, 1);
    auto& ignore = static_cast<SYIgnoreRuleItem&>(rule);
    return rule.FileID() != 0 ? engine.ModifyExcludeRule(ignore) : engine.AddExcludeRule(ignore, 1);
}

SYCliDocument SYCliRules::Apply(SYRuleChangeReport& report,
                                const std::function<bool(SYSWRule&)>& write,
                                const std::function<std::uint32_t()>& newRuleID) {
    SYSWRule engine;
    engine.Database = &m_database;
    engine.InvDataType = m_settings.platform;
    engine.SetInstallPath(m_settings.installPath);
    report.SetInstallPath(m_settings.installPath);
    const bool done = report.Run(m_database, m_settings.platform, !m_settings.dryRun, [&] {
        if (!write(engine))
            return false;
        engine.UpdateSamData();
        return true;
    });
    if (!done)
        throw SYCliError(SYCliError::StoreFailed, m_database.Path() + ": " + lastReport());

    const std::uint32_t ruleID = m_settings.dryRun || !newRuleID ? 0 : newRuleID();
    std::string lead = std::to_string(report.Files()) + " files on " +
                       std::to_string(report.Clients()) + " clients " +
                       (m_settings.dryRun ? "would change verdict" : "changed verdict");
    if (ruleID != 0)
        lead += " (rule " + std::to_string(ruleID) + ")";
    SYCliDocument document("Rule change");
    document.SetLead(lead);
    if (ruleID != 0)
        document.AddField("Rule", "id", SYCliTable::Id(ruleID));
    document.AddField("Files", "files", SYCliTable::Number(report.Files()));
    document.AddField("Clients", "clients", SYCliTable::Number(report.Clients()));
    SYCliTable apps("applications", "Applications that gain or lose installations");
    apps.AddColumn("Id", "id");
    apps.AddColumn("Name", "name");
    apps.AddColumn("Version", "version");
    apps.AddColumn("Company", "company");
    apps.AddColumn("Gained", "gained", 1);
    apps.AddColumn("Lost", "lost", 1);
    for (const auto& app : report.Apps())
        apps.AddRow({SYCliTable::Id(app.AppID), SYCliTable::Text(app.AppName),
                     SYCliTable::Text(app.AppVersion), SYCliTable::Text(app.AppCompany),
                     SYCliTable::Number(app.Gained), SYCliTable::Number(app.Lost)});
    document.AddTable(std::move(apps));
    return document;
}

SYCliDocument SYCliRules::Identify(SYIdRuleItem& rule) {
    SYRuleChangeReport report;
    report.AddName(trimmed(rule.FileName()));
    return Apply(
        report, [&](SYSWRule& engine) { return Save(engine, rule) != 0; },
        [&] { return rule.FileID(); });
}

SYCliDocument SYCliRules::Ignore(SYIgnoreRuleItem& rule) {
    SYRuleChangeReport report;
    report.AddName(trimmed(rule.FileName()));
    return Apply(
        report, [&](SYSWRule& engine) { return Save(engine, rule) != 0; },
        [&] { return rule.FileID(); });
}

SYCliDocument SYCliRules::IgnoreApp(std::uint32_t appID, const std::string& comment) {
    SYAppSet app(&m_database);
    app.InvDataType = m_settings.platform;
    app.FilterForAppID(appID);
    app.Open();
    const bool known = !app.IsEOF();
    app.Close();
    if (!known)
        throw SYCliError(SYCliError::StoreFailed,
                         m_database.Path() + ": no application " + std::to_string(appID));

    // The application's files once each, however many folders hold them, in list order.
    SYListItemArray files;
    SYAppFileSet set(&m_database);
    set.InvDataType = m_settings.platform;
    set.JoinLocations();
    set.FilterForAppID(appID);
    set.SortByID();
    set.Open();
    unsigned long previous = 0;
    for (; !set.IsEOF(); set.MoveNext()) {
        if (set.FileID() == previous)
            continue;
        previous = set.FileID();
        auto* file = files.Add(std::make_unique<SYAppFileItem>());
        file->SetFileID(static_cast<std::uint32_t>(set.FileID()));
        file->SetFileName(set.FileName());
        file->SetFileSize(set.FileSize());
        file->SetModTime(set.FileTime());
    }
    set.Close();
    files.SortArray(0, 1);

    SYRuleChangeReport report;
    for (int i = 0; i < files.GetSize(); ++i)
        report.AddName(static_cast<const SYAppFileItem*>(files[i])->FileName());
    return Apply(report,
                 [&](SYSWRule& engine) {
                     SYIgnoreRuleItem rule;
                     for (int i = 0; i < files.GetSize(); ++i) {
                         const auto* file = static_cast<const SYAppFileItem*>(files[i]);
                         rule.SetItemType(ItemTypeRule);
                         rule.SetFileName(file->FileName());
                         rule.SetFileSize(file->FileSize());
                         rule.SetModTime(file->ModTime());
                         rule.SetComment(comment);
                         rule.SetFileID(0);
                         if (engine.AddExcludeRule(rule, 1) == 0 ||
                             engine.RemoveMatchingRules(rule) == 0)
                             return false;
                     }
                     return true;
                 },
                 {});
}

SYCliDocument SYCliRules::Remove(std::uint32_t ruleID) {
    SYSWRule lookup;
    lookup.Database = &m_database;
    lookup.InvDataType = m_settings.platform;
    SYIdRuleItem identify;
    SYIgnoreRuleItem ignore;
    std::string name;
    if (lookup.LookupIdRule(ruleID, identify) != 0)
        name = identify.FileName();
    else if (lookup.LookupExcludeRule(ruleID, ignore) != 0)
        name = ignore.FileName();
    else
        throw SYCliError(SYCliError::StoreFailed,
                         m_database.Path() + ": no active rule " + std::to_string(ruleID));
    SYRuleChangeReport report;
    report.AddName(name);
    return Apply(report, [&](SYSWRule& engine) { return engine.RemoveRule(ruleID, 1) != 0; }, {});
}

SYCliDocument SYCliRules::Import(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in)
        throw SYCliError(SYCliError::StoreFailed, path + ": cannot be read");
    std::stringstream text;
    text << in.rdbuf();
    const Rows rows = readCsv(text.str(), path);
    if (rows.empty())
        throw SYCliError(SYCliError::BadUsage, path + ": no header line");
    const std::vector<std::string>& header = rows.front();
    std::vector<std::unique_ptr<SYSWRuleItem>> rules;
    SYRuleChangeReport report;
    for (std::size_t r = 1; r < rows.size(); ++r) {
        const std::string where = path + " line " + std::to_string(r + 1);
        if (rows[r].size() != header.size())
            throw SYCliError(SYCliError::BadUsage, where + ": " + std::to_string(rows[r].size()) +
                                                       " fields, the header has " +
                                                       std::to_string(header.size()));
        std::map<std::string, std::string> row;
        for (std::size_t c = 0; c < header.size(); ++c)
            row[header[c]] = rows[r][c];
        rules.push_back(ruleOf(row, where));
        report.AddName(trimmed(rules.back()->FileName()));
    }
    return Apply(report,
                 [&](SYSWRule& engine) {
                     for (auto& rule : rules) {
                         if (Save(engine, *rule) == 0)
                             return false;
                     }
                     return true;
                 },
                 {});
}
