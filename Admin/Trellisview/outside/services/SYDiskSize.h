#pragma once

#include <cstdint>
#include <string>

// Sizes of files and storage as the console shows them.
class SYDiskSize {
public:
    // A short text with a unit picked by size: "512 bytes", "888 Kb", "1.5 Mb", "4.0 Gb".
    // Kilobytes are whole numbers, megabytes and gigabytes carry one decimal; a value that
    // rounds up to 1024 of a unit moves on to the next unit.
    static std::string MakeAutoString(std::uint64_t bytes);
    // Every byte, digits grouped: "1,234,567 bytes", "1 byte".
    static std::string MakeBytesString(std::uint64_t bytes);
};
