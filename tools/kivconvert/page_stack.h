// SPDX-License-Identifier: MIT
// Many images as the pages of one TIFF file.
#pragma once

#include "kivconvert/failure.h"
#include "kivconvert/image_encoder.h"
#include "kivconvert/output.h"

#include <cstddef>
#include <functional>
#include <string>

namespace kivconvert
{

/// Whether an output is named like a file that can have pages, and is no folder.
bool can_have_pages(const std::string& path);

/// A file that gets its pages in order. It is in memory, compressed, until it is whole.
class PageStack
{
public:
    explicit PageStack(std::string path) : path_(std::move(path)) {}

    /// Appends pages, which `make` is called for on all processors, one each at a time, with a bar on a
    /// terminal. Failures are kept, and no pages after the first one.
    void add(std::size_t count, const std::function<void(std::size_t index, const Output& page)>& make);

    /// To be called once, after the last page. @throws FilesFailed, and nothing is written, if pages could not be made;
    /// FileError
    void finish();

private:
    void append(const cv::Mat& page);

    std::string path_;
    TiffPages pages_;
    Complaints complaints_;
    std::size_t count_ = 0;
};

} // namespace kivconvert
