// SPDX-License-Identifier: MIT
#include "kivconvert/files.h"
#include "tools/scratch_folder.h"

#include <barrier>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

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
    EXPECT_EQ(complaint_of([&] { read_file(path("")); }), path("") + ": cannot be read: Is a directory");
    EXPECT_EQ(complaint_of([] { read_file("/proc/self/mem"); }).find("/proc/self/mem: cannot be read: "), 0U);
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

TEST_F(Files, AreReplacedBehindLinks)
{
    put("a", "old");
    std::filesystem::create_symlink(path("a"), path("link"));
    write_file(path("link"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(path("link")));
    EXPECT_EQ(get("a"), "new");
    EXPECT_EQ(files(), 2);
}

TEST_F(Files, AreNeverSeenHalfWritten)
{
    const std::string texts[] = {std::string(100'000, 'a'), std::string(300'000, 'b')};
    write_file(path("a"), texts[0]);
    std::barrier both(2); // so that they write at the same time, again and again
    std::vector<std::thread> writers;
    for (const std::string& text : texts) {
        writers.emplace_back([&, this] {
            for (int i = 0; i < 200; ++i) {
                both.arrive_and_wait();
                EXPECT_EQ(complaint_of([&] { write_file(path("a"), text); }), "no complaint");
            }
        });
    }
    for (int i = 0; i < 500; ++i) {
        const std::string seen = read_file(path("a"));
        EXPECT_TRUE(seen == texts[0] || seen == texts[1]) << seen.size() << " bytes";
    }
    for (std::thread& writer : writers) {
        writer.join();
    }
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
    EXPECT_EQ(complaint_of([&] { write_file(path(name), "text"); }),
              path(name) + ": cannot be written: " + std::strerror(ENAMETOOLONG));
    EXPECT_EQ(files(), 0);
}

TEST_F(Files, DoNotTakeThePlaceOfLinksToNothing)
{
    std::filesystem::create_symlink(path("none"), path("link"));
    EXPECT_EQ(complaint_of([&] { write_file(path("link"), "new"); }),
              path("link") + ": is there already and not a regular file");
    EXPECT_TRUE(std::filesystem::is_symlink(path("link")));
    EXPECT_EQ(files(), 1);
}

TEST_F(Files, KeepTheirPermissionsWhenTheyAreReplaced)
{
    for (const auto mode : {std::filesystem::perms(0600), std::filesystem::perms(0755)}) {
        std::filesystem::permissions(put("a", "old"), mode);
        write_file(path("a"), "new");
        EXPECT_EQ(get("a"), "new");
        EXPECT_EQ(std::filesystem::status(path("a")).permissions(), mode);
    }
}

TEST_F(Files, ThatAreReadOnlyAreNotReplaced)
{
    std::filesystem::permissions(put("a", "old"), std::filesystem::perms(0444));
    EXPECT_EQ(complaint_of([&] { write_file(path("a"), "new"); }), path("a") + ": is read-only");
    EXPECT_EQ(get("a"), "old");
    std::filesystem::create_symlink(path("a"), path("link"));
    EXPECT_EQ(complaint_of([&] { write_file(path("link"), "new"); }), path("link") + ": is read-only");
    EXPECT_EQ(get("a"), "old");
    EXPECT_EQ(files(), 2);
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
