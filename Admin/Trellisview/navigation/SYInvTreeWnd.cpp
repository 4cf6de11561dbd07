#include "navigation/SYInvTreeWnd.h"

#include <array>
#include <memory>
#include <utility>

#include "navigation/SYAppItem.h"
#include "outside/framework/CException.h"
#include "outside/framework/SYStatus.h"
#include "outside/framework/SYString.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYProgress.h"
#include "outside/services/SYReport.h"
#include "outside/services/SYStringTable.h"
#include "outside/services/SYTextFormat.h"
#include "outside/store/SYInventoryModel.h"
#include "outside/store/SYInventorySearch.h"
#include "outside/store/SYSWInvObject.h"
#include "outside/widgets/SYAdminImages.h"
#include "resources/SYResourceIds.h"
#include "rules/SYCompanyItem.h"

SY_IMPLEMENT_DYNCREATE(SYInvTreeWnd, SYTreeHeaderWnd)

namespace {

using AppRow = SYInventoryModel::AppRow;
using CompanyRow = SYInventoryModel::CompanyRow;

constexpr const char* Placeholder = "<>";

// nameAndVersion is the string table's format, read once per branch.
std::string appNodeText(const SYAppItem& app, const std::string& nameAndVersion) {
    if (app.AppVersion().empty())
        return app.AppName();
    return SYFormatText(nameAndVersion, {app.AppName(), app.AppVersion()});
}

std::string rootLabel(int stringId, const std::string& count) {
    return SYFormatText(SYStringTable::Get(stringId), {count});
}

// A search of the store; a failure is reported and counts as no hit.
template <class Find> int reportedFind(Find find) {
    try {
        return find();
    } catch (const CException& e) {
        SYExReport(e, nullptr);
        return 0;
    }
}

} // namespace

int SYInvTreeWnd::Initialize(unsigned id, SYWnd* parent) {
    const int result = SYTreeHeaderWnd::Initialize(id, parent);
    if (result == 0)
        return 0;
    m_imageList.Create(SYAdminImages::InventoryBitmap, SYAdminImages::ImageWidth, 0,
                       SYAdminImages::MaskColour);
    Tree().SetImageList(&m_imageList, 0);
    return result;
}

// --- node kinds and selection -------------------------------------------------------

SYCompanyItem* SYInvTreeWnd::CompanyOf(HTREEITEM node) const {
    if (!IsItemCompany(node) && !IsItemPPCCompany(node))
        return nullptr;
    const auto index = static_cast<int>(Tree().GetItemData(node));
    return static_cast<SYCompanyItem*>(m_companies.GetAt(index));
}

int SYInvTreeWnd::GetSelectedCompany(std::string& name) const {
    const SYCompanyItem* company = CompanyOf(Tree().GetSelectedItem());
    if (company == nullptr)
        return 0;
    name = company->InternalName();
    return 1;
}

int SYInvTreeWnd::GetSelectedCompanyDisplayName(std::string& name) const {
    const SYCompanyItem* company = CompanyOf(Tree().GetSelectedItem());
    if (company == nullptr)
        return 0;
    name = company->DisplayName();
    return 1;
}

std::uint32_t SYInvTreeWnd::SelectedDataFor(int image, int otherImage) const {
    const HTREEITEM node = Tree().GetSelectedItem();
    if (!HasImage(node, image) && !HasImage(node, otherImage))
        return 0;
    return Tree().GetItemData(node);
}

int SYInvTreeWnd::SelectCompany(const std::string& name, HTREEITEM root) {
    if (root == nullptr)
        return 0;
    const int image =
        root == m_ppcAppsItem ? SYAdminImages::ImagePPCCompany : SYAdminImages::ImageCompany;
    const HTREEITEM node = Tree().FindItem(root, name, image);
    if (node == nullptr)
        return 0;
    Tree().SelectItem(node);
    Tree().EnsureVisible(node);
    CheckBuildItem(node);
    return 1;
}

int SYInvTreeWnd::SelectChild(HTREEITEM parent, std::uint32_t id, int image, int otherImage) {
    SYTreeCtrlEx& tree = Tree();
    if (parent == nullptr)
        parent = tree.GetSelectedItem();
    if (parent == nullptr)
        return 0;
    for (HTREEITEM child = tree.GetChildItem(parent); child != nullptr;
         child = tree.GetNextSiblingItem(child)) {
        if ((HasImage(child, image) || HasImage(child, otherImage)) &&
            tree.GetItemData(child) == id) {
            tree.SelectItem(child);
            tree.EnsureVisible(child);
            return 1;
        }
    }
    return 0;
}

