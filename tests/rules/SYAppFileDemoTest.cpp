#include <gtest/gtest.h>

#include <string>

#include "outside/services/SYConsoleApp.h"
#include "outside/store/SYDatabase.h"
#include "outside/store/SYInventoryGenerator.h"
#include "outside/store/SYRecordset.h"
#include "rules/SYAppFile.h"
#include "support/TempDir.h"

namespace {

// The demo inventory holds files in every verdict state, and the file record reaches the
// same verdict through the rule service as the store recorded when it classified them.
TEST(SYAppFileDemo, EveryVerdictStateOnTheDemoInventory) {
    TempDir dir;
    const std::string install = dir.File("installation");
    ASSERT_NE(SYInventoryGenerator::CreateIfAbsent(dir.File("inventory.db"), install,
                                                   SYInventoryGenerator::DemoOptions()),
              0);
    SYGetApp().SetInstallPath(install);
    SYDatabase db;
    db.Open(dir.File("inventory.db"));

    for (int state = AppFileNoRule; state <= AppFileUserIgnored; ++state) {
        SCOPED_TRACE("state " + std::to_string(state));
        SYRecordset files(db);
        const std::string sql =
            "SELECT FileID, InvDataType FROM Files WHERE FileState = " + std::to_string(state) +
            " ORDER BY FileID LIMIT 3";
        files.Open(-1, sql.c_str());
        ASSERT_FALSE(files.IsEOF()) << "the demo inventory lacks this state";
        for (; !files.IsEOF(); files.MoveNext()) {
            std::string id;
            std::string inventory;
            files.GetFieldValue("FileID", id);
            files.GetFieldValue("InvDataType", inventory);
            SYAppFile file;
            file.SetDatabase(&db);
            ASSERT_NE(
                file.LoadData(std::stoul(id), static_cast<unsigned char>(std::stoi(inventory))), 0);
            EXPECT_EQ(file.State(), state);
            const bool userRule = state == AppFileUserIdentified || state == AppFileUserIgnored;
            EXPECT_EQ(file.EffectiveRuleID() != 0, userRule);
            EXPECT_EQ(!file.UserAppName().empty(), state == AppFileUserIdentified);
        }
    }
    SYGetApp().SetInstallPath("");
}

} // namespace
