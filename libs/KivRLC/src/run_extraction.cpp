// SPDX-License-Identifier: MIT
// Runs from mask bytes, 64 pixels at a time: the bytes become one 64-bit word whose bit i says whether byte i is
// foreground, and the places where neighbouring bits differ are where runs begin and end. A word without such a place
// costs one comparison, however many pixels of the same kind follow each other.
#include <KivRLC/KivRLC.h>

#include <opencv2/core/hal/intrin.hpp>

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <stdexcept>
#include <type_traits>

static_assert(sizeof(Run) == 3 * sizeof(std::int32_t) && std::is_trivially_copyable_v<Run>);

namespace
{

constexpr std::ptrdiff_t word_pixels = 64;

unsigned foreground_bits_of_16(const cv::v_uint8x16& bytes)
{
    return ~static_cast<unsigned>(cv::v_signmask(bytes == cv::v_setzero_u8())) & 0xFFFFU;
}

std::uint64_t foreground_bits(const uchar* bytes)
{
    const auto bits_of_16 = [bytes](int offset) {
        return std::uint64_t{foreground_bits_of_16(cv::v_load(bytes + offset))} << offset;
    };
    return bits_of_16(0) | bits_of_16(16) | bits_of_16(32) | bits_of_16(48);
}

/// Whether a word's bytes all are background.
bool is_background(const uchar* bytes)
{
    const cv::v_uint8x16 any =
        (cv::v_load(bytes) | cv::v_load(bytes + 16)) | (cv::v_load(bytes + 32) | cv::v_load(bytes + 48));
    return foreground_bits_of_16(any) == 0;
}

/// Whether a word's bytes all are foreground.
bool is_foreground(const uchar* bytes)
{
    const cv::v_uint8x16 least = cv::v_min(cv::v_min(cv::v_load(bytes), cv::v_load(bytes + 16)),
                                           cv::v_min(cv::v_load(bytes + 32), cv::v_load(bytes + 48)));
    return foreground_bits_of_16(least) == 0xFFFFU;
}

std::uint64_t foreground_bits(const uchar* bytes, std::ptrdiff_t count)
{
    std::array<uchar, word_pixels> padded{};
    std::memcpy(padded.data(), bytes, static_cast<std::size_t>(count));
    return foreground_bits(padded.data());
}

void append_row(const uchar* bytes, int row, int columns, std::vector<Run>& runs)
{
    bool inside = false;
    int begin = 0;
    for (std::ptrdiff_t x = 0; x < columns; x += word_pixels) {
        if (columns - x >= word_pixels && (inside ? is_foreground(bytes + x) : is_background(bytes + x))) {
            continue;
        }
        const std::uint64_t bits =
            columns - x < word_pixels ? foreground_bits(bytes + x, columns - x) : foreground_bits(bytes + x);
        std::uint64_t changes = bits ^ (bits << 1 | static_cast<std::uint64_t>(inside));
        for (; changes != 0; changes &= changes - 1) {
            const int column = static_cast<int>(x) + std::countr_zero(changes);
            if (inside) {
                runs.push_back({row, begin, column - 1});
            }
            begin = column;
            inside = !inside;
        }
    }
    if (inside) {
        runs.push_back({row, begin, columns - 1});
    }
}

} // namespace

void KivRLC::FindContours(cv::Mat& mask, char /*mode*/, std::vector<cv::Point_<int>>* /*outline*/,
                          std::vector<int>* /*outlineLengths*/, std::vector<cv::Vec<int, 4>>* /*hierarchy*/,
                          std::vector<int>* /*labels*/, std::vector<Run>* runs, std::vector<int>* /*rowStarts*/,
                          bool /*external*/, int /*first*/, int /*second*/, int /*third*/, bool /*merge*/)
{
    if (runs == nullptr) {
        throw std::invalid_argument("KivRLC::FindContours: runs must not be null");
    }
    AppendRuns(mask, *runs);
}

void KivRLC::AppendRuns(const cv::Mat& mask, std::vector<Run>& runs)
{
    CV_Assert(mask.dims <= 2);
    const std::size_t kept = runs.size();
    try {
        for (int row = 0; row < mask.rows; ++row) {
            append_row(mask.data + static_cast<std::size_t>(row) * mask.step[0], row, mask.cols, runs);
        }
    } catch (...) {
        runs.resize(kept);
        throw;
    }
}