// --- building and updating ----------------------------------------------------------

void SYInvTreeWnd::CheckBuildItem(HTREEITEM node) {
    if (node == nullptr || (Tree().GetItemState(node, TVIS_EXPANDEDONCE) & TVIS_EXPANDEDONCE))
        return;
    if (IsItemCompany(node) || IsItemPPCCompany(node))
        BuildApps(node, 0);
}

void SYInvTreeWnd::UpdateTree() {
    SYWaitCursor wait;
    UpdatePalmApps();
    UpdatePPCData();
    UpdateRIMApps();
    UpdateAppCounts();
    if (Tree().GetSelectedItem() == nullptr)
        Tree().SelectItem(Tree().GetRootItem());
}

bool SYInvTreeWnd::IsUnbuilt(HTREEITEM node) const {
    const SYTreeCtrlEx& tree = Tree();
    const HTREEITEM child = tree.GetChildItem(node);
    return child != nullptr && tree.GetNextSiblingItem(child) == nullptr &&
           tree.GetItemData(child) == 0 && HasImage(child, SYAdminImages::ImageApplication) &&
           tree.GetItemText(child) == Placeholder &&
           tree.GetItemState(node, TVIS_EXPANDEDONCE) == 0;
}

void SYInvTreeWnd::ResetCompanyNode(HTREEITEM node) {
    SYTreeCtrlEx& tree = Tree();
    // A refresh resets every collapsed company; one still unbuilt already has the one child
    // it would get, unless the selection stands on it and has to move up.
    if (IsUnbuilt(node) && tree.GetSelectedItem() != tree.GetChildItem(node))
        return;
    tree.DeleteChildren(node);
    tree.InsertItem(Placeholder, SYAdminImages::ImageApplication, SYAdminImages::ImageApplication,
                    node, TVI_LAST);
    tree.SetItemState(node, 0, TVIS_EXPANDEDONCE);
}

void SYInvTreeWnd::BuildAppData(SYListItemArray& apps, const std::string& company,
                                std::uint8_t platform) {
    const std::uint8_t appType =
        platform == InvDataPPC ? SYAppItem::AppTypePPC : SYAppItem::AppTypeWindows;
    apps.RemoveAll();
    // Straight into the items, with no array between: a company is read at each expansion.
    try {
        Model().ForEachCompanyApp(platform, company, [&](const AppRow& row) {
            apps.Add(std::make_unique<SYAppItem>(row, appType));
            return true;
        });
    } catch (const CException& e) {
        SYExReport(e, nullptr);
    }
    apps.SortArray(0, 1);
}

void SYInvTreeWnd::BuildApps(HTREEITEM node, int restoreSelection) {
    SYWaitCursor wait;
    const bool ppc = IsItemPPCCompany(node) != 0;
    if (!ppc && !IsItemCompany(node))
        return;
    SYTreeCtrlEx& tree = Tree();
    const int appImage = ppc ? SYAdminImages::ImagePPCApp : SYAdminImages::ImageApplication;

    // An application is known again by its text: a rebuilt row may carry a new id.
    const HTREEITEM selected = tree.GetSelectedItem();
    const bool haveText =
        selected != nullptr && tree.GetParentItem(selected) == node && HasImage(selected, appImage);
    const std::string selectedText = haveText ? tree.GetItemText(selected) : std::string();

    const SYCompanyItem* company = CompanyOf(node);
    const std::string internal = company != nullptr ? company->InternalName() : std::string();
    tree.DeleteChildren(node);
    if (company == nullptr)
        return;

    SYListItemArray apps;
    BuildAppData(apps, internal, ppc ? InvDataPPC : InvDataWindows);
    HTREEITEM reselect = nullptr;
    SYProgress progress(SYProgress::OpeningCompany, static_cast<std::size_t>(apps.GetSize()));
    const std::string nameAndVersion = SYStringTable::Get(IDS_NAME_AND_VERSION);
    for (int i = 0; i < apps.GetSize(); ++i) {
        progress.Step();
        const auto* app = static_cast<const SYAppItem*>(apps[i]);
        if (app == nullptr)
            continue;
        const std::string text = appNodeText(*app, nameAndVersion);
        const int image = app->AppType() == SYAppItem::AppTypePPC ? SYAdminImages::ImagePPCApp
                                                                  : SYAdminImages::ImageApplication;
        const HTREEITEM child = tree.InsertItem(text, image, image, node, TVI_LAST);
        if (child == nullptr)
            continue;
        tree.SetItemData(child, app->AppID());
        if (haveText && reselect == nullptr && text == selectedText)
            reselect = child;
    }
    if (!haveText || restoreSelection == 0)
        return;
    const HTREEITEM target = reselect != nullptr ? reselect : node;
    tree.SelectItem(target);
    tree.EnsureVisible(target);
}

