#pragma once

#include <string>

// A Palm application as a device scan reports it; the icon name may be empty.
struct SYPalmApp {
    std::string appName;
    std::string appVersion;
    std::string databaseName;
    std::string creatorID;
    std::string iconName;
};
