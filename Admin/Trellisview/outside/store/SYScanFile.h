#pragma once

#include <cstdint>
#include <string>

#include "outside/framework/CTime.h"

// A file as a scan reports it: name, size, time and the application its own version
// information names (empty when it has none).
struct SYScanFile {
    std::string name;
    std::uint64_t size = 0;
    CTime time;
    std::string appName;
    std::string appVersion;
    std::string appCompany;
};
