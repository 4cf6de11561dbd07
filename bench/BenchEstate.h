#pragma once

#include <string>

// The realistic estate the benchmarks run on, generated once per process and client count
// into a file of a temporary folder that goes at exit. generateSeconds is 0 when the
// estate was kept from an earlier run (see BenchEstate.cpp).
struct BenchEstate {
    std::string folder;
    std::string database;
    std::string install;
    double generateSeconds = 0;
    double bytes = 0;
};

const BenchEstate& Estate(int clients);