HTREEITEM SYInvTreeWnd::InsertCompany(HTREEITEM root, HTREEITEM after, const CompanyRow& row,
                                      std::uint8_t platform) {
    const std::string& display = row.DisplayName();
    const std::string text = display.empty() ? SYStringTable::Get(IDS_NO_COMPANY) : display;
    const int image =
        platform == InvDataPPC ? SYAdminImages::ImagePPCCompany : SYAdminImages::ImageCompany;
    const HTREEITEM node = Tree().InsertItem(text, image, image, root, after);
    if (node == nullptr)
        return nullptr;
    auto* company = m_companies.Add(std::make_unique<SYCompanyItem>());
    company->SetDisplayName(display);
    company->SetInternalName(row.internalName);
    Tree().SetItemData(node, static_cast<std::uint32_t>(m_companies.GetSize() - 1));
    ResetCompanyNode(node);
    return node;
}

HTREEITEM SYInvTreeWnd::DropCompany(HTREEITEM node) {
    const HTREEITEM next = Tree().GetNextSiblingItem(node);
    // The slot stays, empty, so that the indexes other nodes hold keep their meaning.
    if (CompanyOf(node) != nullptr)
        m_companies.SetAt(static_cast<int>(Tree().GetItemData(node)), nullptr);
    Tree().DeleteItem(node);
    return next;
}

void SYInvTreeWnd::UpdateApps(HTREEITEM root, std::uint8_t platform) {
    std::vector<CompanyRow> companies;
    bool complete = true;
    try {
        Model().LoadCompanies(platform, companies);
    } catch (const CException& e) {
        SYExReport(e, nullptr);
        complete = false;
    }
    MergeCompanies(root, companies, complete, platform);
}

void SYInvTreeWnd::MergeCompanies(HTREEITEM root, const std::vector<CompanyRow>& companies,
                                  bool complete, std::uint8_t platform) {
    SYTreeCtrlEx& tree = Tree();
    const int companyImage =
        platform == InvDataPPC ? SYAdminImages::ImagePPCCompany : SYAdminImages::ImageCompany;
    // Both sides run in ascending order of the internal company name: one pass merges.
    HTREEITEM node = tree.GetChildItem(root);
    HTREEITEM after = TVI_FIRST;
    auto row = companies.begin();
    bool treeDone = false;
    for (;;) {
        const bool setDone = row == companies.end();
        treeDone = treeDone || !HasImage(node, companyImage);
        // A read that failed ends the merge where it got to: nothing behind is dropped.
        if (setDone && (treeDone || !complete))
            break;
        if (setDone) {
            node = DropCompany(node);
            continue;
        }
        SYCompanyItem* company = treeDone ? nullptr : CompanyOf(node);
        int order = 1;
        if (!treeDone)
            order = company != nullptr ? SYStrICmp(company->InternalName(), row->internalName) : -1;
        if (order < 0) {
            node = DropCompany(node);
            continue;
        }
        if (order > 0) {
            if (const HTREEITEM added = InsertCompany(root, after, *row, platform))
                after = added;
            if (treeDone)
                node = nullptr;
            ++row;
            continue;
        }
        const std::string& display = row->DisplayName();
        company->SetDisplayName(display);
        if (!display.empty())
            tree.SetItemText(node, display);
        if (tree.ItemExpanded(node))
            BuildApps(node, 1);
        else
            ResetCompanyNode(node);
        ++row;
        after = node;
        node = tree.GetNextSiblingItem(node);
    }
    if (complete && tree.GetChildItem(root) == nullptr)
        tree.Expand(root, TVE_COLLAPSE, 1, 1);
}

