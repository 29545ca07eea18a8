// SPDX-License-Identifier: MIT
// One shape in every format that kivconvert reads, converted into every format that it writes.
#include "tools/command_line.h"

namespace
{

using namespace std::string_literals;
using tools_tests::run_file;

class ShapeInEveryFormat : public tools_tests::CommandLine
{
protected:
    void SetUp() override
    {
        CommandLine::SetUp();
        // The frame just fits, so that points define the same one.
        run(0, "image roi:ring:30,24,8,20 --width 51 --height 45 -o ring.png");
        for (const std::string format : {".csv", ".json", ".coco.json", ".coco-counts.json"}) {
            run(0, "region ring.png -o ring" + format);
        }
        for (const std::string format : {".json", ".geojson", ".svg"}) {
            run(0, "contours ring.png -o contours" + format);
        }
        run(0, "points ring.png -o points.csv");
    }

    void expect_same_runs_of(const std::string& input) const
    {
        for (const std::string format : {".csv", ".json", ".coco.json", ".coco-counts.json"}) {
            run(0, "region " + input + " -o out" + format);
            expect_same("ring" + format, "out" + format);
        }
        run(0, "image " + input + " -o out.png");
        expect_same("ring.png", "out.png");
        run(0, "points " + input + " -o out.csv");
        expect_same("points.csv", "out.csv");
    }

