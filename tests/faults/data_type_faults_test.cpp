// SPDX-License-Identifier: MIT
// Every allocation of the bundled data types' own operations fails once, and each time they hold what they held before.
#include "failing_allocations.h"

#include <KivData/KivData.h>

#include <gtest/gtest.h>

#include <new>
#include <string>

namespace
{

class DataTypeFaults : public testing::Test
{
protected:
    static void SetUpTestSuite() { faults::fail_matrices_too(); }

    /// Lets each allocation of `change` fail, on a copy of `start` each time. There must be one at least.
    template <class Value, class Change>
    static void expect_all_or_nothing(const Value& start, Change change)
    {
        Value whatever_opencv_makes_once_and_keeps(start);
        change(whatever_opencv_makes_once_and_keeps);
        bool failed = true;
        for (long fault_at = 1; failed; ++fault_at) {
            SCOPED_TRACE("allocation " + std::to_string(fault_at) + " fails");
            const long living_before = faults::living_blocks();
            {
                Value value(start);
                failed = fails(fault_at, [&] { change(value); });
                EXPECT_EQ(value == start, failed);
                EXPECT_TRUE(failed || fault_at > 1);
            }
            EXPECT_EQ(faults::living_blocks(), living_before);
        }
    }

private:
    template <class Change>
    static bool fails(long fault_at, Change change)
    {
        bool failed = false;
        faults::fail_allocation(fault_at);
        try {
            change();
        } catch (const std::bad_alloc&) {
            failed = true;
        } catch (const cv::Exception&) {
            failed = true;
        }
        faults::fail_allocation(0);
        return failed;
    }
};

const std::string long_text = "a text that is too long to be kept without an allocation of its own";
const std::vector<Run> runs = {{0, 1, 2}, {3, 4, 5}};
const std::vector<cv::Point_<double>> points = {{1, 2}, {3, 4}};

} // namespace

TEST_F(DataTypeFaults, LeaveAVariantAsItWas)
{
    const KivVar text(long_text);
    expect_all_or_nothing(KivVar(7), [&](KivVar& value) { value = text; });
    expect_all_or_nothing(KivVar("short"), [&](KivVar& value) { value = text; });
}

TEST_F(DataTypeFaults, LeaveAnArrayOfVariantsAsItWas)
{
    const KivVar text(long_text);
    const KivVarArray packed = {1, 2};
    const KivVarArray mixed = {1, long_text.c_str()};
    const KivVarArray others[] = {{3, 4}, {long_text.c_str(), long_text.c_str()}};
    for (const KivVarArray& start : {packed, mixed}) {
        expect_all_or_nothing(start, [](KivVarArray& array) { array.Append(3); });
        expect_all_or_nothing(start, [&](KivVarArray& array) { array.Append(text); });
        expect_all_or_nothing(start, [&](KivVarArray& array) { array.Replace(0, text); });
        expect_all_or_nothing(start, [](KivVarArray& array) { array.AppendRange(-1, 50); });
        expect_all_or_nothing(start, [](KivVarArray& array) { array.AppendCopies(4, 50); });
        expect_all_or_nothing(start, [&](KivVarArray& array) { array = {5, 6, long_text.c_str()}; });
        for (const KivVarArray& other : others) {
            expect_all_or_nothing(start, [&](KivVarArray& array) { array = other; });
        }
    }
    expect_all_or_nothing(packed, [](KivVarArray& array) { array[1] = KivVar(9.5); });
}

TEST_F(DataTypeFaults, LeaveARegionAsItWas)
{
    const KivRegion other(8, 9, runs);
    KivVarArray rows = {0, 3};
    KivVarArray columns = {1, 4};
    const KivRegion start(3, 3, {{1, 1, 1}});
    expect_all_or_nothing(start, [&](KivRegion& region) { region = other; });
    expect_all_or_nothing(start, [&](KivRegion& region) { region.CreateRegion(8, 9, rows, columns, columns); });
}

