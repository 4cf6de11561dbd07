#pragma once

#include <cstdint>

#include "SYCliDocument.h"

class SYDatabase;

// An application with its files and installations, and one installation, read through the
// store for the command line until the detail views serve it. Unknown ids throw SYCliError.
class SYCliDetails {
public:
    explicit SYCliDetails(SYDatabase& database) : m_database(database) {}

    SYCliDocument App(std::uint32_t appID, unsigned char platform);
    SYCliDocument Installation(std::uint32_t clientID, std::uint32_t installationID,
                               unsigned char platform);

private:
    SYDatabase& m_database;
};
