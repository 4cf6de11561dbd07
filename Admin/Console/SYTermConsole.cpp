#include "SYTermConsole.h"

#include <array>
#include <cctype>
#include <filesystem>

#include "details/SYAppInstDetailsDlg.h"
#include "details/SYPalmAppInstDetailsDlg.h"
#include "details/SYRIMAppInstDetailsDlg.h"
#include "editing/SYAppFilePropSheet.h"
#include "editing/SYEditExcludeDlg.h"
#include "editing/SYEditIdRuleDlg.h"
#include "editing/SYIgnoreAppDlg.h"
#include "editing/SYSWRuleConfigPropSheet.h"
#include "outside/framework/CException.h"
#include "outside/framework/SYStatus.h"
#include "outside/framework/SYString.h"
#include "outside/services/SYConsoleApp.h"
#include "outside/services/SYReport.h"
#include "outside/services/SYStringTable.h"
#include "outside/store/SYSWInvObject.h"
#include "outside/widgets/SYAdminImages.h"
#include "outside/widgets/SYFontMetrics.h"
#include "outside/widgets/SYListCtrlEx.h"
#include "outside/widgets/SYWndPrintEngine.h"
#include "resources/SYResourceIds.h"
#include "rules/SYCompanyItem.h"

namespace {

constexpr unsigned kFrameID = 1;
constexpr unsigned kTreeID = 200;
constexpr unsigned kListID = 300;
constexpr unsigned kAppViewID = 400;
constexpr unsigned kPalmViewID = 401;
constexpr unsigned kRIMViewID = 402;
constexpr unsigned kListBitmap = 4052;
constexpr unsigned kListMask = 0x808000;

SYRect cells(int col, int row, int cols, int rows) {
    return {col * SYFontMetrics::CharWidth, row * SYFontMetrics::RowHeight,
            (col + cols) * SYFontMetrics::CharWidth, (row + rows) * SYFontMetrics::RowHeight};
}

bool contains(const std::string& text, const std::string& lower) {
    return SYToLower(text).find(lower) != std::string::npos;
}

// The first list control on a page, where the views keep their rows.
SYListCtrlEx* listOn(SYWnd* page) {
    if (page == nullptr)
        return nullptr;
    for (SYWnd* child : page->Children()) {
        if (auto* list = dynamic_cast<SYListCtrlEx*>(child))
            return list;
    }
    return nullptr;
}

std::string fileNameOf(const std::string& title) {
    std::string name;
    for (char c : title)
        name += std::isalnum(static_cast<unsigned char>(c)) ? c : '-';
    return name + ".pdf";
}

} // namespace

SYTermConsole::SYTermConsole(SYDatabase& database) : m_database(database) {}

SYTermConsole::~SYTermConsole() {
    m_frame.DestroyWindow();
}

int SYTermConsole::Start() {
    if (!m_frame.Create(SYControlKind::Static, kFrameID, "trellisview", cells(0, 0, 80, 24),
                        nullptr))
        return 0;
    m_frame.MapNotify(kTreeID, TVN_SELCHANGED, [this] { OnSelectionChanged(); });
    if (m_tree.Initialize(kTreeID, &m_frame) == 0 ||
        m_list.Initialize(kListID, kListBitmap, kListMask, SYAdminImages::ImageWidth, &m_frame) ==
            0 ||
        m_appView.Initialize(kAppViewID, &m_frame) == 0 ||
        m_palmView.Initialize(kPalmViewID, &m_frame) == 0 ||
        m_rimView.Initialize(kRIMViewID, &m_frame) == 0)
        return 0;
    m_list.SetSingleSelection(1);
    m_tree.SetDatabase(&m_database);
    m_list.SetDatabase(&m_database);
    m_appView.SetDatabase(&m_database);
    m_palmView.SetDatabase(&m_database);
    m_rimView.SetDatabase(&m_database);
    m_engine.Database = &m_database;
    m_engine.SetInstallPath(SYInstallation::Path().GetPath());
    m_tree.SetHeaderText(SYStringTable::Get(IDS_TITLE_INVENTORY));
    UpdateTree();
    if (TreeCtrl().GetSelectedItem() == nullptr)
        TreeCtrl().SelectItem(TreeCtrl().GetRootItem());
    ShowSelection();
    return 1;
}

