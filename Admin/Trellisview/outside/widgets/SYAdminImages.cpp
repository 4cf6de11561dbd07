#include "outside/widgets/SYAdminImages.h"

#include <cstddef>

namespace {

struct Named {
    int image;
    const char* name;
};

constexpr Named inventoryImages[] = {
    {SYAdminImages::ImageCompany, "company"},
    {SYAdminImages::ImageApplication, "application"},
    {SYAdminImages::ImageFile, "file"},
    {SYAdminImages::ImageAppFile, "application file"},
    {SYAdminImages::ImagePalmRoot, "palm applications"},
    {SYAdminImages::ImagePalmApp, "palm application"},
    {SYAdminImages::ImagePPCRoot, "windows ce applications"},
    {SYAdminImages::ImagePPCCompany, "windows ce company"},
    {SYAdminImages::ImagePPCApp, "windows ce application"},
    {SYAdminImages::ImagePPCExcludes, "ignored files"},
    {SYAdminImages::ImagePPCUnid, "unidentified files"},
    {SYAdminImages::ImageRIMRoot, "blackberry applications"},
    {SYAdminImages::ImageRIMApp, "blackberry application"},
};

constexpr Named clientImages[] = {
    {SYAdminImages::ImageMachine, "pc"},
    {SYAdminImages::ImageMachine + 1, "inactive pc"},
    {SYAdminImages::ImagePPCDevice, "windows ce device"},
    {SYAdminImages::ImagePPCDevice + 1, "inactive windows ce device"},
    {SYAdminImages::ImagePalmDevice, "palm device"},
    {SYAdminImages::ImagePalmDevice + 1, "inactive palm device"},
    {SYAdminImages::ImageRIMDevice, "blackberry device"},
    {SYAdminImages::ImageRIMDevice + 1, "inactive blackberry device"},
};

template <std::size_t N> const char* lookup(const Named (&table)[N], int image) {
    for (const Named& entry : table) {
        if (entry.image == image)
            return entry.name;
    }
    return "";
}

int withState(int image, int state) {
    return state != 0 ? image + 1 : image;
}

} // namespace

int SYAdminImages::GetMachineImage(int state) const {
    return withState(ImageMachine, state);
}

int SYAdminImages::GetDeviceImage(int deviceKind, int state) const {
    switch (deviceKind) {
    case DevicePalm:
        return withState(ImagePalmDevice, state);
    case DevicePPC:
        return withState(ImagePPCDevice, state);
    case DeviceRIM:
        return withState(ImageRIMDevice, state);
    default:
        return GetMachineImage(state);
    }
}

const char* SYAdminImages::Describe(unsigned bitmap, int image) {
    if (bitmap == InventoryBitmap)
        return lookup(inventoryImages, image);
    if (bitmap == ClientBitmap)
        return lookup(clientImages, image);
    return "";
}
