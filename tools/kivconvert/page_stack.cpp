// SPDX-License-Identifier: MIT
#include "kivconvert/page_stack.h"

#include "kivconvert/errors.h"
#include "kivconvert/files.h"
#include "kivconvert/memory_limit.h"
#include "kivconvert/processors.h"
#include "kivconvert/progress.h"

#include <algorithm>
#include <fmt/format.h>
#include <vector>

namespace kivconvert
{

bool can_have_pages(const std::string& path)
{
    const std::string extension = extension_of(path);
    return extension == ".tif" || extension == ".tiff";
}

void PageStack::add(std::size_t count, const std::function<void(std::size_t index, const Output& page)>& make)
{
    if (count == 0) {
        return;
    }
    Progress progress(count);
    for (std::size_t first = 0; first < count; first += jobs()) {
        const std::size_t some = std::min(jobs(), count - first);
        std::vector<cv::Mat> images(some);
        std::vector<Complaints> complaints(some);
        on_all_processors(some, [&](std::size_t i) {
            complaints[i].keep([&] { make(first + i, {path_, &images[i]}); });
            progress.advance();
        });
        for (std::size_t i = 0; i < some; ++i) {
            ++count_;
            complaints_.keep([&] {
                complaints[i].expect_none();
                append(images[i]);
            });
        }
    }
}

void PageStack::append(const cv::Mat& page)
{
    if (page.empty()) {
        throw FileError(path_, fmt::format("would have a page {} without a size", count_));
    }
    if (complaints_.count() == 0) {
        pages_.add(page);
        expect_affordable(path_, static_cast<double>(pages_.size()), "bytes in pages", 1);
    }
}

void PageStack::finish()
{
    complaints_.expect_none(count_, "pages could not be made");
    if (count_ == 0) {
        throw FileError(path_, "would have no page");
    }
    write_file(path_, pages_.take());
}

} // namespace kivconvert
