#include "BenchEstate.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <map>

#include "outside/store/SYInventoryGenerator.h"

namespace {

class Estates {
public:
    Estates() = default;
    Estates(const Estates&) = delete;
    Estates& operator=(const Estates&) = delete;
    ~Estates() {
        std::error_code ignored;
        for (const auto& [clients, estate] : m_made)
            std::filesystem::remove_all(estate.folder, ignored);
    }

    const BenchEstate& Of(int clients) {
        if (const auto found = m_made.find(clients); found != m_made.end())
            return found->second;
        std::string pattern = (std::filesystem::temp_directory_path() / "tvestate-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr)
            std::abort();
        BenchEstate estate{pattern, pattern + "/inventory.db", pattern + "/installation"};
        const auto start = std::chrono::steady_clock::now();
        SYInventoryGenerator::CreateIfAbsent(estate.database, estate.install,
                                             SYInventoryGenerator::RealisticOptions(clients, 42));
        estate.generateSeconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        estate.bytes = static_cast<double>(std::filesystem::file_size(estate.database));
        std::fprintf(stderr, "estate of %d clients: generated in %.1f s, %.0f MB\n", clients,
                     estate.generateSeconds, estate.bytes / 1e6);
        return m_made.emplace(clients, estate).first->second;
    }

private:
    std::map<int, BenchEstate> m_made;
};

} // namespace

const BenchEstate& Estate(int clients) {
    static Estates estates;
    return estates.Of(clients);
}
