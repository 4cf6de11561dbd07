#include "outside/framework/SYTimeChecker.h"

bool SYTimeChecker::EqualIgnoreSeconds(const CTime& first, const CTime& second) {
    if (first.IsNull() || second.IsNull())
        return first.IsNull() && second.IsNull();
    return first.LocalMinute() == second.LocalMinute();
}