void SYTermConsole::Resize(int cols, int rows, int treeCols) {
    m_frame.MoveWindow(cells(0, 0, cols, rows));
    // The panes sit below the menu bar and their titles, above the status line.
    m_tree.MoveWindow(cells(0, 2, treeCols, rows - 3));
    const SYRect right = cells(treeCols + 1, 2, cols - treeCols - 1, rows - 3);
    m_list.MoveWindow(right);
    for (SYTabWnd* view : std::array<SYTabWnd*, 3>{&m_appView, &m_palmView, &m_rimView})
        view->MoveWindow(right);
    m_appView.SetupLayout();
    m_palmView.SetupLayout();
    m_rimView.SetupLayout();
}

SYTabWnd* SYTermConsole::ShownTabWnd() {
    switch (m_view) {
    case View::App:
        return &m_appView;
    case View::PalmApp:
        return &m_palmView;
    case View::RIMApp:
        return &m_rimView;
    case View::List:
        break;
    }
    return nullptr;
}

SYListCtrlEx* SYTermConsole::RightList() {
    SYTabWnd* view = ShownTabWnd();
    return view == nullptr ? &m_list : listOn(view->GetActivePage());
}

std::string SYTermConsole::RightTitle() {
    struct Title {
        int (SYInvListCtrl::*mode)() const;
        int pc;
        int ce;
    };
    static constexpr std::array<Title, 6> kTitles{{
        {&SYInvListCtrl::CompanyListMode, IDS_TITLE_COMPANY_LIST, IDS_TITLE_PPC_COMPANY_LIST},
        {&SYInvListCtrl::AppListMode, IDS_TITLE_COMPANY_APPS, IDS_TITLE_PPC_COMPANY_APPS},
        {&SYInvListCtrl::UnidFilesMode, IDS_TITLE_UNID_FILES, IDS_TITLE_PPC_UNID_FILES},
        {&SYInvListCtrl::ExcludedFilesMode, IDS_TITLE_IGNORED_FILES, IDS_TITLE_PPC_IGNORED_FILES},
        {&SYInvListCtrl::PalmAppListMode, IDS_TITLE_PALM_APP_LIST, IDS_TITLE_PALM_APP_LIST},
        {&SYInvListCtrl::RIMAppListMode, IDS_TITLE_RIM_APP_LIST, IDS_TITLE_RIM_APP_LIST},
    }};
    switch (m_view) {
    case View::App:
        return SYStringTable::Get(m_appPlatform == InvDataPPC ? IDS_TITLE_PPC_APPLICATION
                                                              : IDS_TITLE_APPLICATION);
    case View::PalmApp:
        return SYStringTable::Get(IDS_TITLE_PALM_APPLICATION);
    case View::RIMApp:
        return SYStringTable::Get(IDS_TITLE_RIM_APPLICATION);
    case View::List:
        break;
    }
    for (const Title& title : kTitles) {
        if (m_list.ActiveMode() >= 0 && m_list.ActiveMode() == (m_list.*title.mode)())
            return SYStringTable::Get(m_list.InvDataType() == InvDataPPC ? title.ce : title.pc);
    }
    return {};
}

HTREEITEM SYTermConsole::RootOf(HTREEITEM node) const {
    const SYTreeCtrlEx& tree = m_tree.GetTreeCtrl();
    while (node != nullptr && tree.GetParentItem(node) != nullptr)
        node = tree.GetParentItem(node);
    return node;
}

std::uint8_t SYTermConsole::SelectedPlatform() {
    const HTREEITEM root = RootOf(TreeCtrl().GetSelectedItem());
    if (root == m_tree.PPCAppsItem() || root == m_tree.PPCUnidFilesItem() ||
        root == m_tree.PPCExcludesItem())
        return InvDataPPC;
    if (root == m_tree.PalmAppsItem())
        return InvDataPalm;
    if (root == m_tree.RIMAppsItem())
        return InvDataRIM;
    return InvDataWindows;
}

