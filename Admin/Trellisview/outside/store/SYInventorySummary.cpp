#include "outside/store/SYInventorySummary.h"

#include <cstdio>

#include "outside/store/SYDatabase.h"
#include "outside/store/SYFileVerdict.h"
#include "outside/store/SYInventoryModel.h"
#include "outside/store/SYSWInvObject.h"

namespace {

long long count(SYDatabase& database, const std::string& sql, std::int64_t parameter) {
    auto statement = database.Cached(sql);
    if (sql.find("?1") != std::string::npos)
        statement->Bind(1, parameter);
    return statement->Step() ? statement->Int64(0) : 0;
}

} // namespace

void SYInventorySummary::Load(SYDatabase& database) {
    const bool haveRIM = database.HaveTable("RIM Applications");
    const SYInventoryModel model(&database);
    const std::string files = "SELECT COUNT(*) FROM Files WHERE InvDataType = ?1";
    for (std::int64_t type = InvDataWindows; type <= InvDataRIM; ++type) {
        Counts& counts = m_counts[static_cast<std::size_t>(type)];
        counts.clients =
            type == InvDataWindows
                ? count(database, "SELECT COUNT(*) FROM Machines", 0)
                : count(database, "SELECT COUNT(*) FROM Devices WHERE Platform = ?1", type);
        counts.files = count(database, files, type);
        counts.unidentified =
            count(database, files + " AND " + SYUnidentifiedFileSql("FileState"), type);
        counts.ignored = count(database, files + " AND " + SYIgnoredFileSql("FileState"), type);
        counts.applications = type == InvDataRIM && !haveRIM
                                  ? 0
                                  : std::stoll(model.AppCount(static_cast<std::uint8_t>(type)));
    }
}

std::string SYInventorySummary::Format() const {
    static const char* const names[] = {"Windows PCs", "Windows CE", "Palm", "BlackBerry"};
    std::string text = "Platform       Clients     Files  Applications  Unidentified   Ignored\n";
    for (std::size_t type = 0; type < m_counts.size(); ++type) {
        const Counts& c = m_counts[type];
        char line[160];
        std::snprintf(line, sizeof line, "%-12s %9lld %9lld %13lld %13lld %9lld\n", names[type],
                      c.clients, c.files, c.applications, c.unidentified, c.ignored);
        text += line;
    }
    return text;
}
