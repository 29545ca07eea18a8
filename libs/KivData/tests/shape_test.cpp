// SPDX-License-Identifier: MIT
// What each shape looks like, its degenerate cases, and the parameters that are rejected.
#include <KivData/KivROI.h>

#include "support/pictures.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace
{

using Points = std::vector<cv::Point_<double>>;
using Runs = std::vector<Run>;

constexpr int int_max = std::numeric_limits<int>::max();
constexpr double double_max = std::numeric_limits<double>::max();
constexpr double denormal = std::numeric_limits<double>::denorm_min();
constexpr double infinity = std::numeric_limits<double>::infinity();
const double not_a_number = std::nan("");

std::string picture_of(const KivROI& roi)
{
    const IKivROIPara& parameters = roi.Parameters();
    return support::picture_of(parameters.MaskRuns(), parameters.Width(), parameters.Height());
}

Runs runs_of(const KivROI& roi)
{
    return roi.Parameters().MaskRuns();
}

TEST(Shape, HasACodeOfItsOwn)
{
    const Points points;
    const KivROI rois[] = {KivROI::Rectangle(0, 0, 1, 1, 2, 2),
                           KivROI::RotatedRectangle(0, 0, 1, 1, 0, 2, 2),
                           KivROI(),
                           KivROI::Circle(0, 0, 1, 2, 2),
                           KivROI::Ellipse(0, 0, 1, 1, 0, 2, 2),
                           KivROI::Ring(0, 0, 1, 1, 2, 2),
                           KivROI::RingSector(0, 0, 1, 1, 0, 1, 2, 2),
                           KivROI::Mask({}, 2, 2),
                           KivROI::Polygon(points, 2, 2),
                           KivROI::OpenCurve(points, 2, 2)};
    int code = 0;
    for (const KivROI& roi : rois) {
        EXPECT_EQ(roi.ROIType(), ++code);
    }
}

TEST(Shape, IsReadBackWithItsParameters)
{
    const KivROI roi = KivROI::RingSector(1, 2, 3, 4, 5, 6, 7, 8);
    const auto& sector = std::get<KivShape::RingSector>(roi.Parameters().Shape());
    EXPECT_EQ(sector, (KivShape::RingSector{1, 2, 3, 4, 5, 6}));
    EXPECT_EQ(roi.Parameters().Width(), 7);
    EXPECT_EQ(roi.Parameters().Height(), 8);

    const KivROI ellipse = KivROI::Ellipse(1, 2, 3, 4, 5, 6, 7);
    EXPECT_EQ(std::get<KivShape::Ellipse>(ellipse.Parameters().Shape()), (KivShape::Ellipse{1, 2, 3, 4, 5}));
    const KivROI rectangle = KivROI::RotatedRectangle(1, 2, 3, 4, 5, 6, 7);
    EXPECT_EQ(std::get<KivShape::RotatedRectangle>(rectangle.Parameters().Shape()),
              (KivShape::RotatedRectangle{1, 2, 3, 4, 5}));
}

/// That the parameters are 0 by default, and that shapes that differ in one of them differ.
template <class Shape>
void expect_parameters(const std::vector<double Shape::*>& parameters)
{
    const Shape shape;
    EXPECT_TRUE(shape == Shape());
    for (double Shape::*const parameter : parameters) {
        EXPECT_EQ(shape.*parameter, 0.0);
        Shape changed;
        changed.*parameter = 9.0;
        EXPECT_FALSE(changed == shape);
    }
}

TEST(Shape, HasParametersOf0ByDefaultAndComparesAllOfThem)
{
    using namespace KivShape;
    expect_parameters<Rectangle>({&Rectangle::left, &Rectangle::top, &Rectangle::right, &Rectangle::bottom});
    expect_parameters<RotatedRectangle>({&RotatedRectangle::cx, &RotatedRectangle::cy, &RotatedRectangle::length,
                                         &RotatedRectangle::breadth, &RotatedRectangle::angle});
    expect_parameters<Circle>({&Circle::cx, &Circle::cy, &Circle::radius});
    expect_parameters<Ellipse>({&Ellipse::cx, &Ellipse::cy, &Ellipse::radius1, &Ellipse::radius2, &Ellipse::angle});
    expect_parameters<Ring>({&Ring::cx, &Ring::cy, &Ring::inner, &Ring::outer});
    expect_parameters<RingSector>({&RingSector::cx, &RingSector::cy, &RingSector::inner, &RingSector::outer,
                                   &RingSector::start, &RingSector::sweep});
    EXPECT_FALSE((Polygon{{{1, 2}}}) == (Polygon{{{1, 3}}}));
    EXPECT_FALSE((OpenCurve{{{1, 2}}}) == (OpenCurve{{{1, 3}}}));
}

TEST(Rectangle, HasItsSidesOnPixels)
{
    EXPECT_EQ(picture_of(KivROI::Rectangle(1, 1, 3, 2, 5, 4)), ".....\n"
                                                               ".###.\n"
                                                               ".###.\n"
                                                               ".....\n");
    EXPECT_EQ(picture_of(KivROI::Rectangle(0.001, 0.5, 3.999, 2.5, 5, 4)), ".....\n"
                                                                           ".###.\n"
                                                                           ".###.\n"
                                                                           ".....\n");
}

TEST(Rectangle, IsClippedToTheFrame)
{
    EXPECT_EQ(picture_of(KivROI::Rectangle(-double_max, 1, double_max, double_max, 3, 3)), "...\n"
                                                                                           "###\n"
                                                                                           "###\n");
    EXPECT_EQ(runs_of(KivROI::Rectangle(-5, -5, -1, 9, 3, 3)), Runs());
    EXPECT_EQ(runs_of(KivROI::Rectangle(3, 0, 9, 9, 3, 3)), Runs());
    EXPECT_EQ(runs_of(KivROI::Rectangle(0, 0, 9, 9, 0, 3)), Runs());
    EXPECT_EQ(runs_of(KivROI::Rectangle(0, 0, 9, 9, 3, 0)), Runs());
}

TEST(Rectangle, OfNoWidthIsAColumnOfPixelsOrNothing)
{
    EXPECT_EQ(runs_of(KivROI::Rectangle(2, 0, 2, 1, 5, 5)), (Runs{{0, 2, 2}, {1, 2, 2}}));
    EXPECT_EQ(runs_of(KivROI::Rectangle(2.5, 0, 2.5, 1, 5, 5)), Runs());
    EXPECT_EQ(runs_of(KivROI::Rectangle(3, 3, 3, 3, 5, 5)), (Runs{{3, 3, 3}}));
}

TEST(Rectangle, WithSidesInterchangedIsNothing)
{
    EXPECT_EQ(runs_of(KivROI::Rectangle(3, 0, 1, 4, 5, 5)), Runs());
    EXPECT_EQ(runs_of(KivROI::Rectangle(0, 3, 4, 1, 5, 5)), Runs());
}

TEST(RotatedRectangle, TurnsClockwiseOnTheScreen)
{
    const auto turned = [](double angle) { return KivROI::RotatedRectangle(3, 2, 6, 1, angle, 7, 5); };
    EXPECT_EQ(picture_of(turned(0)), ".......\n"
                                     ".......\n"
                                     "#######\n"
                                     ".......\n"
                                     ".......\n");
    EXPECT_EQ(picture_of(turned(90)), "...#...\n"
                                      "...#...\n"
                                      "...#...\n"
                                      "...#...\n"
                                      "...#...\n");
    EXPECT_EQ(picture_of(turned(45)), ".#.....\n"
                                      "..#....\n"
                                      "...#...\n"
                                      "....#..\n"
                                      ".....#.\n");
    EXPECT_EQ(picture_of(turned(-45)), ".....#.\n"
                                       "....#..\n"
                                       "...#...\n"
                                       "..#....\n"
                                       ".#.....\n");
    EXPECT_EQ(runs_of(turned(450)), runs_of(turned(90)));
    EXPECT_EQ(runs_of(turned(-180)), runs_of(turned(0)));
}

TEST(RotatedRectangle, FollowsTheAngleClosely)
{
    // 3 down for every 4 to the right, and so thin that a tenth of a degree more or less would miss the farthest pixel.
    constexpr double angle = 36.869897645844021; // atan(3 / 4)
    EXPECT_EQ(runs_of(KivROI::RotatedRectangle(0, 0, 41, 0.03, angle, 20, 20)),
              (Runs{{0, 0, 0}, {3, 4, 4}, {6, 8, 8}, {9, 12, 12}, {12, 16, 16}}));
}

TEST(RotatedRectangle, UprightIsTheRectangle)
{
    for (const double angle : {0.0, 90.0, 180.0, 270.0, -90.0, 3.6e5}) {
        const bool lying = std::fmod(angle, 180.0) == 0.0;
        EXPECT_EQ(runs_of(KivROI::RotatedRectangle(5, 4, lying ? 6 : 4, lying ? 4 : 6, angle, 10, 10)),
                  runs_of(KivROI::Rectangle(2, 2, 8, 6, 10, 10)))
            << angle;
    }
    EXPECT_EQ(runs_of(KivROI::RotatedRectangle(5, 20, 4, 40, 0, 10, 50)),
              runs_of(KivROI::Rectangle(3, 0, 7, 40, 10, 50)));
}

TEST(RotatedRectangle, OfNoBreadthIsALine)
{
    EXPECT_EQ(runs_of(KivROI::RotatedRectangle(2, 2, 2, 0, 0, 5, 5)), (Runs{{2, 1, 3}}));
    EXPECT_EQ(runs_of(KivROI::RotatedRectangle(2, 2, 2, 0, 90, 5, 5)), (Runs{{1, 2, 2}, {2, 2, 2}, {3, 2, 2}}));
    EXPECT_EQ(runs_of(KivROI::RotatedRectangle(2, 2, 0, 0, 33, 5, 5)), (Runs{{2, 2, 2}}));
    EXPECT_EQ(runs_of(KivROI::RotatedRectangle(2, 2.5, 9, 0, 0, 5, 5)), Runs());
}

TEST(Circle, HasItsBorder)
{
    EXPECT_EQ(picture_of(KivROI::Circle(2, 2, 2, 5, 5)), "..#..\n"
                                                         ".###.\n"
                                                         "#####\n"
                                                         ".###.\n"
                                                         "..#..\n");
    EXPECT_EQ(picture_of(KivROI::Circle(1.5, 1.5, 1.6, 4, 4)), ".##.\n"
                                                               "####\n"
                                                               "####\n"
                                                               ".##.\n");
    // 3 and 4 make 5: a point on the border that is a pixel's centre.
    EXPECT_TRUE(KivROI::Circle(5, 5, 5, 11, 11).Parameters().Contains(8, 9));
    EXPECT_FALSE(KivROI::Circle(5, 5, std::nextafter(5, 0), 11, 11).Parameters().Contains(8, 9));
}

TEST(Circle, OfNoRadiusIsOnePixelOrNothing)
{
    EXPECT_EQ(runs_of(KivROI::Circle(2, 3, 0, 5, 5)), (Runs{{3, 2, 2}}));
    EXPECT_EQ(runs_of(KivROI::Circle(0, 0, 0, 5, 5)), (Runs{{0, 0, 0}}));
    EXPECT_EQ(runs_of(KivROI::Circle(2.5, 3, 0, 5, 5)), Runs());
    EXPECT_EQ(runs_of(KivROI::Circle(denormal, 0, 0, 5, 5)), Runs());
    EXPECT_EQ(runs_of(KivROI::Circle(2, 3, denormal, 5, 5)), (Runs{{3, 2, 2}}));
    EXPECT_EQ(runs_of(KivROI::Circle(7, 3, 0, 5, 5)), Runs());
}

TEST(Ellipse, TurnsClockwiseOnTheScreen)
{
    EXPECT_EQ(picture_of(KivROI::Ellipse(4, 2, 4, 2, 0, 9, 5)), "....#....\n"
                                                                ".#######.\n"
                                                                "#########\n"
                                                                ".#######.\n"
                                                                "....#....\n");
    EXPECT_EQ(picture_of(KivROI::Ellipse(3, 3, 4, 1, 45, 7, 7)), ".......\n"
                                                                 ".##....\n"
                                                                 ".###...\n"
                                                                 "..###..\n"
                                                                 "...###.\n"
                                                                 "....##.\n"
                                                                 ".......\n");
}

TEST(Ellipse, LyingAlmostFlatLeansAllTheSame)
{
    constexpr double angle = 7.125016348901798; // atan(1 / 8): from row 1 to row 2 in 8 columns
    EXPECT_EQ(runs_of(KivROI::Ellipse(4, 1.5, 5, 0.1, angle, 9, 4)), (Runs{{1, 0, 0}, {2, 8, 8}}));
}

TEST(Ellipse, OfEqualRadiiIsTheCircle)
{
    for (const double angle : {0.0, 30.0, 45.0, 90.0, 123.4}) {
        EXPECT_EQ(runs_of(KivROI::Ellipse(20, 20, 15, 15, angle, 40, 40)), runs_of(KivROI::Circle(20, 20, 15, 40, 40)));
    }
}

TEST(Ellipse, HasItsBorder)
{
    const KivROI ellipse = KivROI::Ellipse(30, 10, 25, 5, 0, 60, 20);
    EXPECT_TRUE(ellipse.Parameters().Contains(45, 14));
    EXPECT_TRUE(ellipse.Parameters().Contains(5, 10));
    EXPECT_TRUE(ellipse.Parameters().Contains(30, 5));
    EXPECT_FALSE(ellipse.Parameters().Contains(46, 14));
}

TEST(Ellipse, UprightHasTheEndsOfItsAxes)
{
    for (int radius1 = 1; radius1 <= 200; ++radius1) {
        for (int radius2 = 1; radius2 <= 200; ++radius2) {
            for (const int angle : {0, 90, 180, 270}) {
                const KivROI ellipse = KivROI::Ellipse(200, 200, radius1, radius2, angle, 401, 401);
                const auto has = [&ellipse](int x, int y) { return ellipse.Parameters().Contains(x, y); };
                const int across = angle % 180 == 0 ? radius1 : radius2;
                const int down = angle % 180 == 0 ? radius2 : radius1;
                ASSERT_TRUE(has(200 - across, 200) && has(200 + across, 200) && has(200, 200 - down) &&
                            has(200, 200 + down))
                    << radius1 << ", " << radius2 << " at " << angle;
                ASSERT_FALSE(has(199 - across, 200) || has(201 + across, 200) || has(200, 199 - down) ||
                             has(200, 201 + down))
                    << radius1 << ", " << radius2 << " at " << angle;
            }
        }
    }
    const Runs runs = runs_of(KivROI::Ellipse(2, 49, 1, 49, 0, 5, 99));
    EXPECT_EQ(Runs(runs.begin() + 49, runs.begin() + 50), (Runs{{49, 1, 3}}));
}

TEST(Ellipse, OfOneRadiusIsALine)
{
    EXPECT_EQ(runs_of(KivROI::Ellipse(3, 2, 2, 0, 0, 7, 5)), (Runs{{2, 1, 5}}));
    EXPECT_EQ(runs_of(KivROI::Ellipse(3, 2, 0, 2, 90, 7, 5)), (Runs{{2, 1, 5}}));
    EXPECT_EQ(runs_of(KivROI::Ellipse(3, 2, 1, 0, 90, 7, 5)), (Runs{{1, 3, 3}, {2, 3, 3}, {3, 3, 3}}));
    EXPECT_EQ(runs_of(KivROI::Ellipse(3, 2, 0, 0, 17, 7, 5)), (Runs{{2, 3, 3}}));
    EXPECT_EQ(runs_of(KivROI::Ellipse(3.5, 2, 0, 0, 17, 7, 5)), Runs());
}

TEST(Ellipse, LyingMayBeAsFlatAsADouble)
{
    const Runs row{{2, 0, 6}};
    EXPECT_EQ(runs_of(KivROI::Ellipse(3, 2, 1e200, 1e-200, 0, 7, 5)), row);
    EXPECT_EQ(runs_of(KivROI::Ellipse(3, 2, 1e-200, 1e200, 90, 7, 5)), row);
}

TEST(Ring, HasBothCircles)
{
    EXPECT_EQ(picture_of(KivROI::Ring(3, 3, 2, 3, 7, 7)), "...#...\n"
                                                          ".#####.\n"
                                                          ".#...#.\n"
                                                          "##...##\n"
                                                          ".#...#.\n"
                                                          ".#####.\n"
                                                          "...#...\n");
    EXPECT_EQ(runs_of(KivROI::Ring(2, 2, 2, 2, 5, 5)),
              (Runs{{0, 2, 2}, {2, 0, 0}, {2, 4, 4}, {4, 2, 2}})); // a circle's line
}

TEST(Ring, WithoutAHoleIsTheCircle)
{
    EXPECT_EQ(runs_of(KivROI::Ring(3, 4, 0, 3, 9, 9)), runs_of(KivROI::Circle(3, 4, 3, 9, 9)));
}

TEST(Ring, WithTheLargerHoleIsNothing)
{
    EXPECT_EQ(runs_of(KivROI::Ring(3, 4, 3.5, 3, 9, 9)), Runs());
}

TEST(RingSector, SweepsClockwiseOnTheScreen)
{
    const auto sector = [](double start, double sweep) { return KivROI::RingSector(3, 3, 2, 3, start, sweep, 7, 7); };
    EXPECT_EQ(picture_of(sector(0, 90)), ".......\n"
                                         ".......\n"
                                         ".......\n"
                                         ".....##\n"
                                         ".....#.\n"
                                         "...###.\n"
                                         "...#...\n");
    EXPECT_EQ(picture_of(sector(-90, 180)), "...#...\n"
                                            "...###.\n"
                                            ".....#.\n"
                                            ".....##\n"
                                            ".....#.\n"
                                            "...###.\n"
                                            "...#...\n");
    EXPECT_EQ(picture_of(sector(0, 270)), "...#...\n"
                                          ".###...\n"
                                          ".#.....\n"
                                          "##...##\n"
                                          ".#...#.\n"
                                          ".#####.\n"
                                          "...#...\n");
    EXPECT_EQ(picture_of(sector(0, 180)), ".......\n"
                                          ".......\n"
                                          ".......\n"
                                          "##...##\n"
                                          ".#...#.\n"
                                          ".#####.\n"
                                          "...#...\n");
    EXPECT_EQ(picture_of(sector(-140, 280)), "...#...\n"
                                             ".#####.\n"
                                             ".....#.\n"
                                             ".....##\n"
                                             ".....#.\n"
                                             ".#####.\n"
                                             "...#...\n");
    EXPECT_EQ(runs_of(sector(17, 360)), runs_of(KivROI::Ring(3, 3, 2, 3, 7, 7)));
    EXPECT_EQ(runs_of(sector(720, 90)), runs_of(sector(0, 90)));
}

TEST(RingSector, EndsBetweenDegreesToo)
{
    // Whether the sector holds the point 200 columns from its centre and so many rows below: the angle grows by 0.286
    // degrees for each row.
    const auto holds = [](double sweep, int columns, int rows) {
        return KivROI::RingSector(300, 10, 0, 300, 0, sweep, 600, 20).Parameters().Contains(300 + columns, 10 + rows);
    };
    EXPECT_TRUE(holds(179.5, -200, 2));
    EXPECT_FALSE(holds(179.5, -200, 1));
    EXPECT_FALSE(holds(179.5, 0, -9));
    EXPECT_TRUE(holds(180.5, 0, 9));
    EXPECT_TRUE(holds(180.5, -200, -1));
    EXPECT_FALSE(holds(180.5, -200, -2));
    EXPECT_TRUE(holds(359.5, 200, -2));
    EXPECT_FALSE(holds(359.5, 200, -1));
}

TEST(RingSector, OfNoSweepIsALine)
{
    EXPECT_EQ(runs_of(KivROI::RingSector(3, 3, 1, 3, 180, 0, 7, 7)), (Runs{{3, 0, 2}}));
    EXPECT_EQ(runs_of(KivROI::RingSector(3, 3, 0, 2, 90, 0, 7, 7)), (Runs{{3, 3, 3}, {4, 3, 3}, {5, 3, 3}}));
}

TEST(RingSector, WithoutAHoleHasItsCentre)
{
    for (double sweep = 0; sweep <= 360; sweep += 15) {
        EXPECT_TRUE(KivROI::RingSector(3, 3, 0, 2, 40, sweep, 7, 7).Parameters().Contains(3, 3)) << sweep;
    }
}

TEST(Polygon, HasItsEdges)
{
    EXPECT_EQ(picture_of(KivROI::Polygon({{0, 0}, {6, 0}, {0, 3}}, 7, 4)), "#######\n"
                                                                           "#####..\n"
                                                                           "###....\n"
                                                                           "#......\n");
    EXPECT_EQ(picture_of(KivROI::Polygon({{0.5, 0.5}, {3.5, 0.5}, {3.5, 2.5}, {0.5, 2.5}}, 5, 4)), ".....\n"
                                                                                                   ".###.\n"
                                                                                                   ".###.\n"
                                                                                                   ".....\n");
}

TEST(Polygon, ContainsTheColumnsOfItsRuns)
{
    const KivROI horseshoe =
        KivROI::Polygon({{1, 0}, {3, 0}, {3, 2}, {5, 2}, {5, 0}, {7, 0}, {7, 4}, {4, 5}, {1, 4}}, 9, 7);
    EXPECT_EQ(runs_of(horseshoe),
              (Runs{{0, 1, 3}, {0, 5, 7}, {1, 1, 3}, {1, 5, 7}, {2, 1, 7}, {3, 1, 7}, {4, 1, 7}, {5, 4, 4}}));
    std::string contained;
    for (int y = 0; y < 7; ++y) {
        for (int x = 0; x < 9; ++x) {
            contained += horseshoe.Parameters().Contains(x, y) ? '#' : '.';
        }
        contained += '\n';
    }
    EXPECT_EQ(contained, ".###.###.\n"
                         ".###.###.\n"
                         ".#######.\n"
                         ".#######.\n"
                         ".#######.\n"
                         "....#....\n"
                         ".........\n");
}

TEST(Polygon, LeavesOutWhatLiesInsideTwice)
{
    EXPECT_EQ(picture_of(KivROI::Polygon(
                  {{0, 0}, {6, 0}, {6, 6}, {0, 6}, {0, 0}, {2, 2}, {2, 4}, {4, 4}, {4, 2}, {2, 2}}, 7, 7)),
              "#######\n"
              "#######\n"
              "#######\n"
              "###.###\n"
              "#######\n"
              "#######\n"
              "#######\n");
    EXPECT_EQ(picture_of(KivROI::Polygon({{0, 0}, {4, 4}, {4, 0}, {0, 4}}, 5, 5)), "#...#\n"
                                                                                   "##.##\n"
                                                                                   "#####\n"
                                                                                   "##.##\n"
                                                                                   "#...#\n");
    // Twice round the same square: only the edges are left.
    EXPECT_EQ(picture_of(KivROI::Polygon({{0, 0}, {3, 0}, {3, 3}, {0, 3}, {0, 0}, {3, 0}, {3, 3}, {0, 3}}, 4, 4)),
              "####\n"
              "#..#\n"
              "#..#\n"
              "####\n");
}

TEST(Polygon, IsNotChangedByRepeatedPointsAndPointsInLine)
{
    EXPECT_EQ(
        runs_of(KivROI::Polygon({{0, 0}, {0, 0}, {3, 0}, {6, 0}, {6, 0}, {6, 0}, {3, 1.5}, {0, 3}, {0, 1}}, 9, 9)),
        runs_of(KivROI::Polygon({{0, 0}, {6, 0}, {0, 3}}, 9, 9)));
}

TEST(Polygon, OfFewPointsIsNothingAPointOrALine)
{
    EXPECT_EQ(runs_of(KivROI::Polygon({}, 9, 9)), Runs());
    EXPECT_EQ(runs_of(KivROI::Polygon({{3, 4}}, 9, 9)), (Runs{{4, 3, 3}}));
    EXPECT_EQ(runs_of(KivROI::Polygon({{3.5, 4}}, 9, 9)), Runs());
    EXPECT_EQ(runs_of(KivROI::Polygon({{1, 1}, {5, 3}}, 9, 9)), (Runs{{1, 1, 1}, {2, 3, 3}, {3, 5, 5}}));
    EXPECT_EQ(runs_of(KivROI::Polygon({{1, 1}, {5, 1}, {3, 1}}, 9, 9)), (Runs{{1, 1, 5}}));
}

TEST(OpenCurve, HasNoPixels)
{
    EXPECT_FALSE(KivROI::OpenCurve(Points{{0, 0}, {2, 0}, {2, 2}}, 3, 3).Parameters().Contains(0, 0));
    EXPECT_FALSE(KivROI().Parameters().Contains(0, 0));
    const KivROI curve = KivROI::OpenCurve({{0, 0}, {3, 0}, {3, 3}}, 4, 4);
    EXPECT_EQ(runs_of(curve), Runs());
    EXPECT_FALSE(curve.Parameters().Contains(0, 0));
}

TEST(Shape, IsNothingOutsideOfTheFrame)
{
    const KivROI circle = KivROI::Circle(0, 0, 9, 3, 3);
    EXPECT_TRUE(circle.Parameters().Contains(2, 2));
    EXPECT_FALSE(circle.Parameters().Contains(-1, 0));
    EXPECT_FALSE(circle.Parameters().Contains(0, -1));
    EXPECT_FALSE(circle.Parameters().Contains(3, 0));
    EXPECT_FALSE(circle.Parameters().Contains(0, 3));
    EXPECT_FALSE(KivROI::Polygon({{-9, -9}, {9, -9}, {0, 9}}, 3, 3).Parameters().Contains(-1, 0));
}

TEST(Shape, CostsItsRowsNotTheFrame)
{
    // Going through such a frame pixel by pixel would take centuries.
    EXPECT_EQ(runs_of(KivROI::Circle(1e9, 2e9, 1, int_max, int_max)), (Runs{{1999999999, 1000000000, 1000000000},
                                                                            {2000000000, 999999999, 1000000001},
                                                                            {2000000001, 1000000000, 1000000000}}));
    EXPECT_EQ(runs_of(KivROI::Rectangle(0, 5, double_max, 5, int_max, int_max)), (Runs{{5, 0, int_max - 1}}));
    EXPECT_EQ(runs_of(KivROI::Polygon({{0, 2e9}, {3e9, 2e9}}, int_max, int_max)), (Runs{{2000000000, 0, int_max - 1}}));
    EXPECT_EQ(runs_of(KivROI::Circle(0, 1e300, 1, int_max, int_max)), Runs());
    EXPECT_EQ(runs_of(KivROI::Rectangle(0, 1e308, 1, double_max, int_max, int_max)), Runs());
}

TEST(Shape, MayBeAsLargeAsADouble)
{
    const Runs whole = {{0, 0, 2}, {1, 0, 2}};
    for (const double huge : {1e16, 1e100, 1e200, double_max / 2, double_max}) {
        EXPECT_EQ(runs_of(KivROI::Rectangle(-huge, -huge, huge, huge, 3, 2)), whole) << huge;
        EXPECT_EQ(runs_of(KivROI::RotatedRectangle(0, 0, huge, huge, 30, 3, 2)), whole) << huge;
        EXPECT_EQ(runs_of(KivROI::Circle(0, 0, huge, 3, 2)), whole) << huge;
        EXPECT_EQ(runs_of(KivROI::Circle(huge, 0, 1, 3, 2)), Runs()) << huge;
        EXPECT_EQ(runs_of(KivROI::Circle(huge, huge, huge, 3, 2)), Runs()) << huge;
        EXPECT_EQ(runs_of(KivROI::Ellipse(0, 0, huge, huge, 30, 3, 2)), whole) << huge;
        EXPECT_EQ(runs_of(KivROI::Ellipse(0, 0, huge, 9, 0, 3, 2)), whole) << huge;
        EXPECT_EQ(runs_of(KivROI::Ellipse(1, 0, huge, 0, 90, 3, 2)), (Runs{{0, 1, 1}, {1, 1, 1}})) << huge;
        EXPECT_EQ(runs_of(KivROI::Ellipse(huge, -huge, 1, huge, 10, 3, 2)), Runs()) << huge;
        EXPECT_EQ(runs_of(KivROI::Ring(0, 0, huge, huge, 3, 2)), Runs()) << huge;
        EXPECT_EQ(runs_of(KivROI::RingSector(0, 0, 0, huge, 0, 90, 3, 2)), whole) << huge;
        EXPECT_EQ(runs_of(KivROI::RingSector(0, 0, 0, huge, 91, 178, 3, 2)), (Runs{{0, 0, 0}})) << huge;
        EXPECT_EQ(runs_of(KivROI::Polygon({{-huge, -huge}, {huge, -huge}, {huge, huge}, {-huge, huge}}, 3, 2)), whole)
            << huge;
        EXPECT_EQ(runs_of(KivROI::Polygon({{1, -huge}, {1, huge}}, 3, 2)), (Runs{{0, 1, 1}, {1, 1, 1}})) << huge;
    }
}

TEST(Shape, RefusesParametersThatAreNotFinite)
{
    for (const double bad : {not_a_number, infinity, -infinity}) {
        EXPECT_THROW(KivROI::Rectangle(bad, 0, 1, 1, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Rectangle(0, bad, 1, 1, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Rectangle(0, 0, bad, 1, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Rectangle(0, 0, 1, bad, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::RotatedRectangle(bad, 0, 1, 1, 0, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::RotatedRectangle(0, bad, 1, 1, 0, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::RotatedRectangle(0, 0, bad, 1, 0, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::RotatedRectangle(0, 0, 1, bad, 0, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::RotatedRectangle(0, 0, 1, 1, bad, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Circle(bad, 0, 1, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Circle(0, bad, 1, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Circle(0, 0, bad, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Ellipse(bad, 0, 1, 1, 0, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Ellipse(0, bad, 1, 1, 0, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Ellipse(0, 0, bad, 1, 0, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Ellipse(0, 0, 1, bad, 0, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Ellipse(0, 0, 1, 1, bad, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Ring(bad, 0, 1, 1, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Ring(0, bad, 1, 1, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Ring(0, 0, bad, 1, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Ring(0, 0, 1, bad, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::RingSector(bad, 0, 1, 1, 0, 1, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::RingSector(0, bad, 1, 1, 0, 1, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::RingSector(0, 0, bad, 1, 0, 1, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::RingSector(0, 0, 1, bad, 0, 1, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::RingSector(0, 0, 1, 1, bad, 1, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::RingSector(0, 0, 1, 1, 0, bad, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Polygon({{0, 0}, {bad, 0}}, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::Polygon({{0, bad}}, 2, 2), std::invalid_argument);
        EXPECT_THROW(KivROI::OpenCurve({{0, bad}}, 2, 2), std::invalid_argument);
    }
}

TEST(Shape, RefusesNegativeSizesAndSweepsBeyondATurn)
{
    EXPECT_THROW(KivROI::RotatedRectangle(0, 0, -1, 1, 0, 2, 2), std::invalid_argument);
    EXPECT_THROW(KivROI::RotatedRectangle(0, 0, 1, -1, 0, 2, 2), std::invalid_argument);
    EXPECT_THROW(KivROI::Circle(0, 0, -denormal, 2, 2), std::invalid_argument);
    EXPECT_THROW(KivROI::Ellipse(0, 0, -1, 1, 0, 2, 2), std::invalid_argument);
    EXPECT_THROW(KivROI::Ellipse(0, 0, 1, -1, 0, 2, 2), std::invalid_argument);
    EXPECT_THROW(KivROI::Ring(0, 0, -1, 1, 2, 2), std::invalid_argument);
    EXPECT_THROW(KivROI::Ring(0, 0, 1, -1, 2, 2), std::invalid_argument);
    EXPECT_THROW(KivROI::RingSector(0, 0, -1, 1, 0, 1, 2, 2), std::invalid_argument);
    EXPECT_THROW(KivROI::RingSector(0, 0, 1, -1, 0, 1, 2, 2), std::invalid_argument);
    EXPECT_THROW(KivROI::RingSector(0, 0, 1, 1, 0, -1, 2, 2), std::invalid_argument);
    EXPECT_THROW(KivROI::RingSector(0, 0, 1, 1, 0, 360.5, 2, 2), std::invalid_argument);
}

TEST(Shape, RefusesNegativeFrames)
{
    EXPECT_THROW(KivROI::Circle(0, 0, 1, -1, 2), std::invalid_argument);
    EXPECT_THROW(KivROI::Circle(0, 0, 1, 2, -1), std::invalid_argument);
}

TEST(Shape, NamesTheParameterInItsSentence)
{
    try {
        KivROI::Circle(0, 0, -3.5, 2, 2);
        FAIL() << "no exception";
    } catch (const std::invalid_argument& error) {
        EXPECT_EQ(std::string(error.what()), "circle: radius is -3.5; it must be 0 or more");
    }
    try {
        KivROI::Polygon({{0, 0}, {0, infinity}}, 2, 2);
        FAIL() << "no exception";
    } catch (const std::invalid_argument& error) {
        EXPECT_EQ(std::string(error.what()), "polygon: a coordinate of point 1 is inf; it must be finite");
    }
}

} // namespace
