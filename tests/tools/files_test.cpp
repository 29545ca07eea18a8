// SPDX-License-Identifier: MIT
#include "kivconvert/files.h"
#include "tools/scratch_folder.h"

#include <filesystem>
#include <string>

namespace
{

using Files = tools_tests::ScratchFolder;
using kivconvert::read_file;
using kivconvert::write_file;
using tools_tests::complaint_of;

TEST_F(Files, AreReadAsTheyWereWritten)
{
    const std::string bytes("\0\r\n\xff", 4);
    write_file(path("a"), bytes);
    EXPECT_EQ(read_file(path("a")), bytes);
    EXPECT_EQ(files(), 1);
}

TEST_F(Files, AreReplacedWhole)
{
    put("a", "a longer text");
    write_file(path("a"), "short");
    EXPECT_EQ(get("a"), "short");
}

TEST_F(Files, ThatCannotBeReadAreNamed)
{
    EXPECT_EQ(complaint_of([&] { read_file(path("none")); }),
              path("none") + ": cannot be opened: No such file or directory");
    EXPECT_EQ(complaint_of([&] { read_file(put("empty", "")); }), path("empty") + ": is empty");
}

TEST_F(Files, AreNotWrittenWhereThereIsNoFolder)
{
    EXPECT_EQ(complaint_of([&] { write_file(path("none/a"), "text"); }),
              path("none/a") + ": cannot be written: No such file or directory");
    EXPECT_EQ(files(), 0);
}

TEST_F(Files, TakeNothingElsesPlace)
{
    std::filesystem::create_directory(path("folder"));
    EXPECT_EQ(complaint_of([&] { write_file(path("folder"), "text"); }),
              path("folder") + ": is there already and not a regular file");
    EXPECT_EQ(files(), 1);
}

TEST_F(Files, MayHaveTheLongestName)
{
    const std::string name(255, 'a');
    write_file(path(name), "text");
    EXPECT_EQ(get(name), "text");
}

TEST_F(Files, LeaveNothingBehindWhenTheyCannotBeRenamed)
{
    const std::string name(256, 'a'); // one letter more than a name may have
    const std::string complaint = complaint_of([&] { write_file(path(name), "text"); });
    EXPECT_TRUE(complaint.starts_with(path(name) + ": cannot be written: "))
        << complaint; // systems give several reasons
    EXPECT_EQ(files(), 0);
}

TEST(Endings, AreToldInAnyCase)
{
    EXPECT_TRUE(kivconvert::is_named_like("folder.x/a.COCO.Json", ".coco.json"));
    EXPECT_FALSE(kivconvert::is_named_like("folder.x/.coco.json", ".coco.json"));
    EXPECT_FALSE(kivconvert::is_named_like("a.coco.json/b", ".coco.json"));
}

TEST(Extensions, AreInLowerCase)
{
    EXPECT_EQ(kivconvert::extension_of("folder.x/Image.PNG"), ".png");
    EXPECT_EQ(kivconvert::extension_of("folder.x/image"), "");
}

} // namespace
