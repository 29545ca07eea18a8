// SPDX-License-Identifier: MIT
// Links, pipes, permissions, files that are read while they are replaced, and names that Windows does not have.
#include "kivconvert/files.h"
#include "kivconvert/part_file.h"
#include "tools/command_line.h"

#include <barrier>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <vector>

namespace
{

using SpecialFiles = tools_tests::ScratchFolder;
using SpecialInputs = tools_tests::CommandLine;
using kivconvert::read_file;
using kivconvert::write_file;
using tools_tests::complaint_of;

TEST_F(SpecialFiles, ThatCannotBeReadToTheEndAreNamed)
{
    EXPECT_EQ(complaint_of([&] { read_file(path("")); }), path("") + ": cannot be read: Is a directory");
    EXPECT_EQ(complaint_of([] { read_file("/proc/self/mem"); }).find("/proc/self/mem: cannot be read: "), 0U);
}

TEST_F(SpecialFiles, AreReplacedBehindLinks)
{
    put("a", "old");
    std::filesystem::create_symlink(path("a"), path("link"));
    write_file(path("link"), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(path("link")));
    EXPECT_EQ(get("a"), "new");
    EXPECT_EQ(files(), 2);
}

TEST_F(SpecialFiles, DoNotTakeThePlaceOfLinksToNothing)
{
    std::filesystem::create_symlink(path("none"), path("link"));
    EXPECT_EQ(complaint_of([&] { write_file(path("link"), "new"); }),
              path("link") + ": is there already and not a regular file");
    EXPECT_TRUE(std::filesystem::is_symlink(path("link")));
    EXPECT_EQ(files(), 1);
}

TEST_F(SpecialFiles, KeepTheirPermissionsWhenTheyAreReplaced)
{
    for (const auto mode : {std::filesystem::perms(0600), std::filesystem::perms(0755)}) {
        std::filesystem::permissions(put("a", "old"), mode);
        write_file(path("a"), "new");
        EXPECT_EQ(get("a"), "new");
        EXPECT_EQ(std::filesystem::status(path("a")).permissions(), mode);
    }
}

TEST_F(SpecialFiles, ThatAreReadOnlyAreNotReplaced)
{
    std::filesystem::permissions(put("a", "old"), std::filesystem::perms(0444));
    EXPECT_EQ(complaint_of([&] { write_file(path("a"), "new"); }), path("a") + ": is read-only");
    EXPECT_EQ(get("a"), "old");
    std::filesystem::create_symlink(path("a"), path("link"));
    EXPECT_EQ(complaint_of([&] { write_file(path("link"), "new"); }), path("link") + ": is read-only");
    EXPECT_EQ(get("a"), "old");
    EXPECT_EQ(files(), 2);
}

TEST_F(SpecialFiles, AreNeverSeenHalfWritten)
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

TEST_F(SpecialFiles, KeepTheirPermissionsThroughPartFiles)
{
    for (const auto name : {kivconvert::PartName::none_if_possible, kivconvert::PartName::always}) {
        std::filesystem::permissions(put("a", "old"), std::filesystem::perms(0640));
        kivconvert::PartFile part(path("a"), name);
        EXPECT_TRUE(part.replace_target());
        EXPECT_EQ(std::filesystem::status(path("a")).permissions(), std::filesystem::perms(0640));
    }
}

TEST_F(SpecialInputs, AreConvertedExceptForWhatIsNoFile)
{
    put("1.csv", tools_tests::run_file(7, 5, "1,2,3\n"));
    std::filesystem::create_directory("odd");
    std::filesystem::create_symlink("../1.csv", "odd/1.csv");
    std::filesystem::create_symlink("2.csv", "odd/2.csv");
    std::filesystem::create_symlink("none.csv", "odd/3.csv");
    ASSERT_EQ(mkfifo("odd/4.csv", 0600), 0);
    const kivconvert::Outcome outcome = kivconvert::run({"region", "odd", "-o", "even"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.err, "kivconvert: odd/2.csv: is not a regular file\n"
                           "kivconvert: odd/3.csv: is not a regular file\n"
                           "kivconvert: odd/4.csv: is not a regular file\n"
                           "kivconvert: 3 of 4 files could not be converted\n");
    expect_same("even/1.csv", "1.csv");
}

TEST_F(SpecialInputs, MayHaveQuotesInTheirNames)
{
    put("a,\"b\".csv", tools_tests::run_file(7, 5, "1,2,3\n"));
    const std::string table = run(0, std::vector<std::string>{"measure", "--by", "file", "a,\"b\".csv"});
    EXPECT_NE(table.find("\n\"a,\"\"b\"\".csv\",2,"), std::string::npos) << table;
}

TEST_F(SpecialInputs, AreNoPages)
{
    put("stack.tif", "old");
    std::filesystem::create_directory("in");
    ASSERT_EQ(mkfifo("in/f.csv", 0600), 0);
    EXPECT_EQ(kivconvert::run({"image", "in", "-o", "stack.tif"}).err, "kivconvert: in/f.csv: is not a regular file\n"
                                                                       "kivconvert: 1 of 1 pages could not be made\n");
    EXPECT_EQ(get("stack.tif"), "old");
}

} // namespace
