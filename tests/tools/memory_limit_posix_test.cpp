// SPDX-License-Identifier: MIT
// Small files that ask for much memory: refused, or done without it.
#include "tools/command_line.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

using tools_tests::run_file;

#ifdef __SANITIZE_ADDRESS__
constexpr bool frees_at_once = false; // the address sanitizer keeps freed memory for a while, to see uses of it
#else
constexpr bool frees_at_once = true;
#endif

class SmallFiles : public tools_tests::CommandLine
{
protected:
    /// Runs kivconvert in another process. @returns the most memory that it had at a time, in MiB, or -1 if its exit
    /// status is another one
    static long peak_memory(int status, const std::string& arguments)
    {
        const pid_t process = fork();
        if (process == 0) {
            _exit(kivconvert::run(tools_tests::words_of(arguments)).status);
        }
        int ended = 0;
        rusage usage = {};
        wait4(process, &ended, 0, &usage);
        return WIFEXITED(ended) && WEXITSTATUS(ended) == status ? usage.ru_maxrss / 1024 : -1;
    }

    void expect_small(int status, const std::string& arguments, long most) const
    {
        const long memory = peak_memory(status, arguments);
        EXPECT_GE(memory, 0) << arguments;
        if (frees_at_once) {
            EXPECT_LE(memory, most) << arguments;
        }
    }
};

TEST_F(SmallFiles, WithRunsFarOutsideAreComplementedInTheFrame)
{
    for (const int row : {30'000'000, 2'000'000'000, -2'000'000'000}) {
        put("far.csv", run_file(10, 10, "4,2,9\n" + std::to_string(row) + ",1,1\n"));
        expect_small(0, "complement far.csv -o out.csv", 400);
        expect_small(0, "complement far.csv --rules regions -o out.csv", 400);
        expect_small(0, "complement far.csv --rules rois -o out.csv", 400);
    }
}

TEST_F(SmallFiles, HaveTheComplementThatTheyHadBefore)
{
    put("near.csv", run_file(3, 4, "1,0,0\n4,0,0\n"));
    run(0, "complement near.csv -o near.png --rules regions");
    put("far.csv", run_file(3, 4, "1,0,0\n1000,0,0\n"));
    run(0, "complement far.csv -o far.png --rules regions");
    expect_same("near.png", "far.png");
    EXPECT_TRUE(has_fact("far.png", "pixels 11")) << "all except one, as the last row of runs is outside";
    put("above.csv", run_file(3, 4, "-1000,0,0\n1,0,0\n2,0,0\n"));
    run(0, "complement above.csv -o above.png --rules regions");
    EXPECT_TRUE(has_fact("above.png", "pixels 8")) << "rows 0 and 3, and two of row 1";
}

TEST_F(SmallFiles, WithLargeFramesHaveOutlines)
{
    put("large.json", R"({"width":16384,"height":16384,"contours":[{"points":[[1,1],[1,9],[9,9],[9,1]]},
        {"points":[[3,3],[5,3],[5,5],[3,5]]}]})");
    expect_small(0, "contours large.json -o out.svg", 400);
    put("larger.csv", run_file(32768, 32768, "1,1,5\n2,1,1\n2,5,5\n3,1,5\n"));
    EXPECT_EQ(refuse(2, "contours larger.csv -o new.svg"),
              "larger.csv: up to 1073741824 pixels would take 4096 MiB; --max-memory allows 1024");
    refuse(2, "image larger.csv -o new.png");
    expect_small(0, "region larger.csv -o out.json", 400);
}

TEST_F(SmallFiles, OfFullRowsAreNotListed)
{
    std::string rows;
    for (int row = 0; row < 128; ++row) {
        rows += std::to_string(row) + ",0,1048575\n";
    }
    put("rows.csv", run_file(1048576, 128, rows));
    EXPECT_EQ(refuse(2, "points rows.csv -o out.csv"),
              "rows.csv: up to 134217728 points would take 8192 MiB; --max-memory allows 1024");
    refuse(2, "points rows.csv --once -o out.csv");
    expect_small(2, "points rows.csv -o out.csv", 400);
}

TEST_F(SmallFiles, OfManyRunsInARowAreNotCombined)
{
    std::string left;
    std::string right;
    std::string same;
    for (int i = 0; i < 6000; ++i) {
        left += "0," + std::to_string(8 * i) + "," + std::to_string(8 * i) + "\n";
        right += "0," + std::to_string(8 * i + 4) + "," + std::to_string(8 * i + 4) + "\n";
        same += "0,0,9\n";
    }
    const std::string further = "1,0,0\n2,0,0\n";
    put("left.csv", run_file(48000, 3, left + further));
    put("right.csv", run_file(48000, 3, right + further));
    put("same.csv", run_file(48000, 3, same + further));
    EXPECT_EQ(refuse(2, "union left.csv right.csv -o out.csv --rules regions"),
              "union of left.csv and right.csv: up to 72006006 runs would take 4395 MiB; --max-memory allows 1024");
    expect_small(2, "union left.csv right.csv -o out.csv --rules regions", 400);
    for (const std::string operation : {"intersection", "difference"}) {
        expect_small(0, operation + " left.csv right.csv -o runs.csv --rules regions", 400);
        refuse(2, operation + " same.csv same.csv -o out.csv --rules regions");
        refuse(2, operation + " same.csv same.csv --rules rois -o out.csv");
    }
}

TEST_F(SmallFiles, MayTakeMoreOrLessOnDemand)
{
    put("a.csv", run_file(2048, 2048, "0,0,2047\n"));
    refuse(2, "image a.csv -o out.png --max-memory 15");
    refuse(2, "--max-memory 15 image a.csv -o out.png");
    run(0, "image a.csv -o out.png --max-memory 16");
    run(0, "image a.csv -o out.png");
    refuse(2, "image a.csv -o new.png --max-memory 0");
    expect_small(0, "image a.csv -o out.png --max-memory 16", 400);
}

} // namespace
