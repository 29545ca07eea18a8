// SPDX-License-Identifier: MIT
#include "kivconvert/page_stack.h"

#include "kivconvert/errors.h"
#include "kivconvert/files.h"
#include "kivconvert/inputs.h"
#include "kivconvert/memory_limit.h"
#include "kivconvert/processors.h"
#include "kivconvert/progress.h"

#include <condition_variable>
#include <fmt/format.h>
#include <mutex>

namespace kivconvert
{

bool can_have_pages(const std::string& path)
{
    const std::string extension = extension_of(path);
    return (extension == ".tif" || extension == ".tiff") && !is_folder(path);
}

void PageStack::add(std::size_t count, const std::function<void(std::size_t index, const Output& page)>& make)
{
    if (count == 0) {
        return;
    }
    Progress progress(count);
    std::mutex appending;
    std::condition_variable turn;
    std::size_t next = 0;
    on_all_processors(count, [&](std::size_t i) {
        cv::Mat page;
        Complaints complaints;
        complaints.keep([&] { make(i, {path_, &page}); });
        std::unique_lock lock(appending);
        turn.wait(lock, [&] { return next == i; }); // the pages before are being made
        ++count_;
        complaints_.keep([&] {
            complaints.expect_none();
            append(page);
        });
        ++next;
        turn.notify_all();
        progress.advance();
    });
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
