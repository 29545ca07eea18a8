// SPDX-License-Identifier: MIT
#include "kivconvert/system.h"
#include "tools/command_line.h"

#include "kivconvert/files.h"
#include "kivconvert/paths.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>
#include <unistd.h>

namespace
{

using Systems = tools_tests::CommandLine;
namespace names = std::filesystem;
using kivconvert::path_of;
namespace kiv_system = kivconvert::system;

TEST_F(Systems, HaveTemporaryFiles)
{
    std::FILE* const file = kiv_system::open_temporary();
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(std::fwrite("a\r\n\0b", 1, 5, file), 5U);
    std::rewind(file);
    char bytes[6] = {};
    EXPECT_EQ(std::fread(bytes, 1, sizeof bytes, file), 5U);
    EXPECT_EQ(std::string(bytes, 5), std::string("a\r\n\0b", 5));
    EXPECT_EQ(std::fclose(file), 0);
    EXPECT_EQ(files(), 0);
}

TEST_F(Systems, ReadBytesAtAPlace)
{
    put("a", "0123456789");
    std::FILE* const file = std::fopen("a", "rb");
    std::string bytes(3, '\0');
    EXPECT_TRUE(kiv_system::read_at(fileno(file), 7, bytes.data(), 3));
    EXPECT_EQ(bytes, "789");
    EXPECT_TRUE(kiv_system::read_at(fileno(file), 0, bytes.data(), 3));
    EXPECT_EQ(bytes, "012");
    EXPECT_FALSE(kiv_system::read_at(fileno(file), 8, bytes.data(), 3)) << "there are two";
    EXPECT_FALSE(kiv_system::read_at(fileno(file), 1ULL << 32, bytes.data(), 1));
    std::fclose(file);
}

TEST_F(Systems, CreateFilesThatAreNotThereYet)
{
    put("a", "old");
    errno = 0;
    EXPECT_EQ(kiv_system::create("a"), -1);
    EXPECT_EQ(errno, EEXIST);
    const int file = kiv_system::create("b");
    EXPECT_EQ(write(file, "a\n", 2), 2);
    close(file);
    EXPECT_EQ(get("a"), "old");
    EXPECT_EQ(get("b"), "a\n");
    EXPECT_TRUE(kiv_system::replace("b", "a"));
    EXPECT_EQ(get("a"), "a\n");
    EXPECT_EQ(files(), 1);
}

TEST_F(Systems, TakeNamesOfFilesForUtf8)
{
    const std::string folder = "gr\u00f6\u00dfe/\u65e5\u672c";
    names::create_directories(path_of(folder));
    kivconvert::write_file(folder + "/\u00e4.csv", tools_tests::run_file(7, 5, "1,2,3\n"));
    EXPECT_TRUE(names::exists(path_of(folder) / u8"\u00e4.csv"));
    run(0, "image -r gr\u00f6\u00dfe -o images");
    EXPECT_TRUE(names::exists(names::path(u8"images/\u65e5\u672c/\u00e4.png")));
    run(0, "dataset -r images -o set.json");
    EXPECT_NE(get("set.json").find("\"\u65e5\u672c/\u00e4.png\""), std::string::npos) << get("set.json");
    EXPECT_EQ(run(2, "info " + folder + "/\u00f6.png").find(folder + "/\u00f6.png: cannot be opened: "), 0U);
}

} // namespace