    void expect_same_contours_of(const std::string& input) const
    {
        for (const std::string format : {".json", ".geojson", ".svg"}) {
            run(0, "contours " + input + " -o out" + format);
            expect_same("contours" + format, "out" + format);
        }
    }
};

TEST_F(ShapeInEveryFormat, IsTheSameShape)
{
    for (const std::string input : {"ring.png", "ring.csv", "ring.json", "ring.coco.json", "ring.coco-counts.json",
                                    "contours.json", "contours.geojson", "points.csv"}) {
        expect_same_runs_of(input);
        EXPECT_TRUE(has_fact(input, "frame 51 x 45"));
        EXPECT_TRUE(has_fact(input, "runs 56"));
        if (input != "points.csv") {
            expect_same_contours_of(input);
        }
    }
    expect_same_runs_of("roi:ring:30,24,8,20 --width 51 --height 45");
    run(0, "contours roi:ring:30,24,8,20 --width 51 --height 45 -o out.json");
    expect_same("contours.json", "out.json");
    run(0, "points ring.png --once -o once.csv");
    expect_same("points.csv", "once.csv");
}

TEST_F(ShapeInEveryFormat, HasContoursThatStandAlone)
{
    run(0, "region contours.json --contour 0 -o disc.csv");
    run(0, "region roi:circle:30,24,20 --width 51 --height 45 -o out.csv");
    expect_same("disc.csv", "out.csv");
    run(0, "points contours.json --contour 0 -o border.csv");
    run(0, "points contours.json --contour 0 --rounded -o out.csv");
    expect_same("border.csv", "out.csv");
    run(0, "contours border.csv -o border.json");
    run(0, "region border.json -o out.csv");
    expect_same("disc.csv", "out.csv");
    for (const std::string arguments :
         {"region contours.json --contour 2", "region contours.json --contour -1", "region ring.csv --contour 0",
          "points contours.json --contour 2", "points ring.csv --contour 0", "points contours.json --rounded",
          "points contours.json --contour 0 --once", "region contours.json --contour 0 --threshold 1",
          "region contours.json --contour 0 --width 5 --height 5", "region ring.csv --threshold 1",
          "points contours.json --contour 0 --width 5 --height 5", "region ring.csv --to csv"}) {
        std::filesystem::remove("out.csv");
        refuse(2, arguments + " -o out.csv");
    }
    refuse(2, "contours contours.svg -o new.json");
}

class ContentsOfFiles : public tools_tests::CommandLine
{
};

TEST_F(ContentsOfFiles, OfContoursKeepFractions)
{
    put("fine.json", R"({"width":9,"height":9,"contours":[{"points":[[0.5,1.5],[6.4,1.5],[6.4,7.75]]}]})");
    run(0, "points fine.json --contour 0 -o fine.csv");
    EXPECT_EQ(get("fine.csv"), "x,y\n0.5,1.5\n6.4,1.5\n6.4,7.75\n");
    run(0, "points fine.json --contour 0 --rounded -o out.csv");
    EXPECT_EQ(get("out.csv"), "x,y\n0,2\n6,2\n6,8\n");
    run(0, "contours fine.csv -o out.json");
    EXPECT_NE(get("out.json").find("[[0.5,1.5],[6.4,1.5],[6.4,7.75]]"), std::string::npos);
}

TEST_F(ContentsOfFiles, AreSortedByRowOnDemand)
{
    const std::string loose = run_file(7, 3, "2,5,6\n0,4,9\n2,0,1\n-1,0,0\n");
    put("loose.csv", loose);
    run(0, "region loose.csv --sort -o out.csv");
    EXPECT_EQ(get("out.csv"), run_file(7, 3, "-1,0,0\n0,4,9\n2,5,6\n2,0,1\n"));
    run(0, "region loose.csv -o out.csv");
    EXPECT_EQ(get("out.csv"), loose);
    run(0, "points loose.csv --once -o out.csv");
    EXPECT_EQ(get("out.csv"), "x,y\n4,0\n5,0\n6,0\n0,2\n1,2\n5,2\n6,2\n");
}

TEST_F(ContentsOfFiles, AreListedOnceInsideTheFrame)
{
    put("long.csv", run_file(5, 5, "1,-2147483648,2147483647\n"));
    refuse(2, "points long.csv -o out.csv");
    run(0, "points long.csv --once -o out.csv");
    EXPECT_EQ(get("out.csv"), "x,y\n0,1\n1,1\n2,1\n3,1\n4,1\n");
}

TEST_F(ContentsOfFiles, OfMatricesAreNumbers)
{
    put("matrix.csv", "-1,0.5,1.5\n255,256,1e6\n");
    run(0, "matrix matrix.csv -o out.pgm");
    EXPECT_EQ(get("out.pgm"), "P5\n3 2\n255\n\0\0\x02\xff\xff\xff"s);
    run(0, "matrix out.pgm -o out.csv");
    EXPECT_EQ(get("out.csv"), "0,0,2\n255,255,255\n");
    put("deep.pgm", "P5\n2 1\n65535\n\1\0\0\7"s);
    run(0, "matrix deep.pgm -o out.csv");
    EXPECT_EQ(get("out.csv"), "256,7\n");
    put("semicolon.csv", "x,y\n1,2\n3;4\n");
    refuse(2, "matrix semicolon.csv -o new.csv");
    refuse(2, "matrix none.png -o new.csv");
    refuse(2, "matrix matrix.csv -o new.jpg");
}

TEST_F(ContentsOfFiles, ThatAreWrongAreNamed)
{
    struct Case {
        int status;
        std::string file;
        std::string text;
        std::string complaint;
    };
    const std::string too_large = " is too large; 1048576 columns, 1048576 rows and 1073741824 pixels are the most";
    const Case cases[] = {
        {2, "packed.json", R"({"size":[2,3],"counts":"2`"})",
         ": \"counts\": KivRuns: COCO text ends within a count at character 3"},
        {2, "huge.json", R"({"size":[2147483647,2147483647],"counts":"2"})",
         ": a frame of 2147483647 x 2147483647" + too_large},
        {2, "open.geojson", R"({"type":"Polygon","coordinates":[[[1,1],[4,1],[4,4]]]})",
         ": \"coordinates\"[0]: is not closed; its last position must be its first"},
        {2, "frameless.geojson", R"({"type":"Polygon","coordinates":[[[1,1],[4,1],[4,4],[1,1]]]})",
         ": is in no frame; give --width and --height"},
        {2, "semicolon.csv", "x,y\n1,2\n3;4\n", ":3: y is missing"},
        {2, "far.csv", "x,y\n1048576,1048576\n", ": a frame of 1048577 x 1048577" + too_large},
        {1, "none.csv", "x,y\n", ": KIVMV_ERR_LENGTH (1100007): two parallel arrays are empty or of different lengths"},
        {1, "flat.json", R"({"width":6,"height":1,"contours":[{"points":[[0,0],[5,0]]}]})",
         ": KIVMV_ERR_PARAM_3 (1100010): the third input that is not an image is invalid; a frame of 6 x 1 is too "
         "small to fill contours in; 2 x 2 is the least"},
        {1, "flat.csv", "x,y\n1,0\n2,0\n",
         ": KIVMV_ERR_PARAM_1 (1100008): the first input that is not an image is empty or invalid; points in row 0 or "
         "column 0 alone, or before them, make no region"},
        {2, "nothing.json", "{}", ": holds neither \"runs\" nor \"counts\" nor \"contours\" nor a \"type\" of GeoJSON"},
    };
    for (const Case& wrong : cases) {
        put(wrong.file, wrong.text);
        EXPECT_EQ(refuse(wrong.status, "region " + wrong.file + " -o out.csv"), wrong.file + wrong.complaint);
    }
}

} // namespace
