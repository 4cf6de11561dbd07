#pragma once

// The image strips of the console and the meaning of each index. A tree node's kind is
// its image index, so these numbers are fixed; how an image looks is the front end's
// business (Describe gives it a short name to draw from).
class SYAdminImages {
public:
    // Strip 4052: the inventory tree, the inventory list and file lists.
    static constexpr unsigned InventoryBitmap = 4052;
    // Strip 4050: clients (PCs and handheld devices).
    static constexpr unsigned ClientBitmap = 4050;
    static constexpr unsigned MaskColour = 0x808000;
    static constexpr int ImageWidth = 14;

    // Indexes in strip 4052.
    static constexpr int ImageCompany = 2;
    static constexpr int ImageApplication = 3;
    static constexpr int ImageFile = 6;    // a file in the inventory list
    static constexpr int ImageAppFile = 8; // a file of an application or installation
    static constexpr int ImagePalmRoot = 11;
    static constexpr int ImagePalmApp = 12;
    static constexpr int ImagePPCRoot = 13;
    static constexpr int ImagePPCCompany = 14;
    static constexpr int ImagePPCApp = 15;
    static constexpr int ImagePPCExcludes = 16;
    static constexpr int ImagePPCUnid = 18;
    static constexpr int ImageRIMRoot = 20;
    static constexpr int ImageRIMApp = 21;

    // Indexes in strip 4050. Each client image is followed by its inactive form.
    static constexpr int ImageMachine = 0;
    static constexpr int ImagePPCDevice = 26;
    static constexpr int ImagePalmDevice = 28;
    static constexpr int ImageRIMDevice = 39;

    // Device kinds, as an application's platform code counts them.
    static constexpr int DevicePalm = 1;
    static constexpr int DevicePPC = 2;
    static constexpr int DeviceRIM = 3;

    // The image of a PC; a nonzero state gives the inactive form.
    int GetMachineImage(int state) const;
    // The image of a handheld of the kind; a nonzero state gives the inactive form.
    // An unknown kind gives the PC's image.
    int GetDeviceImage(int deviceKind, int state) const;

    // A short lower-case name for an image of a strip ("company", "palm device"), empty
    // for an index without a meaning.
    static const char* Describe(unsigned bitmap, int image);
};
