#include <gtest/gtest.h>

#include "outside/services/SYStringTable.h"
#include "resources/SYResourceIds.h"

namespace {

// Tab titles, strings and command prompts keep to their own ranges, and none is empty.
TEST(SYResourceStrings, EveryNumberHasTextInItsRange) {
    ASSERT_FALSE(SYStringTable::Ids().empty());
    for (const int id : SYStringTable::Ids()) {
        const bool tabTitle = id >= 13100 && id < 13200;
        const bool string = id >= 13500 && id < 13800;
        const bool prompt = id >= 13800 && id < 13900;
        EXPECT_TRUE(tabTitle || string || prompt || id == ID_PROPERTIES) << id;
        EXPECT_FALSE(SYStringTable::Get(id).empty()) << id;
    }
}

} // namespace
