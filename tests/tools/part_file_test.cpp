// SPDX-License-Identifier: MIT
#include "kivconvert/part_file.h"
#include "tools/scratch_folder.h"

#include <fmt/format.h>

#include <cerrno>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace
{

using PartFiles = tools_tests::ScratchFolder;
using kivconvert::PartFile;
using kivconvert::PartName;

#ifdef _WIN32
constexpr int folder_in_the_way = EACCES;
#else
constexpr int folder_in_the_way = EISDIR;
#endif

TEST_F(PartFiles, AreNotSeenBeforeTheyAreWhole)
{
    for (const PartName name : {PartName::none_if_possible, PartName::always}) {
        PartFile part(path("a"), name);
        EXPECT_TRUE(part.write("first "));
        EXPECT_TRUE(part.write("second"));
        EXPECT_FALSE(std::filesystem::exists(path("a")));
        EXPECT_TRUE(part.replace_target());
        EXPECT_EQ(get("a"), "first second");
        EXPECT_EQ(files(), 1);
        std::filesystem::remove(path("a"));
    }
}

TEST_F(PartFiles, ReplaceTheTarget)
{
    for (const PartName name : {PartName::none_if_possible, PartName::always}) {
        put("a", "old");
        PartFile part(path("a"), name);
        EXPECT_TRUE(part.write("new"));
        EXPECT_EQ(get("a"), "old");
        EXPECT_TRUE(part.replace_target());
        EXPECT_EQ(get("a"), "new");
        EXPECT_EQ(files(), 1);
    }
}

TEST_F(PartFiles, AreGoneUnlessTheyReplaceTheTarget)
{
    for (const PartName name : {PartName::none_if_possible, PartName::always}) {
        {
            PartFile part(path("a"), name);
            EXPECT_TRUE(part.write("text"));
        }
        EXPECT_EQ(files(), 0);
        std::filesystem::create_directory(path("folder"));
        {
            PartFile part(path("folder"), name);
            EXPECT_TRUE(part.write("text"));
            EXPECT_FALSE(part.replace_target());
            EXPECT_EQ(errno, folder_in_the_way);
        }
        EXPECT_EQ(files(), 1);
        std::filesystem::remove(path("folder"));
    }
}

TEST_F(PartFiles, SayWhyTheyCannotBeCreated)
{
    for (const PartName name : {PartName::none_if_possible, PartName::always}) {
        PartFile part(path("none/a"), name);
        EXPECT_FALSE(part.write("text"));
        EXPECT_EQ(errno, ENOENT);
    }
}

TEST_F(PartFiles, LieInTheWorkingFolderWithItsTarget)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(path(""));
    PartFile part("a");
    EXPECT_TRUE(part.write("text"));
    EXPECT_TRUE(part.replace_target());
    std::filesystem::current_path(before);
    EXPECT_EQ(get("a"), "text");
}

TEST_F(PartFiles, LeaveAloneWhatWasLeftBehind)
{
    constexpr int leftovers = 4000; // of a process that had the same number
    for (int i = 1; i <= leftovers; ++i) {
        put(fmt::format(".kivconvert-{}-{}", getpid(), i), "left");
    }
    PartFile part(path("a"), PartName::always);
    EXPECT_TRUE(part.write("text"));
    EXPECT_TRUE(part.replace_target());
    EXPECT_EQ(get("a"), "text");
    EXPECT_EQ(get(fmt::format(".kivconvert-{}-{}", getpid(), leftovers)), "left");
    EXPECT_EQ(files(), leftovers + 1);
}

} // namespace
