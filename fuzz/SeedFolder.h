// What every maker of seeds does with them.
#pragma once

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace orvane::fuzz {

struct Seed {
    std::string name;
    std::string bytes;
};

// Writes the seeds into the folder that is the program's only argument. Returns the program's exit code.
inline int WriteSeeds(int count, char** arguments, const std::vector<Seed>& seeds) {
    if (count != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", arguments[0]);
        return 2;
    }
    const std::filesystem::path folder = arguments[1];
    std::filesystem::create_directories(folder);
    for (const auto& seed : seeds) {
        std::ofstream file(folder / seed.name, std::ios::binary);
        file << seed.bytes;
        if (!file.flush()) {
            std::fprintf(stderr, "cannot write %s\n", seed.name.c_str());
            return 1;
        }
    }
    return 0;
}

} // namespace orvane::fuzz
