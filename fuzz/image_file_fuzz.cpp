// SPDX-License-Identifier: MIT
// The readers of images. The first byte chooses what is done with an alpha channel, and the page.
#include "inputs.h"
#include "target.h"

#include "kivconvert/errors.h"
#include "kivconvert/image_encoder.h"
#include "kivconvert/image_files.h"
#include "kivconvert/label_images.h"

#include <gtest/gtest.h>

#include <string>
#include <zlib.h>

namespace
{

/// Makes the checksums of a PNG file right, which hardly any change of its bytes leaves so.
std::string with_checksums(std::string bytes)
{
    const auto byte = [&](std::size_t at) { return std::size_t{static_cast<unsigned char>(bytes[at])}; };
    std::size_t chunk = 8;
    while (bytes.starts_with("\x89PNG") && chunk + 12 <= bytes.size()) {
        const std::size_t size = byte(chunk) << 24U | byte(chunk + 1) << 16U | byte(chunk + 2) << 8U | byte(chunk + 3);
        if (size > bytes.size() - chunk - 12) {
            break;
        }
        const auto* const named = reinterpret_cast<const Bytef*>(bytes.data() + chunk + 4);
        const uLong sum = crc32(0, named, static_cast<uInt>(size + 4));
        for (unsigned i = 0; i < 4; ++i) {
            bytes[chunk + 8 + size + i] = static_cast<char>(sum >> (24U - 8U * i));
        }
        chunk += 12 + size;
    }
    return bytes;
}

constexpr std::size_t affordable = 1 << 20;

/// An 8-bit image is read back from each format as it was written, and from each page.
void check_written(const KivImage& image)
{
    constexpr std::string (*encoders[])(const cv::Mat&) = {kivconvert::encode_png, kivconvert::encode_tiff,
                                                           kivconvert::encode_bmp, kivconvert::encode_pgm};
    if (image.Mat().type() != CV_8UC1 || image.Mat().total() > affordable) {
        return;
    }
    for (const auto encode : encoders) {
        EXPECT_TRUE(kivconvert::decode_image(encode(image.Mat()), "written") == image);
    }
    kivconvert::TiffPages pages;
    pages.add(cv::Mat::ones(1, 1, CV_32S));
    pages.add(image.Mat());
    EXPECT_TRUE(kivconvert::decode_image(pages.take(), "written", {.page = 2}) == image);
}

/// Values that are taken for labels are painted as they were.
void check_labels(const KivImage& image)
{
    if (image.Mat().total() > affordable) {
        return;
    }
    const auto sets = kivconvert::labels_of(image.Mat(), "input");
    cv::Mat painted;
    kivconvert::label_image_of(sets, {image.Width(), image.Height()}, "input").convertTo(painted, image.Mat().depth());
    EXPECT_TRUE(KivImage(painted) == image);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (size == 0) {
        return 0;
    }
    constexpr kivconvert::Alpha alphas[] = {kivconvert::Alpha::refused, kivconvert::Alpha::taken,
                                            kivconvert::Alpha::ignored};
    const kivconvert::ImagePart part{alphas[bytes[0] % 3], bytes[0] / 3 % 4};
    const fuzz::FuzzedBytes rest{bytes + 1, size - 1};
    try {
        const KivImage image = kivconvert::decode_image(with_checksums(std::string(rest.text())), "input", part);
        check_written(image);
        check_labels(image);
    } catch (const kivconvert::InputError& error) {
        EXPECT_EQ(std::string_view(error.what()).substr(0, 6), "input:");
    }
    return 0;
}
