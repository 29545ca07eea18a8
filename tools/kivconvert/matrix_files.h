// SPDX-License-Identifier: MIT
// Matrices as files: CSV, a line per row, or the pixels of an image.
#pragma once

#include "kivconvert/image_files.h"
#include "kivconvert/output.h"

#include <KivData/KivData.h>

#include <string>
#include <string_view>

namespace kivconvert
{

/// `file` is named in error messages. @throws FileError unless all lines are as many numbers that an int can hold
KivMatrix parse_matrix_csv(std::string_view text, const std::string& file);

/// A matrix of one channel.
std::string matrix_as_csv(const KivMatrix& matrix);

/// Reads CSV, or the values of an image in its own bit depth. @throws InputError, ResultError
KivMatrix read_matrix(const std::string& path, const ImagePart& part = {});

/// @throws FileError unless the file is named .csv or like an image that keeps every pixel
void expect_matrix_output(const std::string& path);

/// Writes CSV, or an image, for which values are rounded and clamped to 0 to 255. @throws FileError, ResultError
void write_matrix(const Output& output, KivMatrix& matrix);

} // namespace kivconvert
