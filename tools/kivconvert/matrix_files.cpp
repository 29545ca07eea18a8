// SPDX-License-Identifier: MIT
#include "kivconvert/matrix_files.h"

#include "kivconvert/csv_scanner.h"
#include "kivconvert/files.h"
#include "kivconvert/image_files.h"
#include "kivconvert/result_codes.h"

#include <KivDataConvert/KivDataConvert.h>

#include <fmt/ranges.h>
#include <iterator>
#include <limits>
#include <vector>

namespace kivconvert
{
namespace
{

bool is_csv(const std::string& path)
{
    return extension_of(path) == ".csv";
}

void read_row(const CsvScanner& scanner, std::vector<double>& values)
{
    for (std::size_t i = 0; i < scanner.field_count(); ++i) {
        values.push_back(
            scanner.number_at(i, "value", std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
    }
}

} // namespace

KivMatrix parse_matrix_csv(std::string_view text, const std::string& file)
{
    CsvScanner scanner(text, file);
    std::vector<double> values;
    std::size_t columns = 0;
    int rows = 0;
    for (; scanner.next_line(); ++rows) {
        columns = rows == 0 ? scanner.field_count() : columns;
        if (scanner.field_count() != columns) {
            scanner.fail(fmt::format("has {} values, but the first line has {}", scanner.field_count(), columns));
        }
        read_row(scanner, values);
    }
    if (rows == 0) {
        scanner.fail("holds no values");
    }
    return KivMatrix(cv::Mat(values, true).reshape(1, rows));
}

std::string matrix_as_csv(const KivMatrix& matrix)
{
    cv::Mat values;
    matrix.Mat().convertTo(values, CV_64F);
    std::string text;
    for (int row = 0; row < values.rows; ++row) {
        const auto* const value = values.ptr<double>(row);
        fmt::format_to(std::back_inserter(text), "{}\n", fmt::join(value, value + values.cols, ","));
    }
    return text;
}

KivMatrix read_matrix(const std::string& path, const ImagePart& part)
{
    if (is_csv(path)) {
        expect_no_part(part);
        KivMatrix matrix = parse_matrix_csv(read_text(path), path);
        expect_possible_frame(path, matrix.Mat().cols, matrix.Mat().rows);
        return matrix;
    }
    KivImage image = read_image(path, part);
    KivMatrix matrix;
    expect_success(KIVMV::KivImageToMatrix(image, &matrix), path);
    return matrix;
}

void expect_matrix_output(const std::string& path)
{
    if (!is_csv(path)) {
        expect_lossless_image(path);
    }
}

void write_matrix(const Output& output, KivMatrix& matrix)
{
    expect_matrix_output(output);
    if (is_csv(output)) {
        write_file(output, matrix_as_csv(matrix));
        return;
    }
    KivImage image;
    expect_success(KIVMV::KivMatrixToImage(&image, matrix), output);
    write_image(output, image);
}

} // namespace kivconvert
