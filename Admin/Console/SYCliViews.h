#pragma once

#include <cstdint>
#include <string>

#include "SYCliDocument.h"

class SYDatabase;

// The inventory's views as documents, read from the library's own tree and list (and the
// file record), so a script sees the rows a person sees. Unknown ids throw SYCliError.
class SYCliViews {
public:
    explicit SYCliViews(SYDatabase& database) : m_database(database) {}

    SYCliDocument Summary();
    // allPlatforms shows every branch; otherwise the platform's roots only.
    SYCliDocument Tree(bool allPlatforms, unsigned char platform);
    // mode: companies, apps, palm, rim, unidentified or ignored; sort: a column key, with
    // ":desc" for a descending order.
    SYCliDocument List(const std::string& mode, unsigned char platform, const std::string& company,
                       const std::string& sort);
    SYCliDocument File(std::uint32_t fileID, unsigned char platform);
    // type: empty for both, "identify" or "ignore". withID false gives the export form.
    SYCliDocument Rules(unsigned char platform, const std::string& type, bool withID = true);

private:
    SYDatabase& m_database;
};
