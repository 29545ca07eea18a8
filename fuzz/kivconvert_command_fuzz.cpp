// SPDX-License-Identifier: MIT
// Whole commands of kivconvert on two files, with a limit of memory: each ends, with a result or with a complaint of
// one line, and takes no more memory than it may.
#include "inputs.h"
#include "target.h"

#include "kivconvert/run.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <vector>

namespace
{

constexpr long most_memory = 1536L * 1024; // in KiB; sanitizers need most of it

constexpr const char* commands[] = {
    "region A -o out.csv",
    "region A -o out.coco.json",
    "region A --width 9 --height 9 --sort -o out.json",
    "image A -o out.png",
    "image A --width 5 --height 7 -o out.pgm",
    "contours A -o out.json",
    "contours A -o out.geojson",
    "contours A -o out.svg",
    "points A -o out.csv",
    "points A --once -o out.csv",
    "points A --contour 0 --rounded -o out.csv",
    "matrix A -o out.csv",
    "edit A B --add -o out.png",
    "union A B -o out.csv",
    "union A B --rules rois -o out.csv",
    "intersection A B -o out.csv",
    "difference A B -o out.png",
    "difference A B --rules rois -o out.json",
    "complement A -o out.csv",
    "complement A --rules rois -o out.csv",
    "info A",
    "union A B --rules regions -o out.csv",
    "intersection A B --rules regions -o out.csv",
    "difference A B --rules regions -o out.csv",
    "complement A --rules regions -o out.csv",
    "xor A B A -o out.csv",
    "components A -o out.tif",
    "fill A -o out.csv",
    "open A --disk 2 -o out.csv",
    "close A --size 3x2 -o out.csv",
    "dilate A --element B -o out.csv",
    "erode A --element B -o out.csv",
    "measure A --json",
    "measure A --by label",
    "compare A B --picture out.png",
    "dataset A -o out.json --segmentation polygons",
    "dataset A -o out.json --by file",
    "region A --annotation 1 -o out.csv",
};

constexpr const char* endings[] = {".csv", ".json", ".geojson", ".pgm"};

/// One of the entries, chosen by a byte; printable bytes begin at 'a'.
template <std::size_t count>
const char* choice(const char* const (&entries)[count], unsigned char byte)
{
    return entries[static_cast<unsigned char>(byte - 'a') % count];
}

std::string put(const char* name, const char* ending, std::string_view bytes)
{
    const std::string path = std::string(name) + ending;
    std::ofstream(path, std::ios::binary) << bytes;
    return path;
}

void enter_empty_folder()
{
    static const std::string folder = [] {
        std::string name = std::filesystem::temp_directory_path() / "kivconvert-fuzz-XXXXXX";
        return std::string(mkdtemp(name.data()));
    }();
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
    std::filesystem::current_path(folder);
}

std::vector<std::string> arguments_of(const char* command, const std::string& a, const std::string& b)
{
    std::vector<std::string> arguments = {"--max-memory", "16"};
    std::istringstream words(command);
    for (std::string word; words >> word;) {
        arguments.push_back(word == "A" ? a : word == "B" ? b : word);
    }
    return arguments;
}

/// One line; or several if annotations of a data set are malformed, the last of which counts them.
bool is_complaint(const std::string& text)
{
    const auto lines = std::count(text.begin(), text.end(), '\n');
    return text.empty() || (text.back() == '\n' && (lines == 1 || text.find(" annotation") != text.npos) &&
                            text.starts_with("kivconvert: "));
}

} // namespace

// Three letters for the command and the formats of the files, then the first file, a line of "--", and the second one.
int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    fuzz::FuzzedBytes input(bytes, size);
    const char* const command = choice(commands, input.byte());
    const char* const ending_of_a = choice(endings, input.byte());
    const char* const ending_of_b = choice(endings, input.byte());
    constexpr std::string_view separator = "\n--\n";
    const std::string_view text = input.text();
    const auto stop = std::min(text.find(separator), text.size());
    const auto next = std::min(stop + separator.size(), text.size());

    const std::filesystem::path before = std::filesystem::current_path();
    enter_empty_folder();
    const std::string a = put("a", ending_of_a, text.substr(0, stop));
    const std::string b = put("b", ending_of_b, text.substr(next));
    const kivconvert::Outcome outcome = kivconvert::run(arguments_of(command, a, b));
    std::filesystem::current_path(before);

    const bool differs = std::string_view(command).starts_with("compare") && outcome.status == 1;
    EXPECT_EQ(outcome.status == 0 || differs, outcome.err.empty());
    EXPECT_TRUE(is_complaint(outcome.err)) << outcome.err;
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    EXPECT_LT(usage.ru_maxrss, most_memory);
    return 0;
}
