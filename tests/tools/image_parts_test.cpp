// SPDX-License-Identifier: MIT
// What is foreground in images with colours, palettes, alpha channels, pages and more than 8 bits.
#include "kivconvert/conversions.h"
#include "kivconvert/image_files.h"
#include "tools/made_images.h"
#include "tools/scratch_folder.h"

#include <opencv2/core.hpp>

#include <string>
#include <string_view>

namespace
{

using kivconvert::Alpha;
using kivconvert::decode_image;
using tools_tests::complaint_of;
using tools_tests::MadePng;
using tools_tests::MadeTiff;
using tools_tests::make_png;
using tools_tests::make_tiff;
using ImageParts = tools_tests::ScratchFolder;
using namespace std::string_literals;

constexpr int grey = 0;
constexpr int rgb = 2;
constexpr int palette = 3;
constexpr int grey_alpha = 4;
constexpr int rgb_alpha = 6;

cv::Mat values_of(const std::string& bytes, const kivconvert::ImagePart& part = {})
{
    KivImage image = decode_image(bytes, "image", part);
    return image.Mat();
}

int pixels_of(const std::string& bytes, const kivconvert::ImagePart& part = {})
{
    KivImage image = decode_image(bytes, "image", part);
    int pixels = 0;
    KivRegion region = kivconvert::region_of(image, "image");
    for (const Run& run : region.Runs()) {
        pixels += run.colEnd - run.colBegin + 1;
    }
    return pixels;
}

template <class T>
void expect_values(const cv::Mat& values, std::initializer_list<T> expected)
{
    const cv::Mat_<T> row(1, static_cast<int>(expected.size()), const_cast<T*>(expected.begin()));
    ASSERT_EQ(values.type(), row.type());
    ASSERT_EQ(values.total(), row.total());
    EXPECT_EQ(cv::norm(values.reshape(1, 1), row, cv::NORM_INF), 0.0) << values;
}

TEST_F(ImageParts, ForegroundIsWhereAnyColourIsNotBlack)
{
    std::string blue;
    std::string red;
    std::string green;
    for (const int label : {1, 2, 3, 0, 4, 5, 8, 255}) {
        blue += "\0\0"s + static_cast<char>(label);
        red += static_cast<char>(label) + "\0\0"s;
        green += "\0"s + static_cast<char>(label) + "\0"s;
    }
    for (const std::string& samples : {blue, red, green}) {
        const std::string bytes = make_png({.width = 8, .height = 1, .type = rgb, .samples = samples});
        expect_values<uchar>(values_of(bytes), {1, 2, 3, 0, 4, 5, 8, 255});
        EXPECT_EQ(pixels_of(bytes), 7);
    }
}

TEST_F(ImageParts, TheValueOfAColourIsItsLargestChannel)
{
    const std::string samples("\x09\x50\x10\x50\x09\x10\x10\x09\x50\0\0\0", 12);
    expect_values<uchar>(values_of(make_png({.width = 4, .height = 1, .type = rgb, .samples = samples})),
                         {0x50, 0x50, 0x50, 0});
}

TEST_F(ImageParts, PaletteImagesHaveTheirIndicesAsValues)
{
    MadePng image{.width = 4, .height = 1, .type = palette, .samples = "\3\0\1\2"s};
    image.palette = {{{255, 255, 255}}, {{0, 0, 0}}, {{0, 0, 1}}, {{0, 0, 0}}};
    expect_values<uchar>(values_of(make_png(image)), {3, 0, 1, 2});
    image.bits = 2;
    image.samples = "\xc6"; // 11 00 01 10
    expect_values<uchar>(values_of(make_png(image)), {3, 0, 1, 2});
    EXPECT_EQ(pixels_of(make_png(image)), 3);
}

TEST_F(ImageParts, AlphaChannelsAreTakenOrLeftOutWhenAskedFor)
{
    const std::string blank =
        make_png({.width = 3, .height = 1, .type = rgb_alpha, .samples = "\0\0\0\0\0\0\0\x80\7\0\0\xff"s});
    EXPECT_EQ(complaint_of([&] { values_of(blank); }),
              "image: is not opaque; --alpha takes its alpha channel, --no-alpha the other ones");
    expect_values<uchar>(values_of(blank, {.alpha = Alpha::taken}), {0, 0x80, 0xff});
    expect_values<uchar>(values_of(blank, {.alpha = Alpha::ignored}), {0, 0, 7});
    const std::string greys = make_png({.width = 2, .height = 1, .type = grey_alpha, .samples = "\5\0\6\xff"s});
    expect_values<uchar>(values_of(greys, {.alpha = Alpha::taken}), {0, 0xff});
    expect_values<uchar>(values_of(greys, {.alpha = Alpha::ignored}), {5, 6});
}

TEST_F(ImageParts, OpaqueAlphaChannelsAreAsIfTheyWereNotThere)
{
    expect_values<uchar>(
        values_of(make_png({.width = 2, .height = 1, .type = rgb_alpha, .samples = "\0\0\3\xff\0\0\0\xff"s})), {3, 0});
    expect_values<ushort>(
        values_of(make_png(
            {.width = 2, .height = 1, .bits = 16, .type = grey_alpha, .samples = "\1\2\xff\xff\0\7\xff\xff"s})),
        {0x102, 7});
    EXPECT_NE(complaint_of([&] {
                  values_of(
                      make_png({.width = 1, .height = 1, .bits = 16, .type = grey_alpha, .samples = "\1\2\xff\xfe"s}));
              }),
              "no complaint");
}

TEST_F(ImageParts, TransparentColoursAreAnAlphaChannel)
{
    MadePng image{.width = 3, .height = 1, .type = palette, .samples = "\0\1\2"s};
    image.palette = {{{0, 0, 0}}, {{0, 0, 0}}, {{0, 0, 0}}};
    image.opacities = "\0\x40"s;
    const std::string bytes = make_png(image);
    EXPECT_NE(complaint_of([&] { values_of(bytes); }).find("--alpha"), std::string::npos);
    expect_values<uchar>(values_of(bytes, {.alpha = Alpha::taken}), {0, 0x40, 0xff});
    expect_values<uchar>(values_of(bytes, {.alpha = Alpha::ignored}), {0, 1, 2});

    MadePng greys{.width = 3, .height = 1, .type = grey, .samples = "\0\1\2"s};
    greys.transparent_grey = 1;
    expect_values<uchar>(values_of(make_png(greys), {.alpha = Alpha::taken}), {0xff, 0, 0xff});
    greys.transparent_grey = 9; // in no pixel
    expect_values<uchar>(values_of(make_png(greys)), {0, 1, 2});
}

TEST_F(ImageParts, AnAlphaChannelThatIsNotThereIsNamed)
{
    const std::string bytes = make_png({.width = 1, .height = 1, .type = rgb, .samples = "\1\2\3"s});
    EXPECT_EQ(complaint_of([&] { values_of(bytes, {.alpha = Alpha::taken}); }), "image: has no alpha channel");
    expect_values<uchar>(values_of(bytes, {.alpha = Alpha::ignored}), {3});
}

TEST_F(ImageParts, PagesAreAskedFor)
{
    const MadeTiff thumbnail{.width = 1, .height = 1, .samples = "\x63"s, .kind = 1};
    make_tiff(path("pages.tif"), {{.width = 3, .height = 1, .samples = "\0\1\0"s},
                                  thumbnail,
                                  {.width = 2, .height = 1, .samples = "\2\3"s},
                                  {.width = 2, .height = 2, .samples = "\0\0\4\5"s}});
    const auto page = [&](int number) { return kivconvert::read_image(path("pages.tif"), {.page = number}).Mat(); };
    EXPECT_EQ(kivconvert::ImageFile(path("pages.tif")).pages(), 3);
    EXPECT_EQ(complaint_of([&] { page(0); }), path("pages.tif") + ": has 3 pages; --page N takes one of them");
    expect_values<uchar>(page(1), {0, 1, 0});
    expect_values<uchar>(page(2), {2, 3});
    expect_values<uchar>(page(3), {0, 0, 4, 5});
    EXPECT_EQ(complaint_of([&] { page(4); }), path("pages.tif") + ": has 3 pages and no page 4");
}

TEST_F(ImageParts, OtherFilesHaveOnePage)
{
    put("a.png", make_png({.width = 1, .height = 1, .samples = "\7"s}));
    EXPECT_EQ(kivconvert::ImageFile(path("a.png")).pages(), 1);
    expect_values<uchar>(kivconvert::read_image(path("a.png"), {.page = 1}).Mat(), {7});
    EXPECT_EQ(complaint_of([&] { kivconvert::read_image(path("a.png"), {.page = 2}); }),
              path("a.png") + ": has 1 page and no page 2");
    EXPECT_NE(complaint_of([&] { values_of("P5 1 1 255\n\7P5 1 1 255\n\7"); }).find("several images"),
              std::string::npos);
}

TEST_F(ImageParts, ForegroundOfDeepImagesIsWhatIsNot0)
{
    const std::string labels = make_png({.width = 5, .height = 1, .bits = 16, .samples = "\0\1\0\0\0\2\1\x2c\0\0"s});
    expect_values<ushort>(values_of(labels), {1, 0, 2, 300, 0});
    EXPECT_EQ(pixels_of(labels), 3);

    const float floats[] = {0.25F, 0.0F, -1.0F};
    make_tiff(path("float.tif"), {{.width = 3,
                                   .height = 1,
                                   .samples = std::string(reinterpret_cast<const char*>(floats), sizeof(floats)),
                                   .bits = 32,
                                   .format = 3}});
    KivImage image = kivconvert::read_image(path("float.tif"));
    kivconvert::Content content = image;
    EXPECT_EQ(kivconvert::region_of(content, "float"), KivRegion(3, 1, {{0, 0, 0}, {0, 2, 2}}));
    EXPECT_EQ(kivconvert::contours_of(image, "float").contours.Length(), 2);
    content = kivconvert::read_image(path("float.tif"));
    KivROI roi = kivconvert::roi_of(content, "float");
    EXPECT_EQ(kivconvert::region_of(roi, "float"), KivRegion(3, 1, {{0, 0, 0}, {0, 2, 2}}));
}

} // namespace
