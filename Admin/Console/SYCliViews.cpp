#include "SYCliViews.h"

#include <array>

#include "SYCliError.h"
#include "SYCliPlatform.h"
#include "SYCliTreeWnd.h"
#include "navigation/SYAppItem.h"
#include "navigation/SYInvListCtrl.h"
#include "outside/framework/SYString.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYStringTable.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventorySummary.h"
#include "outside/store/SYSWRuleSet.h"
#include "outside/store/SYSamData.h"
#include "outside/widgets/SYAdminImages.h"
#include "outside/widgets/SYWnd.h"
#include "resources/SYResourceIds.h"
#include "rules/SYAppFile.h"
#include "rules/SYAppFileItem.h"
#include "rules/SYCompanyItem.h"
#include "rules/SYSWRuleItem.h"

namespace {

using Cell = SYCliTable::Cell;

std::string snakeCase(const std::string& title) {
    std::string key = SYToLower(title);
    for (char& c : key) {
        if (c == ' ')
            c = '_';
    }
    return key;
}

// The windows a view needs live under one host for the life of a command.
struct Host {
    Host() { window.Create(SYControlKind::Static, 1, "trellisview", {0, 0, 800, 600}, nullptr); }
    ~Host() { window.DestroyWindow(); }
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
    SYWnd window;
};

constexpr unsigned kTreeID = 200;
constexpr unsigned kListID = 300;
constexpr unsigned kListBitmap = 4052;
constexpr unsigned kListMask = 0x808000;

// A list control on the database, in a mode and filled.
class ListView {
public:
    explicit ListView(SYDatabase& database) {
        m_list.Initialize(kListID, kListBitmap, kListMask, SYAdminImages::ImageWidth,
                          &m_host.window);
        m_list.SetDatabase(&database);
    }
    SYInvListCtrl& List() { return m_list; }

private:
    Host m_host;
    SYInvListCtrl m_list;
};

std::string companyOf(SYInvListCtrl& list, unsigned char platform, const std::string& name,
                      const std::string& database) {
    list.SetCompanyListMode(platform);
    list.BuildCompanies();
    for (int i = 0; i < list.Data().GetSize(); ++i) {
        const auto* company = static_cast<const SYCompanyItem*>(list.Data()[i]);
        if (company != nullptr && (SYStrICmp(company->InternalName(), name) == 0 ||
                                   SYStrICmp(company->DisplayName(), name) == 0))
            return company->InternalName();
    }
    throw SYCliError(SYCliError::StoreFailed, database + ": no company \"" + name + "\"");
}

struct ListMode {
    const char* word;
    int title;   // the print title on Windows PCs and on handhelds
    int ceTitle; // on Windows CE
    void (*fill)(SYInvListCtrl& list, unsigned char platform, const std::string& company);
};

const std::array<ListMode, 6> kListModes{{
    {"companies", IDS_TITLE_COMPANY_LIST, IDS_TITLE_PPC_COMPANY_LIST,
     [](SYInvListCtrl& list, unsigned char platform, const std::string&) {
         list.SetCompanyListMode(platform);
         list.BuildCompanies();
     }},
    {"apps", IDS_TITLE_COMPANY_APPS, IDS_TITLE_PPC_COMPANY_APPS,
     [](SYInvListCtrl& list, unsigned char platform, const std::string& company) {
         list.SetAppListMode(platform);
         list.BuildAppList(company);
     }},
    {"palm", IDS_TITLE_PALM_APP_LIST, IDS_TITLE_PALM_APP_LIST,
     [](SYInvListCtrl& list, unsigned char, const std::string&) {
         list.SetPalmAppListMode();
         list.BuildPalmAppList();
     }},
    {"rim", IDS_TITLE_RIM_APP_LIST, IDS_TITLE_RIM_APP_LIST,
     [](SYInvListCtrl& list, unsigned char, const std::string&) {
         list.SetRIMAppListMode();
         list.BuildRIMAppList();
     }},
    {"unidentified", IDS_TITLE_UNID_FILES, IDS_TITLE_PPC_UNID_FILES,
     [](SYInvListCtrl& list, unsigned char platform, const std::string&) {
         list.SetUnidFilesMode(platform);
         list.BuildUnidFiles();
     }},
    {"ignored", IDS_TITLE_IGNORED_FILES, IDS_TITLE_PPC_IGNORED_FILES,
     [](SYInvListCtrl& list, unsigned char platform, const std::string&) {
         list.SetExcludedFilesMode(platform);
         list.BuildExcludes();
     }},
}};

const ListMode& listMode(const std::string& word) {
    for (const ListMode& mode : kListModes) {
        if (word == mode.word)
            return mode;
    }
    throw SYCliError(SYCliError::BadUsage, "list: unknown mode \"" + word + "\"");
}

void sortList(SYInvListCtrl& list, const std::string& sort) {
    if (sort.empty())
        return;
    const auto colon = sort.find(':');
    const std::string key = sort.substr(0, colon);
    const std::string order = colon == std::string::npos ? "" : sort.substr(colon + 1);
    if (order != "" && order != "asc" && order != "desc")
        throw SYCliError(SYCliError::BadUsage, "--sort: unknown order \"" + order + "\"");
    for (int column = 0; column < list.GetColumnCount(); ++column) {
        if (snakeCase(list.GetColumnTitle(column)) != key)
            continue;
        if (list.SortColumn() != column || list.SortAscending() == 0)
            list.SortOnHeader(column);
        if (order == "desc")
            list.SortOnHeader(column);
        return;
    }
    throw SYCliError(SYCliError::BadUsage, "--sort: no column \"" + key + "\" in this list");
}

// The id and the raw value of each column of a row, from the record behind it.
std::vector<Cell> rowOf(const SYInvListCtrl& list, int row) {
    const SYListItem* record = list.Data().GetAt(static_cast<int>(list.GetItemData(row)));
    std::vector<Cell> cells;
    if (const auto* file = dynamic_cast<const SYAppFileItem*>(record)) {
        cells = {SYCliTable::Id(file->FileID()), SYCliTable::Text(file->FileName()),
                 SYCliTable::Size(file->FileSize(), file->HaveFileSize()),
                 SYCliTable::Time(file->ModTime())};
    } else if (const auto* app = dynamic_cast<const SYAppItem*>(record)) {
        cells = {SYCliTable::Id(app->AppID()), SYCliTable::Text(app->AppName()),
                 SYCliTable::Text(app->AppVersion())};
    } else if (const auto* company = dynamic_cast<const SYCompanyItem*>(record)) {
        // A company's name is the list's text, "(No Company)" included.
        return {SYCliTable::Text(company->InternalName()),
                SYCliTable::Text(list.GetItemText(row, 0))};
    }
    // What a person reads is the list's own cell text.
    for (int column = 0; column < list.GetColumnCount(); ++column) {
        const auto index = static_cast<std::size_t>(column) + 1;
        if (index < cells.size())
            cells[index].shown = list.GetItemText(row, column);
    }
    return cells;
}

struct StateText {
    const char* key;
    const char* shown;
};

constexpr std::array<StateText, 5> kStates{{
    {"unidentified", "Unidentified"},
    {"system_identified", "Identified by a system rule"},
    {"user_identified", "Identified by a user rule"},
    {"system_ignored", "Ignored by a system rule"},
    {"user_ignored", "Ignored by a user rule"},
}};

constexpr std::array<const char*, 3> kSources{"user", "system", "version information"};

} // namespace

