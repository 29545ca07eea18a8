// SPDX-License-Identifier: MIT
#include "kivconvert/image_files.h"

#include "kivconvert/errors.h"
#include "kivconvert/files.h"
#include "kivconvert/image_decoder.h"
#include "kivconvert/image_encoder.h"

#include <algorithm>
#include <fmt/format.h>
#include <iterator>
#include <opencv2/core.hpp>
#include <utility>
#include <vector>

namespace kivconvert
{
namespace
{

struct ReadFormat {
    bool (*begins)(std::string_view bytes);
    std::vector<PagePlace> (*find_pages)(const ImageBytes& file);
    ImageDecoderPtr (*decode)(const ImageBytes& file, PagePlace page);
};

std::vector<PagePlace> one_page(const ImageBytes&)
{
    return {0};
}

template <ImageDecoderPtr (*decode)(const ImageBytes&)>
ImageDecoderPtr decode_only_page(const ImageBytes& file, PagePlace)
{
    return decode(file);
}

bool begins_like_tiff(std::string_view bytes)
{
    using namespace std::string_view_literals;
    constexpr std::string_view marks[] = {"II*\0"sv, "MM\0*"sv, "II+\0"sv, "MM\0+"sv};
    return std::find(std::begin(marks), std::end(marks), bytes.substr(0, 4)) != std::end(marks);
}

constexpr ReadFormat read_formats[] = {
    {[](std::string_view bytes) { return bytes.starts_with("\x89PNG\r\n\x1a\n"); }, one_page,
     decode_only_page<decode_png>},
    {begins_like_tiff, pages_of_tiff, decode_tiff},
    {[](std::string_view bytes) { return bytes.starts_with("\xff\xd8\xff"); }, one_page, decode_only_page<decode_jpeg>},
    {[](std::string_view bytes) { return bytes.starts_with("BM"); }, one_page, decode_only_page<decode_bmp>},
    {[](std::string_view bytes) { return bytes.size() > 2 && bytes[0] == 'P' && bytes[1] >= '1' && bytes[1] <= '6'; },
     one_page, decode_only_page<decode_pnm>},
};

const ReadFormat& format_of(const ImageBytes& file)
{
    const auto* const format = std::find_if(std::begin(read_formats), std::end(read_formats),
                                            [&](const ReadFormat& entry) { return entry.begins(file.bytes); });
    if (format == std::end(read_formats)) {
        throw FileError(file.path, "is no image of a known format; PNG, TIFF, JPEG, BMP and PNM are read");
    }
    return *format;
}

std::string counted_pages(std::size_t pages)
{
    return pages == 1 ? "1 page" : fmt::format("{} pages", pages);
}

/// @param page counted from 1; 0: the only one
ImageDecoderPtr decoder_of(const ImageBytes& file, const std::vector<PagePlace>& pages, int page)
{
    const auto index = static_cast<std::size_t>(std::max(page, 1));
    if (index > pages.size()) {
        throw FileError(file.path, fmt::format("has {} and no page {}", counted_pages(pages.size()), index));
    }
    if (page == 0 && pages.size() > 1) {
        throw FileError(file.path, fmt::format("has {} pages; --page N takes one of them", pages.size()));
    }
    return format_of(file).decode(file, pages[index - 1]);
}

ImageDecoderPtr decoder_of(const ImageBytes& file, int page)
{
    return decoder_of(file, format_of(file).find_pages(file), page);
}

/// The picture as it is meant to be seen.
/// @param orientation as in ImageLayout
cv::Mat upright(const cv::Mat& pixels, int orientation)
{
    constexpr int both = -1;
    constexpr int horizontally = 1;
    constexpr int vertically = 0;
    cv::Mat turned = pixels;
    if (orientation >= 5) {
        cv::transpose(pixels, turned);
    }
    switch (orientation) {
    case 2:
    case 6:
        cv::flip(turned, turned, horizontally);
        break;
    case 3:
    case 7:
        cv::flip(turned, turned, both);
        break;
    case 4:
    case 8:
        cv::flip(turned, turned, vertically);
        break;
    default:
        break;
    }
    return turned;
}

/// Reduces the pixels of a row to one value each.
class RowReducer
{
public:
    RowReducer(const ImageLayout& layout, Alpha alpha, const std::string& path)
        : layout_(layout), alpha_(alpha), path_(path)
    {
        if (alpha == Alpha::taken && !layout.has_alpha) {
            throw FileError(path, "has no alpha channel");
        }
    }

