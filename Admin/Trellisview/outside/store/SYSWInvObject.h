#pragma once

#include "outside/framework/CObject.h"

// Inventory codes, the same everywhere: record sets, rule engine, rule service, views.
enum SYInvDataType : unsigned char {
    InvDataWindows = 0,
    InvDataPPC = 1,
    InvDataPalm = 2,
    InvDataRIM = 3,
};

// Small base of everything that works on one inventory: the inventory's code, written
// directly by the creator before first use.
class SYSWInvObject : public CObject {
public:
    unsigned char InvDataType = InvDataWindows;
};
