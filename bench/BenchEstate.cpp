#include "BenchEstate.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>

#include "outside/store/SYInventoryGenerator.h"
#include "outside/store/SYInventorySchema.h"

namespace {

// TV_BENCH_ESTATE_DIR names a folder that keeps the estates from one run to the next (by
// client count, seed and schema version); without it they go at exit.
class Estates {
public:
    Estates() {
        if (const char* kept = std::getenv("TV_BENCH_ESTATE_DIR"))
            m_keptIn = kept;
    }
    Estates(const Estates&) = delete;
    Estates& operator=(const Estates&) = delete;
    ~Estates() {
        if (!m_keptIn.empty())
            return;
        std::error_code ignored;
        for (const auto& [clients, estate] : m_made)
            std::filesystem::remove_all(estate.folder, ignored);
    }

    const BenchEstate& Of(int clients) {
        if (const auto found = m_made.find(clients); found != m_made.end())
            return found->second;
        BenchEstate estate;
        estate.folder = Folder(clients);
        estate.database = estate.folder + "/inventory.db";
        estate.install = estate.folder + "/installation";
        const auto start = std::chrono::steady_clock::now();
        if (SYInventoryGenerator::CreateIfAbsent(
                estate.database, estate.install,
                SYInventoryGenerator::RealisticOptions(clients, kSeed)) != 0)
            estate.generateSeconds =
                std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        estate.bytes = static_cast<double>(std::filesystem::file_size(estate.database));
        std::fprintf(stderr, "estate of %d clients: %s %.1f s, %.0f MB\n", clients,
                     estate.generateSeconds > 0 ? "generated in" : "kept, generated before in",
                     estate.generateSeconds, estate.bytes / 1e6);
        return m_made.emplace(clients, estate).first->second;
    }

private:
    static constexpr std::uint32_t kSeed = 42;

    std::string Folder(int clients) const {
        if (!m_keptIn.empty()) {
            const std::string folder = m_keptIn + "/estate-v" +
                                       std::to_string(SYInventorySchema::Version) + "-" +
                                       std::to_string(clients) + "-" + std::to_string(kSeed);
            std::filesystem::create_directories(folder);
            return folder;
        }
        std::string pattern = (std::filesystem::temp_directory_path() / "tvestate-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            std::abort();
        return pattern;
    }

    std::string m_keptIn;
    std::map<int, BenchEstate> m_made;
};

} // namespace

const BenchEstate& Estate(int clients) {
    static Estates estates;
    return estates.Of(clients);
}