    /// @param to a row of one channel
    void reduce(const cv::Mat& row, cv::Mat to)
    {
        cv::split(row, channels_);
        if (alpha_ == Alpha::taken) {
            channels_.back().copyTo(to);
            return;
        }
        if (layout_.has_alpha && alpha_ == Alpha::refused) {
            expect_opaque(channels_.back());
        }
        channels_[0].copyTo(to);
        for (int i = 1; i < layout_.colours; ++i) {
            cv::max(to, channels_[static_cast<std::size_t>(i)], to);
        }
    }

private:
    void expect_opaque(const cv::Mat& opacities) const
    {
        const double most = layout_.depth == CV_8U ? 255.0 : 65535.0;
        double least = 0.0;
        cv::minMaxLoc(opacities, &least);
        if (least < most) {
            throw FileError(path_, "is not opaque; --alpha takes its alpha channel, --no-alpha the other ones");
        }
    }

    const ImageLayout& layout_;
    Alpha alpha_;
    const std::string& path_;
    std::vector<cv::Mat> channels_;
};

/// The values of the image are held at once, at up to 8 bytes each.
void expect_possible_values(const std::string& path, int width, int height, int depth)
{
    constexpr std::size_t max_bytes = std::size_t{1} << 30U;
    const std::size_t pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    if (pixels > max_bytes / CV_ELEM_SIZE1(depth)) {
        throw FileError(path, fmt::format("{} x {} numbers of {} bits are too large; {} bytes are the most", width,
                                          height, 8 * CV_ELEM_SIZE1(depth), max_bytes));
    }
}

cv::Mat read_one_channel(ImageDecoder& decoder, Alpha alpha, const std::string& path)
{
    const ImageLayout& layout = decoder.layout();
    expect_possible_values(path, layout.width, layout.height, layout.depth);
    RowReducer reducer(layout, alpha, path);
    cv::Mat row(1, layout.width, layout.type());
    cv::Mat pixels(layout.height, layout.width, layout.depth);
    for (int y = 0; y < layout.height; ++y) {
        if (layout.channels() == 1 && alpha != Alpha::taken) {
            decoder.read_row(pixels.ptr(y));
        } else {
            decoder.read_row(row.data);
            reducer.reduce(row, pixels.row(y));
        }
    }
    return upright(pixels, layout.orientation);
}

/// A row of palette indices as red, green and blue, with the opacities that it has.
cv::Mat coloured(const cv::Mat& row, const std::vector<cv::Vec3b>& palette)
{
    std::vector<cv::Mat> channels;
    cv::split(row, channels);
    cv::Mat3b colours(row.size());
    std::transform(channels[0].begin<uchar>(), channels[0].end<uchar>(), colours.begin(),
                   [&](uchar index) { return palette[index]; });
    if (channels.size() == 1) {
        return colours;
    }
    std::vector<cv::Mat> all;
    cv::split(colours, all);
    all.push_back(channels[1]);
    cv::Mat merged;
    cv::merge(all, merged);
    return merged;
}

/// All channels with 8 bits each, in the order of PNG files.
cv::Mat read_for_eyes(ImageDecoder& decoder, const std::string& path)
{
    const ImageLayout& layout = decoder.layout();
    if (layout.depth != CV_8U && layout.depth != CV_16U) {
        throw FileError(path, "is no picture: its numbers are not 8-bit or 16-bit");
    }
    constexpr double to_8_bits = 1.0 / 257.0;
    cv::Mat row(1, layout.width, layout.type());
    cv::Mat pixels(layout.height, layout.width, CV_8UC(layout.channels() + (layout.palette.empty() ? 0 : 2)));
    for (int y = 0; y < layout.height; ++y) {
        decoder.read_row(row.data);
        cv::Mat to = pixels.row(y);
        if (!layout.palette.empty()) {
            coloured(row, layout.palette).copyTo(to);
        } else {
            row.convertTo(to, CV_8U, layout.depth == CV_8U ? 1.0 : to_8_bits);
        }
    }
    return upright(pixels, layout.orientation);
}

struct WrittenFormat {
    const char* extension;
    int depth; ///< the largest one, of the depths CV_8U, CV_16U and CV_32S
    std::string (*encode)(const cv::Mat& pixels);
};

constexpr WrittenFormat written_formats[] = {
    {".png", CV_16U, encode_png},  {".bmp", CV_8U, encode_bmp},    {".pgm", CV_8U, encode_pgm},
    {".tif", CV_32S, encode_tiff}, {".tiff", CV_32S, encode_tiff},
};

std::size_t bits_of(int depth)
{
    return 8 * CV_ELEM_SIZE1(depth);
}

const WrittenFormat& written_format_of(const std::string& path)
{
    const auto* const format = std::find_if(
        std::begin(written_formats), std::end(written_formats),
        [extension = extension_of(path)](const WrittenFormat& entry) { return entry.extension == extension; });
    if (format == std::end(written_formats)) {
        throw FileError(path, "is not named like an image that keeps every pixel; those end in .png, .bmp, .pgm, .tif");
    }
    return *format;
}

void write_encoded(const std::string& path, std::string (*encode)(const cv::Mat& pixels), const cv::Mat& pixels)
{
    std::string bytes;
    try {
        bytes = encode(pixels);
    } catch (const EncodingError& error) {
        throw FileError(path, error.what());
    }
    write_file(path, bytes);
}

} // namespace

void fail_decoding(const ImageBytes& file, const char* format, const char* complaint)
{
    throw FileError(file.path, fmt::format("is a damaged or cut off {} file: {}", format, complaint));
}

void expect_possible_frame(const std::string& path, int width, int height)
{
    constexpr long long max_pixels = 1LL << 30;
    if (width > max_frame_side || height > max_frame_side || static_cast<long long>(width) * height > max_pixels) {
        throw FileError(path,
                        fmt::format("a frame of {} x {} is too large; {} columns, {} rows and {} pixels are the most",
                                    width, height, max_frame_side, max_frame_side, max_pixels));
    }
}

void expect_no_choice(const CocoChoice& choice)
{
    if (choice.is_made()) {
        throw InputError(choice.annotation       ? "--annotation"
                         : !choice.image.empty() ? "--of-image"
                                                 : "--category",
                         "is for COCO data sets");
    }
}

void expect_no_image_part(const ImagePart& part)
{
    if (part.alpha != Alpha::refused) {
        throw InputError(part.alpha == Alpha::taken ? "--alpha" : "--no-alpha", "is for images");
    }
    if (part.page > 0) {
        throw InputError("--page", "is for images");
    }
}

void expect_no_part(const ImagePart& part)
{
    expect_no_image_part(part);
    expect_no_choice(part.choice);
}

KivImage decode_image(std::string_view bytes, const std::string& path, const ImagePart& part)
{
    const ImageDecoderPtr decoder = decoder_of({bytes, path}, part.page);
    return KivImage(read_one_channel(*decoder, part.alpha, path));
}

KivImage read_image(const std::string& path, const ImagePart& part)
{
    return part.file ? part.file->read(part) : decode_image(read_file(path), path, part);
}

ImageFile::ImageFile(const std::string& path) : path_(path), bytes_(read_file(path))
{
    const ImageBytes file{bytes_, path_};
    pages_ = format_of(file).find_pages(file);
}

KivImage ImageFile::read(const ImagePart& part) const
{
    const ImageDecoderPtr decoder = decoder_of({bytes_, path_}, pages_, part.page);
    return KivImage(read_one_channel(*decoder, part.alpha, path_));
}

PngPicture read_as_png(const std::string& path)
{
    const std::string bytes = read_file(path);
    const ImageDecoderPtr decoder = decoder_of({bytes, path}, 0);
    const cv::Mat pixels = read_for_eyes(*decoder, path);
    return {encode_png(pixels), pixels.cols, pixels.rows};
}

void expect_lossless_image(const std::string& path)
{
    written_format_of(path);
}

void expect_image_of_depth(const std::string& path, int depth)
{
    const WrittenFormat& format = written_format_of(path);
    if (format.depth < depth) {
        throw FileError(path, fmt::format("is named like an image of at most {} bits, where {} are needed; a .tif has "
                                          "up to 32, a .png up to 16",
                                          bits_of(format.depth), bits_of(depth)));
    }
}

void write_image(const Output& output, const KivImage& image)
{
    expect_image_of_depth(output, image.Mat().depth());
    if (output.page != nullptr) {
        *output.page = image.Mat();
    } else {
        write_encoded(output, written_format_of(output).encode, image.Mat());
    }
}

void expect_png(const std::string& path)
{
    if (extension_of(path) != ".png") {
        throw FileError(path, "is not named like a picture in colour; those end in .png");
    }
}

void write_png(const std::string& path, const cv::Mat& pixels)
{
    write_encoded(path, encode_png, pixels);
}

} // namespace kivconvert
