// SPDX-License-Identifier: MIT
// What each format of image files may hold, and what is made of it.
#include "kivconvert/exif.h"
#include "kivconvert/image_encoder.h"
#include "kivconvert/image_files.h"
#include "tools/made_images.h"
#include "tools/scratch_folder.h"

#include <opencv2/core.hpp>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace
{

using kivconvert::Alpha;
using kivconvert::decode_image;
using tools_tests::complaint_of;
using tools_tests::MadeTiff;
using tools_tests::make_jpeg;
using tools_tests::make_png;
using tools_tests::make_tiff;
using ImageFormats = tools_tests::ScratchFolder;
using namespace std::string_literals;

constexpr int white_is_0 = 0;
constexpr int black_is_0 = 1;
constexpr int rgb = 2;
constexpr int palette = 3;
constexpr int ink = 5;
constexpr int lzw = 5;
constexpr int jpeg = 7;

template <class T>
cv::Mat rows_of(int columns, const std::vector<T>& values)
{
    return cv::Mat(values, true).reshape(1, static_cast<int>(values.size()) / columns);
}

void expect_same(const cv::Mat& values, const cv::Mat& expected)
{
    ASSERT_EQ(values.type(), expected.type());
    ASSERT_EQ(values.size(), expected.size());
    EXPECT_EQ(cv::norm(values, expected, cv::NORM_INF), 0.0) << values << " instead of " << expected;
}

cv::Mat decoded(const std::string& bytes, const kivconvert::ImagePart& part = {})
{
    return decode_image(bytes, "image", part).Mat();
}

std::string refusal(const std::string& bytes)
{
    return complaint_of([&] { decoded(bytes); });
}

template <class T>
std::string bytes_of(const std::vector<T>& values)
{
    return {reinterpret_cast<const char*>(values.data()), values.size() * sizeof(T)};
}

/// A number of BMP files.
std::string number(std::uint32_t value, int size)
{
    std::string bytes;
    for (int i = 0; i < size; ++i) {
        bytes += static_cast<char>(value >> (8 * i) & 0xffU);
    }
    return bytes;
}

struct MadeBmp {
    int width = 0;
    int height = 0;
    int bits = 0;
    std::string behind = {}; ///< the header: bit fields, palette and pixels
    std::uint32_t begin = 54;
    std::uint32_t compression = 0;
    std::uint32_t header_size = 40;
};

std::string make_bmp(const MadeBmp& image)
{
    return "BM" + std::string(8, '\0') + number(image.begin, 4) + number(image.header_size, 4) +
           number(static_cast<std::uint32_t>(image.width), 4) + number(static_cast<std::uint32_t>(image.height), 4) +
           number(1, 2) + number(static_cast<std::uint32_t>(image.bits), 2) + number(image.compression, 4) +
           std::string(20, '\0') + image.behind;
}

class TiffPages : public ImageFormats
{
protected:
    cv::Mat read(const MadeTiff& page, const kivconvert::ImagePart& part = {}) const
    {
        make_tiff(path("a.tif"), {page});
        return kivconvert::read_image(path("a.tif"), part).Mat();
    }

    std::string refusal_of(const MadeTiff& page) const
    {
        return complaint_of([&] { read(page); }).substr(path("a.tif").size());
    }
};

TEST_F(ImageFormats, PngFilesOfFewBitsAreSpreadOverAllGreys)
{
    expect_same(decoded(make_png({.width = 3, .height = 2, .bits = 1, .samples = "\xa0\x40"s})),
                rows_of<uchar>(3, {255, 0, 255, 0, 255, 0}));
    expect_same(decoded(make_png({.width = 4, .height = 1, .bits = 2, .samples = "\x1b"s})),
                rows_of<uchar>(4, {0, 85, 170, 255}));
}

TEST_F(ImageFormats, InterlacedPngFilesAreReadAsOthers)
{
    std::string samples;
    for (int i = 0; i < 9 * 10; ++i) {
        samples += static_cast<char>(i);
    }
    const cv::Mat plain = decoded(make_png({.width = 9, .height = 10, .samples = samples}));
    EXPECT_EQ(plain.at<uchar>(9, 8), 89);
    expect_same(decoded(make_png({.width = 9, .height = 10, .samples = samples, .interlaced = true})), plain);
}

TEST_F(TiffPages, HaveNumbersOfManyKinds)
{
    const auto row = [](int bits, int format, const std::string& samples) {
        return MadeTiff{.width = 3, .height = 1, .samples = samples, .bits = bits, .format = format};
    };
    expect_same(read(row(1, 1, "\xa0")), rows_of<uchar>(3, {255, 0, 255}));
    expect_same(read(row(2, 1, "\x1b")), rows_of<uchar>(3, {0, 85, 170}));
    expect_same(read(row(4, 1, "\xf1\x80")), rows_of<uchar>(3, {255, 17, 136}));
    expect_same(read(row(8, 1, "\1\2\xff")), rows_of<uchar>(3, {1, 2, 255}));
    expect_same(read(row(12, 1, "\x12\x3f\xff\0\1"s)), rows_of<ushort>(3, {0x123, 0xfff, 0}));
    expect_same(read(row(16, 1, bytes_of<ushort>({1, 0, 65535}))), rows_of<ushort>(3, {1, 0, 65535}));
    expect_same(read(row(32, 1, bytes_of<std::uint32_t>({1, 0, 4294967295U}))),
                rows_of<double>(3, {1, 0, 4294967295.0}));
    expect_same(read(row(8, 2, "\1\x80\xff")), rows_of<schar>(3, {1, -128, -1}));
    expect_same(read(row(16, 2, bytes_of<short>({1, -300, 0}))), rows_of<short>(3, {1, -300, 0}));
    expect_same(read(row(32, 2, bytes_of<int>({1, -70000, 0}))), rows_of<int>(3, {1, -70000, 0}));
    expect_same(read(row(32, 3, bytes_of<float>({0.5F, -1.0F, 0.0F}))), rows_of<float>(3, {0.5F, -1.0F, 0.0F}));
    expect_same(read(row(64, 3, bytes_of<double>({0.1, 1e300, 0}))), rows_of<double>(3, {0.1, 1e300, 0}));
    EXPECT_EQ(refusal_of(row(16, 3, "123456")), ": has numbers of 16 bits of a kind that is not taken");
}

TEST_F(TiffPages, MayHave0ForWhite)
{
    MadeTiff page{.width = 3, .height = 1, .samples = "\0\1\xff"s, .photometric = white_is_0};
    expect_same(read(page), rows_of<uchar>(3, {255, 254, 0}));
    page.bits = 1;
    page.samples = "\xa0";
    expect_same(read(page), rows_of<uchar>(3, {0, 255, 0}));
    page.bits = 12;
    page.samples = "\0\xff\xff\0\0"s;
    expect_same(read(page), rows_of<ushort>(3, {0xff0, 0, 0xfff}));
}

TEST_F(TiffPages, HaveColoursPalettesAndAlpha)
{
    expect_same(read({.width = 2, .height = 1, .samples = "\0\0\7\0\0\0"s, .channels = 3, .photometric = rgb}),
                rows_of<uchar>(2, {7, 0}));
    expect_same(read({.width = 2, .height = 1, .samples = "\xf1"s, .bits = 4, .photometric = palette}),
                rows_of<uchar>(2, {15, 1}));
    MadeTiff page{.width = 2, .height = 1, .samples = "\0\0\7\0\0\0\0\5"s, .channels = 4, .photometric = rgb};
    page.alpha = true;
    expect_same(read(page, {.alpha = Alpha::taken}), rows_of<uchar>(2, {0, 5}));
    expect_same(read(page, {.alpha = Alpha::ignored}), rows_of<uchar>(2, {7, 0}));
    EXPECT_NE(refusal_of(page).find("--alpha"), std::string::npos);
    EXPECT_EQ(refusal_of({.width = 1, .height = 1, .samples = "1234", .channels = 4, .photometric = ink}),
              ": has colours that are neither grey nor RGB nor those of a palette");
    EXPECT_EQ(refusal_of({.width = 1, .height = 1, .samples = "1234", .channels = 4, .photometric = black_is_0}),
              ": has 4 channels; 1 are taken, with or without alpha");
}

TEST_F(TiffPages, AreReadAlikeHoweverTheyAreStored)
{
    std::string interleaved;
    std::string planes[3];
    for (int i = 0; i < 20 * 18; ++i) {
        for (int channel = 0; channel < 3; ++channel) {
            const char value = static_cast<char>(i * 7 * (channel + 1) % 251);
            interleaved += value;
            planes[channel] += value;
        }
    }
    MadeTiff page{.width = 20, .height = 18, .samples = interleaved, .channels = 3, .photometric = rgb};
    const cv::Mat plain = read(page);
    EXPECT_EQ(plain.at<uchar>(0, 1), 21);
    EXPECT_EQ(plain.at<uchar>(17, 19), 9); // of 3, 6 and 9
    for (const int compression : {1, lzw}) {
        for (const int tile : {0, 16}) {
            for (const int rows : {1, 5, 18}) {
                for (const bool planar : {false, true}) {
                    page.compression = compression;
                    page.tile = tile;
                    page.rows_per_strip = rows;
                    page.planar = planar;
                    page.samples = planar ? planes[0] + planes[1] + planes[2] : interleaved;
                    expect_same(read(page), plain);
                }
            }
        }
    }
}

TEST_F(ImageFormats, TheOrientationTurnsThePicture)
{
    // 1 2 3
    // 4 5 6
    const std::string samples = "\1\2\3\4\5\6";
    const std::vector<uchar> across[] = {
        {1, 2, 3, 4, 5, 6}, {3, 2, 1, 6, 5, 4}, {6, 5, 4, 3, 2, 1}, {4, 5, 6, 1, 2, 3}};
    const std::vector<uchar> along[] = {{1, 4, 2, 5, 3, 6}, {4, 1, 5, 2, 6, 3}, {6, 3, 5, 2, 4, 1}, {3, 6, 2, 5, 1, 4}};
    for (int i = 0; i < 4; ++i) {
        make_tiff(path("a.tif"), {{.width = 3, .height = 2, .samples = samples, .orientation = i + 1}});
        expect_same(kivconvert::read_image(path("a.tif")).Mat(), rows_of(3, across[i]));
        make_tiff(path("b.tif"), {{.width = 3, .height = 2, .samples = samples, .orientation = i + 5}});
        expect_same(kivconvert::read_image(path("b.tif")).Mat(), rows_of(2, along[i]));
    }
}

TEST_F(ImageFormats, JpegFilesAreGreyOrColouredAndTurned)
{
    const std::string black_and_white = std::string(64, '\0') + std::string(64, '\xff');
    const cv::Mat wide = decoded(make_jpeg(8, 16, 1, black_and_white));
    EXPECT_EQ(wide.size(), cv::Size(8, 16));
    EXPECT_EQ(wide.at<uchar>(0, 0), 0);
    EXPECT_EQ(wide.at<uchar>(15, 7), 255);
    expect_same(decoded(make_jpeg(8, 16, 1, black_and_white, true)), wide);
    for (const bool big_endian : {false, true}) {
        const cv::Mat turned =
            decoded(tools_tests::with_orientation(make_jpeg(8, 16, 1, black_and_white), '\6', big_endian));
        EXPECT_EQ(turned.size(), cv::Size(16, 8));
        EXPECT_EQ(turned.at<uchar>(0, 0), 255);
        EXPECT_EQ(turned.at<uchar>(0, 15), 0);
    }
    std::string blue;
    for (int i = 0; i < 64; ++i) {
        blue += "\0\0\xff"s;
    }
    EXPECT_GT(decoded(make_jpeg(8, 8, 3, blue)).at<uchar>(3, 3), 250);
    EXPECT_EQ(refusal(make_jpeg(8, 8, 4, std::string(256, '\7'))),
              "image: has colours of ink (CMYK); grey and RGB images are taken");
}

TEST(Exif, HasAnOrientationOrNone)
{
    EXPECT_EQ(kivconvert::exif_orientation(""), 1);
    EXPECT_EQ(kivconvert::exif_orientation("Exif\0\0"s), 1);
    EXPECT_EQ(kivconvert::exif_orientation("http://ns.example/"), 1);
    const std::string begin = "Exif\0\0MM\0\x2a\0\0\0\x08"s;
    const std::string entry = "\x01\x12\0\3\0\0\0\1\0"s;
    const std::string other = "\x01\x0f\0\2\0\0\0\1\0\0\0\0"s;
    EXPECT_EQ(kivconvert::exif_orientation(begin + "\0\1"s + entry + "\x08\0\0"s), 8);
    EXPECT_EQ(kivconvert::exif_orientation(begin + "\0\2"s + other + entry + "\3\0\0"s), 3);
    EXPECT_EQ(kivconvert::exif_orientation(begin + "\0\1"s + entry + "\x09\0\0"s), 1);
    EXPECT_EQ(kivconvert::exif_orientation(begin + "\0\1"s + entry + "\0\0\0"s), 1);
    EXPECT_EQ(kivconvert::exif_orientation(begin + "\xff\xff"s + other), 1);
}

TEST_F(ImageFormats, BmpFilesHaveIndicesOrColours)
{
    const std::string colours(8, '\x40');
    // The rows begin with the last one and are filled up to four bytes.
    expect_same(decoded(make_bmp(
                    {.width = 3, .height = 2, .bits = 1, .behind = colours + "\x40\0\0\0\xa0\0\0\0"s, .begin = 62})),
                rows_of<uchar>(3, {1, 0, 1, 0, 1, 0}));
    expect_same(decoded(make_bmp(
                    {.width = 3, .height = -2, .bits = 1, .behind = colours + "\x40\0\0\0\xa0\0\0\0"s, .begin = 62})),
                rows_of<uchar>(3, {0, 1, 0, 1, 0, 1}));
    expect_same(
        decoded(make_bmp({.width = 3, .height = 1, .bits = 4, .behind = colours + "\x12\xf0\0\0"s, .begin = 62})),
        rows_of<uchar>(3, {1, 2, 15}));
    expect_same(decoded(make_bmp({.width = 2, .height = 1, .bits = 24, .behind = "\7\0\0\0\0\0\0\0"s})),
                rows_of<uchar>(2, {7, 0}));
    expect_same(decoded(make_bmp({.width = 2, .height = 1, .bits = 32, .behind = "\0\0\7\0\0\0\0\xff"s})),
                rows_of<uchar>(2, {7, 0}));
    expect_same(decoded(make_bmp({.width = 2, .height = 1, .bits = 16, .behind = "\x1f\0\0\x04"s})),
                rows_of<uchar>(2, {255, 8}));
    const std::string fields = number(0xf800, 4) + number(0x07e0, 4) + number(0x001f, 4);
    expect_same(
        decoded(make_bmp(
            {.width = 2, .height = 1, .bits = 16, .behind = fields + "\x20\0\0\0"s, .begin = 66, .compression = 3})),
        rows_of<uchar>(2, {4, 0}));
}

TEST_F(ImageFormats, BmpFilesOfLongHeadersMayHaveAlpha)
{
    const std::string fields = number(0xff0000, 4) + number(0xff00, 4) + number(0xff, 4) + number(0xff000000, 4);
    const std::string bytes = make_bmp({.width = 2,
                                        .height = 1,
                                        .bits = 32,
                                        .behind = fields + std::string(52, '\0') + "\0\0\7\0\0\0\0\5"s,
                                        .begin = 122,
                                        .compression = 3,
                                        .header_size = 108});
    expect_same(decoded(bytes, {.alpha = Alpha::taken}), rows_of<uchar>(2, {0, 5}));
    expect_same(decoded(bytes, {.alpha = Alpha::ignored}), rows_of<uchar>(2, {7, 0}));
}

TEST_F(ImageFormats, BmpFilesOfUnknownKindsAreRefused)
{
    EXPECT_EQ(refusal(make_bmp({.width = 2, .height = 1, .bits = 8, .compression = 1})),
              "image: is a compressed BMP file, or one of an unknown kind");
    EXPECT_EQ(refusal(make_bmp({.width = 2, .height = 1, .bits = 7})),
              "image: is a compressed BMP file, or one of an unknown kind");
    const std::string damaged = "image: is a damaged or cut off BMP file: ";
    EXPECT_EQ(refusal(make_bmp({.width = 0, .height = 1, .bits = 8})), damaged + "it has no pixels");
    EXPECT_EQ(refusal(make_bmp({.width = 1, .height = INT32_MIN, .bits = 8})), damaged + "it has no pixels");
    EXPECT_EQ(
        refusal(make_bmp({.width = 1, .height = 1, .bits = 16, .behind = std::string(99, '\0'), .compression = 3})),
        damaged + "a colour has no bits");
    EXPECT_EQ(refusal("BM"), damaged + "its header is too short");
}

TEST_F(ImageFormats, PnmFilesAreTextOrBytes)
{
    expect_same(decoded("P1\n# a comment\n3 2\n1 0 1\n010\n"), rows_of<uchar>(3, {0, 255, 0, 255, 0, 255}));
    expect_same(decoded("P4 3 2\n\xa0\x40"), rows_of<uchar>(3, {0, 255, 0, 255, 0, 255}));
    expect_same(decoded("P2 3 1 7 0 3 7"), rows_of<uchar>(3, {0, 3, 7}));
    expect_same(decoded("P2 2 1 300 256 7"), rows_of<ushort>(2, {256, 7}));
    expect_same(decoded("P5#\n2 1#\n3\n\1\2"), rows_of<uchar>(2, {1, 2}));
    expect_same(decoded("P5 2 1 65535\n\1\0\0\7"s), rows_of<ushort>(2, {256, 7}));
    expect_same(decoded("P3 2 1 255 0 0 9 0 0 0"), rows_of<uchar>(2, {9, 0}));
    expect_same(decoded("P6 2 1 255\n\0\0\x09\0\0\0"s), rows_of<uchar>(2, {9, 0}));
    expect_same(decoded("P6 1 1 256\n\0\0\1\0\0\2"s), rows_of<ushort>(1, {256}));
    const std::string damaged = "image: is a damaged or cut off PNM file: ";
    EXPECT_EQ(refusal("P2 x 1 255 0"), damaged + "a number is missing");
    EXPECT_EQ(refusal("P2 0 1 255 0"), damaged + "it has no pixels");
    EXPECT_EQ(refusal("P2 1 1 65536 0"), damaged + "its largest value is impossible");
    EXPECT_EQ(refusal("P2 1 1 255 256"), damaged + "a value is too large");
    EXPECT_EQ(refusal("P1 1 1 2"), damaged + "a pixel is neither 0 nor 1");
    EXPECT_EQ(refusal("P2 1 1 255 0 1"), "image: goes on behind its pixels; files of several images are not taken");
    EXPECT_NE(refusal("P5 99999999999 1 255 0").find("is too large"), std::string::npos);
}

TEST_F(ImageFormats, CutOffFilesAreRefusedWhereverTheyEnd)
{
    const cv::Mat pixels = rows_of<uchar>(4, {0, 255, 255, 0, 9, 8, 7, 6, 1, 2, 3, 4});
    std::vector<std::string> whole = {kivconvert::encode_png(pixels),
                                      kivconvert::encode_tiff(pixels),
                                      kivconvert::encode_bmp(pixels),
                                      kivconvert::encode_pgm(pixels),
                                      make_jpeg(8, 8, 1, std::string(64, '\x35')),
                                      make_jpeg(16, 8, 3, std::string(384, '\x35'), true)};
    for (const bool tiled : {false, true}) {
        make_tiff(path("a.tif"), {{.width = 16,
                                   .height = 16,
                                   .samples = std::string(256, '\x35'),
                                   .compression = jpeg,
                                   .rows_per_strip = 16,
                                   .tile = tiled ? 16 : 0}});
        whole.push_back(get("a.tif"));
    }
    for (const std::string& bytes : whole) {
        EXPECT_EQ(refusal(bytes), "no complaint");
        for (std::size_t size = 0; size < bytes.size(); ++size) {
            EXPECT_EQ(refusal(bytes.substr(0, size)).substr(0, 10), "image: is ") << size << " of " << bytes.size();
        }
    }
}

TEST_F(ImageFormats, LossesThatLibrariesOnlyWarnOfAreRefused)
{
    std::string varied;
    for (int i = 0; i < 256; ++i) {
        varied += static_cast<char>(i * 37);
    }
    make_tiff(path("a.tif"),
              {{.width = 16, .height = 16, .samples = varied, .compression = jpeg, .rows_per_strip = 16}});
    std::string bytes = get("a.tif");
    EXPECT_EQ(refusal(bytes), "no complaint");
    const std::size_t scan = bytes.find("\xff\xda");
    ASSERT_NE(scan, std::string::npos);
    bytes.replace(scan + 10, 2, "\xff\xd9"); // the end, right behind the scan's header
    EXPECT_EQ(refusal(bytes).find("image: is a damaged or cut off TIFF file: "), 0U);
}

TEST_F(TiffPages, HoldAGigabyteOfValuesAtMost)
{
    make_tiff(path("a.tif"), {{.width = 2, .height = 1, .samples = std::string(16, '\0'), .bits = 64, .format = 3}});
    std::string bytes = get("a.tif");
    const std::size_t width = bytes.find("\0\1\3\0\1\0\0\0\2\0"s);
    const std::size_t height = bytes.find("\1\1\3\0\1\0\0\0\1\0"s);
    ASSERT_NE(width, std::string::npos);
    ASSERT_NE(height, std::string::npos);
    bytes.replace(width + 8, 2, "\0\x40"s); // 16384 x 8193
    bytes.replace(height + 8, 2, "\1\x20"s);
    EXPECT_EQ(refusal(bytes), "image: 16384 x 8193 numbers of 64 bits are too large; 1073741824 bytes are the most");
}

TEST_F(ImageFormats, ImpossibleSizesAreRefusedBeforeThereIsMemoryForThem)
{
    EXPECT_NE(refusal("P5 1048577 1 255\n\7").find("is too large"), std::string::npos);
    EXPECT_NE(refusal(make_bmp({.width = 40000, .height = 40000, .bits = 8})).find("is too large"), std::string::npos);
    EXPECT_NE(refusal(make_bmp({.width = 1000, .height = 1000, .bits = 8})).find("pixels are missing"),
              std::string::npos);
}

} // namespace
