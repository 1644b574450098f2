// A disk in memory and a command interpreter that take the place of the system's behind misc_io, and a popmsg that
// keeps its messages. Files are opened as Windows opens text files.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

struct fake_disk {
    std::map<std::string, std::string> files; // by full path, or by name in the current directory
    std::set<std::string> dirs;
    std::vector<std::string> commands; // as given to system, in order
    int operations = 0;                // operations asked for so far
    int fail_at = 0;                   // number of the operation that fails; 0 for none

    fake_disk();  // puts itself behind misc_io
    ~fake_disk(); // restores what was there
    fake_disk(const fake_disk &) = delete;
    fake_disk &operator=(const fake_disk &) = delete;
};

// The messages since the last call, also of operations on the real disk.
std::vector<std::string> take_messages();
