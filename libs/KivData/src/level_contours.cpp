// SPDX-License-Identifier: MIT
#include <KivData/KivLevelContours.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <stdexcept>
#include <utility>
#include <vector>

namespace
{

using Pixel = cv::Point_<int>;

/// A line on its way: it passes between a bright pixel and what lies beyond it in the direction `out`, a dark pixel or
/// the outside of the image, and has the bright one on its left.
struct LevelCrossing {
    Pixel bright;
    Pixel out; ///< a step of one pixel to the left, right, up or down

    friend bool operator==(const LevelCrossing& a, const LevelCrossing& b)
    {
        return a.bright == b.bright && a.out == b.out;
    }
};

constexpr int up = -1;

template <class Value>
class LevelLines
{
public:
    LevelLines(const cv::Mat& image, double level)
        : image_(image),
          level_(level),
          followed_(static_cast<std::size_t>(image.rows) * static_cast<std::size_t>(image.cols))
    {
    }

    KivContourArray all()
    {
        KivContourArray lines;
        for (int y = 0; y < image_.rows; ++y) {
            for (int x = 0; x < image_.cols; ++x) {
                const LevelCrossing start = {{x, y}, {0, up}};
                if (is_bright({x, y}) && !is_bright({x, y + up}) && !followed_[index_of({x, y})]) {
                    lines.Append(followed_from(start));
                }
            }
        }
        return lines;
    }

private:
    bool is_inside(const Pixel& pixel) const
    {
        return pixel.x >= 0 && pixel.x < image_.cols && pixel.y >= 0 && pixel.y < image_.rows;
    }

    double value_at(const Pixel& pixel) const { return static_cast<double>(image_.at<Value>(pixel.y, pixel.x)); }

    bool is_bright(const Pixel& pixel) const { return is_inside(pixel) && value_at(pixel) >= level_; }

    std::size_t index_of(const Pixel& pixel) const
    {
        return static_cast<std::size_t>(pixel.y) * static_cast<std::size_t>(image_.cols) +
               static_cast<std::size_t>(pixel.x);
    }

    cv::Point_<double> place_of(const LevelCrossing& crossing) const
    {
        const cv::Point_<double> centre(crossing.bright.x, crossing.bright.y);
        const Pixel dark = crossing.bright + crossing.out;
        if (!is_inside(dark)) {
            return centre;
        }
        const double bright_value = value_at(crossing.bright);
        const double part = (bright_value - level_) / (bright_value - value_at(dark));
        return {centre.x + part * crossing.out.x, centre.y + part * crossing.out.y};
    }

    /// Whether the mean of four pixels in a square is bright.
    bool is_bright_on_average(const Pixel& upper_left) const
    {
        const Pixel lower_right = upper_left + Pixel(1, 1);
        return (value_at(upper_left) + value_at({lower_right.x, upper_left.y})) +
                   (value_at({upper_left.x, lower_right.y}) + value_at(lower_right)) >=
               4.0 * level_;
    }

    /// Where the line goes on to: it crosses the square of the two pixels and their neighbours ahead.
    LevelCrossing next_of(const LevelCrossing& crossing) const
    {
        const auto& [bright, out] = crossing;
        const Pixel ahead(out.y, -out.x);
        const Pixel beside = bright + ahead;
        const Pixel across = bright + out + ahead;
        if (is_bright(across)) {
            const Pixel dark = bright + out;
            const Pixel upper_left(std::min(bright.x, across.x), std::min(bright.y, across.y));
            if (is_bright(beside) || is_bright_on_average(upper_left)) {
                return {across, dark - across};
            }
        } else if (is_bright(beside)) {
            return {beside, out};
        }
        return {bright, ahead};
    }

    KivContour followed_from(const LevelCrossing& start)
    {
        KivContour::Points points;
        LevelCrossing crossing = start;
        do {
            if (crossing.out.y == up) {
                followed_[index_of(crossing.bright)] = true;
            }
            const cv::Point_<double> place = place_of(crossing);
            if (points.empty() || points.back() != place) {
                points.push_back(place);
            }
            crossing = next_of(crossing);
        } while (!(crossing == start));
        if (points.size() > 1 && points.back() == points.front()) {
            points.pop_back();
        }
        return KivContour(std::move(points));
    }

    const cv::Mat& image_;
    double level_;
    std::vector<bool> followed_; ///< whether the line above the pixel is done
};

} // namespace

KivContourArray KivContours::AtLevel(const cv::Mat& image, double level)
{
    if (image.dims > 2) {
        throw std::invalid_argument("KivContours: the image has more than two dimensions");
    }
    if (!std::isfinite(level)) {
        throw std::invalid_argument("KivContours: the level is not finite");
    }
    switch (image.type()) {
    case CV_8UC1:
        return LevelLines<unsigned char>(image, level).all();
    case CV_16UC1:
        return LevelLines<unsigned short>(image, level).all();
    case CV_32FC1:
        for (int y = 0; y < image.rows; ++y) {
            const float* row = image.ptr<float>(y);
            if (!std::all_of(row, row + image.cols, [](float value) { return std::isfinite(value); })) {
                throw std::invalid_argument("KivContours: a pixel is not finite");
            }
        }
        return LevelLines<float>(image, level).all();
    default:
        throw std::invalid_argument(
            "KivContours: the image must have one channel of 8, 16 or 32 bits: CV_8U, CV_16U, CV_32F");
    }
}