SYCliDocument SYCliViews::Summary() {
    SYInventorySummary summary;
    summary.Load(m_database);
    SYCliDocument document("Inventory " + m_database.Path());
    SYCliTable table("platforms", "Platforms");
    table.AddColumn("Platform", "platform");
    for (const char* title : {"Clients", "Files", "Applications", "Unidentified", "Ignored"})
        table.AddColumn(title, snakeCase(title), 1);
    for (unsigned char type = 0; type < SYCliPlatform::Words.size(); ++type) {
        const auto& c = summary.Of(type);
        table.AddRow({{SYCliPlatform::Names[type], SYCliPlatform::Words[type], false},
                      SYCliTable::Number(c.clients),
                      SYCliTable::Number(c.files),
                      SYCliTable::Number(c.applications),
                      SYCliTable::Number(c.unidentified),
                      SYCliTable::Number(c.ignored)});
    }
    document.AddTable(std::move(table));
    return document;
}

SYCliDocument SYCliViews::Tree(bool allPlatforms, unsigned char platform) {
    Host host;
    SYCliTreeWnd tree;
    tree.Initialize(kTreeID, &host.window);
    tree.SetDatabase(&m_database);
    tree.UpdateWithWindowsBranch();
    SYTreeCtrlEx& ctrl = tree.GetTreeCtrl();

    const std::array<std::array<HTREEITEM, 3>, 4> roots{{
        {tree.AppsItem(), tree.UnidFilesItem(), tree.ExcludesItem()},
        {tree.PPCAppsItem(), tree.PPCUnidFilesItem(), tree.PPCExcludesItem()},
        {tree.PalmAppsItem(), nullptr, nullptr},
        {tree.RIMAppsItem(), nullptr, nullptr},
    }};
    auto platformOf = [&](HTREEITEM root) {
        for (std::size_t type = 0; type < roots.size(); ++type) {
            for (HTREEITEM item : roots[type]) {
                if (item == root)
                    return static_cast<int>(type);
            }
        }
        return -1;
    };

    SYCliDocument document("Software Inventory");
    SYCliTable table("nodes", "Tree");
    table.AddColumn("Tree", "text");
    table.AddColumn("Kind", "kind");
    table.AddColumn("Id", "id");
    table.AddColumn("Platform", "platform");
    table.AddColumn("Depth", "depth", 1);
    auto add = [&](HTREEITEM node, int depth, const char* kind, Cell id, int type) {
        Cell text = SYCliTable::Text(ctrl.GetItemText(node));
        text.shown = std::string(static_cast<std::size_t>(depth) * 2, ' ') + text.shown;
        table.AddRow({text, SYCliTable::Text(kind), id,
                      SYCliTable::Text(SYCliPlatform::Words[static_cast<std::size_t>(type)]),
                      SYCliTable::Id(depth)});
    };
    // Roots in the tree's own order; each company is built as the console builds it before
    // it expands.
    for (HTREEITEM root = ctrl.GetRootItem(); root != nullptr;
         root = ctrl.GetNextSiblingItem(root)) {
        const int type = platformOf(root);
        if (type < 0 || (!allPlatforms && type != platform))
            continue;
        add(root, 0, "root", SYCliTable::Text({}), type);
        for (HTREEITEM node = ctrl.GetChildItem(root); node != nullptr;
             node = ctrl.GetNextSiblingItem(node)) {
            if (tree.IsItemCompany(node) || tree.IsItemPPCCompany(node)) {
                tree.CheckBuildItem(node);
                const auto* company = static_cast<const SYCompanyItem*>(
                    tree.Companies().GetAt(static_cast<int>(ctrl.GetItemData(node))));
                add(node, 1, "company",
                    SYCliTable::Text(company != nullptr ? company->InternalName() : ""), type);
                for (HTREEITEM app = ctrl.GetChildItem(node); app != nullptr;
                     app = ctrl.GetNextSiblingItem(app))
                    add(app, 2, "application", SYCliTable::Id(ctrl.GetItemData(app)), type);
                continue;
            }
            add(node, 1, "application",
                SYCliTable::Id(static_cast<std::int32_t>(ctrl.GetItemData(node))), type);
        }
    }
    document.AddTable(std::move(table));
    return document;
}

