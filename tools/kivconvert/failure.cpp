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

std::string what_opencv_says(const cv::Exception& error)
{
    if (error.code == cv::Error::StsNoMem) {
        return out_of_memory;
    }
    return error.err.empty() ? error.msg : error.err;
}

} // namespace

Failure current_failure()
{
    try {
        throw;
    } catch (const InputError& error) {
        return {exit_status::wrong_input, error.what()};
    } catch (const FilesFailed& error) {
        return {error.status, error.what()};
    } catch (const cv::Exception& error) {
        return {exit_status::refused, what_opencv_says(error)};
    } catch (const std::bad_alloc&) {
        return {exit_status::refused, out_of_memory};
    } catch (const std::exception& error) {
        return {exit_status::refused, error.what()};
    }
}

void naming(const std::string& subject, const std::function<void()>& work)
{
    try {
        work();
    } catch (const std::runtime_error&) {
        throw;
    } catch (...) {
        throw std::runtime_error(fmt::format("{}: {}", subject, current_failure().message));
    }
}

void report(const Failure& failure)
{
    std::string line = failure.message;
    std::replace_if(
        line.begin(), line.end(), [](unsigned char letter) { return std::iscntrl(letter) != 0; }, ' ');
    std::fputs(fmt::format("kivconvert: {}\n", line).c_str(), stderr); // there is nowhere to tell that this fails
}

} // namespace kivconvert
