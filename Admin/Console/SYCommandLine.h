#pragma once

// The sub-commands of trellisview: the inventory's views as text, CSV or JSON, rule writes
// with a dry run, exports and the generator. Exit codes: 0 done, 1 the store failed or
// refused or an id is unknown, 2 bad usage, 3 a rule write refused by the rules.
class SYCommandLine {
public:
    // True when the words ask for more than the bare summary ([--db FILE] [--summary]).
    static bool Wants(int argc, char** argv);
    static int Run(int argc, char** argv);
};
