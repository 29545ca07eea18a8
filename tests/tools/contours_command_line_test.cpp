// SPDX-License-Identifier: MIT
// Contours and points of kivconvert: tracing, drawing, listing, and what is refused.
#include "tools/command_line.h"

namespace
{

using namespace std::string_literals;
using tools_tests::run_file;

const std::string square = R"({"width":0,"height":0,"contours":[{"points":[[28,22],[32,22],[32,26],[28,26]]}]})";

std::size_t count(const std::string& text, const std::string& word)
{
    std::size_t found = 0;
    for (auto at = text.find(word); at != text.npos; at = text.find(word, at + 1)) {
        ++found;
    }
    return found;
}

class ContourCommands : public tools_tests::CommandLine
{
protected:
    void SetUp() override
    {
        CommandLine::SetUp();
        put("square.json", square);
        run(0, "image roi:ring:30,24,8,20 --width 64 --height 48 -o ring.png");
        run(0, "region ring.png -o ring.csv");
        run(0, "contours ring.png -o ring.json");
    }
};

TEST_F(ContourCommands, TraceOuterBordersAndHoles)
{
    run(0, "contours ring.csv -o runs.json");
    expect_same("ring.json", "runs.json");
    EXPECT_EQ(count(get("ring.json"), "\"hole\":false"), 1U);
    EXPECT_EQ(count(get("ring.json"), "\"hole\":true"), 1U);
    run(0, "contours ring.csv -o ring.svg --image ring.png");
    const std::string svg = get("ring.svg");
    EXPECT_EQ(count(svg, "<path "), 1U);
    EXPECT_EQ(count(svg.substr(svg.find("<path ")), "M"), 2U) << "one path of two borders";
    EXPECT_EQ(count(svg, "<image "), 1U);
}

TEST_F(ContourCommands, DrawContoursIntoMasks)
{
    run(0, "edit ring.png square.json --add -o added.png");
    run(0, "union ring.png roi:rectangle:28,22,32,26 -o union.png");
    expect_same("added.png", "union.png");
    run(0, "edit added.png square.json --cut -o cut.png");
    expect_same("ring.png", "cut.png");
    run(0, "edit ring.png ring.json --add -o disc.png");
    run(0, "image roi:circle:30,24,20 --width 64 --height 48 -o circle.png");
    expect_same("disc.png", "circle.png");
    run(0, "edit disc.png ring.json --cut -o empty.png");
    EXPECT_TRUE(has_fact("empty.png", "pixels 0"));
    run(0, "contours empty.png -o empty.json");
    run(0, "edit ring.png empty.json --cut -o unchanged.png");
    expect_same("ring.png", "unchanged.png");
    run(0, "edit empty.png square.json --add -o again.png");
    EXPECT_TRUE(has_fact("again.png", "pixels 25"));
}

TEST_F(ContourCommands, DrawThousandsOfContoursIntoALargeMask)
{
    std::string contours;
    for (int i = 0; i < 4900; ++i) { // squares of 3 x 3, with one pixel between them
        const int x = 4 * (i % 70);
        const int y = 4 * (i / 70);
        contours += (i == 0 ? "" : ",") + R"({"points":[[)"s + std::to_string(x) + "," + std::to_string(y) + "],[" +
                    std::to_string(x + 2) + "," + std::to_string(y) + "],[" + std::to_string(x + 2) + "," +
                    std::to_string(y + 2) + "],[" + std::to_string(x) + "," + std::to_string(y + 2) + "]]}";
    }
    put("many.json", R"({"width":0,"height":0,"contours":[)" + contours + "]}");
    run(0, "image roi:rectangle:0,0,2999,2999 --width 3000 --height 3000 -o large.png");
    run(0, "edit large.png many.json --cut -o cut.png");
    EXPECT_TRUE(has_fact("cut.png", "pixels 8955900")); // 9,000,000 without 4900 times 9
}

TEST_F(ContourCommands, ListALinePerPixel)
{
    run(0, "points ring.png -o points.csv");
    const std::string points = get("points.csv");
    EXPECT_EQ(points.find("x,y\n30,4\n"), 0U);
    EXPECT_TRUE(has_fact("ring.png", "pixels " + std::to_string(count(points, "\n") - 1)));
    run(0, "points ring.csv -o same.csv");
    expect_same("points.csv", "same.csv");
}

TEST_F(ContourCommands, RefuseWhatIsNoContours)
{
    put("void.json", "");
    put("half.json", R"({"width":7,)");
    put("pointless.json", R"({"width":7,"height":5,"contours":[{"points":[]}]})");
    put("type.json", R"({"width":7,"height":5,"contours":[{"points":[[1,"2"]]}]})");
    put("far.json", R"({"width":7,"height":5,"contours":[{"points":[[1,2e9]]}]})");
    put("runs.json", R"({"width":7,"height":5,"runs":[]})");
    for (const std::string contours : {"none.json", "void.json", "half.json", "pointless.json", "type.json", "far.json",
                                       "runs.json", "ring.svg", "ring.csv", "."}) {
        EXPECT_EQ(refuse(2, "edit ring.png " + contours + " --add -o out.png").find(contours), 0U);
    }
    put("text.png", "no image");
    for (const std::string input : {"none.csv", "none.png", "text.png", "pointless.json", "."}) {
        refuse(2, "contours " + input + " -o out.json");
        refuse(2, "points " + input + " -o out.csv");
        refuse(2, "edit " + input + " square.json --cut -o out.png");
    }
    put("nothing.csv", run_file(0, 5, ""));
    refuse(1, "contours nothing.csv -o out.svg");
    refuse(1, "points nothing.csv -o out.csv");
    refuse(2, "contours ring.png -o out.svg --image text.png");
}

TEST_F(ContourCommands, RefuseOtherOutputs)
{
    refuse(2, "contours ring.png -o out.csv");
    refuse(2, "contours ring.png -o out.json --image ring.png");
    refuse(2, "points ring.png -o out.json");
    refuse(2, "edit ring.png square.json -o out.png");
    refuse(2, "edit ring.png square.json --add --cut -o out.png");
    refuse(2, "edit ring.png square.json --add -o out.jpg");
}

} // namespace
