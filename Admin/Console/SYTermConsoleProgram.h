#pragma once

#include <string>

// The console as a program: opens the inventory, takes the terminal, installs the modal
// host and runs the main screen until the user quits. Gives the exit code.
class SYTermConsoleProgram {
public:
    static int Run(const std::string& databasePath);
};
