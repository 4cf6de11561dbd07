#pragma once

#include "navigation/SYInvTreeWnd.h"

// The inventory tree with its Windows PC branch shown, as the console shows it: the roots
// of the applications, the unidentified and the ignored Windows files, kept in step on
// every update like the other branches.
class SYCliTreeWnd : public SYInvTreeWnd {
public:
    void UpdateWithWindowsBranch();
};
