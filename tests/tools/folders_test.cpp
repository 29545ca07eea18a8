// SPDX-License-Identifier: MIT
#include "kivconvert/failure.h"
#include "kivconvert/files.h"
#include "kivconvert/folders.h"
#include "tools/scratch_folder.h"

#include <fmt/format.h>

#include <filesystem>
#include <new>
#include <string>

namespace
{

using Folders = tools_tests::ScratchFolder;
using kivconvert::convert_files;
using kivconvert::Existing;
using tools_tests::complaint_of;

/// Refuses what begins with a dash.
void copy(const std::string& input, const std::string& output)
{
    const std::string text = kivconvert::read_file(input);
    if (text.front() == '-') {
        throw kivconvert::FileError(input, "is refused");
    }
    if (text.front() == '!') {
        throw std::bad_alloc();
    }
    kivconvert::write_file(output, text);
}

std::ptrdiff_t count(const std::string& folder)
{
    return std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator());
}

class FilledFolder : public Folders
{
protected:
    void SetUp() override
    {
        Folders::SetUp();
        std::filesystem::create_directories(path("in/within"));
        put("in/.hidden", "-");
        for (int i = 0; i < 40; ++i) {
            put(fmt::format("in/{}.txt", i), fmt::format("text {}", i));
        }
    }

    int status_of_conversion()
    {
        try {
            convert_files({{path("in")}}, path("out"), ".csv", Existing::replaced, copy);
            return 0;
        } catch (const kivconvert::FilesFailed& failed) {
            EXPECT_STREQ(failed.what(), expected_failure.c_str());
            return failed.failure.status;
        }
    }

    std::string expected_failure;
};

TEST_F(FilledFolder, IsConvertedFileByFile)
{
    std::filesystem::create_directories(path("out"));
    put("out/7.csv", "old");
    EXPECT_EQ(status_of_conversion(), 0);
    EXPECT_EQ(count(path("out")), 40);
    for (int i = 0; i < 40; ++i) {
        EXPECT_EQ(get(fmt::format("out/{}.csv", i)), fmt::format("text {}", i));
    }
}

TEST_F(FilledFolder, IsConvertedAsFarAsItCanBe)
{
    put("in/7.txt", "!");
    expected_failure = "1 of 40 files could not be converted";
    EXPECT_EQ(status_of_conversion(), kivconvert::exit_status::refused);
    put("in/8.txt", "-");
    put("in/9.txt", "-");
    expected_failure = "3 of 40 files could not be converted";
    EXPECT_EQ(status_of_conversion(), kivconvert::exit_status::wrong_input);
    EXPECT_EQ(count(path("out")), 39) << "8 and 9 are there from before, 7 has never been, and there are no parts";
}

TEST_F(FilledFolder, MayNotHaveTwoFilesForOneOutput)
{
    put("in/7.pgm", "text");
    EXPECT_EQ(complaint_of([&] { convert_files({{path("in")}}, path("out"), ".csv", Existing::replaced, copy); }),
              path("out/7.csv") + ": would be made of both " + path("in/7.pgm") + " and " + path("in/7.txt"));
    EXPECT_FALSE(std::filesystem::exists(path("out")));
}

TEST_F(FilledFolder, IsNotConvertedIntoItsOwnInputs)
{
    put("in/7.x.csv", "text");
    const std::string folder = path("within/../in"); // another name of the same
    std::filesystem::create_directories(path("within"));
    EXPECT_EQ(complaint_of([&] { convert_files({{path("in")}}, folder, ".x.csv", Existing::replaced, copy); }),
              folder + "/7.x.csv: would be made of " + path("in/7.txt") + ", but is an input itself");
    EXPECT_EQ(get("in/7.x.csv"), "text");
    std::filesystem::remove(path("in/7.x.csv"));
    std::filesystem::rename(path("in/8.txt"), path("in/8.csv"));
    convert_files({{path("in")}}, folder, ".csv", Existing::replaced, copy); // 8.csv takes its own place
    EXPECT_EQ(get("in/8.csv"), "text 8");
    EXPECT_EQ(get("in/7.csv"), "text 7");
}

TEST_F(FilledFolder, NeedsAFolderForTheOutputs)
{
    put("out", "a file");
    EXPECT_EQ(complaint_of([&] { convert_files({{path("in")}}, path("out"), ".csv", Existing::replaced, copy); }),
              path("out") + ": cannot be made a folder: Not a directory");
    EXPECT_EQ(get("out"), "a file");
}

TEST_F(Folders, WithoutFilesAreRefused)
{
    std::filesystem::create_directories(path("in"));
    EXPECT_EQ(complaint_of([&] { convert_files({{path("in")}}, path("out"), ".csv", Existing::replaced, copy); }),
              path("in") + ": holds no files");
    EXPECT_EQ(files(), 1);
}

} // namespace