SYCliDocument SYCliViews::List(const std::string& mode, unsigned char platform,
                               const std::string& company, const std::string& sort) {
    ListView view(m_database);
    SYInvListCtrl& list = view.List();
    const ListMode& shown = listMode(mode);
    const std::string internal =
        mode == "apps" ? companyOf(list, platform, company, m_database.Path()) : std::string();
    shown.fill(list, platform, internal);
    sortList(list, sort);

    const std::string heading =
        SYStringTable::Get(platform == InvDataPPC ? shown.ceTitle : shown.title);
    SYCliDocument document(heading);
    SYCliTable table("rows", heading);
    table.AddColumn("Id", "id");
    for (int column = 0; column < list.GetColumnCount(); ++column) {
        const std::string title = list.GetColumnTitle(column);
        table.AddColumn(title, snakeCase(title), list.GetColFormat(column) == 1 ? 1 : 0);
    }
    for (int row = 0; row < list.GetItemCount(); ++row)
        table.AddRow(rowOf(list, row));
    document.AddTable(std::move(table));
    return document;
}

SYCliDocument SYCliViews::File(std::uint32_t fileID, unsigned char platform) {
    SYAppFile file;
    file.SetDatabase(&m_database);
    if (file.LoadData(fileID, platform) == 0)
        throw SYCliError(SYCliError::StoreFailed, m_database.Path() + ": no file " +
                                                      std::to_string(fileID) + " on " +
                                                      SYCliPlatform::Words[platform]);
    SYSamData sam(m_database);
    sam.InvDataType = platform;
    sam.EstablishSystemRulesDb(SYInstallation::Path().GetPath());
    _SYSAM_RULE_DATA rule;
    SYSamData::SYRULE_SOURCE source{};
    const bool governed = sam.FindEffectiveRule(fileID, rule, source) != 0;

    const bool byUser = file.State() == AppFileUserIdentified;
    const StateText& state = kStates.at(static_cast<std::size_t>(file.State()));
    SYCliDocument document("File " + file.FileName());
    document.AddField("Id", "id", SYCliTable::Id(file.FileID()));
    document.AddField("Name", "name", SYCliTable::Text(file.FileName()));
    document.AddField("Size", "size", SYCliTable::Size(file.FileSize()));
    document.AddField("Mod Time", "time", SYCliTable::Time(file.FileTime()));
    document.AddField("State", "state", {state.shown, state.key, false});
    document.AddField("Rule", "rule_id",
                      governed ? SYCliTable::Id(static_cast<std::int64_t>(rule.RuleID))
                               : Cell{"", "", true});
    document.AddField("Rule Source", "rule_source",
                      SYCliTable::Text(governed ? kSources.at(source) : ""));
    document.AddField("Application", "app",
                      SYCliTable::Text(byUser ? file.UserAppName() : file.AppName()));
    document.AddField("Version", "version",
                      SYCliTable::Text(byUser ? file.UserAppVersion() : file.AppVersion()));
    document.AddField("Company", "company",
                      SYCliTable::Text(byUser ? file.UserAppCompany() : file.AppCompany()));
    document.AddField("Comment", "comment", SYCliTable::Text(file.RuleComment()));
    return document;
}

