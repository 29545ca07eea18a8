// SPDX-License-Identifier: MIT
// Conversions and set operations on runs and images; exit statuses and complaints.
#include "tools/command_line.h"

namespace
{

using namespace std::string_literals;
using tools_tests::run_file;

//  .#..##.
//  #######
//  ..###..
const std::string runs_of_a = run_file(7, 3, "0,1,1\n0,4,5\n1,0,6\n2,2,4\n");
const std::string runs_of_b = run_file(7, 3, "0,5,6\n1,2,3\n2,0,2\n2,4,4\n");

class Commands : public tools_tests::CommandLine
{
protected:
    void SetUp() override
    {
        CommandLine::SetUp();
        put("a.csv", runs_of_a);
        put("b.csv", runs_of_b);
    }
};

TEST_F(Commands, CarryRunsThroughImages)
{
    for (const std::string image : {"a.png", "a.bmp", "a.pgm", "a.tif"}) {
        run(0, "image a.csv -o " + image);
        run(0, "region " + image + " -o back.csv");
        EXPECT_EQ(get("back.csv"), runs_of_a) << image;
    }
    run(0, "region a.png -o a.json");
    run(0, "image a.json -o again.png");
    expect_same("a.png", "again.png");
}

TEST_F(Commands, PaintWithAnyGreyValues)
{
    run(0, "image a.csv -o framed.pgm --foreground 3 --background 1 --width 2 --height 1");
    EXPECT_EQ(get("framed.pgm"), "P5\n2 1\n255\n\x01\x03"s);
    run(0, "region framed.pgm --threshold 2 -o framed.csv");
    EXPECT_EQ(get("framed.csv"), run_file(2, 1, "0,1,1\n"));
}

TEST_F(Commands, TakePixelsOfTheThresholdItself)
{
    put("grey.pgm", "P5\n4 1\n255\n\x01\x40\x80\xff"s);
    const std::pair<int, std::string> cases[] = {{0, "0,0,3\n"},  {1, "0,0,3\n"},   {2, "0,1,3\n"},  {64, "0,1,3\n"},
                                                 {65, "0,2,3\n"}, {129, "0,3,3\n"}, {255, "0,3,3\n"}};
    for (const auto& [threshold, runs] : cases) {
        run(0, "region grey.pgm -o out.csv --threshold " + std::to_string(threshold));
        EXPECT_EQ(get("out.csv"), run_file(4, 1, runs)) << threshold;
    }
}

TEST_F(Commands, PrintFacts)
{
    EXPECT_EQ(run(0, "info a.csv"), "kind       runs\n"
                                    "frame      7 x 3\n"
                                    "runs       4\n"
                                    "pixels     13\n"
                                    "columns    0 to 6\n"
                                    "rows       0 to 2\n");
    run(0, "image a.csv -o a.png");
    EXPECT_TRUE(has_fact("a.png", "pixels 13"));

    put("beyond.csv", run_file(4, 3, "0,-5,1\n1,3,9\n-1,0,3\n3,0,3\n2,2,1\n0,1,1\n"));
    EXPECT_EQ(run(0, "info beyond.csv"), "kind       runs\n"
                                         "frame      4 x 3\n"
                                         "runs       6\n"
                                         "pixels     3\n"
                                         "columns    0 to 3\n"
                                         "rows       0 to 1\n"
                                         "outside    5 runs reach outside the frame or cover nothing\n");
    put("nothing.csv", run_file(4, 3, ""));
    EXPECT_EQ(run(0, "info nothing.csv"), "kind       runs\n"
                                          "frame      4 x 3\n"
                                          "runs       0\n"
                                          "pixels     0\n");
}

TEST_F(Commands, PrintFactsForPrograms)
{
    EXPECT_EQ(run(0, "info a.csv --json"), "[\n{\"file\":\"a.csv\",\"kind\":\"runs\",\"frame\":[7,3],\"runs\":4,"
                                           "\"pixels\":13,\"columns\":[0,6],\"rows\":[0,2]}\n]\n");
    const std::string facts = run(0, "info a.csv b.csv");
    EXPECT_EQ(facts.find("file       a.csv\nkind       runs\n"), 0U);
    EXPECT_NE(facts.find("\nfile       b.csv\nkind       runs\n"), std::string::npos);
}

TEST_F(Commands, CombineRunsAndImages)
{
    run(0, "image a.csv -o a.png");
    run(0, "image b.csv -o b.png");
    for (const std::string operation : {"union", "intersection", "difference"}) {
        run(0, operation + " a.csv b.csv -o runs.csv");
        run(0, operation + " a.png b.csv -o mixed.csv");
        expect_same("runs.csv", "mixed.csv");
        run(0, operation + " a.png b.png -o mask.png");
        run(0, "image runs.csv -o painted.png");
        expect_same("mask.png", "painted.png");
    }
    run(0, "union a.csv b.csv -o union.png");
    EXPECT_TRUE(has_fact("union.png", "pixels 16"));
    run(0, "complement a.csv -o a.csv"); // in place
    EXPECT_EQ(get("a.csv"), run_file(7, 3, "0,0,0\n0,2,3\n0,6,6\n2,0,1\n2,5,6\n"));
}

TEST_F(Commands, CombineAnyNumberOfOperandsPlainly)
{
    put("c.csv", run_file(9, 4, "1,6,8\n3,8,8\n"));
    const std::pair<std::string, std::string> cases[] = {
        {"union", "0,1,1\n0,4,6\n1,0,8\n2,0,4\n3,8,8\n"},
        {"intersection", ""},
        {"difference", "0,1,1\n0,4,4\n1,0,1\n1,4,5\n2,3,3\n"},
        {"xor", "0,1,1\n0,4,4\n0,6,6\n1,0,1\n1,4,5\n1,7,8\n2,0,1\n2,3,3\n3,8,8\n"},
    };
    for (const auto& [operation, runs] : cases) {
        run(0, operation + " a.csv b.csv c.csv -o out.csv");
        EXPECT_EQ(get("out.csv"), run_file(9, 4, runs)) << operation;
    }
    run(0, "intersection a.csv b.csv a.csv -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(7, 3, "0,5,5\n1,2,3\n2,2,2\n2,4,4\n"));
}

TEST_F(Commands, CombinePixelsOfTheFramesAlone)
{
    put("beyond.csv", run_file(3, 2, "0,-5,0\n0,2,9\n1,1,1\n1,0,1\n5,0,2\n"));
    put("wide.csv", run_file(6, 2, "1,4,5\n"));
    run(0, "union beyond.csv wide.csv -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(6, 2, "0,0,0\n0,2,2\n1,0,1\n1,4,5\n"));
    run(0, "complement beyond.csv -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(3, 2, "0,1,1\n1,2,2\n"));
}

TEST_F(Commands, CombineByTheRulesOfTheLibraryOnDemand)
{
    put("c.csv", run_file(3, 2, "0,0,0\n1,0,1\n"));
    run(0, "complement c.csv --rules regions -o out.csv");
    EXPECT_TRUE(has_fact("out.csv", "pixels 2")) << "without the last row";
    run(0, "complement c.csv --rules rois -o out.csv");
    EXPECT_TRUE(has_fact("out.csv", "pixels 3"));
    run(0, "intersection a.csv b.csv --rules regions -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(7, 3, "0,5,5\n1,2,3\n")) << "without the last row";
    run(0, "image c.csv -o c.png");
    for (const std::string operation : {"union", "intersection", "difference"}) {
        for (const std::string rules : {"regions", "rois"}) {
            run(0, operation + " c.csv c.csv -o runs.csv --rules " + rules);
            run(0, operation + " c.png c.csv -o mixed.csv --rules " + rules);
            expect_same("runs.csv", "mixed.csv");
        }
        EXPECT_EQ(refuse(2, operation + " c.csv c.csv c.csv -o out.csv --rules rois"),
                  "--rules: is for two operands; the library combines no more at a time");
        refuse(2, operation + " c.csv c.csv -o out.csv --rules plain");
    }
    refuse(2, "xor c.csv c.csv -o out.csv --rules rois");
}

TEST_F(Commands, LeaveTheOutputAloneWhenTheyFail)
{
    put("kept.csv", "kept");
    run(2, "union b.csv none.csv -o kept.csv");
    EXPECT_EQ(get("kept.csv"), "kept");
}

TEST_F(Commands, RefuseFilesThatTheyCannotRead)
{
    run(0, "image a.csv -o a.png");
    put("empty.csv", "");
    put("number.csv", run_file(7, 3, "0,1,1\n0,x,5\n"));
    put("column.csv", run_file(7, 3, "0,1\n"));
    put("range.csv", run_file(7, 3, "0,1,3000000000\n"));
    put("type.json", R"({"width":7,"height":3,"runs":[[0,1,"1"]]})");
    put("cut.json", R"({"width":7,)");
    put("huge.csv", run_file(2147483647, 2147483647, "0,1,1\n"));
    put("text.png", "no image");
    put("cut.png", get("a.png").substr(0, 40));
    for (const std::string file : {"none.csv", "empty.csv", "number.csv", "column.csv", "range.csv", "type.json",
                                   "cut.json", "huge.csv", "text.png", "cut.png"}) {
        EXPECT_EQ(refuse(2, "info " + file).find(file + ":"), 0U);
        EXPECT_EQ(refuse(2, "complement -o out.csv " + file).find(file + ":"), 0U);
    }
    EXPECT_EQ(refuse(2, "complement -o out.csv .").find(".:"), 0U);
    EXPECT_EQ(run(2, "info number.csv"), "number.csv:4: colBegin is not an integer");
}

TEST_F(Commands, ReportTheResultCodesOfTheLibrary)
{
    put("nothing.csv", run_file(0, 5, ""));
    const std::string code = "KIVMV_ERR_PARAM_1 (1100008): the first input that is not an image is empty or invalid";
    EXPECT_EQ(refuse(1, "complement nothing.csv -o out.csv --rules regions"), "nothing.csv: " + code);
    EXPECT_EQ(refuse(1, "union nothing.csv nothing.csv -o out.csv --rules regions"),
              "union of nothing.csv and nothing.csv: " + code);
    EXPECT_EQ(refuse(1, "image nothing.csv --width 5 --height 5 -o out.png"), "nothing.csv: " + code);
}

TEST_F(Commands, TakeTextsWithAByteOrderMark)
{
    run(0, "region b.csv -o b.json");
    for (const std::string file : {"b.csv", "b.json"}) {
        put("marked-" + file, "\xef\xbb\xbf" + get(file));
        run(0, "region marked-" + file + " -o out.csv");
        EXPECT_EQ(get("out.csv"), runs_of_b);
    }
    put("marked.csv", "\xef\xbb\xbf"
                      "1,2,3\n");
    run(0, "matrix marked.csv -o marked.png");
}

TEST_F(Commands, RefuseOutputsThatCannotBe)
{
    run(0, "image a.csv -o a.png");
    refuse(2, "image b.csv -o huge.png --width 2000000000 --height 2000000000");
    refuse(2, "image b.csv -o lossy.jpg");
    refuse(2, "region a.png -o folder/out.csv");
    refuse(2, "region a.png -o a.png");
}

TEST_F(Commands, RefuseArgumentsThatTheyDoNotTake)
{
    for (const std::string arguments :
         {"region a.csv -o out.csv --threshold 256", "image b.csv -o out.png --foreground -1", "union a.csv -o out.csv",
          "regoin a.csv -o out.csv", "--bogus", "region a.csv --treshold 5 -o out.csv", "xor -o out.csv",
          "complement a.csv b.csv -o out.csv", "region a.csv --contour -1 -o out.csv",
          "image a.csv --width 1048577 -o out.png", "--roi"}) {
        refuse(2, arguments);
    }
    EXPECT_NE(run(2, "regoin a.csv -o out.csv").find("regoin"), std::string::npos);
    EXPECT_NE(run(2, "region a.csv --treshold 5 -o out.csv").find("--treshold"), std::string::npos);
    EXPECT_EQ(run(2, ""), "command line: a subcommand is missing; see --help");
}

TEST_F(Commands, TakeOperandsThatBeginWithADash)
{
    put("--a.csv", runs_of_a);
    run(0, "info -- --a.csv");
}

TEST_F(Commands, ExplainThemselves)
{
    EXPECT_NE(run(0, "--help").find("complement"), std::string::npos);
    EXPECT_EQ(run(0, "--version").find("kivconvert "), 0U);
    for (const std::string command :
         {"region",     "image",   "contours",   "points",     "matrix", "edit", "union", "intersection",
          "difference", "xor",     "complement", "components", "fill",   "open", "close", "dilate",
          "erode",      "measure", "compare",    "dataset",    "report", "info"}) {
        EXPECT_NE(run(0, command + " --help").find("kivconvert " + command + " "), std::string::npos) << command;
    }
}

} // namespace
