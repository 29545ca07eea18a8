// SPDX-License-Identifier: MIT
// Images with colours, alpha channels, pages and more than 8 bits on kivconvert's command line.
#include "tools/command_line.h"
#include "tools/made_images.h"

#include <string>

namespace
{

using ImagesCommandLine = tools_tests::CommandLine;
using tools_tests::run_file;
using namespace std::string_literals;

TEST_F(ImagesCommandLine, LabelsInAnyColourAreForeground)
{
    put("labels.ppm", "P6\n5 1\n255\n\0\0\1\0\0\0\2\0\0\0\3\0\0\0\xff"s);
    run(0, "region labels.ppm -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(5, 1, "0,0,0\n0,2,4\n"));
    run(0, "region labels.ppm --threshold 3 -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(5, 1, "0,3,4\n"));
}

TEST_F(ImagesCommandLine, DeepImagesAreTakenByEveryCommand)
{
    put("deep.pgm", "P5\n4 1\n65535\n\0\1\0\0\1\x2c\0\2"s);
    run(0, "region deep.pgm -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(4, 1, "0,0,0\n0,2,3\n"));
    run(0, "region deep.pgm --threshold 300 -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(4, 1, "0,2,2\n"));
    run(0, "image deep.pgm -o mask.pgm");
    EXPECT_EQ(get("mask.pgm"), "P5\n4 1\n255\n\xff\0\xff\xff"s);
    EXPECT_TRUE(has_fact("deep.pgm", "pixels 3"));
    run(0, "union deep.pgm mask.pgm -o out.csv");
    run(0, "complement deep.pgm --rules rois -o out.csv");
    run(0, "contours deep.pgm -o out.json");
    run(0, "points deep.pgm -o out.csv");
    EXPECT_EQ(refuse(2, "region mask.pgm --threshold 256 -o none.csv"),
              "--threshold: is more than 255, the most that the image can hold");
    refuse(2, "region deep.pgm --threshold 65536 -o none.csv");
}

TEST_F(ImagesCommandLine, AlphaChannelsAreAskedFor)
{
    put("alpha.png", tools_tests::make_png({.width = 2, .height = 1, .type = 6, .samples = "\0\0\x09\0\0\0\0\x80"s}));
    for (const std::string command : {"region", "matrix", "complement", "info"}) {
        const std::string output = command == "info" ? "" : " -o out.csv";
        EXPECT_EQ(refuse(2, command + " alpha.png" + output),
                  "alpha.png: is not opaque; --alpha takes its alpha channel, --no-alpha the other ones");
    }
    run(0, "region alpha.png --alpha -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(2, 1, "0,1,1\n"));
    run(0, "region alpha.png --no-alpha -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(2, 1, "0,0,0\n"));
    run(0, "matrix alpha.png --alpha -o out.csv");
    EXPECT_EQ(get("out.csv"), "0,128\n");
    run(0, "difference alpha.png roi:rectangle:0,0,0,0 --alpha -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(2, 1, "0,1,1\n"));
    refuse(2, "region alpha.png --alpha --no-alpha -o none.csv");
    put("grey.pgm", "P5 1 1 255\n\7"s);
    EXPECT_EQ(refuse(2, "region grey.pgm --alpha -o none.csv"), "grey.pgm: has no alpha channel");
    EXPECT_EQ(refuse(2, "image roi:circle:1,1,1 --width 3 --height 3 --alpha -o none.png"), "--alpha: is for images");
    EXPECT_EQ(refuse(2, "region out.csv --no-alpha -o none.csv"), "--no-alpha: is for images");
}

class StackCommandLine : public ImagesCommandLine
{
protected:
    void SetUp() override
    {
        ImagesCommandLine::SetUp();
        tools_tests::make_tiff("stack.tif", {{.width = 2, .height = 1, .samples = "\0\1"s},
                                             {.width = 2, .height = 1, .samples = "\7\7"s}});
    }

    const std::string first_ = run_file(2, 1, "0,1,1\n");
    const std::string second_ = run_file(2, 1, "0,0,1\n");
};

TEST_F(StackCommandLine, APageIsAskedFor)
{
    EXPECT_EQ(refuse(2, "region stack.tif -o none.csv"), "stack.tif: has 2 pages; --page N takes one of them");
    EXPECT_EQ(refuse(2, "region stack.tif --page 3 -o none.csv"), "stack.tif: has 2 pages and no page 3");
    refuse(2, "region stack.tif --page 0 -o none.csv");
    refuse(2, "region stack.tif --page x -o none.csv");
    refuse(2, "union stack.tif stack.tif --page all -o none.csv");
    run(0, "region stack.tif --page 1 -o first.csv");
    EXPECT_EQ(get("first.csv"), first_);
    run(0, "region stack.tif --page 2 -o second.csv");
    EXPECT_EQ(get("second.csv"), second_);
    run(0, "difference stack.tif roi:rectangle:0,0,0,0 --page 1 -o out.csv");
    EXPECT_EQ(get("out.csv"), first_);
    EXPECT_EQ(refuse(2, "region first.csv --page 1 -o none.csv"), "--page: is for images");
    run(0, "contours first.csv -o first.json");
    refuse(2, "edit stack.tif first.json --add -o out.png");
    run(0, "edit stack.tif first.json --add --page 2 -o out.png");
    run(0, "region out.png -o out.csv");
    EXPECT_EQ(get("out.csv"), second_);
}

TEST_F(StackCommandLine, InfoDescribesAllPages)
{
    const std::string facts = run(0, "info stack.tif --page all");
    EXPECT_EQ(facts.find("page       1\n"), 0U);
    EXPECT_NE(facts.find("pixels     1\n"), std::string::npos);
    EXPECT_LT(facts.find("page       2\n"), facts.find("pixels     2\n"));
}

TEST_F(StackCommandLine, AllPagesBecomeFilesInAFolder)
{
    run(0, "region stack.tif --page all -o pages");
    EXPECT_EQ(get("pages/stack-1.csv"), first_);
    EXPECT_EQ(get("pages/stack-2.csv"), second_);
    std::filesystem::create_directory("stacks");
    std::filesystem::copy_file("stack.tif", "stacks/stack.tif");
    put("stacks/single.pgm", "P5 2 1 255\n\7\7");
    run(0, "region stacks --page all -o runs --to json");
    run(0, "region runs/stack-2.json -o out.csv");
    EXPECT_EQ(get("out.csv"), second_);
    run(0, "region runs/single-1.json -o out.csv");
    EXPECT_EQ(get("out.csv"), second_);
    EXPECT_EQ(refuse(2, "region stack.tif --page all -o none.csv"),
              "none.csv: is named like a file; with --page all, it is a folder");
    EXPECT_EQ(refuse(2, "image stacks --page all -o stacks"),
              "stacks: holds the inputs; with --page all, the outputs need another folder");
}

TEST_F(StackCommandLine, NumbersOfPagesHaveAsManyDigitsAsTheLast)
{
    tools_tests::make_tiff("ten.tif",
                           std::vector<tools_tests::MadeTiff>(10, {.width = 1, .height = 1, .samples = "\7"s}));
    run(0, "region ten.tif --page all -o pages");
    EXPECT_EQ(get("pages/ten-01.csv"), run_file(1, 1, "0,0,0\n"));
    EXPECT_EQ(get("pages/ten-10.csv"), run_file(1, 1, "0,0,0\n"));
}

} // namespace
