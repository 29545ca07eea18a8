// SPDX-License-Identifier: MIT
// Commands that change, number, measure and compare the pixels of a shape.
#include "tools/command_line.h"

#include <cmath>
#include <nlohmann/json.hpp>

namespace
{

using tools_tests::run_file;

//  ##...#.
//  ##..#..
//  ......#
//  .###...
//  .#.#...
const std::string parts = run_file(7, 5, "0,0,1\n0,5,5\n1,0,1\n1,4,4\n2,6,6\n3,1,3\n4,1,1\n4,3,3\n");

//  .###.
//  #...#
//  .###.
const std::string ring = run_file(5, 3, "0,1,3\n1,0,0\n1,4,4\n2,1,3\n");

class PixelCommands : public tools_tests::CommandLine
{
protected:
    void SetUp() override
    {
        CommandLine::SetUp();
        put("parts.csv", parts);
        put("ring.csv", ring);
    }

    void expect_runs(const std::string& arguments, const std::string& file) const
    {
        run(0, arguments + " -o out.csv");
        EXPECT_EQ(get("out.csv"), file) << arguments;
    }

    std::string labels_of(const std::string& arguments, const std::string& image) const
    {
        run(0, "components " + arguments + " -o " + image);
        run(0, "matrix " + image + " -o labels.csv");
        return get("labels.csv");
    }
};

TEST_F(PixelCommands, NumberComponentsInTheOrderOfTheirFirstPixels)
{
    const std::string by_corners = "1,1,0,0,0,2,0\n1,1,0,0,2,0,0\n0,0,0,0,0,0,3\n0,4,4,4,0,0,0\n0,4,0,4,0,0,0\n";
    EXPECT_EQ(labels_of("parts.csv", "labels.png"), by_corners);
    EXPECT_EQ(labels_of("parts.csv --connectivity 8", "labels.tif"), by_corners);
    EXPECT_EQ(labels_of("parts.csv --connectivity 4", "labels.png"),
              "1,1,0,0,0,2,0\n1,1,0,0,3,0,0\n0,0,0,0,0,0,4\n0,5,5,5,0,0,0\n0,5,0,5,0,0,0\n");
    refuse(2, "components parts.csv --connectivity 6 -o none.png");
    EXPECT_EQ(refuse(2, "components parts.csv -o none.pgm"),
              "none.pgm: is named like an image of at most 8 bits, where 16 are needed; a .tif has up to 32, a .png up "
              "to 16");
}

TEST_F(PixelCommands, NumberComponentsInImagesThatAreDeepEnough)
{
    const std::pair<int, int> cases[] = {{255, 255}, {256, 65535}, {65535, 65535}, {65536, 65536}};
    for (const auto& [count, threshold] : cases) {
        std::string dots;
        for (int i = 0; i < count; ++i) {
            dots += std::to_string(2 * (i / 512)) + "," + std::to_string(2 * (i % 512)) + "," +
                    std::to_string(2 * (i % 512)) + "\n";
        }
        put("dots.csv", run_file(1023, 257, dots));
        run(0, "components dots.csv -o dots.tif");
        EXPECT_NE(run(0, "measure dots.tif --by label").find("\ndots.tif," + std::to_string(count) + ",1,"),
                  std::string::npos);
        if (count < 65536) {
            run(0, "components dots.csv -o dots.png");
            run(0, "region dots.png --threshold " + std::to_string(count) + " -o last.csv");
            EXPECT_TRUE(has_fact("last.csv", "pixels 1"));
        } else {
            EXPECT_EQ(run(2, "components dots.csv -o none.png").find("none.png: is named like an image of at most 16"),
                      0U);
        }
    }
}

TEST_F(PixelCommands, FillWhatPathsByEdgesCannotLeave)
{
    expect_runs("fill ring.csv", run_file(5, 3, "0,1,3\n1,0,4\n2,1,3\n"));
    expect_runs("fill ring.csv --connectivity 4", ring);
    put("arch.csv", run_file(3, 2, "0,0,2\n1,0,0\n1,2,2\n")); // open below the frame
    expect_runs("fill arch.csv", get("arch.csv"));
}

TEST_F(PixelCommands, PutElementsOnPixels)
{
    put("dot.csv", run_file(4, 3, "1,2,2\n"));
    expect_runs("dilate dot.csv --size 2x2", run_file(4, 3, "0,1,2\n1,1,2\n"));
    expect_runs("dilate dot.csv --size 3x1", run_file(4, 3, "1,1,3\n"));
    expect_runs("dilate dot.csv --disk 1", run_file(4, 3, "0,2,2\n1,1,3\n2,2,2\n"));
    expect_runs("dilate dot.csv --disk 1.5", run_file(4, 3, "0,1,3\n1,1,3\n2,1,3\n"));
    expect_runs("dilate dot.csv --size 99x1", run_file(4, 3, "1,0,3\n"));
    put("element.csv", run_file(3, 1, "0,0,1\n")); // its origin is the second pixel
    expect_runs("dilate dot.csv --element element.csv", run_file(4, 3, "1,1,2\n"));
    put("far.csv", run_file(2, 2, "0,0,0\n")); // its origin is the last pixel
    expect_runs("dilate dot.csv --element far.csv", run_file(4, 3, "0,1,1\n"));
}

TEST_F(PixelCommands, FitElementsIn)
{
    put("block.csv", run_file(6, 3, "0,0,2\n1,0,2\n2,0,2\n1,5,5\n"));
    expect_runs("erode block.csv --size 3x3", run_file(6, 3, "1,1,1\n"));
    expect_runs("erode block.csv --size 2x2", run_file(6, 3, "1,1,2\n2,1,2\n"));
    expect_runs("open block.csv --size 2x2", run_file(6, 3, "0,0,2\n1,0,2\n2,0,2\n"));
    put("gap.csv", run_file(5, 1, "0,0,0\n0,2,2\n"));
    expect_runs("close gap.csv --size 3x1", run_file(5, 1, "0,0,2\n"));
}

TEST_F(PixelCommands, NeedOneElement)
{
    put("void.csv", run_file(3, 3, ""));
    const std::pair<std::string, std::string> cases[] = {
        {"", "Exactly 1 option from [--size,--disk,--element] is required"},
        // Then comes "and 2 were given" or "but 2 were given", by the version of CLI11.
        {" --size 3x3 --disk 1", "Exactly 1 option from [--size,--disk,--element] is required "},
        {" --size 3", "--size: \"3\" is not WIDTHxHEIGHT, two numbers from 1 to 1048576"},
        {" --size 0x3", "--size: \"0x3\" is not"},
        {" --size 3x3x3", "--size: \"3x3x3\" is not"},
        {" --disk -1", "--disk: "},
        {" --disk nan", "--disk: "},
        {" --element none.csv", "none.csv: cannot be opened"},
        {" --element void.csv", "void.csv: has no pixels; an element has at least one"},
    };
    for (const auto& [options, complaint] : cases) {
        for (const std::string command : {"dilate", "erode", "open", "close"}) {
            EXPECT_EQ(refuse(2, command + " parts.csv -o out.csv" + options).find(complaint), 0U) << options;
        }
    }
}

TEST_F(PixelCommands, MeasureComponents)
{
    put("two.csv", run_file(9, 4, "1,1,2\n3,7,7\n"));
    const std::string table = run(0, "measure two.csv");
    EXPECT_EQ(table.substr(0, table.find('\n')),
              "file,component,area,left,top,right,bottom,centroid_x,centroid_y,orientation,major_axis,minor_axis,"
              "perimeter,euler_number,feret_max,feret_min,holes");
    const nlohmann::json rows = nlohmann::json::parse(run(0, "measure two.csv --json"));
    ASSERT_EQ(rows.size(), 2U);
    const auto expect_row = [&](std::size_t row, const std::vector<std::pair<std::string, double>>& values) {
        for (const auto& [name, value] : values) {
            EXPECT_DOUBLE_EQ(rows[row][name].get<double>(), value) << name;
        }
    };
    const double quarter_pi = std::atan(1.0);
    expect_row(0, {{"component", 1},
                   {"area", 2},
                   {"left", 1},
                   {"top", 1},
                   {"right", 2},
                   {"bottom", 1},
                   {"centroid_x", 1.5},
                   {"centroid_y", 1},
                   {"orientation", 0},
                   {"major_axis", 2},
                   {"minor_axis", 0},
                   {"perimeter", quarter_pi * (3 + 4 / std::sqrt(2.0))},
                   {"euler_number", 1},
                   {"feret_max", std::sqrt(5.0)},
                   {"feret_min", 1},
                   {"holes", 0}});
    expect_row(1, {{"component", 2}, {"area", 1}, {"left", 7}, {"top", 3}, {"right", 7}, {"bottom", 3}});
    EXPECT_EQ(rows[0]["file"], "two.csv");
}

TEST_F(PixelCommands, MeasureFilesWithAndWithoutPixels)
{
    put("void.csv", run_file(3, 3, ""));
    put("a,b.csv", ring);
    const std::string table = run(0, "measure --by file void.csv a,b.csv");
    EXPECT_NE(table.find("\nvoid.csv,0,,,,,,,,,,0,0,,,0\n"), std::string::npos) << table;
    EXPECT_NE(table.find("\n\"a,b.csv\",8,0,0,4,2,2.0,1.0,0.0,"), std::string::npos) << table;
    EXPECT_EQ(nlohmann::json::parse(run(0, "measure void.csv --by file --json"))[0]["left"], nullptr);
    EXPECT_EQ(nlohmann::json::parse(run(0, "measure ring.csv --by file --json"))[0]["holes"], 1);
    EXPECT_EQ(nlohmann::json::parse(run(0, "measure ring.csv --by file --connectivity 4 --json"))[0]["holes"], 0);
}

TEST_F(PixelCommands, MeasureLabels)
{
    put("labels.pgm", "P2\n4 1\n255\n7 0 3 7\n");
    const std::string table = run(0, "measure labels.pgm --by label");
    EXPECT_NE(table.find("\nlabels.pgm,3,1,2,0,2,0,"), std::string::npos) << table;
    EXPECT_NE(table.find("\nlabels.pgm,7,2,0,0,3,0,"), std::string::npos) << table;
    refuse(2, "measure ring.csv --by label");
}

TEST_F(PixelCommands, MeasureFilesOfFoldersInTheOrderOfTheirNames)
{
    std::filesystem::create_directories("in/within");
    std::string expected;
    for (int i = 10; i < 40; ++i) {
        put("in/" + std::to_string(i) + ".csv", run_file(40, 1, "0,1," + std::to_string(i) + "\n"));
        expected += "in/" + std::to_string(i) + ".csv " + std::to_string(i) + "\n";
    }
    run(0, "measure in --by file -o table.json");
    std::string found;
    for (const nlohmann::json& row : nlohmann::json::parse(get("table.json"))) {
        found += row["file"].get<std::string>() + " " + std::to_string(row["area"].get<int>()) + "\n";
    }
    EXPECT_EQ(found, expected);

    put("in/25.csv", "damaged");
    const kivconvert::Outcome outcome = kivconvert::run({"measure", "in", "--by", "file"});
    EXPECT_EQ(outcome.status, 2);
    EXPECT_NE(outcome.out.find("\nin/24.csv,24,"), std::string::npos);
    EXPECT_EQ(outcome.out.find("\nin/25.csv"), std::string::npos);
    EXPECT_NE(outcome.err.find("\nkivconvert: 1 of 30 files could not be measured\n"), std::string::npos);
    EXPECT_EQ(refuse(2, "measure ring.csv -o table.txt"),
              "table.txt: is not named like a table; those end in .csv or .json");
}

TEST_F(PixelCommands, ComparePixels)
{
    put("a.csv", run_file(7, 3, "0,1,1\n0,4,5\n1,0,6\n2,2,4\n"));
    put("b.csv", run_file(7, 3, "0,5,6\n1,2,3\n2,0,2\n2,4,4\n"));
    const kivconvert::Outcome outcome = kivconvert::run({"compare", "a.csv", "b.csv", "--picture", "picture.png"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "iou        0.3125\nlost       8\ngained     3\n");
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(has_fact("picture.png", "pixels 16"));
    EXPECT_TRUE(has_fact("picture.png", "frame 7 x 3"));
    EXPECT_EQ(run(0, "compare a.csv a.csv"), "iou        1\nlost       0\ngained     0\n");
    EXPECT_EQ(refuse(2, "compare a.csv b.csv --picture none.tif"),
              "none.tif: is not named like a picture in colour; those end in .png");
    put("point.csv", "x,y\n0,0\n");
    EXPECT_EQ(refuse(2, "compare a.csv point.csv").find("point.csv: KIVMV_ERR_PARAM"), 0U) << "1 is for differences";
}

TEST_F(PixelCommands, ReportObjectsOnAPage)
{
    std::filesystem::create_directory("in");
    put("in/a.csv", run_file(200, 1, "0,0,0\n0,10,138\n"));
    put("in/set.json", R"({"images":[{"id":1,"width":2,"height":2}],"annotations":[{"id":1,"image_id":1,"category_id":1,
        "segmentation":[[0,0,1,0,1,1,0,1]]}],"categories":[{"id":1,"name":"</script>"}]})");
    run(0, "report in -o report.html");
    const std::string page = get("report.html");
    EXPECT_NE(page.find("\"thumbnail\":{\"width\":1,\"height\":1,\"path\":\"M0 0L1 0L1 1L0 1Z\"}"), page.npos);
    EXPECT_NE(page.find("{\"width\":43,\"height\":1,\"path\":\"M0 0L43 0L43 1L0 1Z\"}"), page.npos)
        << "129 columns, 3 at a time";
    EXPECT_EQ(page.find("</script>"), page.rfind("</script>")) << "names end no script";
    put("in/damaged.csv", "damaged");
    EXPECT_EQ(kivconvert::run({"report", "in", "-o", "rest.html"}).status, 2);
    EXPECT_NE(get("rest.html").find("in/a.csv"), page.npos);
    EXPECT_EQ(refuse(2, "report in -o report.pdf"), "report.pdf: is not named like a page; those end in .html");
}

} // namespace
