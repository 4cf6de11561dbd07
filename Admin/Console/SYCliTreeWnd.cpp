#include "SYCliTreeWnd.h"

#include "outside/services/SYStringTable.h"
#include "outside/store/SYSWInvObject.h"
#include "outside/widgets/SYAdminImages.h"
#include "resources/SYResourceIds.h"

void SYCliTreeWnd::UpdateWithWindowsBranch() {
    SYTreeCtrlEx& tree = Tree();
    if (AppsItem() == nullptr) {
        // The strip has no pictures of its own for these roots; the Windows CE ones stand in.
        const auto root = [&](int text, int image, HTREEITEM after) {
            return tree.InsertItem(SYStringTable::Get(text), image, image, TVI_ROOT, after);
        };
        SetAppsItem(root(IDS_ROOT_APPS, SYAdminImages::ImagePPCRoot, TVI_FIRST));
        SetUnidFilesItem(root(IDS_ROOT_UNID_FILES, SYAdminImages::ImagePPCUnid, AppsItem()));
        SetExcludesItem(
            root(IDS_ROOT_IGNORED_FILES, SYAdminImages::ImagePPCExcludes, UnidFilesItem()));
    }
    UpdateApps(AppsItem(), InvDataWindows);
    UpdateTree();
}
