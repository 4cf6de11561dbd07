#pragma once

#include "outside/framework/CTime.h"

class SYTimeChecker {
public:
    // True if both times fall in the same local minute. Two absent times agree; an absent
    // time agrees with no real time.
    static bool EqualIgnoreSeconds(const CTime& first, const CTime& second);
};
