#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "navigation/SYInvBaseTreeWnd.h"
#include "outside/framework/SYListItemArray.h"
#include "outside/store/SYInventoryModel.h"
#include "outside/store/SYInventorySearch.h"
#include "outside/widgets/SYAdminImages.h"
#include "outside/widgets/SYImageList.h"
#include "outside/widgets/SYTreeCtrlEx.h"

class SYCompanyItem;

// The navigation tree of the software inventory: one branch per platform, companies and
// applications below, and a node each for the unidentified and the ignored files. A node's
// kind is its image; a company node's item data is its index in Companies, an
// application's its AppID.
class SYInvTreeWnd : public SYInvBaseTreeWnd {
    SY_DECLARE_DYNCREATE(SYInvTreeWnd)

public:
    SYInvTreeWnd() = default;
    ~SYInvTreeWnd() override = default;

    int Initialize(unsigned id, SYWnd* parent) override;

    HTREEITEM AppsItem() const { return m_appsItem; }
    HTREEITEM ExcludesItem() const { return m_excludesItem; }
    HTREEITEM UnidFilesItem() const { return m_unidFilesItem; }
    HTREEITEM PalmAppsItem() const { return m_palmAppsItem; }
    HTREEITEM PPCAppsItem() const { return m_ppcAppsItem; }
    HTREEITEM PPCExcludesItem() const { return m_ppcExcludesItem; }
    HTREEITEM PPCUnidFilesItem() const { return m_ppcUnidFilesItem; }
    HTREEITEM RIMAppsItem() const { return m_rimAppsItem; }

    // Stored for a derived window; nothing here reads them.
    int ShowPalmApps() const { return m_showPalmApps; }
    int ShowPPCData() const { return m_showPPCData; }
    int ShowRIMApps() const { return m_showRIMApps; }
    void SetShowPalmApps(int show) { m_showPalmApps = show; }
    void SetShowPPCData(int show) { m_showPPCData = show; }
    void SetShowRIMApps(int show) { m_showRIMApps = show; }

    const SYListItemArray& Companies() const { return m_companies; }

    int IsItemCompany(HTREEITEM node) const { return HasImage(node, SYAdminImages::ImageCompany); }
    int IsItemApplication(HTREEITEM node) const {
        return HasImage(node, SYAdminImages::ImageApplication);
    }
    int IsItemPPCCompany(HTREEITEM node) const {
        return HasImage(node, SYAdminImages::ImagePPCCompany);
    }
    int IsItemPPCApplication(HTREEITEM node) const {
        return HasImage(node, SYAdminImages::ImagePPCApp);
    }
    int IsItemPalmApplication(HTREEITEM node) const {
        return HasImage(node, SYAdminImages::ImagePalmApp);
    }
    int IsItemRIMApplication(HTREEITEM node) const {
        return HasImage(node, SYAdminImages::ImageRIMApp);
    }

    int GetSelectedCompany(std::string& name) const;
    int GetSelectedCompanyDisplayName(std::string& name) const;
    std::uint32_t GetSelectedAppID() const {
        return SelectedDataFor(SYAdminImages::ImageApplication, SYAdminImages::ImagePPCApp);
    }
    std::int32_t GetSelectedPalmAppID() const {
        return static_cast<std::int32_t>(
            SelectedDataFor(SYAdminImages::ImagePalmApp, SYAdminImages::ImagePalmApp));
    }
    std::int32_t GetSelectedRIMAppID() const {
        return static_cast<std::int32_t>(
            SelectedDataFor(SYAdminImages::ImageRIMApp, SYAdminImages::ImageRIMApp));
    }

    // The name is the node's text, so the display name.
    int SelectCompany(const std::string& name, HTREEITEM root);
    // A null parent means the selected node.
    int SelectApplication(std::uint32_t id, HTREEITEM parent) {
        return SelectChild(parent, id, SYAdminImages::ImageApplication, SYAdminImages::ImagePPCApp);
    }
    int SelectPalmApplication(std::int32_t id, HTREEITEM parent) {
        return SelectChild(parent, static_cast<std::uint32_t>(id), SYAdminImages::ImagePalmApp,
                           SYAdminImages::ImagePalmApp);
    }
    int SelectRIMApplication(std::int32_t id, HTREEITEM parent) {
        return SelectChild(parent, static_cast<std::uint32_t>(id), SYAdminImages::ImageRIMApp,
                           SYAdminImages::ImageRIMApp);
    }