TEST_F(DataTypeFaults, LeaveAnRoiAsItWas)
{
    const KivROI mask = KivROI::Mask(runs, 8, 9);
    const KivROI polygon = KivROI::Polygon(points, 8, 9);
    KivVarArray rows = {0, 3};
    KivVarArray columns = {1, 4};
    for (const KivROI& start : {KivROI(), KivROI::Circle(1, 1, 1, 3, 3), KivROI::Mask({{1, 1, 1}}, 3, 3)}) {
        expect_all_or_nothing(start, [&](KivROI& roi) { roi = mask; });
        expect_all_or_nothing(start, [&](KivROI& roi) { roi = polygon; });
        expect_all_or_nothing(start, [&](KivROI& roi) { roi.Parameters().GenMask(rows, columns, columns, 8, 9); });
    }
}

TEST_F(DataTypeFaults, LeaveContoursAndPointsAsTheyWere)
{
    const KivContour other(points);
    expect_all_or_nothing(KivContour{{5, 6}}, [&](KivContour& contour) { contour = other; });
    const KivContourArray others = {other, other};
    expect_all_or_nothing(KivContourArray{other}, [&](KivContourArray& contours) { contours = others; });
    expect_all_or_nothing(KivContourArray{{{5, 6}}, {}}, [&](KivContourArray& contours) { contours = others; });
    expect_all_or_nothing(KivContourArray{other}, [&](KivContourArray& contours) { contours.Append(other); });
    expect_all_or_nothing(KivPointArray{{5, 6}}, [](KivPointArray& array) { array.Append(KivPoint{7, 8}); });
    expect_all_or_nothing(KivPointArray{{5, 6}}, [](KivPointArray& array) { array.AppendPixels(1, -1, 50); });
}

TEST_F(DataTypeFaults, LeaveContoursThatAreBeingTracedAsTheyWere)
{
    cv::Mat mask(3, 3, CV_8UC1, cv::Scalar(1));
    mask.at<uchar>(1, 1) = 0;
    int width = 0;
    int height = 0;
    expect_all_or_nothing(KivContourArray{{{5, 6}}},
                          [&](KivContourArray& contours) { IKivROIPara::MatToMask(mask, &contours, &width, &height); });
    KivROI circle = KivROI::Circle(2, 2, 1.5, 5, 5);
    expect_all_or_nothing(KivContourArray{{{5, 6}}},
                          [&](KivContourArray& contours) { circle.Parameters().GetMask(&contours, &width, &height); });
}

TEST_F(DataTypeFaults, LeaveWhatIsTracedAndFilledOnRunsAsItWas)
{
    const std::vector<::Run> untidy = {{2, 0, 4}, {0, 0, 4}, {1, 0, 0}, {1, 4, 9}};
    KivContourArray outlines = KivContourArray::BordersOf(untidy, 5, 3);
    outlines.Append(KivContour{{-30, -20}, {50, 1}, {2, 40}});
    expect_all_or_nothing(KivContourArray{{{5, 6}}},
                          [&](KivContourArray& contours) { contours = KivContourArray::BordersOf(untidy, 5, 3); });
    expect_all_or_nothing(std::vector<::Run>(),
                          [&](std::vector<::Run>& filled) { filled = outlines.FilledRuns(9, 9); });
    expect_all_or_nothing(KivMatrix(cv::Mat(1, 1, CV_8UC1, cv::Scalar(4))),
                          [&](KivMatrix& mask) { mask = KivMatrix(IKivROIPara::ToMAT(outlines, 9, 9)); });
}

TEST_F(DataTypeFaults, LeaveImagesAndMatricesAsTheyWere)
{
    const KivImage image(cv::Mat(2, 3, CV_8UC1, cv::Scalar(5)));
    expect_all_or_nothing(KivImage(cv::Mat(1, 1, CV_8UC1, cv::Scalar(4))), [&](KivImage& value) { value = image; });
    const KivMatrix matrix(cv::Mat(2, 3, CV_64FC1, cv::Scalar(5)));
    expect_all_or_nothing(KivMatrix(cv::Mat(1, 1, CV_8UC1, cv::Scalar(4))), [&](KivMatrix& value) { value = matrix; });
}
