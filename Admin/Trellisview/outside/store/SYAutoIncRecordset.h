#pragma once

#include "outside/store/SYRecordset.h"

// A record set over a table whose key the store assigns. After Update of a new row the
// set holds the new key, and keeps it after Close, until the set runs or moves again.
class SYAutoIncRecordset : public SYRecordset {
public:
    using SYRecordset::SYRecordset;

    // Nonzero writes the pending AddNew or Edit; 0 drops it. Gives 1; failures throw.
    int Update(int write = 1);

    int HaveNewID() const { return HaveAddedKey(); }
    unsigned long NewID() const { return static_cast<unsigned long>(AddedKey()); }
};