void SYTermConsole::OnSelectionChanged() {
    if (!m_updating)
        ShowSelection();
}

// The list's mode and content, or an application view, for the selected node.
void SYTermConsole::ShowSelection() {
    const HTREEITEM node = TreeCtrl().GetSelectedItem();
    const std::uint8_t platform = SelectedPlatform();
    m_view = View::List;
    if (node == m_tree.AppsItem() || node == m_tree.PPCAppsItem()) {
        m_list.SetCompanyListMode(platform);
        m_list.BuildCompanies();
    } else if (m_tree.IsItemCompany(node) || m_tree.IsItemPPCCompany(node)) {
        std::string company;
        m_tree.GetSelectedCompany(company);
        m_list.SetAppListMode(platform);
        m_list.BuildAppList(company);
    } else if (node == m_tree.ExcludesItem() || node == m_tree.PPCExcludesItem()) {
        m_list.SetExcludedFilesMode(platform);
        m_list.BuildExcludes();
    } else if (node == m_tree.UnidFilesItem() || node == m_tree.PPCUnidFilesItem()) {
        m_list.SetUnidFilesMode(platform);
        m_list.BuildUnidFiles();
    } else if (node == m_tree.PalmAppsItem()) {
        m_list.SetPalmAppListMode();
        m_list.BuildPalmAppList();
    } else if (node == m_tree.RIMAppsItem()) {
        m_list.SetRIMAppListMode();
        m_list.BuildRIMAppList();
    } else if (m_tree.IsItemApplication(node) || m_tree.IsItemPPCApplication(node)) {
        m_view = View::App;
        m_appPlatform = platform;
        m_appView.LoadAppData(m_tree.GetSelectedAppID(), platform);
    } else if (m_tree.IsItemPalmApplication(node)) {
        m_view = View::PalmApp;
        m_palmView.LoadAppData(m_tree.GetSelectedPalmAppID());
    } else if (m_tree.IsItemRIMApplication(node)) {
        m_view = View::RIMApp;
        m_rimView.LoadAppData(m_tree.GetSelectedRIMAppID());
    } else {
        m_list.ClearData();
    }
    for (SYTabWnd* view : std::array<SYTabWnd*, 3>{&m_appView, &m_palmView, &m_rimView})
        view->ShowWindow(view == ShownTabWnd());
    m_list.ShowWindow(m_view == View::List);
}

void SYTermConsole::UpdateTree() {
    m_updating = true;
    m_tree.UpdateWithWindowsBranch();
    m_updating = false;
}

void SYTermConsole::Refresh() {
    UpdateTree();
    ShowSelection();
}

void SYTermConsole::Expand(HTREEITEM node) {
    m_tree.CheckBuildItem(node);
    TreeCtrl().Expand(node, TVE_EXPAND, 1);
}

void SYTermConsole::Toggle(HTREEITEM node) {
    if (TreeCtrl().ItemExpanded(node))
        TreeCtrl().Expand(node, TVE_COLLAPSE, 1);
    else
        Expand(node);
}

void SYTermConsole::FocusRight() {
    if (SYListCtrlEx* list = RightList()) {
        list->SetFocus();
        if (list->GetSelectedItem() < 0 && list->GetItemCount() > 0)
            list->SelectItem(0);
    }
}