SYCliDocument SYCliViews::Rules(unsigned char platform, const std::string& type, bool withID) {
    SYCliDocument document("Rules");
    SYCliTable table("rules", "Rules");
    if (withID)
        table.AddColumn("Id", "id");
    table.AddColumn("Type", "type");
    table.AddColumn("File", "file_name");
    table.AddColumn("Size", "size", 1);
    table.AddColumn("Mod Time", "time");
    table.AddColumn("Application", "app");
    table.AddColumn("Version", "version");
    table.AddColumn("Company", "company");
    table.AddColumn("Comment", "comment");
    SYSWRuleSet set(&m_database);
    set.InvDataType = platform;
    set.FilterForActiveRules();
    set.Open();
    for (; !set.IsEOF(); set.MoveNext()) {
        const char* kind = set.RuleType() == RuleTypeId ? "identify" : "ignore";
        if (!type.empty() && type != kind)
            continue;
        std::vector<Cell> row;
        if (withID)
            row.push_back(SYCliTable::Id(static_cast<std::int64_t>(set.RuleID())));
        row.push_back(SYCliTable::Text(kind));
        row.push_back(SYCliTable::Text(set.FileName()));
        row.push_back(SYCliTable::Size(set.FileSize(), set.HaveFileSize() != 0));
        row.push_back(SYCliTable::Time(set.FileTime()));
        for (const std::string& text :
             {set.AppName(), set.AppVersion(), set.AppCompany(), set.Comment()})
            row.push_back(SYCliTable::Text(text));
        table.AddRow(std::move(row));
    }
    set.Close();
    document.AddTable(std::move(table));
    return document;
}
