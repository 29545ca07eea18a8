// SPDX-License-Identifier: MIT
// Folders as inputs of kivconvert.
#include "tools/command_line.h"

#include <fmt/format.h>

#include <chrono>
#include <set>

namespace
{

using Names = std::set<std::string>;

class FolderInputs : public tools_tests::CommandLine
{
protected:
    void SetUp() override
    {
        CommandLine::SetUp();
        std::filesystem::create_directory("in");
        for (int i = 1; i <= count; ++i) {
            run(0, fmt::format("image roi:circle:9,9,{0} --width 20 --height 20 -o in/{0}.png", i));
            run(0, fmt::format("region in/{0}.png -o {0}.coco.json", i));
            run(0, fmt::format("region in/{0}.png -o {0}.csv", i));
        }
    }

    static Names names_in(const std::string& folder)
    {
        Names names;
        for (const auto& entry : std::filesystem::directory_iterator(folder)) {
            names.insert(entry.path().filename().string());
        }
        return names;
    }

    static constexpr int count = 4;
};

TEST_F(FolderInputs, AreConvertedFileByFile)
{
    EXPECT_EQ(run(0, "region in -o runs"), "");
    run(0, "region in -o coco --to .coco.json");
    run(0, "image coco -o images --to png");
    for (int i = 1; i <= count; ++i) {
        expect_same(fmt::format("runs/{}.csv", i), fmt::format("{}.csv", i));
        expect_same(fmt::format("coco/{}.coco.json", i), fmt::format("{}.coco.json", i));
    }
    EXPECT_EQ(names_in("images"), (Names{"1.png", "2.png", "3.png", "4.png"}));
}

TEST_F(FolderInputs, AreConvertedExceptForDamagedFiles)
{
    put("in/3.png", "no image");
    put("in/nothing.csv", tools_tests::run_file(0, 5, ""));
    const kivconvert::Outcome outcome = kivconvert::run({"points", "in", "-o", "points"});
    EXPECT_EQ(outcome.status, 2) << "the highest status counts";
    EXPECT_EQ(outcome.err.find("kivconvert: in/3.png: "), 0U);
    EXPECT_NE(outcome.err.find("\nkivconvert: in/nothing.csv: KIVMV_ERR_PARAM_1 (1100008): "), std::string::npos);
    EXPECT_TRUE(outcome.err.ends_with("\nkivconvert: 2 of 5 files could not be converted\n"));
    EXPECT_EQ(names_in("points"), (Names{"1.csv", "2.csv", "4.csv"}));
}

TEST_F(FolderInputs, AreConvertedInPlace)
{
    std::filesystem::create_directory("place");
    std::filesystem::copy("1.coco.json", "place/1.coco.json");
    std::filesystem::copy("in/2.png", "place/2.png");
    for (int i = 0; i < 2; ++i) { // 2.png becomes 2.coco.json, which becomes itself
        run(0, "region place -o place --to .coco.json");
        std::filesystem::remove("place/2.png");
        EXPECT_EQ(names_in("place"), (Names{"1.coco.json", "2.coco.json"}));
    }
}

TEST_F(FolderInputs, NeedAnEndingOfAnOutput)
{
    for (const std::string command : {"region", "image", "contours", "points", "matrix"}) {
        EXPECT_EQ(refuse(2, command + " in -o never --to txt").find("never/*.txt: is not named like "), 0U);
    }
}

TEST_F(FolderInputs, NeedOneOutputEach)
{
    std::filesystem::create_directory("void");
    std::filesystem::copy("in/1.png", "in/1.pgm");
    refuse(2, "region void -o out");
    EXPECT_EQ(refuse(2, "region in -o out"), "out/1.csv: would be made of both in/1.pgm and in/1.png");
    refuse(2, "union in in -o out.csv");
    refuse(2, "image in -o 1.csv");
}

TEST_F(FolderInputs, MayBeSeveral)
{
    run(0, "region in/1.png 2.csv in/3.png -o several --jobs 1");
    EXPECT_EQ(names_in("several"), (Names{"1.csv", "2.csv", "3.csv"}));
    expect_same("several/3.csv", "3.csv");
    EXPECT_EQ(refuse(2, "region in/1.png 1.csv -o out"), "out/1.csv: would be made of both in/1.png and 1.csv");
    EXPECT_EQ(refuse(2, "region in/1.png 2.csv -o out.csv"),
              "out.csv: is named like a file; with several inputs, it is a folder");
    refuse(2, "region in/1.png 2.csv -o out --jobs 0");
}

TEST_F(FolderInputs, MayHaveFoldersWithin)
{
    std::filesystem::create_directories("tree/a/b");
    std::filesystem::create_directories("tree/.hidden");
    std::filesystem::copy("in/1.png", "tree/1.png");
    std::filesystem::copy("in/1.png", "tree/a/1.png");
    std::filesystem::copy("in/2.png", "tree/a/b/2.png");
    std::filesystem::copy("in/2.png", "tree/.hidden/2.png");
    run(0, "region tree -o flat");
    EXPECT_EQ(names_in("flat"), (Names{"1.csv"}));
    for (int i = 0; i < 2; ++i) { // what is in the folder for the outputs is no input
        run(0, "region tree --recursive -o tree/out");
        EXPECT_EQ(names_in("tree/out"), (Names{"1.csv", "a"}));
        expect_same("tree/out/1.csv", "1.csv");
        expect_same("tree/out/a/1.csv", "1.csv");
        expect_same("tree/out/a/b/2.csv", "2.csv");
    }
}

TEST_F(FolderInputs, AreLeftOutWhereTheirOutputsAreThereOnDemand)
{
    using std::filesystem::file_time_type;
    run(0, "region in -o out");
    put("out/1.csv", "kept");
    put("out/2.csv", "");
    put("out/3.csv", "old");
    std::filesystem::last_write_time("out/3.csv", file_time_type::clock::now() - std::chrono::hours(1));
    std::filesystem::remove("out/4.csv");
    run(0, "region in -o out --resume");
    EXPECT_EQ(get("out/1.csv"), "kept");
    for (const std::string i : {"2", "3", "4"}) {
        expect_same("out/" + i + ".csv", i + ".csv");
    }
    run(0, "region in -o out --resume"); // nothing is left to do
    EXPECT_EQ(get("out/1.csv"), "kept");
    run(0, "region in -o out");
    expect_same("out/1.csv", "1.csv");
    refuse(2, "region in -o pages --page all --resume");
}

} // namespace
