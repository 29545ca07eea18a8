// SPDX-License-Identifier: MIT
#include "kivconvert/failure.h"

#include "kivconvert/errors.h"

#include <algorithm>
#include <cctype>
#include <fmt/format.h>
#include <new>
#include <opencv2/core.hpp>

namespace kivconvert
{
namespace
{

constexpr const char* out_of_memory = "out of memory";

std::string message_of(const cv::Exception& error)
{
    if (error.code == cv::Error::StsNoMem) {
        return out_of_memory;
    }
    return error.err.empty() ? error.msg : error.err;
}

/// The message of the exception that is being handled.
std::string current_message()
{
    try {
        throw;
    } catch (const cv::Exception& error) {
        return message_of(error);
    } catch (const std::bad_alloc&) {
        return out_of_memory;
    } catch (const std::exception& error) {
        return error.what();
    }
}

} // namespace

std::string error_line(std::string message)
{
    std::replace_if(
        message.begin(), message.end(), [](unsigned char letter) { return std::iscntrl(letter) != 0; }, ' ');
    return fmt::format("kivconvert: {}\n", message);
}

Failure current_failure()
{
    try {
        throw;
    } catch (const InputError& error) {
        return {exit_status::wrong_input, error_line(error.what())};
    } catch (const FilesFailed& error) {
        return error.failure;
    } catch (...) {
        return {exit_status::refused, error_line(current_message())};
    }
}

void Complaints::keep(const std::function<void()>& work)
{
    try {
        work();
    } catch (...) {
        const Failure failure = current_failure();
        failure_ = {std::max(failure_.status, failure.status), failure_.lines + failure.lines};
        ++count_;
    }
}

void Complaints::expect_none() const
{
    if (count_ > 0) {
        throw FilesFailed(failure_, failure_.lines);
    }
}

void Complaints::expect_none(std::size_t total, const std::string& what) const
{
    if (count_ > 0) {
        const std::string summary = fmt::format("{} of {} {}", count_, total, what);
        throw FilesFailed({failure_.status, failure_.lines + error_line(summary)}, summary);
    }
}

void report_under(const std::string& subject, const std::function<void()>& work)
{
    try {
        work();
    } catch (const std::runtime_error&) {
        throw;
    } catch (...) {
        throw std::runtime_error(fmt::format("{}: {}", subject, current_message()));
    }
}

} // namespace kivconvert
