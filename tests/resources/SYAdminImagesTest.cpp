#include <gtest/gtest.h>

#include <set>
#include <string>

#include "outside/widgets/SYAdminImages.h"

namespace {

TEST(SYAdminImages, TreeNodeKindsHaveDistinctNamedImages) {
    const int kinds[] = {
        SYAdminImages::ImageCompany,  SYAdminImages::ImageApplication,
        SYAdminImages::ImageFile,     SYAdminImages::ImageAppFile,
        SYAdminImages::ImagePalmRoot, SYAdminImages::ImagePalmApp,
        SYAdminImages::ImagePPCRoot,  SYAdminImages::ImagePPCCompany,
        SYAdminImages::ImagePPCApp,   SYAdminImages::ImagePPCExcludes,
        SYAdminImages::ImagePPCUnid,  SYAdminImages::ImageRIMRoot,
        SYAdminImages::ImageRIMApp,
    };
    std::set<int> images;
    std::set<std::string> names;
    for (const int image : kinds) {
        EXPECT_TRUE(images.insert(image).second) << image;
        const std::string name = SYAdminImages::Describe(SYAdminImages::InventoryBitmap, image);
        EXPECT_FALSE(name.empty()) << image;
        EXPECT_TRUE(names.insert(name).second) << name;
    }
    // Indexes that no node kind uses stay without a meaning.
    for (const int unused : {0, 1, 4, 5, 7, 9, 10, 17, 19})
        EXPECT_STREQ(SYAdminImages::Describe(SYAdminImages::InventoryBitmap, unused), "");
}

TEST(SYAdminImages, ClientsGetTheImageOfTheirKindAndState) {
    const SYAdminImages images;
    std::set<int> seen;
    for (const int state : {0, 1}) {
        const int machine = images.GetMachineImage(state);
        EXPECT_TRUE(seen.insert(machine).second);
        EXPECT_STRNE(SYAdminImages::Describe(SYAdminImages::ClientBitmap, machine), "");
        for (const int kind :
             {SYAdminImages::DevicePalm, SYAdminImages::DevicePPC, SYAdminImages::DeviceRIM}) {
            const int device = images.GetDeviceImage(kind, state);
            EXPECT_TRUE(seen.insert(device).second) << kind << "/" << state;
            EXPECT_STRNE(SYAdminImages::Describe(SYAdminImages::ClientBitmap, device), "");
        }
    }
    EXPECT_EQ(images.GetDeviceImage(SYAdminImages::DevicePalm, 0), 28);
    EXPECT_EQ(images.GetDeviceImage(SYAdminImages::DeviceRIM, 0), 39);
    EXPECT_EQ(images.GetDeviceImage(0, 0), images.GetMachineImage(0));
    EXPECT_STREQ(SYAdminImages::Describe(1234, SYAdminImages::ImageCompany), "");
}

} // namespace
