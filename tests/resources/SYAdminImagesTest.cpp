#include <gtest/gtest.h>

#include <set>
#include <string>

#include "outside/widgets/SYAdminImages.h"

namespace {

// Each tree node kind, and each client kind in each state, must look different.
TEST(SYAdminImages, EveryKindHasADistinctNamedImage) {
    using I = SYAdminImages;
    std::set<std::string> names;
    for (const int image :
         {I::ImageCompany, I::ImageApplication, I::ImageFile, I::ImageAppFile, I::ImagePalmRoot,
          I::ImagePalmApp, I::ImagePPCRoot, I::ImagePPCCompany, I::ImagePPCApp, I::ImagePPCExcludes,
          I::ImagePPCUnid, I::ImageRIMRoot, I::ImageRIMApp})
        EXPECT_TRUE(names.insert(I::Describe(I::InventoryBitmap, image)).second) << image;
    EXPECT_STREQ(I::Describe(I::InventoryBitmap, 0), "") << "unused indexes mean nothing";

    const SYAdminImages images;
    std::set<std::string> clients;
    for (const int state : {0, 1}) {
        for (const int kind : {0, I::DevicePalm, I::DevicePPC, I::DeviceRIM}) {
            const int image =
                kind == 0 ? images.GetMachineImage(state) : images.GetDeviceImage(kind, state);
            EXPECT_TRUE(clients.insert(I::Describe(I::ClientBitmap, image)).second)
                << kind << "/" << state;
        }
    }
    EXPECT_EQ(images.GetDeviceImage(0, 1), images.GetMachineImage(1)) << "an unknown device";
    EXPECT_EQ(names.count(""), 0u);
    EXPECT_EQ(clients.count(""), 0u);
}

} // namespace
