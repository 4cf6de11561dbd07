#pragma once

#include <string>

class SYDatabase;

// The console as a program on an open inventory: takes the terminal, installs the modal
// host and runs the main screen until the user quits. Gives the exit code.
class SYTermConsoleProgram {
public:
    static int Run(SYDatabase& database, const std::string& installPath);
};
