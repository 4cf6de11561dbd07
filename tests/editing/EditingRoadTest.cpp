#include <gtest/gtest.h>

#include <string>

#include "editing/SYEditIdRuleDlg.h"
#include "outside/store/SYInventoryWriter.h"
#include "resources/SYResourceIds.h"
#include "rules/SYSWRule.h"
#include "support/InventoryFixture.h"
#include "support/ReportCapture.h"
#include "support/SYScriptedModalHost.h"

namespace {

// The console's road from an unidentified file to its rule: select the file in the list,
// identify it in the dialog, apply the rule, tell the views.
class EditingRoad : public InventoryFixture {
protected:
    void SetUp() override {
        InventoryFixture::SetUp();
        WritePocketInventory(db);
        engine.Database = &db;
        engine.InvDataType = 1;
        tree.UpdateTree();
    }

    ReportCapture reports;
    SYSWRule engine;
};

TEST_F(EditingRoad, IdentifyingASelectedFileTakesEveryRowItCoversOutOfTheList) {
    EXPECT_TRUE(Texts(tree.PPCAppsItem()).empty());
    list.SetUnidFilesMode(1);
    list.BuildUnidFiles();
    ASSERT_EQ(Column(1), (Strings{"7", "100", "200"}));
    list.SelectItem(1);

    SYScriptedModalHost modal;
    modal.ExpectDialog(IDD_EDIT_ID_RULE)
        .Check(IDC_RULE_ALL_VERSIONS)
        .Type(IDC_RULE_APP_NAME, "Setup Wizard")
        .Type(IDC_RULE_APP_COMPANY, "Acme Installers")
        .PressOK();
    SYEditIdRuleDlg dialog;
    dialog.InvDataType = 1;
    dialog.SetDatabase(&db);
    dialog.SetSWRule(&engine);
    dialog.SetFileID(list.GetSelectedFileID());
    ASSERT_EQ(dialog.DoModal(), IDOK);
    engine.UpdateSamData();
    list.IdentifyFile(&dialog.RuleItem(), 1);

    EXPECT_EQ(Column(0), Strings{"junk.tmp"});
    list.BuildUnidFiles();
    EXPECT_EQ(Column(0), Strings{"junk.tmp"}) << "what the store now says";
    tree.UpdateTree();
    EXPECT_EQ(Texts(tree.PPCAppsItem()), Strings{"Acme Installers"});
    EXPECT_TRUE(reports.Empty());
}

} // namespace
