// SPDX-License-Identifier: MIT
// Runs a fuzz target on files and on all files of folders, where libFuzzer is not linked.
#include "target.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <vector>

namespace fs = std::filesystem;

namespace
{

std::vector<fs::path> files_at(const fs::path& path)
{
    if (!fs::is_directory(path)) {
        return {path};
    }
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(path)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

void replay(const fs::path& path)
{
    std::cout << path.string() << std::endl; // before anything can crash
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot be opened");
    }
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

} // namespace

int main(int argc, char** argv)
{
    LLVMFuzzerInitialize(&argc, &argv);
    int replayed = 0;
    int failed = 0;
    for (int i = 1; i < argc; ++i) {
        for (const fs::path& file : files_at(argv[i])) {
            ++replayed;
            try {
                replay(file);
            } catch (const std::exception& error) {
                ++failed;
                std::cerr << "FAILED: " << error.what() << '\n';
            }
        }
    }
    std::cout << "replayed " << replayed << ", failed " << failed << '\n';
    return replayed > 0 && failed == 0 ? 0 : 1;
}
