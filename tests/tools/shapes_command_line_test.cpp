// SPDX-License-Identifier: MIT
// Shapes as operands of kivconvert: every shape, where its frame is from, and what is refused.
#include "tools/command_line.h"

namespace
{

using tools_tests::run_file;

const std::string frame = " --width 64 --height 48";

using ShapeOperands = tools_tests::CommandLine;

TEST_F(ShapeOperands, AreShapesOfEveryKind)
{
    const std::pair<std::string, int> cases[] = {
        {"rectangle:2,2,30,20", 551},   {"rotated-rectangle:30,30,30,10,90", 341},
        {"circle:30,30,1", 5},          {"ellipse:30,30,2,1,90", 7},
        {"ring:30,30,1,1", 4},          {"ring-sector:30,30,1,2,0,90", 5},
        {"polygon:5,5,7,5,7,7,5,7", 9}, {"circle:-90,0,5", 0},
    };
    for (const auto& [shape, pixels] : cases) {
        run(0, "region roi:" + shape + frame + " -o runs.csv");
        EXPECT_TRUE(has_fact("runs.csv", "pixels " + std::to_string(pixels))) << shape;
        run(0, "image roi:" + shape + frame + " -o painted.png");
        run(0, "region painted.png -o back.csv");
        expect_same("runs.csv", "back.csv");
    }
}

TEST_F(ShapeOperands, StandForFilesInSetOperations)
{
    const std::string rectangle = "rectangle:0,0,40,47";
    const std::string circle = "circle:40,24,10";
    run(0, "region roi:" + rectangle + frame + " -o a.csv");
    run(0, "region roi:" + circle + frame + " -o b.csv");
    for (const std::string operation : {"union ", "intersection ", "difference "}) {
        run(0, operation + "a.csv b.csv -o files.csv");
        for (const std::string& operands :
             {"roi:" + rectangle + " b.csv", "a.csv roi:" + circle, "a.csv --roi " + circle, "a.csv --roi=" + circle,
              "--roi " + rectangle + " b.csv"}) {
            run(0, operation + operands + " -o out.csv");
            expect_same("files.csv", "out.csv");
        }
        run(0, operation + "roi:" + rectangle + " roi:" + circle + frame + " -o shapes.png");
        EXPECT_TRUE(has_fact("shapes.png", "frame 64 x 48"));
    }
}

TEST_F(ShapeOperands, CombineInTheirFrame)
{
    run(0, "complement roi:rectangle:0,0,63,40" + frame + " -o complement.csv");
    EXPECT_TRUE(has_fact("complement.csv", "pixels 448"));
    run(0, "intersection roi:circle:9,9,3 roi:circle:-90,0,5" + frame + " -o nothing.csv");
    EXPECT_EQ(get("nothing.csv"), run_file(64, 48, ""));
}

TEST_F(ShapeOperands, NeedTheRightFrame)
{
    put("a.csv", run_file(64, 48, "1,2,3\n"));
    const std::string circle = "roi:circle:9,9,3";
    for (const std::string& arguments :
         {"region " + circle, "region --width 64 " + circle, "region --width 0 --height 48 " + circle,
          "region --width 2000000 --height 1 " + circle, "region --threshold 7 " + circle + frame,
          "union " + circle + " " + circle, "union --height 48 " + circle + " " + circle, "union a.csv a.csv" + frame,
          "complement " + circle, "complement a.csv" + frame, "union none.csv " + circle}) {
        refuse(2, arguments + " -o out.csv");
    }
    refuse(2, "image -o out.png " + circle);
}

TEST_F(ShapeOperands, HaveTheNumbersOfTheirKind)
{
    put("a.csv", run_file(64, 48, "1,2,3\n"));
    for (const std::string shape :
         {"", "circle", "circle:", "square:1,2", "circle:1,2", "circle:1,2,3,4", "circle:1,2,x", "circle:1,2,-3",
          "circle:inf,2,3", "rectangle:1,2,3", "rotated-rectangle:1,2,-3,4,5", "ellipse:1,2,3,-4,5", "ring:1,2,-3,4",
          "ring-sector:1,2,3,4,5,361", "polygon:", "polygon:1,2,3", "circle:1,2,\n3"}) {
        run(2, {"region", "roi:" + shape, "--width", "64", "--height", "48", "-o", "out.csv"});
        run(2, {"union", "a.csv", "roi:" + shape, "-o", "out.csv"});
        EXPECT_EQ(files(), 1) << shape;
    }
}

} // namespace
