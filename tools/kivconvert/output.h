// SPDX-License-Identifier: MIT
// Where results go.
#pragma once

#include <opencv2/core.hpp>
#include <string>
#include <utility>

namespace kivconvert
{

/// A file; or memory, for an image that becomes a page of a file of that name.
struct Output {
    Output(std::string path_, cv::Mat* page_ = nullptr) : path(std::move(path_)), page(page_) {}
    operator const std::string&() const { return path; }

    std::string path;
    cv::Mat* page; ///< null: a file of its own
};

} // namespace kivconvert
