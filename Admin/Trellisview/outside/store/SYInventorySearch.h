#pragma once

#include <cstdint>
#include <string>

#include "outside/store/SYInventoryModel.h"

// Does a read of the inventory hold a text? A search walks the rows of one read of
// SYInventoryModel from the first, looks for the text in a lower-cased copy of the row's
// value and stops at the first hit: 1 found, 0 not. The text comes in lower case, there are
// no wildcards, and an empty text matches the first row there is. Throws what the store
// throws.
class SYInventorySearch {
public:
    explicit SYInventorySearch(SYDatabase* database) : m_model(database) {}

    int FindUnidFile(const std::string& lowerText, std::uint8_t invDataType) const;
    int FindIgnoredFile(const std::string& lowerText, std::uint8_t invDataType) const;
    // A company of several spellings is tested once, by its first.
    int FindCompany(const std::string& lowerText, std::uint8_t invDataType) const;
    // The names of a company's applications, not their versions.
    int FindApp(const std::string& company, const std::string& lowerText,
                std::uint8_t invDataType) const;
    int FindAppFile(std::uint32_t appID, const std::string& lowerText,
                    std::uint8_t invDataType) const;
    // The enumerated names, not the names under the icons.
    int FindPalmApp(const std::string& lowerText) const;
    int FindRIMApp(const std::string& lowerText) const;

private:
    SYInventoryModel m_model;
};