HTREEITEM SYInvTreeWnd::FindAppNode(std::uint32_t appID, bool cePlatform) {
    SYTreeCtrlEx& tree = Tree();
    const HTREEITEM root = cePlatform ? m_ppcAppsItem : m_appsItem;
    if (root == nullptr)
        return nullptr;
    const int companyImage =
        cePlatform ? SYAdminImages::ImagePPCCompany : SYAdminImages::ImageCompany;
    const int appImage = cePlatform ? SYAdminImages::ImagePPCApp : SYAdminImages::ImageApplication;
    HTREEITEM node = tree.GetChildItem(root);
    while (node != nullptr) {
        if (HasImage(node, companyImage)) {
            // A collapsed company is sent back unbuilt, so it reads its new state when next
            // built; its children need no search.
            if (!tree.ItemExpanded(node)) {
                ResetCompanyNode(node);
                node = tree.GetNextSiblingItem(node);
                continue;
            }
            const HTREEITEM child = tree.GetChildItem(node);
            node = child != nullptr ? child : tree.GetNextSiblingItem(node);
            continue;
        }
        if (HasImage(node, appImage) && tree.GetItemData(node) == appID)
            return node;
        node = tree.WalkNext(node);
        if (node != nullptr && tree.GetParentItem(node) == nullptr)
            return nullptr;
    }
    return nullptr;
}

void SYInvTreeWnd::DeleteSelectedNode(HTREEITEM node) {
    SYTreeCtrlEx& tree = Tree();
    HTREEITEM target = tree.GetNextSiblingItem(node);
    if (target == nullptr)
        target = tree.GetPrevSiblingItem(node);
    if (target == nullptr)
        target = tree.GetParentItem(node);
    tree.SetRedraw(0);
    tree.DeleteItem(node);
    tree.EnsureVisible(target);
    tree.SelectItem(target);
    tree.SetRedraw(1);
    tree.Invalidate(0);
}

void SYInvTreeWnd::IgnoreApplication(std::uint32_t appID, std::uint8_t platform) {
    if (appID == 0)
        return;
    const HTREEITEM selected = Tree().GetSelectedItem();
    const HTREEITEM node =
        GetSelectedAppID() == appID ? selected : FindAppNode(appID, platform == InvDataPPC);
    if (node == nullptr)
        return;
    if (node != selected)
        Tree().DeleteItem(node);
    else
        DeleteSelectedNode(node);
}

// --- device branches ------------------------------------------------------------------

void SYInvTreeWnd::RebuildFlatBranch(HTREEITEM root, SYListItemArray& apps, int image,
                                     std::int32_t oldID, HTREEITEM fallback) {
    SYTreeCtrlEx& tree = Tree();
    apps.SortArray(0, 1);
    tree.DeleteChildren(root);
    // Every node is new, so the selection is found again by id.
    HTREEITEM select = nullptr;
    const std::string nameAndVersion = SYStringTable::Get(IDS_NAME_AND_VERSION);
    for (int i = 0; i < apps.GetSize(); ++i) {
        const auto* app = static_cast<const SYAppItem*>(apps[i]);
        if (app == nullptr)
            continue;
        const HTREEITEM node =
            tree.InsertItem(appNodeText(*app, nameAndVersion), image, image, root, TVI_LAST);
        if (node == nullptr)
            continue;
        tree.SetItemData(node, app->AppID());
        if (select == nullptr && oldID != 0 && static_cast<std::int32_t>(app->AppID()) == oldID)
            select = node;
    }
    if (oldID != 0 && select == nullptr)
        select = fallback;
    if (select != nullptr) {
        tree.EnsureVisible(select);
        tree.SelectItem(select);
    }
    tree.SetRedraw(1);
    tree.Invalidate(0);
}

void SYInvTreeWnd::UpdatePalmApps() {
    if (m_palmAppsItem == nullptr)
        m_palmAppsItem =
            InsertRoot(rootLabel(IDS_ROOT_PALM_APPS, "0"), SYAdminImages::ImagePalmRoot, TVI_LAST);
    if (m_palmAppsItem != nullptr)
        BuildPalmApps(m_palmAppsItem);
}

