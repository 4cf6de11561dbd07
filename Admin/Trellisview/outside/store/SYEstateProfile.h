#pragma once

#include <random>
#include <string>
#include <vector>

class SYInventoryWriter;
class SYSystemRulesWriter;

// The make-up of a real estate, laid over the generator's small catalogue: an operating
// system of many files in a few builds, a catalogue of hundreds of applications from a
// hundred companies in several versions (the popular ones on most PCs), files each PC holds
// alone, thousands of user rules (some retired) and of system rules. About 300 files a PC.
// Draws from the generator's random source, so a seed still gives one estate.
class SYEstateProfile {
public:
    explicit SYEstateProfile(std::mt19937& random) : m_random(random) {}

    void WriteSystemRules(SYSystemRulesWriter& rules);
    void WritePCFiles(SYInventoryWriter& writer, unsigned long pc, int index,
                      const std::string& home);
    // Adds the rules; gives those to retire once the inventory is written.
    void WriteUserRules(SYInventoryWriter& writer, std::vector<unsigned long>& retired);

private:
    void WriteSystemFiles(SYInventoryWriter& writer, unsigned long pc);
    void WriteCatalogueApps(SYInventoryWriter& writer, unsigned long pc);
    void WriteLocalFiles(SYInventoryWriter& writer, unsigned long pc, int index,
                         const std::string& home);
    int Pick(int count);

    std::mt19937& m_random;
};
