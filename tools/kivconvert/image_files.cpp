// SPDX-License-Identifier: MIT
#include "kivconvert/image_files.h"

#include "kivconvert/errors.h"
#include "kivconvert/files.h"

#include <algorithm>
#include <fcntl.h>
#include <fmt/format.h>
#include <iterator>
#include <mutex>
#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace kivconvert
{
namespace
{

constexpr std::string_view lossless_extensions[] = {".png", ".bmp", ".pgm", ".tif", ".tiff"};

/// Keeps the image codecs from writing complaints of their own to standard error, as long as it lives. There may be
/// several at a time; what other threads write to standard error meanwhile is lost.
class QuietCodecs
{
public:
    QuietCodecs()
    {
        const std::lock_guard lock(mutex_);
        if (living_++ == 0) {
            saved_ = dup(STDERR_FILENO);
            const int nowhere = open("/dev/null", O_WRONLY);
            dup2(nowhere, STDERR_FILENO);
            close(nowhere);
        }
    }
    QuietCodecs(const QuietCodecs&) = delete;
    QuietCodecs& operator=(const QuietCodecs&) = delete;
    ~QuietCodecs()
    {
        const std::lock_guard lock(mutex_);
        if (--living_ == 0) {
            dup2(saved_, STDERR_FILENO);
            close(saved_);
        }
    }

private:
    static inline std::mutex mutex_;
    static inline int living_ = 0;
    static inline int saved_ = -1;
};

/// @param mode one of cv::ImreadModes
cv::Mat decode(const std::string& bytes, int mode)
{
    const QuietCodecs quiet;
    const std::vector<uchar> buffer(bytes.begin(), bytes.end());
    try {
        return cv::imdecode(buffer, mode);
    } catch (const cv::Exception&) {
        return {};
    }
}

/// Whether a JPEG lacks its end, which the decoder would make up.
bool is_cut_off(std::string_view bytes)
{
    constexpr unsigned marker = 0xff;
    constexpr unsigned begin_of_data = 0xda;
    const auto byte = [bytes](std::size_t at) -> unsigned { return static_cast<unsigned char>(bytes[at]); };
    if (!bytes.starts_with("\xff\xd8")) {
        return false;
    }
    // Past the segments, as a preview in one of them has an end of its own; in the data there are no such two bytes.
    std::size_t at = 2;
    while (at + 3 < bytes.size() && byte(at) == marker && byte(at + 1) != begin_of_data) {
        at += byte(at + 1) == marker ? 1 : 2 + 256 * byte(at + 2) + byte(at + 3);
    }
    return bytes.find("\xff\xd9", at) == bytes.npos;
}

cv::Mat read_image(const std::string& path, int mode)
{
    const std::string bytes = read_file(path);
    cv::Mat pixels = is_cut_off(bytes) ? cv::Mat() : decode(bytes, mode);
    if (pixels.empty()) {
        throw FileError(path, "is not an image of a known format, or a damaged or too large one");
    }
    return pixels;
}

std::vector<uchar> encode(const std::string& extension, const cv::Mat& pixels)
{
    const QuietCodecs quiet;
    std::vector<uchar> bytes;
    try {
        return cv::imencode(extension, pixels, bytes) ? bytes : std::vector<uchar>();
    } catch (const cv::Exception&) {
        return {};
    }
}

} // namespace

void expect_possible_frame(const std::string& path, int width, int height)
{
    constexpr long long max_pixels = 1LL << 30;
    if (width > max_frame_side || height > max_frame_side || static_cast<long long>(width) * height > max_pixels) {
        throw FileError(path,
                        fmt::format("a frame of {} x {} is too large; {} columns, {} rows and {} pixels are the most",
                                    width, height, max_frame_side, max_frame_side, max_pixels));
    }
}

KivImage read_grey_image(const std::string& path)
{
    cv::Mat pixels = read_image(path, cv::IMREAD_GRAYSCALE | cv::IMREAD_ANYDEPTH);
    if (pixels.channels() == 3) { // some decoders do not make grey of colour themselves
        cv::cvtColor(pixels, pixels, cv::COLOR_BGR2GRAY);
    }
    return KivImage(pixels);
}

PngPicture read_as_png(const std::string& path)
{
    const cv::Mat pixels = read_image(path, cv::IMREAD_ANYCOLOR);
    const std::vector<uchar> bytes = encode(".png", pixels);
    if (bytes.empty()) {
        throw FileError(path, "cannot be made a .png");
    }
    return {std::string(bytes.begin(), bytes.end()), pixels.cols, pixels.rows};
}

void expect_lossless_image(const std::string& path)
{
    const auto* const last = std::end(lossless_extensions);
    if (std::find(std::begin(lossless_extensions), last, extension_of(path)) == last) {
        throw FileError(path, "is not named like an image that keeps every pixel; those end in .png, .bmp, .pgm, .tif");
    }
}

void write_image(const std::string& path, const KivImage& image)
{
    expect_lossless_image(path);
    const std::vector<uchar> bytes = encode(extension_of(path), image.Mat());
    if (bytes.empty()) {
        throw FileError(path, "cannot hold an image of this size");
    }
    write_file(path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

} // namespace kivconvert
