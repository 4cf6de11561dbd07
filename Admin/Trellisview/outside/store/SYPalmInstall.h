#pragma once

#include <string>

#include "outside/framework/CTime.h"

// Where and how a Palm application lies on one device.
struct SYPalmInstall {
    bool inROM = false;
    unsigned long appSize = 0;
    unsigned long totalSize = 0;
    CTime createDate;
    CTime modifyDate;
    CTime backupDate;
    unsigned long databaseCount = 0;
    unsigned long recordCount = 0;
    std::string storageCardPath;
};