int SYTermConsole::ContextMenu(Pane pane) {
    if (pane == Pane::Tree) {
        const HTREEITEM node = TreeCtrl().GetSelectedItem();
        return m_tree.IsItemApplication(node) || m_tree.IsItemPPCApplication(node) ? IDM_APPLICATION
                                                                                   : 0;
    }
    if (SYTabWnd* view = ShownTabWnd()) {
        unsigned menu = 0;
        unsigned command = 0;
        if (view == &m_appView && m_appView.GetContextMenuInfo(menu, command) != 0)
            return static_cast<int>(menu);
        if (view == &m_palmView && m_palmView.GetContextMenuInfo(menu, command) != 0)
            return static_cast<int>(menu);
        if (view == &m_rimView && m_rimView.GetContextMenuInfo(menu, command) != 0)
            return static_cast<int>(menu);
        return 0;
    }
    const int mode = m_list.ActiveMode();
    if (mode < 0 || m_list.GetSelectedItem() < 0)
        return 0;
    if (mode == m_list.CompanyListMode())
        return IDM_COMPANY;
    if (mode == m_list.AppListMode())
        return IDM_APPLICATION_VIEW_IGNORE;
    if (mode == m_list.PalmAppListMode())
        return IDM_DEVICE_APPLICATION;
    if (mode == m_list.RIMAppListMode())
        return IDM_RIM_APPLICATION;
    if (mode == m_list.UnidFilesMode())
        return IDM_UNIDENTIFIED_FILE;
    return IDM_IGNORED_FILE;
}

void SYTermConsole::OpenRight() {
    if (m_view != View::List) {
        // The views post their own commands on a double click.
        if (SYListCtrlEx* list = RightList(); list != nullptr && list->GetSelectedItem() >= 0)
            list->DoubleClickRow(list->GetSelectedItem());
        DrainPosted(Pane::Right);
        return;
    }
    const int mode = m_list.ActiveMode();
    if (mode < 0 || m_list.GetSelectedItem() < 0)
        return;
    if (mode == m_list.CompanyListMode())
        Run(ID_VIEW_APPLICATIONS, Pane::Right);
    else if (mode == m_list.UnidFilesMode() || mode == m_list.ExcludedFilesMode())
        Run(ID_PROPERTIES, Pane::Right);
    else
        Run(ID_VIEW_APPLICATION, Pane::Right);
}

void SYTermConsole::DrainPosted(Pane pane) {
    SYPostedCommand command;
    while (SYGetApp().MainWindow().TakePostedCommand(command))
        Run(static_cast<int>(command.message), pane);
}

SYTermConsole::Target SYTermConsole::SelectedFile(Pane pane) {
    if (pane == Pane::Right && m_view == View::App)
        return {m_appView.GetSelectedFileID(), m_appPlatform};
    return {m_list.GetSelectedFileID(), m_list.InvDataType()};
}

SYTermConsole::Target SYTermConsole::SelectedApp(Pane pane) {
    if (pane == Pane::Tree)
        return {m_tree.GetSelectedAppID(), SelectedPlatform()};
    return {m_list.GetSelectedAppID(), m_list.InvDataType()};
}

int SYTermConsole::Run(int command, Pane pane) {
    m_note.clear();
    switch (command) {
    case ID_IDENTIFY_FILE:
        return IdentifyFile(SelectedFile(pane));
    case ID_IGNORE_FILE:
        return IgnoreFile(SelectedFile(pane));
    case ID_PROPERTIES:
        return FileProperties(SelectedFile(pane));
    case ID_IGNORE_APPLICATION:
        return IgnoreApplication(SelectedApp(pane));
    case ID_VIEW_INSTALLATION_DETAILS:
        return InstallationDetails();
    case ID_VIEW_APPLICATIONS:
        return ViewApplications();
    case ID_VIEW_APPLICATION:
        return ViewApplication();
    case CmdRuleConfiguration:
        return RuleConfiguration();
    case CmdPrint:
        return Print().empty() ? 0 : 1;
    case CmdRefresh:
        Refresh();
        return 1;
    default:
        return 0;
    }
}

int SYTermConsole::ApplyRuleChanges() {
    int applied = 0;
    try {
        m_engine.UpdateSamData();
        applied = 1;
    } catch (const SYStatus& status) {
        SYStatusReport(status, nullptr);
    } catch (const CException& exception) {
        SYExReport(exception, nullptr);
    }
    m_engine.ClearChangedRules();
    return applied;
}

