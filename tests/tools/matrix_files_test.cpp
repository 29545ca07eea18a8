// SPDX-License-Identifier: MIT
#include "kivconvert/image_files.h"
#include "kivconvert/matrix_files.h"
#include "tools/scratch_folder.h"

#include <string>
#include <utility>

namespace
{

using MatrixFiles = tools_tests::ScratchFolder;
using kivconvert::read_matrix;
using tools_tests::complaint_of;

TEST_F(MatrixFiles, AreReadAsTheyWereWritten)
{
    KivMatrix matrix(cv::Mat_<double>({2, 3}, {0.1, -2, 1e9, 3, 4.5, -1e-9}));
    kivconvert::write_matrix(path("a.csv"), matrix);
    EXPECT_EQ(get("a.csv"), "0.1,-2,1000000000\n3,4.5,-1e-09\n");
    EXPECT_EQ(read_matrix(path("a.csv")), matrix);
    EXPECT_EQ(read_matrix(put("b.csv", "1\r\n2")), KivMatrix(cv::Mat_<double>({2, 1}, {1, 2})));
    EXPECT_EQ(read_matrix(put("c.csv", "1, +2\n\"3\",4\n\n")), KivMatrix(cv::Mat_<double>({2, 2}, {1, 2, 3, 4})));
}

TEST_F(MatrixFiles, AreRoundedAndClampedToImages)
{
    put("a.csv", "-7,0.5,1.5\n254.4,254.6,300\n");
    KivMatrix matrix = read_matrix(path("a.csv"));
    kivconvert::write_matrix(path("a.png"), matrix);
    EXPECT_EQ(kivconvert::read_image(path("a.png")), KivImage(cv::Mat_<uchar>({2, 3}, {0, 0, 2, 254, 255, 255})));
}

TEST_F(MatrixFiles, ShowImagesInTheirOwnDepth)
{
    const std::string pixels("\x01\x00\x00\x07", 4);
    KivMatrix matrix = read_matrix(put("a.pgm", "P5\n2 1\n65535\n" + pixels));
    EXPECT_EQ(matrix, KivMatrix(cv::Mat_<ushort>({1, 2}, {256, 7})));
    kivconvert::write_matrix(path("a.csv"), matrix);
    EXPECT_EQ(get("a.csv"), "256,7\n");
}

TEST_F(MatrixFiles, MustBeRowsOfAsManyNumbers)
{
    const std::pair<const char*, const char*> malformed[] = {
        {"\n", "1: holds no values"},
        {"1,2\n\n3,4\n", "2: has 1 values, but the first line has 2"},
        {"1,\n", "1: value is not a number"},
        {"1;2\n", "1: value is not a number"},
        {"1,2\n3\n", "2: has 1 values, but the first line has 2"},
        {"1\n2,3\n", "2: has 2 values, but the first line has 1"},
        {"nan\n", "1: value is not a number"},
        {"1\n-inf\n", "2: value is not a number"},
        {"2147483648\n", "1: value is not a number from -2147483648 to 2147483647"},
        {"1e999\n", "1: value is not a number from -2147483648 to 2147483647"},
        {"x,y\n", "1: value is not a number"},
    };
    for (const auto& [text, complaint] : malformed) {
        EXPECT_EQ(complaint_of([&, bytes = text] { kivconvert::parse_matrix_csv(bytes, "a"); }),
                  std::string("a:") + complaint)
            << text;
    }
    KivMatrix matrix(cv::Mat_<double>({1, 1}, {1}));
    EXPECT_NE(complaint_of([&] { kivconvert::write_matrix(path("a.jpg"), matrix); }), "no complaint");
    EXPECT_EQ(files(), 0);
}

} // namespace