    // Builds an unbuilt company; the console calls it before a node expands.
    void CheckBuildItem(HTREEITEM node);
    // Makes the roots, merges or rebuilds the branches and writes the counts.
    void UpdateTree();
    // Takes an ignored application's node out of the tree; the database is not read.
    void IgnoreApplication(std::uint32_t appID, std::uint8_t platform);
    // 1 if something below the node contains the text, without regard to case.
    int CheckItemForText(HTREEITEM node, const std::string& text);

protected:
    SYTreeCtrlEx& Tree() { return GetTreeCtrl(); }
    const SYTreeCtrlEx& Tree() const { return GetTreeCtrl(); }

    void BuildAppData(SYListItemArray& apps, const std::string& company, std::uint8_t platform);
    void BuildApps(HTREEITEM node, int restoreSelection);
    void UpdateApps(HTREEITEM root, std::uint8_t platform);
    void ResetCompanyNode(HTREEITEM node);

    // Roots of the Windows PC branch, for a derived window that shows it.
    void SetAppsItem(HTREEITEM node) { m_appsItem = node; }
    void SetExcludesItem(HTREEITEM node) { m_excludesItem = node; }
    void SetUnidFilesItem(HTREEITEM node) { m_unidFilesItem = node; }

    void UpdatePalmApps();
    void BuildPalmApps(HTREEITEM root);
    void RemovePalmApps();
    void UpdatePPCData();
    void RemovePPCData();
    void UpdateRIMApps();
    void BuildRIMApps(HTREEITEM root);
    void RemoveRIMApps();

    int FindUnidFile(const std::string& text, std::uint8_t platform);
    int FindIgnoredFile(const std::string& text, std::uint8_t platform);
    int FindCompany(const std::string& text, std::uint8_t platform);
    int FindApp(const std::string& company, const std::string& text, std::uint8_t platform);
    int FindAppFile(std::uint32_t appID, const std::string& text, std::uint8_t platform);
    int FindPalmApp(const std::string& text);
    int FindRIMApp(const std::string& text);
    void UpdateAppCounts();

private:
    SYInventoryModel Model() const { return SYInventoryModel(Database()); }
    SYInventorySearch Search() const { return SYInventorySearch(Database()); }
    int HasImage(HTREEITEM node, int image) const {
        return node != nullptr && Tree().GetItemImage(node) == image;
    }
    // Only the placeholder below the company, as ResetCompanyNode leaves it.
    bool IsUnbuilt(HTREEITEM node) const;
    // The record of a company node, or null.
    SYCompanyItem* CompanyOf(HTREEITEM node) const;
    std::uint32_t SelectedDataFor(int image, int otherImage) const;
    int SelectChild(HTREEITEM parent, std::uint32_t id, int image, int otherImage);
    // A failed read (complete false) ends the merge at its last row instead of dropping
    // the nodes behind it.
    void MergeCompanies(HTREEITEM root, const std::vector<SYInventoryModel::CompanyRow>& companies,
                        bool complete, std::uint8_t platform);
    HTREEITEM InsertCompany(HTREEITEM root, HTREEITEM after,
                            const SYInventoryModel::CompanyRow& company, std::uint8_t platform);
    // Gives the node's next sibling.
    HTREEITEM DropCompany(HTREEITEM node);
    // The platform's node to delete for IgnoreApplication, or null.
    HTREEITEM FindAppNode(std::uint32_t appID, bool cePlatform);
    void DeleteSelectedNode(HTREEITEM node);
    void RebuildFlatBranch(HTREEITEM root, SYListItemArray& apps, int image, std::int32_t oldID,
                           HTREEITEM fallback);
    std::int32_t SelectedFlatAppID(int image) const {
        const HTREEITEM selected = Tree().GetSelectedItem();
        return HasImage(selected, image) ? static_cast<std::int32_t>(Tree().GetItemData(selected))
                                         : 0;
    }
    bool HaveRIMTable();
    HTREEITEM InsertRoot(const std::string& text, int image, HTREEITEM after) {
        return Tree().InsertItem(text, image, image, TVI_ROOT, after != nullptr ? after : TVI_LAST);
    }

    SYListItemArray m_companies;
    SYImageList m_imageList;
    HTREEITEM m_appsItem = nullptr;
    HTREEITEM m_excludesItem = nullptr;
    HTREEITEM m_unidFilesItem = nullptr;
    int m_showPalmApps = 0;
    HTREEITEM m_palmAppsItem = nullptr;
    int m_showPPCData = 0;
    HTREEITEM m_ppcAppsItem = nullptr;
    HTREEITEM m_ppcUnidFilesItem = nullptr;
    HTREEITEM m_ppcExcludesItem = nullptr;
    int m_showRIMApps = 0;
    HTREEITEM m_rimAppsItem = nullptr;
};
