#pragma once

#include <array>
#include <string>

class SYDatabase;

// Counts of an inventory per platform (InvDataType 0 to 3). Applications are counted as
// the inventory tree counts them: installed Windows and Windows CE applications, all Palm
// and BlackBerry ones. Palm and BlackBerry inventories have no files.
class SYInventorySummary {
public:
    struct Counts {
        long long clients = 0;
        long long files = 0;
        long long applications = 0;
        long long unidentified = 0;
        long long ignored = 0;
    };

    void Load(SYDatabase& database);
    const Counts& Of(unsigned char invDataType) const { return m_counts.at(invDataType); }
    // A table with a row per platform.
    std::string Format() const;

private:
    std::array<Counts, 4> m_counts{};
};