template <class Dialog> int SYTermConsole::RunFileRuleDialog(Dialog& dialog, Target file) {
    if (file.id == 0)
        return 0;
    dialog.InvDataType = file.platform;
    dialog.SetDatabase(&m_database);
    m_engine.InvDataType = file.platform;
    dialog.SetSWRule(&m_engine);
    dialog.SetFileID(file.id);
    if (dialog.DoModal() != IDOK)
        return 0;
    ApplyRuleChanges();
    return 1;
}

int SYTermConsole::AfterFileRule() {
    UpdateTree();
    if (m_view == View::App)
        ShowSelection();
    return 1;
}

int SYTermConsole::IdentifyFile(Target file) {
    SYEditIdRuleDlg dialog;
    if (RunFileRuleDialog(dialog, file) == 0)
        return 0;
    m_list.IdentifyFile(&dialog.RuleItem(), file.platform);
    return AfterFileRule();
}

int SYTermConsole::IgnoreFile(Target file) {
    SYEditExcludeDlg dialog;
    if (RunFileRuleDialog(dialog, file) == 0)
        return 0;
    m_list.ExcludeFile(&dialog.RuleItem(), file.platform);
    return AfterFileRule();
}

int SYTermConsole::IgnoreApplication(Target app) {
    if (app.id == 0)
        return 0;
    SYIgnoreAppDlg dialog;
    dialog.SetDatabase(&m_database);
    m_engine.InvDataType = app.platform;
    dialog.SetSWRule(&m_engine);
    dialog.SetAppID(app.id);
    if (dialog.DoModal() != IDOK)
        return 0;
    ApplyRuleChanges();
    m_list.IgnoreApplication(app.id, app.platform);
    m_tree.IgnoreApplication(app.id, app.platform);
    return 1;
}

int SYTermConsole::FileProperties(Target file) {
    if (file.id == 0)
        return 0;
    SYAppFilePropSheet sheet;
    sheet.SetDatabase(&m_database);
    sheet.SetFileID(file.id, file.platform);
    const int result = sheet.DoModal();
    if (sheet.RulesChanged() != 0)
        Refresh();
    return result == IDOK ? 1 : 0;
}

int SYTermConsole::RuleConfiguration() {
    SYSWRuleConfigPropSheet sheet;
    // Handhelds of the other kinds have no rules; their branches edit the Windows PC ones.
    sheet.InvDataType = SelectedPlatform() == InvDataPPC ? InvDataPPC : InvDataWindows;
    sheet.SetDatabase(&m_database);
    sheet.SetReadOnly(SYGetApp().CanEditRules() == 0);
    const int result = sheet.DoModal();
    if (sheet.RulesChanged() != 0)
        Refresh();
    return result == IDOK ? 1 : 0;
}

int SYTermConsole::InstallationDetails() {
    if (m_view == View::App) {
        std::uint32_t machine = 0;
        std::uint32_t installation = 0;
        if (m_appView.GetSelectedInstallation(machine, installation) == 0)
            return 0;
        SYAppInstDetailsDlg dialog;
        dialog.SetDatabase(&m_database);
        dialog.SetInstInfo(machine, installation, m_appPlatform);
        return dialog.DoModal() == IDOK ? 1 : 0;
    }
    std::uint32_t device = 0;
    if (m_view == View::PalmApp && m_palmView.GetSelectedInstallation(device) != 0) {
        SYPalmAppInstDetailsDlg dialog;
        dialog.SetDatabase(&m_database);
        dialog.SetInstInfo(m_palmView.GetAppID(), device);
        return dialog.DoModal() == IDOK ? 1 : 0;
    }
    if (m_view == View::RIMApp && m_rimView.GetSelectedInstallation(device) != 0) {
        SYRIMAppInstDetailsDlg dialog;
        dialog.SetDatabase(&m_database);
        dialog.SetInstInfo(m_rimView.GetAppID(), device);
        return dialog.DoModal() == IDOK ? 1 : 0;
    }
    return 0;
}

int SYTermConsole::ViewApplications() {
    const int row = m_list.GetSelectedItem();
    if (m_list.ActiveMode() != m_list.CompanyListMode() || row < 0)
        return 0;
    const HTREEITEM root =
        m_list.InvDataType() == InvDataPPC ? m_tree.PPCAppsItem() : m_tree.AppsItem();
    return m_tree.SelectCompany(m_list.GetItemText(row, 0), root);
}

