#pragma once

#include <cstdint>
#include <functional>
#include <random>
#include <string>

class SYDatabase;
class SYInventoryWriter;

// Makes realistic inventories for demos, tests and benchmarks through the inventory
// writer, the same for the same options: PCs, Windows CE, Palm and BlackBerry devices in
// the ratio 11:4:3:2; companies whose names are scanned in several spellings; applications
// in several versions; files over 4 GB; files in several folders and on many clients;
// unidentified files; user and system rules of both kinds (one user rule retired); Palm
// applications with and without icon names.
class SYInventoryGenerator {
public:
    struct Options {
        std::uint32_t seed = 1;
        int clients = 200;
        // Without it the store lacks the "RIM Applications" table, as older stores do, and
        // BlackBerry devices list no applications.
        bool withRIMTables = true;
        // Vendors of the long tail that large estates have: each adds one company with two
        // applications, and every PC (and Windows CE device) holds a few of them. 0 keeps
        // the small catalogue alone.
        int tailVendors = 0;
        // Told after each client written, with the count so far and the total; may be empty.
        std::function<void(int written, int total)> progress;
        // A real estate's make-up on top: an operating system of many files in a few
        // builds, a catalogue of hundreds of applications from a hundred companies in
        // several versions (the popular ones on most PCs), files each PC holds alone,
        // thousands of user rules (some retired) and of system rules. About 300 files a PC.
        bool realistic = false;
    };

    // The embedded demo inventory the console opens by default.
    static Options DemoOptions();
    // The estate benchmarks measure on.
    static Options RealisticOptions(int clients, std::uint32_t seed = 1);
    // What the program makes at its default place on first run: a realistic estate of a
    // few thousand clients, made in seconds.
    static Options FirstRunOptions();

    explicit SYInventoryGenerator(const Options& options);

    // Writes the system rules database into installFolder (a native path, made when
    // missing; an empty text writes none) and fills database, a new, empty inventory.
    void Generate(SYDatabase& database, const std::string& installFolder);

    // Creates the inventory file and its installation folder when the inventory does not
    // exist yet. Nonzero if it made them, 0 if the inventory was there already.
    static int CreateIfAbsent(const std::string& databasePath, const std::string& installFolder,
                              const Options& options);

private:
    void WriteSystemRules(const std::string& installFolder);
    void WriteMachine(SYInventoryWriter& writer, int index);
    void WriteCEDevice(SYInventoryWriter& writer, int index);
    void WritePalmDevice(SYInventoryWriter& writer, int index);
    void WriteRIMDevice(SYInventoryWriter& writer, int index);
    void WriteUserRules(SYInventoryWriter& writer);
    void WriteTailApps(SYInventoryWriter& writer, unsigned char invDataType, unsigned long client,
                       int count);
    int Pick(int count);
    bool Chance(int percent);
    std::int32_t LastScan();

    Options m_options;
    std::mt19937 m_random;
};
