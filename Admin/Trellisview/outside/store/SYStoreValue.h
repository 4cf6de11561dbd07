#pragma once

#include <cstdint>

#include "outside/framework/CTime.h"

// How sizes and times are kept in the store.
class SYStoreValue {
public:
    // A 64-bit unsigned size kept in the engine's signed 64-bit integer, bit for bit.
    static std::int64_t FromSize(std::uint64_t size) { return static_cast<std::int64_t>(size); }
    static std::uint64_t ToSize(std::int64_t stored) { return static_cast<std::uint64_t>(stored); }
    static std::uint64_t Size(unsigned long sizeLo, unsigned long sizeHi) {
        return (static_cast<std::uint64_t>(sizeHi & 0xFFFFFFFFUL) << 32) | (sizeLo & 0xFFFFFFFFUL);
    }
    static unsigned long Lo(std::uint64_t size) {
        return static_cast<unsigned long>(size & 0xFFFFFFFFU);
    }
    static unsigned long Hi(std::uint64_t size) { return static_cast<unsigned long>(size >> 32); }

    // The stored times that fall in the same local minute as time: [first, last]. Time 0
    // (none) is a range of itself only. Exact for every zone whose offset is whole minutes.
    struct Range {
        std::int64_t first;
        std::int64_t last;
    };
    static Range SameMinute(const CTime& time) {
        if (time.IsNull())
            return {0, 0};
        const std::int64_t first = time.LocalMinute();
        return {first, first + 59};
    }
};