namespace {

// The applications of a flat branch as items that show and sort by shownName. A failure of
// the store is reported and ends the read; the rows read so far stay.
template <class Load, class ShownName>
void readFlatApps(Load load, std::uint8_t appType, SYListItemArray& apps, ShownName shownName) {
    std::vector<AppRow> rows;
    try {
        load(rows);
    } catch (const CException& e) {
        SYExReport(e, nullptr);
    } catch (const SYStatus& status) {
        SYStatusReport(status, nullptr);
    }
    for (AppRow& row : rows) {
        const std::string shown = shownName(row);
        apps.Add(std::make_unique<SYAppItem>(std::move(row), appType, shown));
    }
}

} // namespace

void SYInvTreeWnd::BuildPalmApps(HTREEITEM root) {
    const std::int32_t oldID = SelectedFlatAppID(SYAdminImages::ImagePalmApp);
    Tree().SetRedraw(0);
    SYListItemArray apps;
    // The tree shows the name under the icon where the device has one.
    readFlatApps([this](std::vector<AppRow>& rows) { Model().LoadPalmApps(rows); },
                 SYAppItem::AppTypePalm, apps,
                 [](const AppRow& row) { return row.iconName.empty() ? row.name : row.iconName; });
    RebuildFlatBranch(root, apps, SYAdminImages::ImagePalmApp, oldID, root);
}

void SYInvTreeWnd::BuildRIMApps(HTREEITEM root) {
    const std::int32_t oldID = SelectedFlatAppID(SYAdminImages::ImageRIMApp);
    Tree().SetRedraw(0);
    SYListItemArray apps;
    readFlatApps([this](std::vector<AppRow>& rows) { Model().LoadRIMApps(rows); },
                 SYAppItem::AppTypeRIM, apps, [](const AppRow& row) { return row.name; });
    RebuildFlatBranch(root, apps, SYAdminImages::ImageRIMApp, oldID, m_rimAppsItem);
}

void SYInvTreeWnd::UpdatePPCData() {
    if (m_ppcAppsItem == nullptr)
        m_ppcAppsItem = InsertRoot(rootLabel(IDS_ROOT_PPC_APPS, "0"), SYAdminImages::ImagePPCRoot,
                                   m_palmAppsItem);
    if (m_ppcAppsItem != nullptr)
        UpdateApps(m_ppcAppsItem, InvDataPPC);
    if (m_ppcUnidFilesItem == nullptr)
        m_ppcUnidFilesItem = InsertRoot(SYStringTable::Get(IDS_ROOT_PPC_UNID_FILES),
                                        SYAdminImages::ImagePPCUnid, m_ppcExcludesItem);
    if (m_ppcExcludesItem == nullptr)
        m_ppcExcludesItem = InsertRoot(SYStringTable::Get(IDS_ROOT_PPC_IGNORED_FILES),
                                       SYAdminImages::ImagePPCExcludes, m_ppcUnidFilesItem);
}

bool SYInvTreeWnd::HaveRIMTable() {
    // An older store lacks the table; any failure to tell counts as that, unreported.
    try {
        return Model().HaveRIMTable();
    } catch (const CException&) {
        return false;
    } catch (const SYStatus&) {
        return false;
    }
}

void SYInvTreeWnd::UpdateRIMApps() {
    if (!HaveRIMTable()) {
        // A branch whose table went away would never be updated again: it goes too.
        RemoveRIMApps();
        return;
    }
    if (m_rimAppsItem == nullptr)
        m_rimAppsItem = InsertRoot(rootLabel(IDS_ROOT_RIM_APPS, "0"), SYAdminImages::ImageRIMRoot,
                                   m_palmAppsItem);
    if (m_rimAppsItem != nullptr)
        BuildRIMApps(m_rimAppsItem);
}

void SYInvTreeWnd::RemovePalmApps() {
    if (m_palmAppsItem == nullptr)
        return;
    Tree().DeleteItem(m_palmAppsItem);
    m_palmAppsItem = nullptr;
    if (Tree().GetSelectedItem() == nullptr)
        Tree().SelectItem(m_appsItem);
}

void SYInvTreeWnd::RemoveRIMApps() {
    if (m_rimAppsItem == nullptr)
        return;
    Tree().DeleteItem(m_rimAppsItem);
    m_rimAppsItem = nullptr;
    if (Tree().GetSelectedItem() == nullptr)
        Tree().SelectItem(m_appsItem);
}