int SYTermConsole::ViewApplication() {
    const int mode = m_list.ActiveMode();
    if (mode < 0)
        return 0;
    if (mode == m_list.PalmAppListMode())
        return m_tree.SelectPalmApplication(m_list.GetSelectedPalmAppID(), m_tree.PalmAppsItem());
    if (mode == m_list.RIMAppListMode())
        return m_tree.SelectRIMApplication(m_list.GetSelectedRIMAppID(), m_tree.RIMAppsItem());
    if (mode != m_list.AppListMode())
        return 0;
    // The list shows the selected company's applications.
    const std::uint32_t appID = m_list.GetSelectedAppID();
    const HTREEITEM company = TreeCtrl().GetSelectedItem();
    Expand(company);
    return m_tree.SelectApplication(appID, company);
}

bool SYTermConsole::SelectMatchingRow(SYListCtrlEx* list, const std::string& lower) {
    if (list == nullptr)
        return false;
    for (int row = 0; row < list->GetItemCount(); ++row) {
        if (contains(list->GetItemText(row, 0), lower)) {
            list->SelectItem(row);
            list->EnsureVisible(row);
            return true;
        }
    }
    return false;
}

// The node after the node's subtree in tree order.
HTREEITEM SYTermConsole::NextOutside(HTREEITEM node) const {
    const SYTreeCtrlEx& tree = m_tree.GetTreeCtrl();
    for (; node != nullptr; node = tree.GetParentItem(node)) {
        if (HTREEITEM next = tree.GetNextSiblingItem(node))
            return next;
    }
    return nullptr;
}

int SYTermConsole::Search(const std::string& text) {
    if (text.empty())
        return 0;
    m_lastSearch = text;
    const std::string lower = SYToLower(text);
    SYTreeCtrlEx& tree = TreeCtrl();
    const HTREEITEM start = tree.GetSelectedItem();
    HTREEITEM node = tree.WalkNext(start);
    // One round over the tree, coming back to where it began.
    for (bool wrapped = false; node != start;) {
        if (node == nullptr) {
            if (wrapped || start == nullptr)
                break;
            wrapped = true;
            node = tree.GetRootItem();
            continue;
        }
        if (contains(tree.GetItemText(node), lower)) {
            tree.SelectItem(node);
            tree.EnsureVisible(node);
            return 1;
        }
        const bool company = m_tree.IsItemCompany(node) || m_tree.IsItemPPCCompany(node);
        if (!company && tree.ItemHasChildren(node)) {
            node = tree.WalkNext(node);
            continue;
        }
        if (m_tree.CheckItemForText(node, text) == 0) {
            node = NextOutside(node);
            continue;
        }
        if (company) {
            // The check built the company; its applications come next in the walk.
            node = tree.WalkNext(node);
            continue;
        }
        // A file root or an application: the row that holds the text is in the right half.
        tree.SelectItem(node);
        tree.EnsureVisible(node);
        SelectMatchingRow(RightList(), lower);
        return 1;
    }
    m_note = "Not found: " + text;
    return 0;
}

std::string SYTermConsole::Print() {
    const std::string title = RightTitle();
    const std::string path =
        (std::filesystem::path(m_printFolder) / fileNameOf(title.empty() ? "view" : title))
            .string();
    SYWndPrintEngine engine(&m_frame, title);
    engine.SetDestination(path);
    if (engine.PrintSetup(SYPrintEngine::PrintSetupNoPrompt) == 0 || engine.BeginPrinting() == 0)
        return {};
    if (SYTabWnd* view = ShownTabWnd())
        view->BeginPrinting(engine.GetDC(), &engine, 1);
    else
        engine.AddList(m_list, nullptr);
    if (engine.Print() == 0) {
        m_note = "Could not print to " + path;
        return {};
    }
    m_note = "Printed to " + path;
    return path;
}
