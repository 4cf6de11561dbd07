#pragma once

#include <sys/wait.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "support/TempDir.h"

// Runs the real trellisview binary with words and gives back what it printed and its exit
// code; scratch files for the two streams live in the folder given.
struct CommandResult {
    std::string out;
    std::string err;
    int code = -1;
};

inline CommandResult runCommand(const std::string& folder, const std::vector<std::string>& words) {
    auto quoted = [](const std::string& word) {
        std::string text = "'";
        for (char c : word)
            text += c == '\'' ? std::string("'\\''") : std::string(1, c);
        return text + "'";
    };
    std::string command = quoted(TV_BINARY);
    for (const std::string& word : words)
        command += " " + quoted(word);
    const std::string out = folder + "/stdout.txt";
    const std::string err = folder + "/stderr.txt";
    command += " >" + quoted(out) + " 2>" + quoted(err) + " </dev/null";
    const int status = std::system(command.c_str());
    CommandResult result;
    result.out = readFile(out);
    result.err = readFile(err);
    result.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return result;
}