void SYInvTreeWnd::RemovePPCData() {
    for (HTREEITEM* root : {&m_ppcAppsItem, &m_ppcUnidFilesItem, &m_ppcExcludesItem}) {
        if (*root == nullptr)
            continue;
        Tree().DeleteItem(*root);
        *root = nullptr;
    }
    if (Tree().GetSelectedItem() == nullptr)
        Tree().SelectItem(m_appsItem);
}

// --- search and counts ------------------------------------------------------------------

int SYInvTreeWnd::CheckItemForText(HTREEITEM node, const std::string& text) {
    const std::string lower = SYToLower(text);
    CheckBuildItem(node);
    if (node == nullptr)
        return 0;
    if (node == m_unidFilesItem || node == m_ppcUnidFilesItem)
        return FindUnidFile(lower, node == m_ppcUnidFilesItem ? InvDataPPC : InvDataWindows);
    if (node == m_excludesItem || node == m_ppcExcludesItem)
        return FindIgnoredFile(lower, node == m_ppcExcludesItem ? InvDataPPC : InvDataWindows);
    if (node == m_appsItem || node == m_ppcAppsItem)
        return FindCompany(lower, node == m_ppcAppsItem ? InvDataPPC : InvDataWindows);
    if (node == m_palmAppsItem)
        return FindPalmApp(lower);
    if (IsItemCompany(node) || IsItemPPCCompany(node)) {
        const SYCompanyItem* company = CompanyOf(node);
        if (company == nullptr)
            return 0;
        return FindApp(company->InternalName(), lower,
                       IsItemPPCCompany(node) ? InvDataPPC : InvDataWindows);
    }
    if (IsItemApplication(node) || IsItemPPCApplication(node)) {
        const std::uint32_t appID = Tree().GetItemData(node);
        if (appID == 0)
            return 0;
        return FindAppFile(appID, lower, IsItemPPCApplication(node) ? InvDataPPC : InvDataWindows);
    }
    if (node == m_rimAppsItem)
        return FindRIMApp(lower);
    return 0;
}

int SYInvTreeWnd::FindUnidFile(const std::string& text, std::uint8_t platform) {
    return reportedFind([&] { return Search().FindUnidFile(text, platform); });
}

int SYInvTreeWnd::FindIgnoredFile(const std::string& text, std::uint8_t platform) {
    return reportedFind([&] { return Search().FindIgnoredFile(text, platform); });
}

int SYInvTreeWnd::FindCompany(const std::string& text, std::uint8_t platform) {
    return reportedFind([&] { return Search().FindCompany(text, platform); });
}

int SYInvTreeWnd::FindApp(const std::string& company, const std::string& text,
                          std::uint8_t platform) {
    return reportedFind([&] { return Search().FindApp(company, text, platform); });
}

int SYInvTreeWnd::FindAppFile(std::uint32_t appID, const std::string& text, std::uint8_t platform) {
    return reportedFind([&] { return Search().FindAppFile(appID, text, platform); });
}

int SYInvTreeWnd::FindPalmApp(const std::string& text) {
    return reportedFind([&] { return Search().FindPalmApp(text); });
}

int SYInvTreeWnd::FindRIMApp(const std::string& text) {
    return reportedFind([&] { return Search().FindRIMApp(text); });
}

void SYInvTreeWnd::UpdateAppCounts() {
    struct Count {
        HTREEITEM root;
        std::uint8_t invDataType;
        int label;
    };
    const std::array<Count, 4> counts{{
        {m_appsItem, InvDataWindows, IDS_ROOT_APPS},
        {m_palmAppsItem, InvDataPalm, IDS_ROOT_PALM_APPS},
        {m_ppcAppsItem, InvDataPPC, IDS_ROOT_PPC_APPS},
        {m_rimAppsItem, InvDataRIM, IDS_ROOT_RIM_APPS},
    }};
    try {
        for (const Count& count : counts) {
            if (count.root != nullptr)
                Tree().SetItemText(count.root,
                                   rootLabel(count.label, Model().AppCount(count.invDataType)));
        }
    } catch (const CException& e) {
        SYExReport(e, nullptr);
    }
}
