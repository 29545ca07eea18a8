// SPDX-License-Identifier: MIT
#include "kivconvert/shape_text.h"
#include "tools/scratch_folder.h"

namespace
{

using kivconvert::parse_shape;

TEST(ShapeText, BeginsWithItsPrefix)
{
    EXPECT_TRUE(kivconvert::is_shape("roi:circle:1,2,3"));
    EXPECT_TRUE(kivconvert::is_shape("roi:"));
    EXPECT_FALSE(kivconvert::is_shape("./roi:circle:1,2,3"));
    EXPECT_FALSE(kivconvert::is_shape("roi.csv"));
    EXPECT_FALSE(kivconvert::is_shape(""));
}

TEST(ShapeText, NamesEveryShape)
{
    EXPECT_EQ(parse_shape("roi:rectangle:1,2,3,4", 9, 8), KivROI::Rectangle(1, 2, 3, 4, 9, 8));
    EXPECT_EQ(parse_shape("roi:rotated-rectangle:1,2,3,4,5", 9, 8), KivROI::RotatedRectangle(1, 2, 3, 4, 5, 9, 8));
    EXPECT_EQ(parse_shape("roi:circle:1,2,3", 9, 8), KivROI::Circle(1, 2, 3, 9, 8));
    EXPECT_EQ(parse_shape("roi:ellipse:1,2,3,4,5", 9, 8), KivROI::Ellipse(1, 2, 3, 4, 5, 9, 8));
    EXPECT_EQ(parse_shape("roi:ring:1,2,3,4", 9, 8), KivROI::Ring(1, 2, 3, 4, 9, 8));
    EXPECT_EQ(parse_shape("roi:ring-sector:1,2,3,4,5,6", 9, 8), KivROI::RingSector(1, 2, 3, 4, 5, 6, 9, 8));
    EXPECT_EQ(parse_shape("roi:polygon:1,2,3,4,5,6", 9, 8), KivROI::Polygon({{1, 2}, {3, 4}, {5, 6}}, 9, 8));
    EXPECT_EQ(parse_shape("roi:polygon:1,2", 9, 8), KivROI::Polygon({{1, 2}}, 9, 8));
}

TEST(ShapeText, TakesFractionsSignsAndExponents)
{
    EXPECT_EQ(parse_shape("roi:circle:-1.5,.25,1e2", 9, 8), KivROI::Circle(-1.5, 0.25, 100, 9, 8));
}

void expect_refused(const std::string& text, const std::string& complaint)
{
    EXPECT_EQ(tools_tests::complaint_of([&] { parse_shape(text, 9, 8); }), text + ": " + complaint);
}

TEST(ShapeText, MustNameAKnownShape)
{
    for (const char* name : {"", "square", "Circle", "circle "}) {
        expect_refused("roi:" + std::string(name),
                       '"' + std::string(name) + "\" is no shape; there are " + kivconvert::known_shapes("  "));
    }
    EXPECT_EQ(kivconvert::known_shapes("  ").rfind("rectangle:left,top,right,bottom  rotated-rectangle:", 0), 0U);
}

TEST(ShapeText, MustHaveNumbers)
{
    expect_refused("roi:circle", "\"\" is not a number");
    expect_refused("roi:circle:", "\"\" is not a number");
    expect_refused("roi:polygon:", "\"\" is not a number");
    expect_refused("roi:circle:1,,3", "\"\" is not a number");
    expect_refused("roi:circle:1,2,3,", "\"\" is not a number");
    expect_refused("roi:circle:1, 2,3", "\" 2\" is not a number");
    expect_refused("roi:circle:1,2,3px", "\"3px\" is not a number");
    expect_refused("roi:circle:1,2,1e999", "\"1e999\" is not a number");
}

TEST(ShapeText, MustHaveTheNumbersOfItsShape)
{
    expect_refused("roi:circle:1,2", "a circle is cx,cy,radius, not 2 numbers");
    expect_refused("roi:rectangle:1,2,3,4,5", "a rectangle is left,top,right,bottom, not 5 numbers");
    expect_refused("roi:polygon:1,2,3", "a polygon is x1,y1,x2,y2,..., not 3 numbers");
}

TEST(ShapeText, MustHaveNumbersThatTheShapeTakes)
{
    expect_refused("roi:circle:1,2,-3", "circle: radius is -3; it must be 0 or more");
    expect_refused("roi:circle:nan,2,3", "\"nan\" is not a number");
    expect_refused("roi:ring-sector:1,1,1,1,0,400", "ring sector: sweep is 400; it must be 360 at most");
}

} // namespace
